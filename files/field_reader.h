// Reads a text field by field. Every text file of the game is read by it.
#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// A field ends at a comma or a line end (LF or CR LF); one read takes the next field wherever it lies.
/// Blanks around it are dropped.
class FieldReader {
  public:
    explicit FieldReader(std::string_view text) : Rest_(text) {}

    /// True when nothing follows but empty lines.
    bool AtEnd() const;

    std::string_view NextField();

    /// The fast path: reads the next field if it is a whole number of 32 bits with a comma or a line end
    /// right behind it. Otherwise reads nothing and answers false.
    bool NextWholeNumber(std::int32_t& whole) {
        const char* end = Rest_.data() + Rest_.size();
        auto [stop, error] = std::from_chars(Rest_.data(), end, whole);
        if (error != std::errc{} || stop == end) return false;
        FieldLine_ = Line_;
        if (*stop != ',') {
            if (*stop == '\r' && stop + 1 != end) ++stop;
            if (*stop != '\n') return false;
            ++Line_;
        }
        Rest_.remove_prefix(static_cast<std::size_t>(stop + 1 - Rest_.data()));
        return true;
    }

    /// A field that may stand in double quotes, and then may hold commas and doubled double quotes.
    std::string NextQuotedField();

    /// A number field: here a blank ends a number as a comma or a line end does.
    std::string_view NextBlankSeparatedField();

    /// How many fields there are on the rest of the line.
    int FieldsOnLine() const;

    /// Passes over lines that hold nothing but blanks.
    void SkipEmptyLines();

    /// Passes over the rest of the line; false when there is no line end any more.
    bool SkipLine();

    /// How many characters follow.
    std::size_t Remaining() const { return Rest_.size(); }

    /// The line, counted from 1, in which the field last read stands.
    int Line() const { return FieldLine_; }

    /// The line, counted from 1, at which the next read starts.
    int NextLine() const { return Line_; }

  private:
    std::string_view Rest_;
    int Line_ = 1;
    int FieldLine_ = 1;
};

/// The value of a field that is one decimal number and nothing else: digits, with a point and an exponent
/// where wanted, behind a minus sign or none. The same in every language.
std::optional<double> ParseNumber(std::string_view field);
