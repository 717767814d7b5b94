// Reads and writes the lines of a collection.
#include "files/collection_format.h"

#include "files/field_reader.h"

#include <cmath>
#include <limits>
#include <memory>

namespace {

constexpr int LinesOfHead = 64;
constexpr int FieldsOfRecord = 3 + 3 * PieceCount;
constexpr const char* LineEnd = "\r\n";

/// Far above any place or size, and low enough for products of such numbers.
constexpr double LargestNumber = 1e9;

/// Shortened, and without the characters that a message box cannot show.
std::string Quoted(std::string_view field) {
    constexpr std::size_t LongestShown = 20;
    std::string text(field.substr(0, LongestShown));
    for (char& c : text)
        if (c < ' ' || c > '~') c = '?';
    return '"' + text + (field.size() > LongestShown ? "...\"" : "\"");
}

/// Reads numbers and keeps the first fault. After a fault every number is 0.
class NumberReader {
  public:
    explicit NumberReader(std::string_view text) : Fields(text) {}

    bool Failed() const { return !Fault_.empty(); }
    const Fault& FirstFault() const { return Fault_; }

    /// Always 0, the number in place of a faulty one. Cold, so that the compiler keeps it out of the fast
    /// path.
    [[gnu::cold]] Number Fail(int line, const std::string& what) {
        if (!Failed()) Fault_ = "Line " + std::to_string(line) + ": " + what;
        return 0;
    }

    Number Next() {
        if (Failed()) return 0;
        std::int32_t whole = 0;
        const Number number = Fields.NextWholeNumber(whole) ? whole : NextOfAnyKind();
        return std::abs(number) <= LargestNumber ? number : FailRange();
    }

    std::int16_t NextInt16() { return ToInt16(Next()); }

    std::int16_t ToInt16(double value) {
        // A half goes to the even number, so only the lower limit itself is inside.
        constexpr double Low = std::numeric_limits<std::int16_t>::min() - 0.5;
        constexpr double High = std::numeric_limits<std::int16_t>::max() + 0.5;
        if (value < Low || value >= High) FailRange();
        return NearestInt16(value);
    }

    FieldReader Fields;

  private:
    [[gnu::cold]] Number NextOfAnyKind() {
        if (Fields.AtEnd()) return Fail(Fields.NextLine(), "the file ends where a number is expected");
        const std::string_view field = Fields.NextField();
        if (field.empty()) return Fail(Fields.Line(), "a number is missing");
        const std::optional<double> value = ParseNumber(field);
        return value ? *value : Fail(Fields.Line(), Quoted(field) + " is not a number");
    }

    [[gnu::cold]] Number FailRange() { return Fail(Fields.Line(), "a number is out of range"); }

    Fault Fault_;
};

void ReadStartRow(NumberReader& reader, PieceTable& table, int piece) {
    table.HomeX[piece] = StartOrigin + table.UnitStraight * reader.Next();
    table.HomeY[piece] = StartOrigin + table.UnitStraight * reader.Next();
}

void ReadShapeRow(NumberReader& reader, PieceTable& table, int piece, int turn) {
    reader.Next();
    const Number unit = reader.Next() < 0 ? table.UnitSlant : table.UnitStraight;
    table.PieceWidth[piece][turn] = FloorNumber(reader.Next() * unit);
    table.PieceHeight[piece][turn] = FloorNumber(reader.Next() * unit);
    reader.Next();
    reader.Next();
    for (std::size_t k = 1; k < table.PieceShape.size(); ++k)
        table.PieceShape[k][piece][turn] = reader.ToInt16(reader.NextInt16() * unit);
    table.TurnShiftX[piece][turn] = FloorNumber(reader.Next() * table.UnitStraight);
    const float shiftY = Single(reader.Next());
    table.TurnShiftY[piece][turn] = reader.ToInt16(FloorNumber(shiftY * table.UnitStraight));
}

void SkipHead(FieldReader& fields) {
    for (int line = 1; line <= LinesOfHead; ++line) fields.SkipLine();
}

void CheckFreeField(NumberReader& reader) {
    if (reader.Fields.AtEnd())
        reader.Fail(reader.Fields.NextLine(), "the file is too short");
    else if (reader.Fields.NextField().empty())
        reader.Fail(reader.Fields.Line(), "a text is missing");
}

void AddQuillet(const Figure& figure, Collection& collection) {
    collection.QuilletCount += 1;
    if (collection.QuilletCount > MostQuillets) return;
    const auto quillet = static_cast<std::size_t>(collection.QuilletCount);
    for (int p = 0; p < PieceCount; ++p) {
        collection.SolTurn[p][quillet] = figure.Pieces.PieceTurn[p];
        collection.SolX[p][quillet] = figure.Pieces.PieceX[p] - figure.Left;
        collection.SolY[p][quillet] = NearestInt16(figure.Pieces.PieceY[p] - figure.Top);
    }
}

/// What has to be written before the next line.
std::string_view MissingLineEnd(std::string_view text) {
    if (text.empty() || text.ends_with('\n')) return "";
    return text.ends_with('\r') ? "\n" : LineEnd;
}

Number NextTurn(NumberReader& reader) {
    const Number turn = reader.NextInt16();
    if (turn < 0 || turn >= TurnCount) reader.Fail(reader.Fields.Line(), "a turn is not 0 to 7");
    return turn;
}

/// Reads one record; answers its number. One that does not count is checked as well, since a later Remove
/// gives it a number.
Number ReadRecord(NumberReader& reader, Figure& figure) {
    reader.Fields.SkipEmptyLines();
    if (reader.Fields.FieldsOnLine() != FieldsOfRecord)
        reader.Fail(reader.Fields.NextLine(), "a record has " + std::to_string(FieldsOfRecord) + " numbers");
    const Number number = reader.Next();
    figure.Left = reader.Next();
    figure.Top = reader.Next();
    for (int p = 0; p < PieceCount; ++p) {
        figure.Pieces.PieceTurn[p] = NextTurn(reader);
        figure.Pieces.PieceX[p] = reader.NextInt16();
        figure.Pieces.PieceY[p] = reader.NextInt16();
        reader.ToInt16(figure.Pieces.PieceY[p] - figure.Top);
    }
    return number;
}

/// Copies the next record as it is written, with another number.
void CopyRecord(FieldReader& fields, int number, std::string& result) {
    fields.NextField();
    result += std::to_string(number);
    for (int field = 2; field <= FieldsOfRecord; ++field) result.append(1, ',').append(fields.NextField());
    result += LineEnd;
}

} // namespace

std::string RecordText(Number number, const Figure& figure) {
    const auto decimal = [](Number value) { return std::to_string(NearestInt32(value)); };
    const auto coordinate = [](Number value) { return std::to_string(NearestInt16(value)); };
    std::string text = decimal(number) + "," + decimal(figure.Left) + "," + decimal(figure.Top);
    for (int p = 0; p < PieceCount; ++p)
        text += "," + decimal(figure.Pieces.PieceTurn[p]) + "," + coordinate(figure.Pieces.PieceX[p]) + ","
                + coordinate(figure.Pieces.PieceY[p]);
    return text + LineEnd;
}

Fault ReadPieceTable(std::string_view text, PieceTable& table) {
    table.UnitStraight = 24;
    table.UnitSlant = 34;
    table.HomeTurn = {0, 2, 1, 0, 0, 0, 0};
    NumberReader reader(text);
    for (int p = 0; p < PieceCount; ++p) ReadStartRow(reader, table, p);
    for (int p = 0; p < PieceCount; ++p)
        for (int t = 0; t < TurnCount; ++t) ReadShapeRow(reader, table, p, t);
    return reader.FirstFault();
}

Fault ReadCollection(std::string_view text, Collection& collection) {
    PieceTable unused;
    if (Fault fault = ReadPieceTable(text, unused); !fault.empty()) return fault;
    NumberReader reader(text);
    SkipHead(reader.Fields);
    CheckFreeField(reader);
    while (!reader.Failed() && !reader.Fields.AtEnd()) {
        Figure figure;
        if (ReadRecord(reader, figure) > 0) AddQuillet(figure, collection);
    }
    return reader.FirstFault();
}

Fault FaultOfCollection(std::string_view text) {
    return ReadCollection(text, *std::make_unique<Collection>());
}

std::string WithRecord(std::string_view text, const std::string& record) {
    return std::string(text).append(MissingLineEnd(text)).append(record);
}

std::string WithoutRecord(std::string_view text, Number dropped) {
    FieldReader fields(text);
    SkipHead(fields);
    std::string result(text.substr(0, text.size() - fields.Remaining()));
    result.append(fields.NextField()).append(LineEnd);
    int number = 0, kept = 0;
    while (!fields.AtEnd()) {
        fields.SkipEmptyLines();
        if (++number == dropped)
            fields.SkipLine();
        else
            CopyRecord(fields, ++kept, result);
    }
    return result;
}
