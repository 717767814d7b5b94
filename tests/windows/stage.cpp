// Runs one case beside the game, and judges the game's end.
#include "tests/windows/stage.h"

#include "core/board_window.h"
#include "platform_qt/qt_desktop.h"
#include "shell/events.h"

#include <QApplication>
#include <QMessageBox>
#include <QMouseEvent>
#include <QThread>
#include <atomic>
#include <cmath>
#include <cstdlib>
#include <future>
#include <gtest/gtest.h>
#include <iostream>
#include <thread>

namespace {

constexpr std::chrono::seconds Patience(10);

std::promise<void> Curtain;
std::atomic<bool> EndExpected = false;
std::function<bool()> EndCheck;
BoardEvents Seen;
int AllReleases = 0;

/// Stands on the game's thread and watches the mouse events, above all those that reach the board's picture.
class Watcher : public QObject {
    bool eventFilter(QObject* receiver, QEvent* event) override {
        AllReleases += event->type() == QEvent::MouseButtonRelease;
        const auto* mouse = dynamic_cast<QMouseEvent*>(event);
        if (!mouse || receiver->objectName() != "Picture1") return false;
        const QEvent::Type type = event->type();
        Seen.Presses += type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
        Seen.Releases += type == QEvent::MouseButtonRelease;
        Seen.Pixel = {NearestInt32(std::floor(mouse->position().x())),
                      NearestInt32(std::floor(mouse->position().y()))};
        return false;
    }
};
Watcher* TheWatcher = nullptr;

/// Runs at every end of the process but the case's own.
void JudgeEnd() {
    if (EndExpected && EndCheck()) return;
    std::cout << "The game ended the process" << (EndExpected ? " in the wrong state" : "") << std::endl;
    std::_Exit(EXIT_FAILURE);
}

void RunCase() {
    const int result = RUN_ALL_TESTS();
    std::cout.flush();
    std::_Exit(result);
}

} // namespace

const std::filesystem::path& Folder() {
    static const std::filesystem::path folder = [] {
        if (const char* given = std::getenv("PROGRAM_FOLDER")) return std::filesystem::path(given);
        std::string name = (std::filesystem::temp_directory_path() / "program.XXXXXX").string();
        return std::filesystem::path(mkdtemp(name.data()));
    }();
    return folder;
}

void StartGame() {
    std::filesystem::copy_file(COLLECTION, Folder() / "QUILLET.qui",
                               std::filesystem::copy_options::skip_existing);
    StartGameWithoutCollection();
    OnGameThread([] { QApplication::instance()->installEventFilter(TheWatcher); });
    AwaitBoardOnScreen();
}

void StartGameWithoutCollection() {
    Curtain.set_value();
}

void OnGameThread(const std::function<void()>& call) {
    const bool there = QThread::currentThread() == TheWatcher->thread();
    QMetaObject::invokeMethod(TheWatcher, call, there ? Qt::DirectConnection : Qt::BlockingQueuedConnection);
}

void Await(const std::string& what, const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + Patience;
    while (!Ask(condition)) {
        if (std::chrono::steady_clock::now() > deadline) {
            std::cout << "Waited in vain for " << what << std::endl;
            std::_Exit(EXIT_FAILURE);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

void ExpectEnd(const std::function<void()>& act, const std::function<bool()>& check) {
    EndCheck = check;
    EndExpected = true;
    act();
    std::this_thread::sleep_for(Patience);
    ADD_FAILURE() << "the game goes on";
}

BoardEvents SeenByBoard() {
    return Ask([] { return Seen; });
}

int ReleasesSeen() {
    return Ask([] { return AllReleases; });
}

QWidget* WindowNamed(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == name) return window;
    return nullptr;
}

QMessageBox* OpenBox() {
    return dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    Watcher watcher;
    TheWatcher = &watcher;
    std::atexit(JudgeEnd);
    std::at_quick_exit(JudgeEnd);
    std::thread(RunCase).detach();
    Curtain.get_future().wait();
    DesignWindows();
    std::filesystem::current_path(Folder()); // as the program does
    return RunDesktop(argc, argv, FormMain, Folder().string());
}
