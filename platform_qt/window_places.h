// Where windows stand on the screens.
#pragma once

#include <QPoint>
#include <QScreen>
#include <QSize>

/// What a window manager's frame around a window takes, or somewhat more.
constexpr QSize FrameRoom(12, 36);

/// How much of a window has room on the screen. Where one direction is cut, the bar to scroll it takes its
/// room in the other.
QSize ShownOf(QSize whole, const QScreen& screen, int barExtent);

/// The nearest place for the window on a screen; its own place if it shows there, with all of it or any part.
QPoint OnScreen(QRect window, bool all);

QPoint CentreOfScreen(QSize size);
