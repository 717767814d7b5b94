// Widgets that show a surface: a picture of the game, and the client area of a form.
#pragma once

#include "platform/forms.h"

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
    Picture& Record;
    bool Pressed = false;
    /// The pixel of the last press or move that the game heard of.
    QPoint LastPixel;
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
