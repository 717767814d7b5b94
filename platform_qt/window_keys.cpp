// Finds the window that a key leads to.
#include "platform_qt/window_keys.h"

#include "platform/desktop.h"
#include "platform_qt/form_window.h"

#include <algorithm>

namespace {

/// The windows that take the keyboard, in the order in which their forms were loaded. While a window is
/// modal, it is the only one.
std::vector<FormWindow*> Reachable() {
    std::vector<FormWindow*> windows;
    for (Form* form : LoadedForms())
        if (FormWindow* window = FindWindow(*form); window && window->isVisible()) windows.push_back(window);
    const auto modal = std::ranges::find_if(windows, &FormWindow::isModal);
    return modal == windows.end() ? windows : std::vector{*modal};
}

void GoToNext(FormWindow& from) {
    const std::vector<FormWindow*> windows = Reachable();
    const auto at = std::ranges::find(windows, &from);
    if (at == windows.end()) return;
    const auto next = std::next(at) == windows.end() ? windows.begin() : std::next(at);
    if (*next != &from) SetFocus((*next)->Shown());
}

/// The window's own menu, or that of the first window which has one.
void OpenMenu(FormWindow& from) {
    std::vector<FormWindow*> windows = Reachable();
    windows.insert(windows.begin(), &from);
    static_cast<void>(std::ranges::find_if(windows, &FormWindow::OpenMenu));
}

} // namespace

bool IsWindowKey(int key) {
    return key == Qt::Key_F6 || key == Qt::Key_F10;
}

void PressWindowKey(FormWindow& window, int key) {
    if (key == Qt::Key_F6) GoToNext(window);
    if (key == Qt::Key_F10) OpenMenu(window);
}

void ReturnKeyboard() {
    if (!LoadedForms().empty()) SetFocus(*LoadedForms().front());
}
