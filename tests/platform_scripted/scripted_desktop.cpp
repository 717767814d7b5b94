// Every call of the game on the desktop, recorded and answered.
#include "platform_scripted/scripted_desktop.h"

#include <algorithm>
#include <utility>

ScriptedDesktop Desktop;

namespace {

void Record(const std::string& call) {
    Desktop.Calls.push_back(call);
}

/// The player's answer to what is on screen, or `otherwise` where none is left.
template <typename Answer>
Answer NextAnswer(std::deque<Answer>& answers, Answer otherwise) {
    LoseMouse();
    if (Desktop.WhileModal) Desktop.WhileModal();
    if (answers.empty()) return otherwise;
    otherwise = answers.front();
    answers.pop_front();
    return otherwise;
}

void Load(Form& form) {
    if (form.Loaded) return;
    form.Loaded = true;
    Desktop.Loaded.push_back(&form);
    if (form.Load) form.Load();
}

/// An event of the control, where it can take one.
template <typename Handler, typename... Arguments>
void Send(const Control& control, Handler handler, Arguments... arguments) {
    if (handler && control.Enabled && control.Visible && !Desktop.Ended)
        Deliver([&] { handler(arguments...); });
}

std::int32_t AnswerDialog(const std::string& kind, OpenFileName& record) {
    Record("dialog " + kind);
    Desktop.FileDialogs.push_back(record);
    // As a real one does: the path and a NUL over what stood there.
    const std::string answer = NextAnswer(Desktop.Paths, std::string()) + '\0';
    if (answer.size() == 1) return 0;
    record.lpstrFile.replace(0, std::min(answer.size(), record.lpstrFile.size()), answer);
    return 1;
}

} // namespace

BoxAnswer MsgBox(const std::string& text, BoxButtons buttons, BoxIcon icon, const std::string& title,
                 BoxDefault preset) {
    Desktop.Boxes.push_back({text, title, buttons, icon, preset});
    Record("box " + text);
    return NextAnswer(Desktop.Answers, buttons == BoxButtons::YesNo ? BoxAnswer::Yes : BoxAnswer::Ok);
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
    Record("media " + command);
    return 0;
}

void ShowForm(Form& form, Modality modality) {
    Load(form);
    form.Visible = true;
    if (form.Resized) form.Resized();
    if (form.Activate) form.Activate();
    Record((modality == Modality::Modal ? "show modal " : "show ") + form.Name);
    if (modality != Modality::Modal) return;
    LoseMouse();
    if (Desktop.WhileModal) Desktop.WhileModal();
    form.Visible = false;
}

void HideForm(Form& form) {
    form.Visible = false;
    Record("hide " + form.Name);
}

void UnloadForm(Form& form) {
    if (!form.Loaded) return;
    Record("unload " + form.Name);
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
    Record("focus " + form.Name);
}

void PrintForm(Form& form) {
    Record("print " + form.Name);
}

void Navigate(WebBrowser& browser, const std::string& address) {
    if (LocationURL(browser) != address) FollowLink(address);
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
    Record("end");
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
    Send(picture, picture.MouseDown, button, std::int16_t{0}, x, y);
}

void MouseMove(Picture& picture, std::int16_t button, float x, float y) {
    Send(picture, picture.MouseMove, button, std::int16_t{0}, x, y);
}

void MouseUp(Picture& picture, std::int16_t button, float x, float y) {
    Send(picture, picture.MouseUp, button, std::int16_t{0}, x, y);
}

void KeyDown(Picture& picture, std::int16_t keyCode, std::int16_t shift) {
    Send(picture, picture.KeyDown, keyCode, shift);
}

void LoseMouse() {
    for (const Form* form : Desktop.Loaded)
        for (const ControlRef& control : form->Controls)
            if (Picture* const* picture = std::get_if<Picture*>(&control); picture && (*picture)->MouseLost)
                (*picture)->MouseLost();
}

void Scroll(ScrollBar& bar, int by) {
    const std::int16_t stopped = NearestInt16(std::clamp<int>(bar.Value + by, 0, bar.Max));
    if (!bar.Enabled || stopped == bar.Value) return;
    bar.Value = stopped;
    Send(bar, bar.Change);
}

void FollowLink(const std::string& address) {
    if (!Desktop.History.empty()) Desktop.History.resize(Desktop.PageShown + 1);
    Desktop.History.push_back(address);
    Desktop.PageShown = Desktop.History.size() - 1;
}

void PressButton(TileButton& button) {
    LoseMouse();
    Send(button, button.Pressed, button.Index);
}

void ChooseMenuItem(Form& form, const std::string& caption) {
    LoseMouse();
    for (const Menu& menu : form.Menus)
        for (const MenuItem& item : menu.Items)
            if (item.Caption == caption && item.Click && !Desktop.Ended) Deliver(item.Click);
}
