// A widget for each kind of control. It shows its record and passes its events to the record's handlers.
#pragma once

#include "platform/forms.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QSvgRenderer>
#include <QWidget>

/// Which rows of a surface are to be shown: those refreshed, or all that were drawn on.
enum class ShownRows { Due, Changed };

class PictureWidget : public QWidget {
  public:
    PictureWidget(Picture& record, QWidget* parent);
    void ShowRecord(ShownRows rows);
    /// Tells the game that no release will follow the press under way, if there is one.
    void LoseMouse();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// The keyboard comes and goes unseen, so nothing is painted for it.
    void focusInEvent(QFocusEvent*) override {}
    void focusOutEvent(QFocusEvent*) override {}
    /// Tab is a key of the game here.
    bool focusNextPrevChild(bool) override { return false; }

  private:
    RowRange WithoutSame(RowRange rows) const;
    void EndPress();

    Picture& Record;
    bool Pressed = false;
    /// What the screen shows, during a press.
    Surface Shown;
    /// The pixel of the last press or move that the game heard of.
    QPoint LastPixel;
};

class LabelWidget : public QLabel {
  public:
    LabelWidget(Label& record, QWidget* parent);
    void ShowRecord();

  protected:
    /// A label with a handler keeps the mouse during a press.
    void mousePressEvent(QMouseEvent* event) override { event->setAccepted(Record.MouseUp); }
    void mouseMoveEvent(QMouseEvent* event) override { event->setAccepted(Record.MouseUp); }
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    Label& Record;
};

/// A line around its controls, broken by the caption at its top.
class FrameWidget : public QWidget {
  public:
    FrameWidget(Frame& record, QWidget* parent);
    void ShowRecord();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Frame& Record;
};

class TileButtonWidget : public QAbstractButton {
  public:
    TileButtonWidget(TileButton& record, QWidget* parent);
    void ShowRecord();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    /// The latch is the game's to set, not a press's.
    void nextCheckState() override {}

  private:
    TileButton& Record;
    QSvgRenderer Icon;
};

class ScrollBarWidget : public QScrollBar {
  public:
    ScrollBarWidget(ScrollBar& record, QWidget* parent);
    void ShowRecord();

  private:
    ScrollBar& Record;
};

class CommandButtonWidget : public QPushButton {
  public:
    CommandButtonWidget(CommandButton& record, QWidget* parent);
    void ShowRecord();

  protected:
    /// Enter presses the button as the space bar does.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    CommandButton& Record;
};

class TextBoxWidget : public QLabel {
  public:
    TextBoxWidget(TextBox& record, QWidget* parent);
    void ShowRecord();

  protected:
    void mousePressEvent(QMouseEvent* event) override;

  private:
    TextBox& Record;
};

/// The surface of a form, with its mouse.
class ClientWidget : public QWidget {
  public:
    ClientWidget(Form& record, QWidget* parent);
    void ShowRecord(ShownRows rows);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    Form& Record;
};
