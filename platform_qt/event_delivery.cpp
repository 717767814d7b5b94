// Runs the handlers, and shows what they changed.
#include "platform_qt/event_delivery.h"

#include "platform_qt/form_window.h"

#include <QElapsedTimer>
#include <QTimer>
#include <utility>

namespace {

QElapsedTimer SinceLastPicture;
QWidget* Asking = nullptr;

/// Runs while moves have changed what no picture shows yet, and then shows it.
QTimer& NextPicture() {
    static QTimer timer;
    return timer;
}

void ShowChanges(ShownRows rows) {
    NextPicture().stop();
    SinceLastPicture.start();
    for (const auto& window : AllWindows()) window->ShowRecord(rows);
}

void LoseMouse() {
    for (const auto& window : AllWindows()) window->LoseMouse();
}

/// While a box is open, events of other windows are handled inside this call.
void Handle(const QWidget& source, const std::function<void()>& handler) {
    QWidget* const before = std::exchange(Asking, source.window());
    handler();
    Asking = before;
}

} // namespace

void StartDelivery() {
    NextPicture().setSingleShot(true);
    NextPicture().setTimerType(Qt::PreciseTimer);
    NextPicture().callOnTimeout([] { ShowChanges(ShownRows::Changed); });
    SinceLastPicture.start();
}

void Deliver(const QWidget& source, const std::function<void()>& handler) {
    Handle(source, handler);
    ShowChanges(ShownRows::Changed);
}

void DeliverMove(const QWidget& source, const std::function<void()>& handler) {
    constexpr std::int64_t Pace = 6; // milliseconds
    Handle(source, handler);
    const std::int64_t waited = SinceLastPicture.elapsed();
    if (waited >= Pace)
        ShowChanges(ShownRows::Changed);
    else if (!NextPicture().isActive())
        NextPicture().start(static_cast<int>(Pace - waited));
}

void DeliverCommand(const QWidget& source, const std::function<void()>& handler) {
    LoseMouse();
    // Exit stores them.
    for (const auto& window : AllWindows()) window->NotePlace();
    Deliver(source, handler);
}

QWidget* AskingWindow() {
    return Asking;
}

void PrepareForModal() {
    LoseMouse();
    ShowChanges(ShownRows::Due);
}
