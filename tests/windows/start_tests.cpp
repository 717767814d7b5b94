// How the program comes up, and how it ends.
#include "tests/windows/board.h"
#include "tests/windows/game_thread.h"
#include "tests/windows/player.h"

#include <QLabel>
#include <QMessageBox>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

TEST(Start, ShowsBoardAndPanelAndNothingOfThePickMap) {
    StartGame();
    const WindowId board = IdOf("FormMain"), panel = IdOf("Form1");
    EXPECT_EQ(TitleOf(board), "File: " + (Folder() / "QUILLET.qui").string());
    EXPECT_EQ(TitleOf(panel), "Quillets");
    EXPECT_FALSE(Resizable(board));
    EXPECT_FALSE(Resizable(panel));
    const auto placeOf = [](auto find) {
        return Ask([&] { return find(WindowNamed("FormMain"))->geometry(); });
    };
    EXPECT_EQ(placeOf([](QWidget* window) { return window->findChild<QWidget*>("Picture1"); }),
              QRect(4, 6, 350, 390));
    const QRect label = placeOf([](QWidget* window) { return window->findChild<QLabel*>(); });
    EXPECT_EQ(label, QRect(6, 396, 350, 20));
    AwaitBoardOnScreen();
    EXPECT_EQ(ScreenAt(board).pixel(label.topLeft()), qRgb(192, 0, 0));
}

TEST(Start, WithoutACollectionLeavesDefaultSettingsAndEnds) {
    StartGameWithoutCollection();
    AwaitBox("Quillet shapes file not found:\n" + (Folder() / "QUILLET.qui").string());
    ExpectEnd(PressEnter, [] {
        std::ifstream file(Folder() / "Quillets.cfg", std::ios::binary);
        const std::string text(std::istreambuf_iterator<char>(file), {});
        return text == "QUILLET.qui\r\n-1,-1,-1,-1\r\n";
    });
}

TEST(Start, ClosingTheBoardEndsTheProgram) {
    StartGame();
    const WindowId board = IdOf("FormMain");
    ExpectEnd([&] { Close(board); }, [] { return true; });
}
