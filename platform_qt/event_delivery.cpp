// Runs the handlers, and shows what they changed.
#include "platform_qt/event_delivery.h"

#include "platform_qt/form_window.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QThread>
#include <QTimer>
#include <algorithm>

namespace {

QElapsedTimer SinceLastPicture;

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

/// A fast mouse moves a thousand times a second, and to be woken costs more than to move a piece. So while
/// moves wait for their picture the thread rests, and is not woken for each.
void RestBetweenPictures() {
    constexpr int LongestRest = 2; // milliseconds
    if (NextPicture().isActive())
        QThread::msleep(
            static_cast<unsigned long>(std::clamp(NextPicture().remainingTime(), 0, LongestRest)));
}

void LoseMouse() {
    for (const auto& window : AllWindows()) window->LoseMouse();
}

} // namespace

void StartDelivery() {
    NextPicture().setSingleShot(true);
    NextPicture().setTimerType(Qt::PreciseTimer);
    NextPicture().callOnTimeout([] { ShowChanges(ShownRows::Changed); });
    SinceLastPicture.start();
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                     RestBetweenPictures);
}

void Deliver(const std::function<void()>& handler) {
    handler();
    ShowChanges(ShownRows::Changed);
}

void DeliverMove(const std::function<void()>& handler) {
    constexpr std::int64_t Pace = 6; // milliseconds
    handler();
    const std::int64_t waited = SinceLastPicture.elapsed();
    if (waited >= Pace)
        ShowChanges(ShownRows::Changed);
    else if (!NextPicture().isActive())
        NextPicture().start(static_cast<int>(Pace - waited));
}

void DeliverCommand(const std::function<void()>& handler) {
    LoseMouse();
    Deliver(handler);
}

void PrepareForModal() {
    LoseMouse();
    ShowChanges(ShownRows::Due);
}
