// Where windows stand on the screens.
#pragma once

#include <QList>
#include <QRect>
#include <QScreen>
#include <QWidget>

/// What a window manager's frame around a window takes, or somewhat more.
constexpr QSize FrameRoom(12, 36);

/// How much of a window has room on the screen. Where one direction is cut, the bar to scroll it takes its
/// room in the other.
QSize ShownOf(QSize whole, const QScreen& screen, int barExtent);

/// How much of a window has to be on a screen: its caption, by which it can be moved, or all of it.
enum class Needed { Caption, Whole };

/// The place of a window with its frame: its own, if what is needed of it is on a screen; else the nearest
/// place that shows the whole window.
QPoint OnScreen(QRect window, Needed needed);

QPoint CentreOfScreen(QSize size);

/// Sets where the frame of the hidden window will stand. All window managers understand this corner alike;
/// that of what is in the frame means the frame's to some.
void SetFrameCorner(QWidget& window, QPoint corner);

/// The place for a box with its frame: inside the room it covers as little as possible of what is to stay in
/// view. Among such places it is the nearest to the middle of its owner.
QPoint PlaceBeside(QSize box, const QRect& owner, const QList<QRect>& inView, const QRect& room);
