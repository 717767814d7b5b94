// The push button on screen.
#pragma once

#include "platform/forms.h"

#include <QPushButton>

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
