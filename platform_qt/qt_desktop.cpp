// The calls of the game on the desktop, over real windows.
#include "platform_qt/qt_desktop.h"

#include "platform/desktop.h"
#include "platform_qt/accessible_widgets.h"
#include "platform_qt/event_delivery.h"
#include "platform_qt/form_window.h"
#include "platform_qt/game_style.h"

#include <QApplication>
#include <QEventLoop>
#include <QTime>
#include <algorithm>
#include <cstdlib>

namespace {

std::string Folder;
std::vector<Form*> Loaded;

void Load(Form& form) {
    if (form.Loaded) return;
    form.Loaded = true;
    Loaded.push_back(&form);
    if (form.Load) form.Load();
}

void ShowModal(Form& form, FormWindow& window) {
    PrepareForModal();
    window.Prepare(AskingWindow(), false);
    window.setWindowModality(Qt::ApplicationModal);
    window.Show();
    while (form.Visible) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void ShowModeless(Form& form, FormWindow& window) {
    Form& startForm = *Loaded.front();
    // At the start the keyboard is the start-up form's own, and that one comes last.
    const bool early = &form != &startForm && !startForm.Visible;
    window.Prepare(form.OpensQuietly ? &WindowOf(startForm) : nullptr, form.OpensQuietly || early);
    window.setWindowModality(Qt::NonModal);
    if (form.OpensQuietly)
        // After the handler, which gives the keyboard to another window and so puts that one in front.
        QMetaObject::invokeMethod(&window, &FormWindow::Show, Qt::QueuedConnection);
    else
        window.Show();
}

} // namespace

int RunDesktop(int argc, char** argv, Form& startForm, const std::string& folder) {
    // Window places can't be set under Wayland, so the X protocol is preferred where there is a choice.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "xcb;wayland");
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    // The game takes no command line, so that Qt gets nothing but the name of the program.
    argc = std::min(argc, 1);
    QApplication application(argc, argv);
    // A drag's grip is taken at its first move, and not where later ones have got to.
    QApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    QApplication::setApplicationName("Quillets");
    QApplication::setQuitOnLastWindowClosed(false);
    SetGameStyle();
    QAccessible::installFactory(RoleOfWidget);
    Folder = folder;
    StartDelivery();
    Load(startForm);
    ShowForm(startForm, Modality::Modeless);
    return QApplication::exec();
}

void ShowForm(Form& form, Modality modality) {
    Load(form);
    form.Visible = true;
    FormWindow& window = WindowOf(form);
    if (form.Resized) form.Resized();
    if (form.Activate) form.Activate();
    window.ShowRecord(ShownRows::Changed);
    if (modality == Modality::Modal)
        ShowModal(form, window);
    else
        ShowModeless(form, window);
}

QWidget* ClientAreaOf(Form& form) {
    return WindowOf(form).ClientArea();
}

void HideForm(Form& form) {
    form.Visible = false;
    if (FormWindow* window = FindWindow(form)) window->Leave();
}

void UnloadForm(Form& form) {
    if (!form.Loaded) return;
    std::int16_t cancel = 0;
    if (form.Unload) form.Unload(cancel);
    if (cancel != 0) return;
    HideForm(form);
    WindowOf(form).ForgetPlace();
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
