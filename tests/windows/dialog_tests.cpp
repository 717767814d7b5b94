// The dialogs and boxes that ask about files: answered by typing, by Enter and Escape, and by the mouse.
#include "core/panel_window.h"
#include "tests/windows/stage.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QMessageBox>
#include <X11/keysym.h>
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>

namespace {

std::string Content(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string Collection() {
    return (Folder() / "QUILLET.qui").string();
}

void StartBesideThePanel() {
    StartGame();
    MoveWindow("Form1", {702, 132});
}

/// Waits until nothing that is about to go covers the menu bar.
void AwaitInFront(const char* window) {
    Await("the window in front", [&] {
        const auto* bar = WindowNamed(window)->findChild<QMenuBar*>();
        return QApplication::topLevelAt(bar->mapToGlobal(QPoint(9, 9))) == bar->window();
    });
}

void Choose(const char* window, const char* item) {
    AwaitInFront(window);
    ChooseFromMenu(window, item);
}

void PressButton(int index) {
    AwaitInFront("Form1");
    auto* button = Ask(
        [&] { return WindowNamed("Form1")->findChild<QAbstractButton*>(QString("MenuButx_%1").arg(index)); });
    Click(button, {9, 9});
}

QFileDialog* OpenFileDialog() {
    return dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
}

void ChooseDialog(const char* window, const char* item) {
    Choose(window, item);
    Await("a file dialog", [] { return OpenFileDialog() && OpenFileDialog()->isActiveWindow(); });
}

/// Types over what stands in the name box.
void TypeName(const std::string& name) {
    const auto* box = Ask([] { return OpenFileDialog()->findChild<QLineEdit*>("fileNameEdit"); });
    PressKey(XK_a, XK_Control_L);
    Await("the marked name", [&] { return box->selectedText() == box->text(); });
    for (std::size_t i = 0; i < name.size(); ++i) {
        PressKey(static_cast<unsigned char>(name[i]),
                 std::isupper(name[i]) || name[i] == '_' ? XK_Shift_L : 0UL);
        Await("a typed letter", [&] { return box->text().toStdString() == name.substr(0, i + 1); });
    }
    PressEnter();
    Await("the end of the dialog", [] { return !OpenFileDialog(); });
}

void SaveAs(const std::string& name) {
    ChooseDialog("Form1", "Save as");
    TypeName(name);
}

void AwaitNoBox() {
    Await("the end of the box", [] { return !QApplication::activeModalWidget(); });
}

/// Answers the box with that text by a key, and waits until it is another one's turn.
void Answer(const std::string& text, unsigned long key) {
    AwaitBox(text);
    PressKey(key);
    Await("the end of the box", [&] { return !OpenBox() || OpenBox()->text().toStdString() != text; });
}

void ClickButton(QMessageBox::StandardButton which) {
    QAbstractButton* button = Ask([&] { return OpenBox()->button(which); });
    Click(button, {9, 9});
}

QStringList Listed() {
    QStringList names;
    const auto* list = OpenFileDialog()->findChild<QListView*>("listView");
    for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
        names += list->model()->index(row, 0, list->rootIndex()).data().toString();
    names.sort();
    return names;
}

} // namespace

TEST(Dialogs, OpenListsCollectionsAndTakesATypedPath) {
    StartBesideThePanel();
    const std::string whole = Content(COLLECTION);
    std::size_t end = 0;
    for (int line = 0; line < 67; ++line) end = whole.find('\n', end) + 1;
    const std::string other = (Folder() / "two_Figures.qui").string();
    std::ofstream(other, std::ios::binary) << whole.substr(0, end);
    std::ofstream(Folder() / "other.txt") << "no collection";

    const auto shown = [] { return std::pair(Game.QuilletFile, Game.CurrentQuillet); };
    const auto before = Ask(shown);
    ChooseDialog("Form1", "Open");
    Await("the list of collections", [] {
        return Listed() == QStringList{"QUILLET.qui", "two_Figures.qui"};
    });
    EXPECT_EQ(Ask([] { return OpenFileDialog()->directory().absolutePath().toStdString(); }), Folder());
    PressKey(XK_Escape);
    AwaitNoBox();
    EXPECT_EQ(Ask(shown), before);

    ChooseDialog("Form1", "Open");
    TypeName(other);
    Await("the other collection", [&] { return Game.QuilletFile == other; });
    Await("its title", [&] { return WindowNamed("FormMain")->windowTitle() == ("File: " + other).c_str(); });
    EXPECT_EQ(Ask([] { return Game.QuilletCount; }), 2);
    EXPECT_LE(Ask([] { return Game.CurrentQuillet; }), 2);
    AwaitBoardOnScreen();
}

TEST(Dialogs, SaveAsCopiesAndAsksBeforeItOverwrites) {
    StartBesideThePanel();
    // The extension is sought in the whole path, so this one must have no other dot.
    std::string folder = "/tmp/quilletsXXXXXX";
    const std::string typed = std::string(mkdtemp(folder.data())) + "/copy";
    const std::filesystem::path copy = typed + ".qui", sameButCase = Folder() / "quillet.qui";
    const std::string copied = Collection() + "\ncopied as:\n" + copy.string();
    SaveAs(typed);
    Answer(copied, XK_Return);
    EXPECT_EQ(Content(copy), Content(COLLECTION));

    for (const auto& file : {copy, sameButCase}) std::ofstream(file) << "precious";
    for (const char* name : {"QUILLET.QUI", "quillet.txt"}) {
        SaveAs(name);
        Answer("file:" + Collection() + "\nalready loaded and saved, use another filename to save as",
               XK_Return);
    }
    const std::string question = copy.string() + "\n file already exists, overwrite?";
    SaveAs(typed);
    Answer(question, XK_Return);
    AwaitNoBox();
    EXPECT_EQ(Content(copy), "precious");
    SaveAs(typed);
    AwaitBox(question);
    ClickButton(QMessageBox::Yes);
    Answer(copied, XK_Return);
    EXPECT_EQ(Content(copy), Content(COLLECTION));
    EXPECT_EQ(Content(sameButCase), "precious");
    EXPECT_EQ(Content(Collection()), Content(COLLECTION));
    std::filesystem::remove_all(folder);
}

TEST(Dialogs, RemoveTakesTheShownQuilletAfterAYes) {
    StartBesideThePanel();
    constexpr int Remove = 2, First = 6;
    PressButton(First);
    Await("the first quillet", [] { return Game.CurrentQuillet == 1; });
    const Number count = Ask([] { return Game.QuilletCount; });
    const auto place = [](std::size_t n) { return std::tuple(Game.SolX[0][n], Game.SolY[0][n]); };
    const auto second = Ask([&] { return place(2); });
    PressButton(Remove);
    Answer("Remove this Quillet ( 1) ?", XK_Escape);
    AwaitNoBox();
    EXPECT_EQ(Content(Collection()), Content(COLLECTION));
    PressButton(Remove);
    AwaitBox("Remove this Quillet ( 1) ?");
    ClickButton(QMessageBox::Yes);
    Await("the shorter collection", [&] { return Game.QuilletCount == count - 1; });
    EXPECT_EQ(Ask([&] { return place(1); }), second);
    const std::string left = Content(Collection());
    EXPECT_EQ(std::ranges::count(left, '\n'), std::ranges::count(Content(COLLECTION), '\n') - 1);
}

TEST(Dialogs, AppendAsksAboutAPoorFigureAndThenAtLast) {
    StartBesideThePanel();
    const Number count = Ask([] { return Game.QuilletCount; });
    const std::string isolated = "A block appears isolated !\nProceed anyway ?";
    const std::string last = "Append this Quillet to file:\n" + Collection() + " ?";
    constexpr int Append = 3;
    PressButton(Append);
    Answer(isolated, XK_Escape);
    for (const unsigned long key : {XK_Escape, XK_Return}) {
        AwaitNoBox();
        EXPECT_EQ(Content(Collection()), Content(COLLECTION));
        PressButton(Append);
        Answer(isolated, XK_Return);
        Answer(last, key);
    }
    Await("the new quillet", [&] { return Game.QuilletCount == count + 1; });
    EXPECT_EQ(Ask([] { return Game.CurrentQuillet; }), count + 1);
    EXPECT_TRUE(Content(Collection()).starts_with(Content(COLLECTION)));
    AwaitBoardOnScreen();
}

TEST(Dialogs, APrintedPageIsAsLargeAsItsWindow) {
    setenv("CUPS_SERVER", "no.printer.invalid", 1);
    StartBesideThePanel();
    Choose("Form1", "Print");
    Await("the page", [] { return QApplication::activeModalWidget() == WindowNamed("PrintShapes"); });
    const auto picture = [] { return WindowNamed("PrintShapes")->grab().toImage(); };
    const QImage shapes = Ask(picture);
    Choose("PrintShapes", "Show Solution");
    Await("the solutions", [&] { return picture() != shapes; });
    Choose("PrintShapes", "Print this page");
    AwaitBox("Print this page?");
    ClickButton(QMessageBox::Yes);
    Await("a file dialog", [] { return OpenFileDialog() && OpenFileDialog()->isActiveWindow(); });
    TypeName((Folder() / "page.pdf").string());
    Await("the PDF", [] { return std::filesystem::exists(Folder() / "page.pdf"); });
    const std::string pdf = Content(Folder() / "page.pdf"), mediaBox = "/MediaBox [0 0 ";
    const std::size_t at = pdf.find(mediaBox);
    ASSERT_NE(at, std::string::npos);
    std::istringstream box(pdf.substr(at + mediaBox.size()));
    double width = 0, height = 0;
    box >> width >> height;
    EXPECT_NEAR(width, 7.72 * 72, 0.3);
    EXPECT_NEAR(height, 6.03 * 72, 0.3);
    Await("the keyboard on the page",
          [] { return QApplication::activeWindow() == WindowNamed("PrintShapes"); });
    PressKey(XK_Escape);
    Await("the end of the page", [] { return !WindowNamed("PrintShapes")->isVisible(); });
}
