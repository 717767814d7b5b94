// Collection files, right and wrong: what is scaled how, what is passed over, and which fault is told.
#include "files/collection_format.h"
#include "files/collection_reader.h"
#include "game_on_script.h"

#include <ctime>
#include <sys/stat.h>

namespace {

class CollectionReaderTest : public GameTest {
  protected:
    /// The shipped head with one line replaced.
    static std::string HeadWith(int number, const std::string& line) {
        std::istringstream head(ShippedHead);
        std::string result, next;
        for (int n = 1; std::getline(head, next); ++n) result += n == number ? line + "\r\n" : next + "\n";
        return result;
    }

    std::string StartOn(const std::string& text) {
        WriteText(In("QUILLET.qui"), text);
        return CallsOf([&] { Start(); });
    }

    static std::tuple<Number, Number, Number> PlaceOf(int piece, std::size_t quillet) {
        return {Game.SolTurn[piece][quillet], Game.SolX[piece][quillet], Game.SolY[piece][quillet]};
    }

    const std::string Shown = "show Form1; show FormMain";
};

TEST_F(CollectionReaderTest, ARowIsScaledByItsUnitAndItsShiftsAndTheStartCellsByTheStraightOne) {
    const auto expectRow = [](const std::string& line, const std::vector<Number>& expected) {
        PieceTable table;
        EXPECT_EQ(ReadPieceTable(HeadWith(8, line), table), "");
        std::vector<Number> row = {table.PieceWidth[0][0], table.PieceHeight[0][0]};
        for (const auto& coordinate : table.PieceShape) row.push_back(coordinate[0][0]);
        row.insert(row.end(), {table.TurnShiftX[0][0], Number(table.TurnShiftY[0][0])});
        EXPECT_EQ(row, expected) << line;
    };
    expectRow("9,-0.5, 1.5 ,1.49,9,9,0,0,4,0,2,-2,2.5,2,0,0,-0.1,0.99",
              {51, 50, 0, 0, 0, 136, 0, 68, -68, 68, 68, 0, 0, -3, 23});
    expectRow("0,0,1.49,1.5,0,0,0,0,4,0,2,2,3.5,2,0,0,1,1",
              {35, 36, 0, 0, 0, 96, 0, 48, 48, 96, 48, 0, 0, 24, 24});
    EXPECT_EQ(StartOn(HeadWith(1, "-1.5,2.125")), Shown);
    EXPECT_EQ(Game.HomeX[0], 64);
    EXPECT_EQ(Game.HomeY[0], 151);
}

TEST_F(CollectionReaderTest, RecordsCountInFileOrderFromTheirCornersAndThoseNotAboveZeroAreSkipped) {
    EXPECT_EQ(StartOn(ShippedHead + Records(1, "7,60,70", "1,61,75") + "\r\n \n"
                      + Records(1, "0,0,0", "2,2,2") + Records(1, "9,59.25,2.5", "3,60,5")
                      + Records(1, "-3,0,0", "4,4,4") + Records(1, "0.5,-7,1.5", "5,0,5")),
              Shown);
    EXPECT_EQ(Game.QuilletCount, 3);
    EXPECT_EQ(PlaceOf(0, 1), std::tuple(1, 1, 5));
    EXPECT_EQ(PlaceOf(6, 1), std::tuple(0, -60, -70));
    EXPECT_EQ(PlaceOf(0, 2), std::tuple(3, 0.75, 2)); // 2.5 and 3.5: ties to even
    EXPECT_EQ(PlaceOf(0, 3), std::tuple(5, 7, 4));
}

TEST_F(CollectionReaderTest, FiveHundredLoadToTheLastAndOneMoreEndsTheProgram) {
    const std::string full = ShippedHead + Records(499) + Records(1, "7,60,70", "3,61,75");
    EXPECT_EQ(StartOn(full), Shown);
    EXPECT_EQ(Game.QuilletCount, MostQuillets);
    EXPECT_EQ(PlaceOf(0, MostQuillets), std::tuple(3, 1, 5));
    EXPECT_EQ(StartOn(full + Records(1)), "box Cannot handle more than 500 Quillets; end");
}

TEST_F(CollectionReaderTest, AFileOfAnyKindAndSizeIsAnsweredAtOnce) {
    const std::string many(15 << 20, '\n'), digits(16 << 20, '7');
    const std::pair<std::string, std::string> texts[] = {
        {Replaced(Shipped, "\r", ""), ""},
        {Replaced(Shipped, "\n", ""), "Line 1: \"-2?5\" is not a number"},
        {ShippedHead + many + Records(1), ""},
        {ShippedHead + Records(200'000, "0,0,0") + Records(1), ""},
        {digits, "Line 1: \"77777777777777777777...\" is not a number"},
        {many, "Line 1: the file ends where a number is expected"}};
    const std::clock_t start = std::clock();
    for (const auto& [text, fault] : texts) EXPECT_EQ(FaultOfCollection(text), fault);
    EXPECT_LT(std::clock() - start, 2 * CLOCKS_PER_SEC);
    PutFiveFigures();
    ASSERT_TRUE(Start());
    std::filesystem::create_directory("folder");
    std::filesystem::create_symlink("loop", "loop");
    std::filesystem::create_symlink("/dev/zero", "zeros");
    ASSERT_EQ(::mkfifo("pipe", 0666), 0);
    WriteText("huge", "");
    std::filesystem::resize_file("huge", 1 << 30);
    for (const auto& [name, fault] : {std::pair("folder", "it is not a file"),
                                      {"zeros", "it is not a file"},
                                      {"pipe", "it is not a file"},
                                      {"loop", "Too many levels of symbolic links"},
                                      {"huge", "the file is too large"}}) {
        Game.QuilletFile = In(name);
        EXPECT_EQ(CallsOf(LoadQuillets),
                  std::string("box Quillet shapes file cannot be read:/") + name + "/" + fault + ".");
    }
}

TEST_F(CollectionReaderTest, ACollectionCutShortAnywhereIsRefusedAtItsLastLineUnlessAllOfThatIsThere) {
    const std::string text = ShippedHead + FiveFigures;
    for (std::size_t length = 0; length <= text.size(); ++length) {
        const std::string part = text.substr(0, length), last = part.substr(part.rfind('\n') + 1);
        const std::ptrdiff_t line = std::ranges::count(part, '\n') + 1,
                             commas = std::ranges::count(last, ',');
        const bool ends = last.empty() || last == "\r", whole = commas == 23 && last.back() != ',';
        const std::string fault = FaultOfCollection(part), place = "Line " + std::to_string(line) + ": ";
        if (line > 65 ? ends || whole : line == 65 && !ends)
            EXPECT_EQ(fault, "") << length;
        else
            EXPECT_EQ(fault.substr(0, place.size()), place) << length;
    }
}

TEST_F(CollectionReaderTest, AtTheStartTheMessageNamesTheFileOfTheLastRemoveIfThatIsWhole) {
    const std::string
        missing = "box Quillet shapes file not found:/QUILLET.qui",
        fault = "box Quillet shapes file cannot be read:/QUILLET.qui/Line 66: a record has 24 numbers.";
    const std::string whole = ShippedHead + Records(1), broken = ShippedHead + "oops";
    for (const auto& [rescue, hint] :
         {std::pair(broken, ""), {whole, "/What the last Remove wrote is whole, in the file:/QuiFile.tmp"}}) {
        WriteText("QuiFile.tmp", rescue);
        EXPECT_EQ(StartOn(broken), fault + hint + "; end");
        EXPECT_EQ(StartOn(""), missing + hint + "; end");
    }
}

TEST_F(CollectionReaderTest, AMalformedFileIsRefusedWithItsLineAndFaultAndTheTablesStay) {
    const std::string good = ShippedHead + Records(1);
    const std::pair<std::string, std::string> cases[] = {
        {"no collection at all", "1: \"no collection at all\" is not a number"},
        {"1,2\n3", "2: the file ends where a number is expected"},
        {HeadWith(3, "4;5"), "3: \"4;5\" is not a number"},
        {HeadWith(3, "4,\t"), "3: a number is missing"},
        {HeadWith(2, "1e10,2"), "2: a number is out of range"},
        {HeadWith(9, "1,-1,4,2,0,0,2,0,4,9999,0,2,0,2,2,0,1,1"), "9: a number is out of range"},
        {HeadWith(65, "") + Records(1), "65: a text is missing"},
        {HeadWith(65, "one, two"), "65: a record has 24 numbers"},
        {ShippedHead.substr(0, ShippedHead.size() - 9), "65: the file is too short"},
        {good + "2,0,0,1\r\n", "67: a record has 24 numbers"},
        {good + "2,0," + Records(1), "67: a record has 24 numbers"},
        {good + Records(1, "2,0,\x01x\xff"), "67: \"?x?\" is not a number"},
        {good + Records(1, "2,0," + std::string(30, 'a')), "67: \"aaaaaaaaaaaaaaaaaaaa...\" is not a number"},
        {good + Records(1, "2,0,0", "0,40000,0"), "67: a number is out of range"},
        {good + Records(1, "2,0,0", "8,0,0"), "67: a turn is not 0 to 7"}};
    for (const auto& [text, fault] : cases) {
        const std::string box = "box Quillet shapes file cannot be read:/QUILLET.qui/Line " + fault + ".";
        EXPECT_EQ(StartOn(text), box + "; end");
        PutFiveFigures();
        ASSERT_TRUE(Start());
        const auto tables = std::tuple(Game.QuilletCount, Game.SolTurn, Game.SolX, Game.PieceShape);
        WriteText(In("QUILLET.qui"), text);
        EXPECT_EQ(CallsOf([] { EXPECT_FALSE(LoadQuillets()); }), box);
        EXPECT_TRUE(tables == std::tuple(Game.QuilletCount, Game.SolTurn, Game.SolX, Game.PieceShape));
    }
}

} // namespace
