// Fields, lines and decimal numbers.
#include "files/field_reader.h"

#include <algorithm>
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

std::string FieldReader::NextQuotedField() {
    const std::size_t first = Rest_.find_first_not_of(Blanks);
    if (first == std::string_view::npos || Rest_[first] != '"') return std::string(NextField());
    std::string field;
    std::size_t at = first + 1;
    for (; at < Rest_.size() && Rest_[at] != '\n'; ++at) {
        if (Rest_[at] == '"' && !Rest_.substr(at + 1).starts_with('"')) break;
        if (Rest_[at] == '"') ++at;
        field += Rest_[at];
    }
    Rest_.remove_prefix(at);
    NextField();
    return field;
}

std::string_view FieldReader::NextBlankSeparatedField() {
    const auto passBlanks = [this] {
        Rest_.remove_prefix(std::min(Rest_.find_first_not_of(" \t\r"), Rest_.size()));
    };
    passBlanks();
    const std::size_t end = Rest_.find_first_of(", \t\r\n");
    const std::string_view field = Rest_.substr(0, end);
    Rest_.remove_prefix(field.size());
    // The blanks after a number belong to the one separator behind them.
    passBlanks();
    if (Rest_.starts_with(',') || Rest_.starts_with('\n')) Rest_.remove_prefix(1);
    return field;
}

std::ptrdiff_t FieldReader::FieldsOnLine() const {
    const std::string_view line = Rest_.substr(0, Rest_.find('\n'));
    return std::count(line.begin(), line.end(), ',') + 1;
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
