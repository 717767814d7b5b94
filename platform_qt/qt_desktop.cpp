// The calls of the game on the desktop, over real windows.
#include "platform_qt/qt_desktop.h"

#include "platform/desktop.h"
#include "platform_qt/form_window.h"
#include "platform_qt/qt_text.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMessageBox>
#include <QProxyStyle>
#include <QPushButton>
#include <QThread>
#include <QTime>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>

namespace {

std::string Folder;
std::vector<Form*> Loaded;
std::map<Form*, std::unique_ptr<FormWindow>> Windows;
QElapsedTimer SinceLastPicture;

/// Runs while moves have changed what no picture shows yet, and then shows it.
QTimer& NextPicture() {
    static QTimer timer;
    return timer;
}

void ShowChanges(ShownRows rows) {
    NextPicture().stop();
    SinceLastPicture.start();
    for (const auto& [form, window] : Windows) window->ShowRecord(rows);
}

/// A fast mouse moves a thousand times a second, and to be woken costs more than to move a piece. So while
/// moves wait for their picture the thread rests, and is not woken for each.
void RestBetweenPictures() {
    constexpr int LongestRest = 2; // milliseconds
    if (NextPicture().isActive())
        QThread::msleep(
            static_cast<unsigned long>(std::clamp(NextPicture().remainingTime(), 0, LongestRest)));
}

void LoseMouse() {
    for (const auto& [form, window] : Windows) window->LoseMouse();
}

void Load(Form& form) {
    if (form.Loaded) return;
    form.Loaded = true;
    Loaded.push_back(&form);
    if (form.Load) form.Load();
}

FormWindow& WindowOf(Form& form) {
    std::unique_ptr<FormWindow>& window = Windows[&form];
    if (!window) window = std::make_unique<FormWindow>(form);
    return *window;
}

/// Every menu has its room, so the menu bar's icon for those without is left out: reading it would load the
/// library of each picture format at the start.
class GameStyle : public QProxyStyle {
  public:
    GameStyle() : QProxyStyle("Fusion") {}
    QIcon standardIcon(StandardPixmap kind, const QStyleOption* option,
                       const QWidget* widget) const override {
        return kind == SP_ToolBarHorizontalExtensionButton ? QIcon()
                                                           : QProxyStyle::standardIcon(kind, option, widget);
    }
    QSize sizeFromContents(ContentsType kind, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override {
        QSize size = QProxyStyle::sizeFromContents(kind, option, contents, widget);
        if (kind == CT_MenuBarItem && !size.isEmpty()) size.setHeight(MenuBarHeight);
        return size;
    }
};

/// The game's colours are light on every desktop, so that black figures stand out.
void SetLightColours() {
    QApplication::setStyle(new GameStyle);
    QPalette colours(QtColour(ButtonFace));
    colours.setColor(QPalette::Window, QtColour(ButtonFace));
    QApplication::setPalette(colours);
}

QMessageBox::StandardButtons QtButtons(BoxButtons buttons) {
    switch (buttons) {
    case BoxButtons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case BoxButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    default:
        return QMessageBox::Ok;
    }
}

QMessageBox::Icon QtIcon(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::Information:
        return QMessageBox::Information;
    case BoxIcon::Warning:
        return QMessageBox::Warning;
    default:
        return QMessageBox::NoIcon;
    }
}

BoxAnswer AnswerOf(int button) {
    switch (button) {
    case QMessageBox::Yes:
        return BoxAnswer::Yes;
    case QMessageBox::No:
        return BoxAnswer::No;
    case QMessageBox::Cancel:
        return BoxAnswer::Cancel;
    default:
        return BoxAnswer::Ok;
    }
}

} // namespace

int RunDesktop(int argc, char** argv, Form& startForm, const std::string& folder) {
    // Window places can't be set under Wayland, so the X protocol is preferred where there is a choice.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "xcb;wayland");
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    // A drag's grip is taken at its first move, and not where later ones have got to.
    QApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    QApplication::setApplicationName("Quillets");
    QApplication::setQuitOnLastWindowClosed(false);
    SetLightColours();
    QAccessible::installFactory(RoleOfWidget);
    QApplication::setFont(QtFont({"Arial", 9, false}));
    Folder = folder;
    NextPicture().setSingleShot(true);
    NextPicture().setTimerType(Qt::PreciseTimer);
    NextPicture().callOnTimeout([] { ShowChanges(ShownRows::Changed); });
    SinceLastPicture.start();
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                     RestBetweenPictures);
    Load(startForm);
    ShowForm(startForm, Modality::Modeless);
    return QApplication::exec();
}

void Deliver(const std::function<void()>& handler) {
    handler();
    ShowChanges(ShownRows::Changed);
}

void DeliverMove(const std::function<void()>& handler) {
    constexpr std::int64_t Pace = 6; // milliseconds
    handler();
    const std::int64_t waited = SinceLastPicture.elapsed();
    if (waited >= Pace)
        ShowChanges(ShownRows::Changed);
    else if (!NextPicture().isActive())
        NextPicture().start(static_cast<int>(Pace - waited));
}

void DeliverCommand(const std::function<void()>& handler) {
    LoseMouse();
    Deliver(handler);
}

void PrepareForModal() {
    LoseMouse();
    ShowChanges(ShownRows::Due);
}

BoxAnswer MsgBox(const std::string& text, BoxButtons buttons, BoxIcon icon, const std::string& title,
                 BoxDefault preset) {
    PrepareForModal();
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(title.empty() ? QApplication::applicationName() : QtText(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(QtText(text));
    box.setIcon(QtIcon(icon));
    box.setStandardButtons(QtButtons(buttons));
    if (preset == BoxDefault::Second)
        box.setDefaultButton(buttons == BoxButtons::YesNo ? QMessageBox::No : QMessageBox::Cancel);
    if (buttons == BoxButtons::YesNo) box.setEscapeButton(QMessageBox::No);
    return AnswerOf(box.exec());
}

void ShowForm(Form& form, Modality modality) {
    Load(form);
    form.Visible = true;
    FormWindow& window = WindowOf(form);
    if (form.Resized) form.Resized();
    if (form.Activate) form.Activate();
    window.ShowRecord(ShownRows::Changed);
    window.setWindowModality(modality == Modality::Modal ? Qt::ApplicationModal : Qt::NonModal);
    if (modality == Modality::Modal) PrepareForModal();
    window.ShowAtPlace();
    if (modality == Modality::Modal)
        while (form.Visible) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

QWidget* ClientAreaOf(Form& form) {
    return WindowOf(form).ClientArea();
}

void HideForm(Form& form) {
    form.Visible = false;
    if (const auto found = Windows.find(&form); found != Windows.end()) found->second->hide();
}

void UnloadForm(Form& form) {
    if (!form.Loaded) return;
    std::int16_t cancel = 0;
    if (form.Unload) form.Unload(cancel);
    if (cancel != 0) return;
    HideForm(form);
    form.Loaded = false;
    std::erase(Loaded, &form);
}

std::vector<Form*> LoadedForms() {
    return Loaded;
}

void SetFocus(Form& form) {
    FormWindow& window = WindowOf(form);
    if (window.isMinimized()) window.showNormal();
    window.activateWindow();
    window.raise();
}

void EndProgram() {
    std::quick_exit(0);
}

float Timer() {
    return static_cast<float>(QTime::currentTime().msecsSinceStartOfDay()) / 1000.0F;
}

std::string ApplicationFolder() {
    return Folder;
}
