// Windows, and where they stand.
#include "platform_qt/form_window.h"

#include "platform/desktop.h"
#include "platform_qt/browser_widget.h"
#include "platform_qt/command_button_widget.h"
#include "platform_qt/event_delivery.h"
#include "platform_qt/key_codes.h"
#include "platform_qt/qt_values.h"
#include "platform_qt/task_bar.h"
#include "platform_qt/text_widgets.h"
#include "platform_qt/tile_button_widget.h"
#include "platform_qt/window_icon.h"
#include "platform_qt/window_keys.h"
#include "platform_qt/window_places.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScrollArea>
#include <QStyle>
#include <QTimer>
#include <QWindow>
#include <utility>

namespace {

/// A form is told that it is active when another one was before, and not after a box or another program.
const FormWindow* LastActive = nullptr;

std::vector<std::unique_ptr<FormWindow>> Windows;

Qt::WindowFlags FlagsOf(const Form& form) {
    Qt::WindowFlags flags = Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    if (form.CloseBox) flags |= Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint;
    if (form.Border == BorderStyle::Sizable) flags |= Qt::WindowMinMaxButtonsHint;
    return flags;
}

} // namespace

FormWindow::FormWindow(Form& record)
    : QWidget(nullptr), Record(record), Client(new ClientWidget(record, this)) {
    setObjectName(QString::fromStdString(record.Name));
    if (record.HasIcon) setWindowIcon(WindowIcon());
    // The panel tells its commands by their hover texts alone, and the board has the keyboard meanwhile.
    setAttribute(Qt::WA_AlwaysShowToolTips);
    if (record.Border == BorderStyle::Sizable) {
        resize(ShownOf({ClientWidth(record), ClientHeight(record) + MenuHeight()}, *screen(), 0));
        LeadRecord();
    }
    AddControls(record.Controls, Client);
    ShowRecord(ShownRows::Changed);
    // A menu's words need fonts, and loading those would hold up the windows.
    if (!record.Menus.empty()) QMetaObject::invokeMethod(this, &FormWindow::AddMenus, Qt::QueuedConnection);
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

void FormWindow::Add(ScrollBar& record, QWidget* parent) {
    Bar = new ScrollBarWidget(record, parent);
    ShowLater(Bar);
}

void FormWindow::Add(CommandButton& record, QWidget* parent) {
    auto* button = new CommandButtonWidget(record, parent);
    if (!focusWidget()) button->setFocus();
    ShowLater(button);
}

void FormWindow::Add(TextBox& record, QWidget* parent) {
    ShowLater(new TextBoxWidget(record, parent));
}

void FormWindow::Add(WebBrowser& record, QWidget* parent) {
    ShowLater(new BrowserWidget(record, parent));
}

template <typename Widget>
void FormWindow::ShowLater(Widget* widget) {
    OtherControls.push_back([widget] { widget->ShowRecord(); });
}

void FormWindow::AddMenus() {
    MenuBar = new QMenuBar(this);
    MenuBar->setNativeMenuBar(false);
    for (Menu& menu : Record.Menus) {
        QMenu* shown = MenuBar->addMenu(QtText(menu.Caption));
        for (MenuItem& item : menu.Items) {
            if (item.Caption == "-")
                shown->addSeparator();
            else
                connect(shown->addAction(QtText(item.Caption)), &QAction::triggered, this, [this, &item] {
                    if (item.Click) DeliverCommand(*this, item.Click);
                });
        }
    }
    PlaceClient();
    MenuBar->show();
}

bool FormWindow::OpenMenu() {
    if (!MenuBar) return false;
    activateWindow();
    MenuBar->setActiveAction(MenuBar->actions().first());
    return true;
}

/// The client area below the menu; a window of fixed size follows its record, a sizable one leads it. Where
/// the screen has no room for all of a fixed one, it is smaller, and its client area can be scrolled.
void FormWindow::PlaceClient() {
    const QSize client(ClientWidth(Record), ClientHeight(Record));
    const QSize whole(client.width(), client.height() + MenuHeight());
    QSize shown = whole;
    if (Record.Border == BorderStyle::FixedSingle) {
        shown = ShownOf(whole, *screen(), style()->pixelMetric(QStyle::PM_ScrollBarExtent));
        FixSize(shown);
    } else if (!isVisible()) {
        resize(whole);
    }
    if (shown != whole && !Scroller) AddScroller();
    if (MenuBar) MenuBar->setGeometry(0, 0, shown.width(), MenuHeight());
    Client->resize(client);
    QWidget* below = Scroller ? static_cast<QWidget*>(Scroller) : Client;
    below->setGeometry(0, MenuHeight(), shown.width(), shown.height() - MenuHeight());
}

void FormWindow::FixSize(QSize size) {
    if (size == minimumSize() && size == maximumSize()) return;
    setFixedSize(size);
}

/// On a screen of another scale the same size is another number of its pixels, and the window system has to
/// be told again.
void FormWindow::FollowScreen() {
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    PlaceClient();
}

void FormWindow::AddScroller() {
    Scroller = new QScrollArea(this);
    Scroller->setFrameShape(QFrame::NoFrame);
    Scroller->setFocusPolicy(Qt::NoFocus);
    Scroller->setWidget(Client);
    Scroller->setVisible(true);
    Client->setVisible(true);
}

void FormWindow::ShowRecord(ShownRows rows) {
    PlaceClient();
    setWindowTitle(QtText(Record.Caption));
    Client->ShowRecord(rows);
    for (PictureWidget* picture : Pictures) picture->ShowRecord(rows);
    for (const auto& show : OtherControls) show();
}

void FormWindow::Prepare(QWidget* owner, bool quiet) {
    if (isVisible()) return;
    setAttribute(Qt::WA_ShowWithoutActivating, quiet);
    // The window system gives owners to dialogs alone.
    setWindowFlags(FlagsOf(Record) | (owner ? Qt::Dialog : Qt::Window));
    create();
    windowHandle()->setTransientParent(owner ? owner->windowHandle() : nullptr);
    connect(windowHandle(), &QWindow::screenChanged, this, &FormWindow::FollowScreen, Qt::QueuedConnection);
}

void FormWindow::MoveToPlace() {
    const QPoint place(PixelsOf(Record.Left), PixelsOf(Record.Top));
    const QSize whole = size() + FrameRoom;
    // What has to be scrolled is to be seen as far as the screen goes.
    const Needed needed = Scroller ? Needed::Whole : Needed::Caption;
    const bool centred = Record.Centred && !Placed;
    const QPoint corner = centred ? CentreOfScreen(whole) : OnScreen({place, whole}, needed);
    SetFrameCorner(*this, corner);
    SetPlace(corner);
    Placed = true;
}

void FormWindow::Show() {
    if (!Record.Visible) return;
    const bool quiet = testAttribute(Qt::WA_ShowWithoutActivating);
    // Without the keyboard a window comes to the front when it appears, if at all.
    if (quiet) Leave();
    if (!isVisible()) {
        MoveToPlace();
        if (!Record.InTaskBar) LeaveTaskBar(*this);
    }
    if (!quiet) LastActive = this;
    show();
    if (Record.OpensQuietly) QTimer::singleShot(200, this, &FormWindow::ComeToFront);
    if (quiet) return;
    raise();
    activateWindow();
}

/// Some window managers put nothing in front but what has the keyboard.
void FormWindow::ComeToFront() {
    for (const auto& other : AllWindows()) {
        const QRect shared = frameGeometry() & other->frameGeometry();
        if (isVisible() && other.get() != this && QApplication::topLevelAt(shared.center()) == other.get())
            activateWindow();
    }
}

void FormWindow::Leave() {
    NotePlace();
    hide();
}

QList<QRect> FormWindow::Figures() const {
    const auto onScreen = [](const QWidget* widget) {
        return QRect(widget->mapToGlobal(QPoint()), widget->size());
    };
    QList<QRect> figures;
    if (Record.ShowsImage) figures << onScreen(Client);
    for (const PictureWidget* picture : Pictures)
        if (picture->isVisible()) figures << onScreen(picture);
    return figures;
}

void FormWindow::LoseMouse() {
    for (PictureWidget* picture : Pictures) picture->LoseMouse();
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    DeliverCommand(*this, [this] {
        if (Record.CloseRequest)
            Record.CloseRequest();
        else
            UnloadForm(Record);
    });
}

void FormWindow::NotePlace() {
    // Under Wayland no window knows its place, and the record keeps the one that was stored.
    if (!isVisible() || QGuiApplication::platformName().startsWith("wayland")) return;
    const QPoint place = windowHandle()->framePosition();
    const QPoint known(PixelsOf(Record.Left), PixelsOf(Record.Top));
    // On a scaled display the corner of a window that nobody moved may be told one pixel off.
    if ((place - known).manhattanLength() > 2) SetPlace(place);
}

void FormWindow::SetPlace(QPoint corner) {
    Record.Left = static_cast<float>(corner.x() * TwipsPerPixelX());
    Record.Top = static_cast<float>(corner.y() * TwipsPerPixelY());
}

void FormWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::ActivationChange) return;
    if (!isActiveWindow())
        LoseMouse();
    else if (std::exchange(LastActive, this) != this && Record.Activate)
        Deliver(*this, Record.Activate);
}

void FormWindow::LeadRecord() {
    Resize(Record, static_cast<float>(width() * TwipsPerPixelX()) + FrameWidth(Record.Border),
           static_cast<float>((height() - MenuHeight()) * TwipsPerPixelY()) + FrameHeight(Record.Border));
}

void FormWindow::resizeEvent(QResizeEvent*) {
    if (Record.Border != BorderStyle::Sizable || !isVisible()) return;
    LeadRecord();
    if (Record.Resized) Deliver(*this, Record.Resized);
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
    std::int16_t keyCode = VirtualKeyCode(*event);
    if (Record.KeyDown) Deliver(*this, [&] { Record.KeyDown(keyCode, ShiftState(event->modifiers())); });
    if (IsWindowKey(event->key())) return PressWindowKey(*this, event->key());
    if (!Record.KeyDown && event->key() == Qt::Key_Escape) ReturnKeyboard();
}

/// Wherever the wheel turns in the window, it turns the scroll bar.
void FormWindow::wheelEvent(QWheelEvent* event) {
    if (Bar && Bar->isEnabled()) QCoreApplication::sendEvent(Bar, event);
}

FormWindow* FindWindow(const Form& form) {
    for (const auto& window : Windows)
        if (&window->Shown() == &form) return window.get();
    return nullptr;
}

FormWindow& WindowOf(Form& form) {
    if (FormWindow* window = FindWindow(form)) return *window;
    return *Windows.emplace_back(std::make_unique<FormWindow>(form));
}

const std::vector<std::unique_ptr<FormWindow>>& AllWindows() {
    return Windows;
}
