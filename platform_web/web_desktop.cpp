// The calls of the game on the desktop, over panes of the page.
#include "platform_web/web_desktop.h"

#include "platform/desktop.h"
#include "platform/files.h"
#include "platform_web/description.h"
#include "platform_web/tasks.h"

#include <algorithm>
#include <emscripten.h>
#include <map>
#include <optional>
#include <utility>

// clang-format off
EM_JS(void, CallPage, (const char* name, const char* list), {
    Page[UTF8ToString(name)](...JSON.parse(UTF8ToString(list)));
})
EM_JS(double, SecondsOfDay, (), { const now = new Date(); return (now - new Date(now).setHours(0, 0, 0, 0)) / 1000; })
// clang-format on

std::string Letter;

namespace {

/// What the page has of a form.
struct Pane {
    bool Modal = false;
    std::string Description;
    std::map<const Surface*, Surface> Pictures;
};

std::vector<Form*> Loaded;
std::map<Form*, Pane> Panes;
/// What holds up all other forms, the latest last; a null stands for a question.
std::vector<Form*> Modals;
std::optional<int> Answered;
Form* LastActive = nullptr;

/// Which rows of a surface are to be shown: those refreshed, or all that were drawn on.
enum class ShownRows { Due, Changed };

/// Most of what a drag draws again looks as it did: such rows at either end are left out.
RowRange WithoutSame(const Surface& image, const Surface& shown, RowRange rows) {
    const auto same = [&](int y) {
        return std::equal(image.Row(y), image.Row(y) + image.Width(), shown.Row(y));
    };
    while (!rows.Empty() && same(rows.First)) ++rows.First;
    while (!rows.Empty() && same(rows.Last - 1)) --rows.Last;
    return rows;
}

void ShowRows(Surface& shown, Surface& image, ShownRows which) {
    RowRange rows = which == ShownRows::Due ? image.TakeDueRows() : image.TakeChangedRows();
    if (image.Width() != shown.Width() || image.Height() != shown.Height())
        shown = Surface(image.Width(), image.Height());
    else
        rows = WithoutSame(image, shown, rows);
    if (rows.Empty()) return;
    BitBlt(shown, 0, rows.First, image.Width(), rows.Last - rows.First, image, 0, rows.First);
    TellPage("paint", Json(&image) + ',' + Json(rows.First) + ',' + Json(rows.Last));
}

void ShowPane(Form& form, Pane& pane, ShownRows rows) {
    std::string description = DescriptionOf(form, pane.Modal);
    if (description != pane.Description) TellPage("show", description);
    pane.Description = std::move(description);
    if (!form.Visible) return;
    if (form.ShowsImage) ShowRows(pane.Pictures[&form.Image], form.Image, rows);
    EachControl(form.Controls, [&](auto& control) {
        if constexpr (requires { control.Image; })
            if (control.Visible) ShowRows(pane.Pictures[&control.Image], control.Image, rows);
    });
}

void PrepareForModal() {
    LoseMouse();
    for (auto& [form, pane] : Panes) ShowPane(*form, pane, ShownRows::Due);
}

/// Asks the player and waits; answers which button was chosen.
int Ask(const JsonObject& question) {
    PrepareForModal();
    Modals.push_back(nullptr);
    const int answer = AskPage("ask", Json(question));
    Modals.pop_back();
    return answer;
}

void Load(Form& form) {
    if (std::exchange(form.Loaded, true)) return;
    Loaded.push_back(&form);
    if (form.Load) form.Load();
}

/// The page takes in a file of the player's own before it answers with its name.
std::int32_t AskForFile(OpenFileName& record, const char* kind) {
    const std::string ending = record.lpstrFile.substr(1, record.lpstrFile.find(' ') - 1);
    const int answer = Ask(JsonObject("kind", std::string(kind), "title", record.lpstrTitle, "ending", ending,
                                      "names", NamesEndingIn(ending)));
    record.lpstrFile = record.lpstrInitialDir + Letter + '\0';
    return answer == 0;
}

} // namespace

void RunDesktop(Form& startForm, void (*design)()) {
    RunTask([=, &startForm] {
        const std::string fault = std::exchange(Letter, {});
        design();
        ShowForm(startForm, Modality::Modeless);
        SetFocus(startForm);
        ShowAll();
        if (!fault.empty()) MsgBox("What you keep in this game will not last:\n\r" + fault + ".");
    });
}

void TellPage(const char* function, const std::string& arguments) {
    CallPage(function, ('[' + arguments + ']').c_str());
}

int AskPage(const char* function, const std::string& arguments) {
    Answered.reset();
    TellPage(function, arguments);
    WaitUntil([] { return Answered.has_value(); });
    return *Answered;
}

void TakeAnswer(int answer) {
    Answered = answer;
}

bool IsHeldUp(const Form& form) {
    return !form.Visible || (!Modals.empty() && Modals.back() != &form);
}

void ShowAll() {
    for (auto& [form, pane] : Panes) ShowPane(*form, pane, ShownRows::Changed);
}

void LoseMouse() {
    for (auto& [form, pane] : Panes)
        EachControl(form->Controls, [](auto& control) {
            if constexpr (requires { control.MouseLost; })
                if (control.MouseLost) control.MouseLost();
        });
}

bool TurnTo(Form& form) {
    return std::exchange(LastActive, &form) != &form;
}

BoxAnswer MsgBox(const std::string& text, BoxButtons buttons, BoxIcon icon, const std::string& title,
                 BoxDefault preset) {
    static constexpr const char* Icons[] = {"", "information", "warning"};
    const bool yesNo = buttons == BoxButtons::YesNo;
    std::vector<std::string> names = {yesNo ? "Yes" : "OK"};
    if (buttons != BoxButtons::Ok) names.push_back(yesNo ? "No" : "Cancel");
    const JsonObject question("kind", std::string("box"), "title", title.empty() ? "Quillets" : title, "text",
                              text, "buttons", names, "icon", std::string(Icons[static_cast<int>(icon)]),
                              "preset", preset == BoxDefault::Second);
    const bool first = Ask(question) == 0;
    if (yesNo) return first ? BoxAnswer::Yes : BoxAnswer::No;
    return first ? BoxAnswer::Ok : BoxAnswer::Cancel;
}

std::int32_t GetOpenFileNameA(OpenFileName& record) {
    return AskForFile(record, "open");
}

std::int32_t GetSaveFileNameA(OpenFileName& record) {
    return AskForFile(record, "save");
}

std::intptr_t ProgramInstance() {
    return 1;
}

std::int32_t mciSendStringA(const std::string& command, std::string& returnString, std::int32_t, void*) {
    returnString.clear();
    if (command.starts_with("play "))
        TellPage("play", Json(command.substr(command.rfind(PathSeparator) + 1)));
    else if (command == "close all")
        TellPage("silence");
    return 0;
}

void ShowForm(Form& form, Modality modality) {
    const bool modal = modality == Modality::Modal;
    Load(form);
    form.Visible = true;
    if (form.Resized) form.Resized();
    if (form.Activate) form.Activate();
    if (modal) PrepareForModal();
    Panes[&form].Modal = modal;
    ShowPane(form, Panes[&form], ShownRows::Changed);
    TellPage("raise", Json(&form));
    LastActive = &form;
    if (!modal) return;
    Modals.push_back(&form);
    WaitUntil([&form] { return !form.Visible; });
    Modals.pop_back();
}

void HideForm(Form& form) {
    form.Visible = false;
    if (const auto found = Panes.find(&form); found != Panes.end())
        ShowPane(form, found->second, ShownRows::Due);
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
    LastActive = &form;
    TellPage("focus", Json(&form));
}

void PrintForm(Form& form) {
    ShowAll();
    TellPage("print", Json(&form));
}

// The help form has the only browser.
void Navigate(WebBrowser&, const std::string& address) {
    TellPage("navigate", Json(address));
}

std::string LocationURL(const WebBrowser&) {
    TellPage("leaveAddress");
    return Letter;
}

void GoBack(WebBrowser&) {
    TellPage("stepBy", "-1");
}

void GoForward(WebBrowser&) {
    TellPage("stepBy", "1");
}

void EndProgram() {
    TellPage("end");
    for (;;) WaitUntil([] { return false; });
}

float Timer() {
    return static_cast<float>(SecondsOfDay());
}

std::string ApplicationFolder() {
    return FolderName;
}
