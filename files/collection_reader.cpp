// The two readers of a collection file. Both read into a scratch copy first and install it when all of it is
// right.
#include "files/collection_reader.h"

#include "core/game_state.h"
#include "files/field_reader.h"
#include "platform/desktop.h"
#include "platform/files.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <string>

namespace {

constexpr int LinesBeforeFreeField = 64;
constexpr int FieldsOfARecord = 24;

/// Far beyond any place or size, and far from where products of such numbers cease to be numbers.
constexpr double LargestNumber = 1e9;

/// Reads numbers and remembers the first fault; after a fault every number is 0.
class CollectionScanner {
  public:
    explicit CollectionScanner(std::string_view text) : Reader(text) {}

    bool Failed() const { return !Fault_.empty(); }
    const std::string& Fault() const { return Fault_; }

    /// Always 0, the number in place of a faulty one. Cold, as what is rare must not slow down what is not.
    [[gnu::cold]] Number Fail(int line, const std::string& what) {
        if (!Failed()) Fault_ = "Line " + std::to_string(line) + ": " + what;
        return 0;
    }

    Number ReadNumber() {
        if (Failed()) return 0;
        std::int32_t whole = 0;
        return InRange(Reader.NextWholeNumber(whole) ? whole : ReadAnyNumber());
    }

    std::int16_t ReadInt16() { return ToInt16(ReadNumber()); }

    std::int16_t ToInt16(double value) {
        constexpr double Low = std::numeric_limits<std::int16_t>::min() - 0.5;
        constexpr double High = std::numeric_limits<std::int16_t>::max() + 0.5;
        // A half is rounded to the even number, which is inside at the low end alone.
        if (value < Low || value >= High) Fail(Reader.Line(), "a number is out of range");
        return NearestInt16(value);
    }

    FieldReader Reader;

  private:
    [[gnu::cold]] Number ReadAnyNumber() {
        if (Reader.AtEnd()) return Fail(Reader.NextLine(), "the file ends where a number is expected");
        const std::string_view field = Reader.NextField();
        if (field.empty()) return Fail(Reader.Line(), "a number is missing");
        const std::optional<double> value = ParseNumber(field);
        return value ? *value : Fail(Reader.Line(), Quoted(field) + " is not a number");
    }

    Number InRange(Number number) {
        return std::abs(number) <= LargestNumber ? number : Fail(Reader.Line(), "a number is out of range");
    }

    /// Shortened, and free of what a message box can't show.
    static std::string Quoted(std::string_view field) {
        std::string text(field.substr(0, 20));
        for (char& c : text)
            if (c < ' ' || c > '~') c = '?';
        return "\"" + text + (field.size() > 20 ? "..." : "") + "\"";
    }

    std::string Fault_;
};

/// The text of QuilletFile; false after a message when it can't be had.
bool ReadQuilletFile(std::string& text) {
    const FileError error = ReadFile(Game.QuilletFile, LargestCollection, text);
    if (!error.empty()) ShowFault("Line 1: " + error);
    return error.empty();
}

void ReadStartRows(CollectionScanner& scanner, GameState& scratch) {
    for (int p = 0; p < PieceCount; ++p) {
        scratch.PieceX[p] = scratch.BoardX0 + scratch.UnitStraight * scanner.ReadNumber();
        scratch.PieceY[p] = scratch.BoardY0 + scratch.UnitStraight * scanner.ReadNumber();
        scratch.HomeX[p] = scratch.PieceX[p];
        scratch.HomeY[p] = scratch.PieceY[p];
        scratch.PieceTurn[p] = scratch.HomeTurn[p] = 0;
    }
    scratch.PieceTurn[1] = scratch.HomeTurn[1] = 2;
    scratch.PieceTurn[2] = scratch.HomeTurn[2] = 1;
}

void ReadShapeRow(CollectionScanner& scanner, GameState& scratch, int piece, int turn) {
    scanner.ReadNumber();
    const Number unit = scanner.ReadNumber() < 0 ? scratch.UnitSlant : scratch.UnitStraight;
    scratch.PieceWidth[piece][turn] = FloorNumber(scanner.ReadNumber() * unit);
    scratch.PieceHeight[piece][turn] = FloorNumber(scanner.ReadNumber() * unit);
    scanner.ReadNumber();
    scanner.ReadNumber();
    for (std::size_t k = 1; k <= 10; ++k)
        scratch.PieceShape[k][piece][turn] = scanner.ToInt16(scanner.ReadInt16() * unit);
    scratch.TurnShiftX[piece][turn] = FloorNumber(scanner.ReadNumber() * scratch.UnitStraight);
    const float shiftY = Single(scanner.ReadNumber());
    scratch.TurnShiftY[piece][turn] = scanner.ToInt16(FloorNumber(shiftY * scratch.UnitStraight));
}

/// Passes over all that stands before the records.
void SkipHead(CollectionScanner& scanner) {
    for (int line = 1; line <= LinesBeforeFreeField; ++line) scanner.Reader.SkipLine();
    if (scanner.Reader.AtEnd())
        scanner.Fail(scanner.Reader.NextLine(), "the file is too short");
    else if (scanner.Reader.NextField().empty())
        scanner.Fail(scanner.Reader.Line(), "a text is missing");
}

struct QuilletTables {
    int Count = 0;
    PerQuillet<Number> SolTurn;
    PerQuillet<Number> SolX;
    PerQuillet<std::int16_t> SolY;
};

/// Reads one record, into row Count + 1; a record beyond the last row or one that doesn't count is read all
/// the same, since a later Remove would give it a number.
void ReadRecord(CollectionScanner& scanner, QuilletTables& tables) {
    scanner.Reader.SkipEmptyLines();
    if (scanner.Reader.FieldsOnLine() != FieldsOfARecord)
        scanner.Fail(scanner.Reader.NextLine(), "a record has 24 numbers");
    const bool counts = scanner.ReadNumber() > 0;
    const Number left = scanner.ReadNumber();
    const Number top = scanner.ReadNumber();
    if (counts) ++tables.Count;
    const auto row = static_cast<std::size_t>(counts && tables.Count <= MostQuillets ? tables.Count : 0);
    for (int p = 0; p < PieceCount; ++p) {
        tables.SolTurn[p][row] = scanner.ReadInt16();
        if (tables.SolTurn[p][row] < 0 || tables.SolTurn[p][row] >= TurnCount)
            scanner.Fail(scanner.Reader.Line(), "a turn is not 0 to 7");
        tables.SolX[p][row] = scanner.ReadInt16() - left;
        tables.SolY[p][row] = scanner.ToInt16(scanner.ReadInt16() - top);
    }
}

/// Row 1 always: it is shown of an empty collection too, as seven pieces in one place.
void Install(const QuilletTables& tables) {
    const auto last = static_cast<std::size_t>(std::max(tables.Count, 1));
    for (int p = 0; p < PieceCount; ++p)
        for (std::size_t q = 1; q <= last; ++q) {
            Game.SolTurn[p][q] = tables.SolTurn[p][q];
            Game.SolX[p][q] = tables.SolX[p][q];
            Game.SolY[p][q] = tables.SolY[p][q];
        }
    Game.QuilletCount = tables.Count;
}

/// Reads the piece table into the scratch record.
void ReadPieceTable(CollectionScanner& scanner, GameState& scratch) {
    scratch.UnitStraight = 24;
    scratch.UnitSlant = 34;
    scratch.BoardX0 = scratch.BoardY0 = 100;
    ReadStartRows(scanner, scratch);
    for (int p = 0; p < PieceCount; ++p)
        for (int t = 0; t < TurnCount; ++t) ReadShapeRow(scanner, scratch, p, t);
}

/// Reads everything but the start places and shapes, which are only looked at; the fault, or an empty text.
std::string ReadRecords(const std::string& text, QuilletTables& tables) {
    CollectionScanner head(text);
    ReadPieceTable(head, *std::make_unique<GameState>());
    if (head.Failed()) return head.Fault();
    CollectionScanner scanner(text);
    SkipHead(scanner);
    while (!scanner.Failed() && tables.Count <= MostQuillets && !scanner.Reader.AtEnd())
        ReadRecord(scanner, tables);
    return scanner.Fault();
}

} // namespace

void LoadPieceTable() {
    std::string text;
    if (!ReadQuilletFile(text)) EndProgram();
    const auto scratch = std::make_unique<GameState>(Game);
    CollectionScanner scanner(text);
    ReadPieceTable(scanner, *scratch);
    if (scanner.Failed()) {
        ShowFault(scanner.Fault());
        EndProgram();
    }
    Game = *scratch;
}

bool LoadQuillets() {
    std::string text;
    if (!ReadQuilletFile(text)) return false;
    const auto tables = std::make_unique<QuilletTables>();
    const std::string fault = ReadRecords(text, *tables);
    if (!fault.empty()) {
        ShowFault(fault);
        return false;
    }
    if (tables->Count > MostQuillets) {
        MsgBox("Cannot handle more than 500 Quillets");
        EndProgram();
    }
    Install(*tables);
    return true;
}

std::string FaultOfCollection(const std::string& text) {
    return ReadRecords(text, *std::make_unique<QuilletTables>());
}

void ShowFault(const std::string& fault) {
    MsgBox("Quillet shapes file cannot be read:" + Game.LineBreak + Game.QuilletFile + Game.LineBreak + fault
           + ".");
}
