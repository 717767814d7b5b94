// Fields, lines and decimal numbers.
#include "files/field_reader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace {

constexpr std::string_view Blanks = " \t";

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

/// A number without its sign: digits times a power of ten.
struct DecimalParts {
    std::uint64_t Digits = 0;
    int Exponent = 0;

    /// Digits beyond the precision of a double only count as places.
    void Add(char digit, int exponent) {
        constexpr std::uint64_t Full = 100'000'000'000'000'000;
        const bool fits = Digits < Full;
        if (fits) Digits = 10 * Digits + static_cast<std::uint64_t>(digit - '0');
        Exponent += fits ? exponent : exponent + 1;
    }

    /// Exact to the last bit where 15 digits and a power of 22 are enough.
    double Value() const {
        const auto digits = static_cast<double>(Digits);
        return Exponent < 0 ? digits / std::pow(10.0, -Exponent) : digits * std::pow(10.0, Exponent);
    }
};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Takes a run of digits from the front of the text, each of which shifts the exponent; answers how many.
int TakeDigits(std::string_view& text, DecimalParts& parts, int exponent) {
    int count = 0;
    for (; !text.empty() && IsDigit(text.front()); text.remove_prefix(1), ++count)
        parts.Add(text.front(), exponent);
    return count;
}

/// Takes an exponent, if there is one; false when its number is missing.
bool TakeExponent(std::string_view& text, DecimalParts& parts) {
    if (text.empty() || (text.front() != 'e' && text.front() != 'E')) return true;
    text.remove_prefix(1);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    int exponent = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), exponent);
    if (error == std::errc::invalid_argument) return false;
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    constexpr int Most = 100'000; // far beyond any double
    parts.Exponent += error == std::errc{} ? std::clamp(exponent, -Most, Most) : Most;
    return true;
}

std::string_view WithoutCarriageReturn(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

} // namespace

bool FieldReader::AtEnd() const {
    return std::all_of(Rest_.begin(), Rest_.end(),
                       [](char c) { return IsBlank(c) || c == '\r' || c == '\n'; });
}

std::string_view FieldReader::NextField() {
    FieldLine_ = Line_;
    std::size_t end = 0;
    while (end < Rest_.size() && Rest_[end] != ',' && Rest_[end] != '\n') ++end;
    std::string_view field = Rest_.substr(0, end);
    const bool atComma = end < Rest_.size() && Rest_[end] == ',';
    if (!atComma) field = WithoutCarriageReturn(field);
    if (!atComma && end < Rest_.size()) ++Line_;
    Rest_.remove_prefix(std::min(end + 1, Rest_.size()));
    return Trimmed(field);
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

int FieldReader::FieldsOnLine() const {
    int fields = 1;
    for (const char c : Rest_.substr(0, Rest_.find('\n'))) fields += c == ',';
    return fields;
}

void FieldReader::SkipEmptyLines() {
    const std::size_t filled = std::min(Rest_.find_first_not_of(" \t\r\n"), Rest_.size());
    const std::string_view empty = Rest_.substr(0, Rest_.substr(0, filled).rfind('\n') + 1);
    Line_ += static_cast<int>(std::count(empty.begin(), empty.end(), '\n'));
    Rest_.remove_prefix(empty.size());
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
    const bool negative = field.starts_with('-');
    if (negative) field.remove_prefix(1);
    DecimalParts parts;
    int digits = TakeDigits(field, parts, 0);
    if (field.starts_with('.')) {
        field.remove_prefix(1);
        digits += TakeDigits(field, parts, -1);
    }
    if (digits == 0 || !TakeExponent(field, parts) || !field.empty()) return std::nullopt;
    const double value = parts.Value();
    if (!std::isfinite(value)) return std::nullopt;
    return negative ? -value : value;
}
