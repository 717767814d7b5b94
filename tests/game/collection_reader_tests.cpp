// Collection files, right and wrong: what is scaled how, what is passed over, and which fault is told.
#include "files/collection_reader.h"
#include "game_on_script.h"

#include <sstream>

namespace {

class CollectionReaderTest : public GameTest {
  protected:
    /// The shipped head with one line replaced.
    static std::string HeadWithLine(int number, const std::string& line) {
        std::istringstream head(ShippedHead());
        std::string result, next;
        for (int n = 1; std::getline(head, next); ++n) result += n == number ? line + "\r\n" : next + "\n";
        return result;
    }

    /// Starts with this text as the collection; the message that ended the start, without its first line.
    std::string FaultAtStart(const std::string& text) {
        Desktop = ScriptedDesktop{};
        WriteText(Folder / "QUILLET.qui", text);
        if (Start()) return "no fault";
        const std::string intro =
            "Quillet shapes file cannot be read:\n\r" + (Folder / "QUILLET.qui").string() + "\n\r";
        const std::string message = Desktop.Boxes.size() == 1 ? Desktop.Boxes[0].Text : "not one box";
        return message.starts_with(intro) ? message.substr(intro.size()) : message;
    }
};

TEST_F(CollectionReaderTest, AShapeRowIsScaledByItsUnitAndItsShiftsByTheStraightOne) {
    WriteText(Folder / "QUILLET.qui",
              HeadWithLine(8, "9,-0.5, 1.5 ,1.49,9,9,0,0,4,0,2,-2,2.5,2,0,0,-0.1,0.99"));
    ASSERT_TRUE(Start());
    EXPECT_EQ(Game.PieceWidth[0][0], 51);
    EXPECT_EQ(Game.PieceHeight[0][0], 50);
    EXPECT_EQ(Game.PieceShape[0][0][0], 0);
    EXPECT_EQ(Game.PieceShape[3][0][0], 136);
    EXPECT_EQ(Game.PieceShape[6][0][0], -68);
    EXPECT_EQ(Game.PieceShape[7][0][0], 68); // 2.5, ties to even, before it is scaled
    EXPECT_EQ(Game.TurnShiftX[0][0], -3);
    EXPECT_EQ(Game.TurnShiftY[0][0], 23);
    for (const char* straight : {"0,0,", "0,1,"}) {
        WriteText(Folder / "QUILLET.qui",
                  HeadWithLine(8, straight + std::string("1.5,1.5,0,0,0,0,4,0,2,2,2,2,0,0,1,1")));
        ASSERT_TRUE(Start());
        EXPECT_EQ(Game.PieceWidth[0][0], 36);
        EXPECT_EQ(Game.TurnShiftX[0][0], 24);
    }
}

TEST_F(CollectionReaderTest, StartCellsNeedNotBeWhole) {
    WriteText(Folder / "QUILLET.qui", HeadWithLine(1, "-1.5,2.125"));
    ASSERT_TRUE(Start());
    EXPECT_EQ(Game.HomeX[0], 64);
    EXPECT_EQ(Game.HomeY[0], 151);
}

TEST_F(CollectionReaderTest, RecordsCountInFileOrderAndThoseNotAboveZeroAreSkipped) {
    std::vector<Record> records(6);
    const double numbers[] = {7, 0, 9, -3, 4, 0.5};
    for (std::size_t i = 0; i < records.size(); ++i) {
        records[i].Number = numbers[i];
        records[i].Pieces[6] = {1, 10.0 * static_cast<double>(i), 5};
    }
    PutCollection(records);
    ASSERT_TRUE(Start());
    EXPECT_EQ(Game.QuilletCount, 4);
    EXPECT_EQ(Game.SolX[6][1], 0);
    EXPECT_EQ(Game.SolX[6][2], 20);
    EXPECT_EQ(Game.SolX[6][3], 40);
    EXPECT_EQ(Game.SolX[6][4], 50);
}

TEST_F(CollectionReaderTest, PlacesCountFromTheFiguresCorner) {
    Record here, there, fractional;
    for (int p = 0; p < PieceCount; ++p) {
        here.Pieces[p] = {0, 60.0 + p, 70.0 + 2 * p};
        there.Pieces[p] = {0, 90.0 + p, 20.0 + 2 * p};
        fractional.Pieces[p] = {0, 60, 5.0 + p};
    }
    here.Left = 60, here.Top = 70;
    there.Left = 90, there.Top = 20;
    fractional.Left = 59.25, fractional.Top = 2.5;
    PutCollection({here, there, fractional});
    ASSERT_TRUE(Start());
    for (int p = 0; p < PieceCount; ++p) {
        EXPECT_EQ(Game.SolX[p][1], Game.SolX[p][2]);
        EXPECT_EQ(Game.SolY[p][1], Game.SolY[p][2]);
    }
    EXPECT_EQ(Game.SolX[0][3], 0.75);
    EXPECT_EQ(Game.SolY[0][3], 2); // 2.5, ties to even
    EXPECT_EQ(Game.SolY[1][3], 4); // 3.5
}

TEST_F(CollectionReaderTest, LineEndsAndTheEndOfTheFileMayVary) {
    const std::string record = TextOf(Record{});
    std::string unixEnds = ShippedHead() + record;
    std::erase(unixEnds, '\r');
    for (const std::string& text :
         {ShippedHead() + record, unixEnds, ShippedHead() + record.substr(0, record.size() - 2),
          ShippedHead() + record + "\r\n\r\n", ShippedHead() + "\r\n \r\n" + record, unixEnds + "\n \n\n"}) {
        EXPECT_EQ(FaultAtStart(text), "no fault");
        EXPECT_EQ(Game.QuilletCount, 1);
    }
}

TEST_F(CollectionReaderTest, FiveHundredQuilletsLoadAndOneMoreEndsTheProgram) {
    PutCollection(std::vector<Record>(500));
    ASSERT_TRUE(Start());
    EXPECT_EQ(Game.QuilletCount, 500);
    PutCollection(std::vector<Record>(501));
    const std::string before = ReadText(Folder / "QUILLET.qui");
    EXPECT_FALSE(Start());
    EXPECT_EQ(Desktop.Boxes.at(0).Text, "Cannot handle more than 500 Quillets");
    EXPECT_EQ(ReadText(Folder / "QUILLET.qui"), before);
    std::vector<Record> skipped(501);
    skipped[250].Number = 0;
    PutCollection(skipped);
    EXPECT_TRUE(Start());
}

TEST_F(CollectionReaderTest, AMalformedFileIsRefusedWithItsLineAndFault) {
    const std::string good = TextOf(Record{});
    const auto record = [&](const std::string& text) { return ShippedHead() + good + text; };
    Record wide;
    wide.Pieces[0] = {0, 40000, 0};
    Record turned;
    turned.Pieces[3] = {8, 0, 0};
    Record low;
    low.Top = -32768;
    low.Pieces[0] = {0, 0, 1};
    struct Case {
        std::string Text, Fault;
    };
    const Case cases[] = {
        {"no collection at all", "Line 1: \"no collection at all\" is not a number."},
        {"1,2\n3", "Line 2: the file ends where a number is expected."},
        {HeadWithLine(3, "4;5"), "Line 3: \"4;5\" is not a number."},
        {HeadWithLine(3, "4,\t"), "Line 3: a number is missing."},
        {HeadWithLine(9, "1,-1,4,2,0,0,2,0,4,9999,0,2,0,2,2,0,1,1"), "Line 9: a number is out of range."},
        {HeadWithLine(9, "1,-1,inf,2,0,0,2,0,4,9,0,2,0,2,2,0,1,1"), "Line 9: \"inf\" is not a number."},
        {HeadWithLine(65, "") + good, "Line 65: a text is missing."},
        {HeadWithLine(65, "one, two"), "Line 65: a record has 24 numbers."},
        {ShippedHead().substr(0, ShippedHead().size() - 9), "Line 65: the file is too short."},
        {record("2,0,0,1\r\n"), "Line 67: a record has 24 numbers."},
        {record("2,0," + good.substr(2) + good), "Line 67: a record has 24 numbers."},
        {HeadWithLine(2, "1e10,2"), "Line 2: a number is out of range."},
        {record("2,0,0,\x01x\xff" + good.substr(7)), "Line 67: \"?x?\" is not a number."},
        {record("2," + std::string(30, 'a') + good.substr(3)),
         "Line 67: \"aaaaaaaaaaaaaaaaaaaa...\" is not a number."},
        {record(TextOf(wide)), "Line 67: a number is out of range."},
        {record(TextOf(low)), "Line 67: a number is out of range."},
        {record(TextOf(turned)), "Line 67: a turn is not 0 to 7."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Fault);
        EXPECT_EQ(FaultAtStart(c.Text), c.Fault);
        EXPECT_FALSE(Form1.Visible);
    }
}

TEST_F(CollectionReaderTest, ABrokenFileLeavesTheTablesAsTheyWere) {
    Record figure;
    figure.Pieces[2] = {3, 30, 40};
    PutCollection({figure, figure});
    ASSERT_TRUE(Start());
    const auto solX = Game.SolX;
    PutCollection({Record{}, Record{}, Record{}});
    WriteText(Folder / "QUILLET.qui", ReadText(Folder / "QUILLET.qui") + "4,0,0,oops");
    EXPECT_FALSE(LoadQuillets());
    EXPECT_EQ(Game.QuilletCount, 2);
    EXPECT_EQ(Game.SolX, solX);
}

} // namespace
