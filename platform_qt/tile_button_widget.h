// The panel's icon button on screen.
#pragma once

#include "platform/forms.h"

#include <QAbstractButton>
#include <QSvgRenderer>

class TileButtonWidget : public QAbstractButton {
  public:
    TileButtonWidget(TileButton& record, QWidget* parent);
    void ShowRecord();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    /// Enter presses the button as the space bar does.
    void keyPressEvent(QKeyEvent* event) override;
    /// The latch is the game's to set, not a press's.
    void nextCheckState() override {}

  private:
    TileButton& Record;
    QSvgRenderer Icon;
};
