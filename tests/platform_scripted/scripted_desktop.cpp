// Every call of the game on the desktop, recorded and answered.
#include "platform_scripted/scripted_desktop.h"

#include <algorithm>
#include <utility>

ScriptedDesktop Desktop;

namespace {

BoxAnswer FirstButton(BoxButtons buttons) {
    return buttons == BoxButtons::YesNo ? BoxAnswer::Yes : BoxAnswer::Ok;
}

void Load(Form& form) {
    if (form.Loaded) return;
    form.Loaded = true;
    Desktop.Loaded.push_back(&form);
    if (form.Load) form.Load();
}

bool TakesEvents(const Control& control) {
    return control.Enabled && control.Visible && !Desktop.Ended;
}

void Mouse(Picture& picture, MouseHandler handler, std::int16_t button, float x, float y) {
    if (handler && TakesEvents(picture)) Deliver([&] { handler(button, 0, x, y); });
}

/// A box, a button or a menu takes the mouse from a press under way.
void TakeMouse() {
    for (const Form* form : Desktop.Loaded)
        for (const ControlRef& control : form->Controls)
            if (Picture* const* picture = std::get_if<Picture*>(&control); picture && (*picture)->MouseLost)
                (*picture)->MouseLost();
}

std::int32_t AnswerDialog(const std::string& kind, OpenFileName& record) {
    Desktop.Calls.push_back("dialog " + kind);
    Desktop.FileDialogs.push_back(record);
    TakeMouse();
    if (Desktop.WhileModal) Desktop.WhileModal();
    if (Desktop.Paths.empty()) return 0;
    const std::string path = Desktop.Paths.front();
    Desktop.Paths.pop_front();
    if (path.empty()) return 0;
    // As a real one does: the path and a NUL over what stood there.
    const std::string answer = path + '\0';
    record.lpstrFile.replace(0, std::min(answer.size(), record.lpstrFile.size()), answer);
    return 1;
}

} // namespace

BoxAnswer MsgBox(const std::string& text, BoxButtons buttons, BoxIcon icon, const std::string& title,
                 BoxDefault preset) {
    Desktop.Boxes.push_back({text, title, buttons, icon, preset});
    Desktop.Calls.push_back("box " + text);
    TakeMouse();
    if (Desktop.WhileModal) Desktop.WhileModal();
    if (Desktop.Answers.empty()) return FirstButton(buttons);
    const BoxAnswer answer = Desktop.Answers.front();
    Desktop.Answers.pop_front();
    return answer;
}

std::int32_t GetOpenFileNameA(OpenFileName& record) {
    return AnswerDialog("open", record);
}

std::int32_t GetSaveFileNameA(OpenFileName& record) {
    return AnswerDialog("save", record);
}

std::intptr_t ProgramInstance() {
    return 1;
}

std::int32_t mciSendStringA(const std::string& command, std::string&, std::int32_t, void*) {
    Desktop.MediaCommands.push_back(command);
    Desktop.Calls.push_back("media " + command);
    return 0;
}

void ShowForm(Form& form, Modality modality) {
    Load(form);
    form.Visible = true;
    if (form.Resized) form.Resized();
    if (form.Activate) form.Activate();
    Desktop.Calls.push_back((modality == Modality::Modal ? "show modal " : "show ") + form.Name);
    if (modality != Modality::Modal) return;
    TakeMouse();
    if (Desktop.WhileModal) Desktop.WhileModal();
    form.Visible = false;
}

void HideForm(Form& form) {
    form.Visible = false;
    Desktop.Calls.push_back("hide " + form.Name);
}

void UnloadForm(Form& form) {
    if (!form.Loaded) return;
    Desktop.Calls.push_back("unload " + form.Name);
    std::int16_t cancel = 0;
    if (form.Unload) form.Unload(cancel);
    if (cancel != 0) return;
    form.Visible = false;
    form.Loaded = false;
    std::erase(Desktop.Loaded, &form);
}

std::vector<Form*> LoadedForms() {
    return Desktop.Loaded;
}

void SetFocus(Form& form) {
    Desktop.Focused = &form;
    Desktop.Calls.push_back("focus " + form.Name);
}

void PrintForm(Form& form) {
    Desktop.Calls.push_back("print " + form.Name);
}

void Navigate(WebBrowser&, const std::string& address) {
    if (!Desktop.History.empty() && Desktop.History[Desktop.PageShown] == address) return;
    FollowLink(address);
}

std::string LocationURL(const WebBrowser&) {
    return Desktop.History.empty() ? "" : Desktop.History[Desktop.PageShown];
}

void GoBack(WebBrowser&) {
    if (Desktop.PageShown > 0) --Desktop.PageShown;
}

void GoForward(WebBrowser&) {
    if (Desktop.PageShown + 1 < Desktop.History.size()) ++Desktop.PageShown;
}

void EndProgram() {
    Desktop.Ended = true;
    Desktop.Calls.push_back("end");
    throw ProgramEnded{};
}

float Timer() {
    return Desktop.Clock;
}

std::string ApplicationFolder() {
    return Desktop.Folder;
}

bool StartProgram(Form& startForm, const std::string& folder) {
    ScriptedDesktop fresh;
    fresh.Folder = folder;
    fresh.Clock = Desktop.Clock;
    fresh.Answers = std::move(Desktop.Answers);
    fresh.Paths = std::move(Desktop.Paths);
    fresh.WhileModal = std::move(Desktop.WhileModal);
    Desktop = std::move(fresh);
    return Deliver([&] {
        Load(startForm);
        ShowForm(startForm, Modality::Modeless);
    });
}

bool Deliver(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const ProgramEnded&) {
        return false;
    }
    return true;
}

void MouseDown(Picture& picture, std::int16_t button, float x, float y) {
    Mouse(picture, picture.MouseDown, button, x, y);
}

void MouseMove(Picture& picture, std::int16_t button, float x, float y) {
    Mouse(picture, picture.MouseMove, button, x, y);
}

void MouseUp(Picture& picture, std::int16_t button, float x, float y) {
    Mouse(picture, picture.MouseUp, button, x, y);
}

void LoseMouse(Picture& picture) {
    if (picture.MouseLost && !Desktop.Ended) Deliver(picture.MouseLost);
}

void KeyDown(Picture& picture, std::int16_t keyCode, std::int16_t shift) {
    if (picture.KeyDown && TakesEvents(picture)) Deliver([&] { picture.KeyDown(keyCode, shift); });
}

void ScrollTo(ScrollBar& bar, int value) {
    const std::int16_t stopped = NearestInt16(std::clamp<int>(value, 0, bar.Max));
    if (!TakesEvents(bar) || stopped == bar.Value) return;
    bar.Value = stopped;
    if (bar.Change) Deliver(bar.Change);
}

void FollowLink(const std::string& address) {
    if (!Desktop.History.empty()) Desktop.History.resize(Desktop.PageShown + 1);
    Desktop.History.push_back(address);
    Desktop.PageShown = Desktop.History.size() - 1;
}

void PressButton(TileButton& button) {
    if (!button.Pressed || !TakesEvents(button)) return;
    TakeMouse();
    Deliver([&] { button.Pressed(button.Index); });
}

void ChooseMenuItem(Form& form, const std::string& caption) {
    TakeMouse();
    for (const Menu& menu : form.Menus)
        for (const MenuItem& item : menu.Items)
            if (item.Caption == caption && item.Click && !Desktop.Ended) Deliver(item.Click);
}
