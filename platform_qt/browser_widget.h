// The help view: pages and pictures of the program's folder, and nothing from anywhere else.
#pragma once

#include "platform/forms.h"

#include <QTextBrowser>

class BrowserWidget : public QTextBrowser {
  public:
    BrowserWidget(WebBrowser& record, QWidget* parent);
    ~BrowserWidget() override;
    void ShowRecord();

    /// Shows the page if it is one of the folder; says so where it is not there.
    void GoTo(const QUrl& address);

    /// The view that shows the record; none before its window was first shown.
    static BrowserWidget* Of(const WebBrowser& record);

  protected:
    QVariant loadResource(int type, const QUrl& name) override;

  private:
    WebBrowser& Record;
};
