// The game on the main thread, the case on another: starting the game, asking it, and judging its end.
#pragma once

#include <QPoint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

class QMessageBox;
class QWidget;

/// The program folder of this case, empty until the game starts.
const std::filesystem::path& Folder();

/// Starts the game with the shipped collection and waits until both windows stand on the screen.
void StartGame();

/// Starts the game in the empty folder and returns at once.
void StartGameWithoutCollection();

/// Runs the call on the game's thread between two of its events, also while a box is open, and waits for it.
void OnGameThread(const std::function<void()>& call);

/// The answer of a call on the game's thread.
template <typename Call>
auto Ask(Call call) {
    std::optional<decltype(call())> answer;
    OnGameThread([&] { answer = call(); });
    return *answer;
}

/// Asks on the game's thread until the answer is yes; when it is not within ten seconds, the case ends here.
void Await(const std::string& what, const std::function<bool()>& condition);

/// Fails the case unless `act` leads the game to end the process within ten seconds, with `check` true at
/// the end. The code that it ends with becomes the code of the case.
void ExpectEnd(const std::function<void()>& act, const std::function<bool()>& check);

/// What the board's picture has been given by the mouse so far.
struct BoardEvents {
    int Presses = 0;
    int Releases = 0;
    /// Board pixel of the last of them or of a later move.
    QPoint Pixel;
};
BoardEvents SeenByBoard();

/// To be called on the game's thread alone.
QWidget* WindowNamed(const char* name);
QMessageBox* OpenBox();
