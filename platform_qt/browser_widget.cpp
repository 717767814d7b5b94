// The help view. Links are followed here and not by the view itself, which would go blank at a dead one.
#include "platform_qt/browser_widget.h"

#include "platform/desktop.h"
#include "platform_qt/qt_values.h"

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <map>

namespace {

std::map<const WebBrowser*, BrowserWidget*> Browsers;

/// The file that an address of the program's folder leads to; empty for everything else.
QString FileOf(const QUrl& address) {
    if (!address.isLocalFile() && !address.scheme().isEmpty()) return {};
    const QString file =
        QFileInfo(address.isLocalFile() ? address.toLocalFile() : address.path()).canonicalFilePath();
    const QString folder = QFileInfo(QString::fromStdString(ApplicationFolder())).canonicalFilePath();
    return file.startsWith(folder + '/') && QFileInfo(file).isFile() ? file : QString();
}

} // namespace

BrowserWidget::BrowserWidget(WebBrowser& record, QWidget* parent) : QTextBrowser(parent), Record(record) {
    setObjectName(QString::fromStdString(record.Name));
    setAccessibleName("Help text");
    setOpenLinks(false);
    connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& address) {
        if (!FileOf(address).isEmpty()) setSource(address);
    });
    Browsers[&record] = this;
    ShowRecord();
}

BrowserWidget::~BrowserWidget() {
    Browsers.erase(&Record);
}

void BrowserWidget::ShowRecord() {
    setGeometry(PlaceOf(Record));
}

void BrowserWidget::GoTo(const QUrl& address) {
    if (FileOf(address).isEmpty())
        setPlainText("The help page is not there:\n" + address.toLocalFile());
    else
        setSource(address);
}

BrowserWidget* BrowserWidget::Of(const WebBrowser& record) {
    const auto found = Browsers.find(&record);
    return found == Browsers.end() ? nullptr : found->second;
}

QVariant BrowserWidget::loadResource(int type, const QUrl& name) {
    QFile file(FileOf(source().resolved(name)));
    const QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (type != QTextDocument::ImageResource) return content;
    // Without a picture from here the view would look for one by itself, anywhere.
    QImage picture = QImage::fromData(content);
    if (picture.isNull()) {
        picture = QImage(1, 1, QImage::Format_ARGB32);
        picture.fill(Qt::transparent);
    }
    return picture;
}

void Navigate(WebBrowser& browser, const std::string& address) {
    if (BrowserWidget* view = BrowserWidget::Of(browser))
        view->GoTo(QUrl::fromLocalFile(QString::fromStdString(address)));
}

std::string LocationURL(const WebBrowser& browser) {
    const BrowserWidget* view = BrowserWidget::Of(browser);
    return view ? view->source().toString().toStdString() : "";
}

void GoBack(WebBrowser& browser) {
    if (BrowserWidget* view = BrowserWidget::Of(browser)) view->backward();
}

void GoForward(WebBrowser& browser) {
    if (BrowserWidget* view = BrowserWidget::Of(browser)) view->forward();
}
