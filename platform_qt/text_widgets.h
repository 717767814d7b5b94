// Widgets that show text: labels, text boxes, and frames with their captions.
#pragma once

#include "platform/forms.h"

#include <QLabel>
#include <QMouseEvent>

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

class TextBoxWidget : public QLabel {
  public:
    TextBoxWidget(TextBox& record, QWidget* parent);
    void ShowRecord();

  protected:
    void mousePressEvent(QMouseEvent* event) override;

  private:
    TextBox& Record;
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
