// How the program comes up, and how it ends.
#include "tests/windows/stage.h"

#include <QLabel>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace {

WindowId IdOf(const char* name) {
    return Ask([&] { return static_cast<WindowId>(WindowNamed(name)->winId()); });
}

} // namespace

TEST(Program, ShowsBoardAndPanelAndNothingOfThePickMap) {
    StartGame();
    EXPECT_EQ(TitleOf(IdOf("FormMain")), "File: " + (Folder() / "QUILLET.qui").string());
    EXPECT_EQ(TitleOf(IdOf("Form1")), "Quillets");
    EXPECT_TRUE(HasFixedSize(IdOf("FormMain")));
    EXPECT_TRUE(HasFixedSize(IdOf("Form1")));
    const std::vector<Surface::Pixel> screen = BoardWindowOnScreen();
    OnGameThread([&] {
        QWidget* window = WindowNamed("FormMain");
        EXPECT_EQ(window->findChild<QWidget*>("Picture1")->geometry(), QRect(4, 6, 350, 390));
        const QRect label = window->findChild<QLabel*>()->geometry();
        EXPECT_EQ(label, QRect(6, 396, 350, 20));
        EXPECT_EQ(screen[static_cast<std::size_t>(label.top() * window->width() + label.left())], 0xFFC00000);
    });
}

TEST(Program, WithoutACollectionLeavesDefaultSettingsAndEnds) {
    StartGameWithoutCollection();
    AwaitBox("Quillet shapes file not found:\n" + (Folder() / "QUILLET.qui").string());
    ExpectEnd(PressEnter, [] {
        std::ifstream file(Folder() / "Quillets.cfg", std::ios::binary);
        const std::string text(std::istreambuf_iterator<char>(file), {});
        return text == "QUILLET.qui\r\n-1,-1,-1,-1\r\n";
    });
}

TEST(Program, EndsWhenTheBoardIsClosed) {
    StartGame();
    ExpectEnd([] { RequestClose(IdOf("FormMain")); }, [] { return true; });
}
