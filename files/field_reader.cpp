// Fields, lines and decimal numbers.
#include "files/field_reader.h"

#include <charconv>
#include <cmath>

namespace {

constexpr std::string_view Blanks = " \t";

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

std::string_view WithoutCarriageReturn(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

} // namespace

bool FieldReader::AtEnd() const {
    return Rest_.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

std::string_view FieldReader::Take(std::string_view separators) {
    FieldLine_ = Line_;
    const std::size_t end = Rest_.find_first_of(separators);
    std::string_view field = Rest_.substr(0, end);
    if (end == std::string_view::npos) {
        Rest_ = {};
        return Trimmed(WithoutCarriageReturn(field));
    }
    if (Rest_[end] == '\n') {
        field = WithoutCarriageReturn(field);
        ++Line_;
    }
    Rest_.remove_prefix(end + 1);
    return Trimmed(field);
}

std::string_view FieldReader::NextField() {
    return Take(",\n");
}

std::string_view FieldReader::NextQuotedField() {
    const std::size_t first = Rest_.find_first_not_of(Blanks);
    if (first == std::string_view::npos || Rest_[first] != '"') return NextField();
    const std::size_t close = Rest_.find_first_of("\"\n", first + 1);
    if (close == std::string_view::npos || Rest_[close] != '"') return NextField();
    const std::string_view field = Rest_.substr(first + 1, close - first - 1);
    Rest_.remove_prefix(close + 1);
    NextField();
    return field;
}

std::string_view FieldReader::NextBlankSeparatedField() {
    const std::size_t first = Rest_.find_first_not_of(Blanks);
    Rest_.remove_prefix(first == std::string_view::npos ? Rest_.size() : first);
    return Take(", \t\n");
}

void FieldReader::SkipEmptyLines() {
    while (!AtEnd() && Trimmed(WithoutCarriageReturn(Rest_.substr(0, Rest_.find('\n')))).empty()) SkipLine();
}

bool FieldReader::SkipLine() {
    const std::size_t end = Rest_.find('\n');
    if (end == std::string_view::npos) {
        Rest_ = {};
        return false;
    }
    Rest_.remove_prefix(end + 1);
    ++Line_;
    return true;
}

std::optional<double> ParseNumber(std::string_view field) {
    double value = 0;
    const char* end = field.data() + field.size();
    const auto [stop, error] = std::from_chars(field.data(), end, value);
    if (error != std::errc{} || stop != end || !std::isfinite(value)) return std::nullopt;
    return value;
}
