// The scroll bar on screen.
#pragma once

#include "platform/forms.h"

#include <QScrollBar>

class ScrollBarWidget : public QScrollBar {
  public:
    ScrollBarWidget(ScrollBar& record, QWidget* parent);
    void ShowRecord();

  private:
    ScrollBar& Record;
};
