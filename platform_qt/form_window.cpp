// Windows, and where they stand.
#include "platform_qt/form_window.h"

#include "platform/desktop.h"
#include "platform_qt/qt_desktop.h"
#include "platform_qt/qt_text.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QIcon>
#include <QMenuBar>
#include <QScreen>
#include <algorithm>

namespace {

Qt::WindowFlags FlagsOf(const Form& form) {
    Qt::WindowFlags flags = form.InTaskBar ? Qt::Window : Qt::Tool;
    flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    if (form.CloseBox) flags |= Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint;
    return flags;
}

/// The nearest place for the window on a screen; its own place if any part of it shows there.
QPoint OnScreen(QRect window) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    const auto shows = [&](const QScreen* screen) { return screen->availableGeometry().intersects(window); };
    if (screens.isEmpty() || std::any_of(screens.begin(), screens.end(), shows)) return window.topLeft();
    const auto distance = [&](const QScreen* screen) {
        return (screen->availableGeometry().center() - window.center()).manhattanLength();
    };
    const QScreen* nearest = *std::min_element(screens.begin(), screens.end(),
                                               [&](auto* a, auto* b) { return distance(a) < distance(b); });
    const QRect area = nearest->availableGeometry();
    return {std::clamp(window.left(), area.left(), std::max(area.left(), area.right() - window.width())),
            std::clamp(window.top(), area.top(), std::max(area.top(), area.bottom() - window.height()))};
}

} // namespace

FormWindow::FormWindow(Form& record)
    : QWidget(nullptr, FlagsOf(record)), Record(record), Client(new QWidget(this)) {
    setObjectName(QString::fromStdString(record.Name));
    setWindowIcon(QIcon(":/icons/quillets.svg"));
    AddMenus();
    AddControls(record.Controls, Client);
    ShowRecord(ShownRows::Changed);
}

void FormWindow::AddControls(const std::vector<ControlRef>& controls, QWidget* parent) {
    for (const ControlRef& control : controls)
        std::visit([&](auto* record) { Add(*record, parent); }, control);
}

void FormWindow::Add(Picture& record, QWidget* parent) {
    Pictures.push_back(new PictureWidget(record, parent));
}

void FormWindow::Add(Label& record, QWidget* parent) {
    ShowLater(new LabelWidget(record, parent));
}

void FormWindow::Add(TileButton& record, QWidget* parent) {
    ShowLater(new TileButtonWidget(record, parent));
}

void FormWindow::Add(Frame& record, QWidget* parent) {
    auto* frame = new FrameWidget(record, parent);
    ShowLater(frame);
    AddControls(record.Controls, frame);
}

template <typename Widget>
void FormWindow::ShowLater(Widget* widget) {
    OtherControls.push_back([widget] { widget->ShowRecord(); });
}

void FormWindow::AddMenus() {
    if (Record.Menus.empty()) return;
    MenuBar = new QMenuBar(this);
    MenuBar->setNativeMenuBar(false);
    for (Menu& menu : Record.Menus) {
        QMenu* shown = MenuBar->addMenu(QtText(menu.Caption));
        for (MenuItem& item : menu.Items) {
            if (item.Caption == "-")
                shown->addSeparator();
            else
                connect(shown->addAction(QtText(item.Caption)), &QAction::triggered, this, [&item] {
                    if (item.Click) DeliverCommand(item.Click);
                });
        }
    }
}

void FormWindow::Place() {
    const int menuHeight = MenuBar ? MenuBar->sizeHint().height() : 0;
    const QSize client(ClientWidth(Record), ClientHeight(Record));
    if (MenuBar) MenuBar->setGeometry(0, 0, client.width(), menuHeight);
    Client->setGeometry(0, menuHeight, client.width(), client.height());
    setFixedSize(client.width(), client.height() + menuHeight);
}

void FormWindow::ShowRecord(ShownRows rows) {
    Place();
    setWindowTitle(QtText(Record.Caption));
    for (PictureWidget* picture : Pictures) picture->ShowRecord(rows);
    for (const auto& show : OtherControls) show();
}

void FormWindow::ShowAtPlace() {
    if (!isVisible()) move(OnScreen(QRect(QPoint(PixelsOf(Record.Left), PixelsOf(Record.Top)), size())));
    show();
    raise();
}

void FormWindow::LoseMouse() {
    for (PictureWidget* picture : Pictures) picture->LoseMouse();
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    DeliverCommand([this] {
        if (Record.CloseRequest)
            Record.CloseRequest();
        else
            UnloadForm(Record);
    });
}

void FormWindow::moveEvent(QMoveEvent*) {
    if (!isVisible()) return;
    Record.Left = static_cast<float>(pos().x() * TwipsPerPixelX());
    Record.Top = static_cast<float>(pos().y() * TwipsPerPixelY());
}

void FormWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && !isActiveWindow()) LoseMouse();
    QWidget::changeEvent(event);
}
