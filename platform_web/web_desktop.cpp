// The calls of the game on the desktop, over panes of the page.
#include "platform_web/web_desktop.h"

#include "platform/desktop.h"
#include "platform/files.h"
#include "platform_web/description.h"
#include "platform_web/letter.h"
#include "platform_web/page.h"
#include "platform_web/tasks.h"
#include "platform_web/web_files.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

std::string Letter;
std::string OfferedFile;

namespace {

/// Which rows of a surface are to be shown: those refreshed, or all that were drawn on.
enum class ShownRows { Due, Changed };

/// What the page has of a form.
struct Pane {
    bool Modal = false;
    std::string Description;
    std::map<const Surface*, Surface> Pictures;
};

std::vector<Form*> Loaded;
std::map<Form*, Pane> Panes;
/// What holds all other forms up, the latest last; a null stands for a question.
std::vector<Form*> Modals;
std::optional<int> Answered;
Form* LastActive = nullptr;

struct History {
    std::vector<std::string> Addresses;
    std::size_t Shown = 0;
};
std::map<const WebBrowser*, History> Histories;

/// Most of what a drag draws anew looks as it did: the rows at either end that do are left out.
RowRange WithoutSame(const Surface& image, const Surface& shown, RowRange rows) {
    if (image.Width() != shown.Width() || image.Height() != shown.Height()) return {0, image.Height()};
    const auto same = [&](int y) {
        return std::equal(image.Row(y), image.Row(y) + image.Width(), shown.Row(y));
    };
    while (!rows.Empty() && same(rows.First)) ++rows.First;
    while (!rows.Empty() && same(rows.Last - 1)) --rows.Last;
    return rows;
}

void ShowRows(Pane& pane, Surface& image, ShownRows which) {
    RowRange rows = which == ShownRows::Due ? image.TakeDueRows() : image.TakeChangedRows();
    Surface& shown = pane.Pictures[&image];
    rows = WithoutSame(image, shown, rows);
    if (rows.Empty()) return;
    if (image.Width() != shown.Width() || image.Height() != shown.Height())
        shown = Surface(image.Width(), image.Height());
    BitBlt(shown, 0, rows.First, image.Width(), rows.Last - rows.First, image, 0, rows.First);
    PagePaint(&image, rows.First, rows.Last);
}

void ShowPane(Form& form, Pane& pane, ShownRows rows) {
    std::string description = DescriptionOf(form, pane.Modal);
    if (description != pane.Description) {
        PageShow(description.c_str());
        pane.Description = std::move(description);
    }
    if (!form.Visible) return;
    if (form.ShowsImage) ShowRows(pane, form.Image, rows);
    for (Picture* picture : PicturesIn(form.Controls))
        if (picture->Visible) ShowRows(pane, picture->Image, rows);
}

void ShowChanges(ShownRows rows) {
    for (auto& [form, pane] : Panes) ShowPane(*form, pane, rows);
}

void LoseMouse() {
    for (auto& [form, pane] : Panes)
        for (Picture* picture : PicturesIn(form->Controls))
            if (picture->MouseLost) picture->MouseLost();
}

void PrepareForModal() {
    LoseMouse();
    ShowChanges(ShownRows::Due);
}

/// Puts a question to the player and waits; which of its buttons was chosen.
int Ask(const Description& question) {
    PrepareForModal();
    Answered.reset();
    Modals.push_back(nullptr);
    PageAsk(question.Whole().c_str());
    WaitUntil([] { return Answered.has_value(); });
    Modals.pop_back();
    return *Answered;
}

void Load(Form& form) {
    if (std::exchange(form.Loaded, true)) return;
    Loaded.push_back(&form);
    if (form.Load) form.Load();
}

const char* IconName(BoxIcon icon) {
    return icon == BoxIcon::Information ? "information" : icon == BoxIcon::Warning ? "warning" : "";
}

/// Takes a file of the player's into the folder; its name there, or nothing after a message.
std::string TakeIn(const std::string& name, const std::string& ending) {
    constexpr std::size_t Largest = 16 << 20;
    const std::string content = std::exchange(OfferedFile, {});
    const std::string free = FreeName(name.ends_with(ending) ? name : name + ending, content);
    if (HoldsSomething(free)) return free;
    const FileError error = content.size() > Largest ? "the file is too large" : ReplaceFile(free, content);
    if (error.empty()) return free;
    MsgBox("The file could not be written:\n\r" + free + "\n\r" + error + ".");
    return {};
}

std::int32_t AskForFile(OpenFileName& record, bool saving) {
    enum Answer { Cancelled, Named, Offered };
    const std::string ending = record.lpstrFile.substr(1, record.lpstrFile.find(' ') - 1);
    Description question;
    question.Text("kind", saving ? "save" : "open").Text("title", record.lpstrTitle).Text("ending", ending);
    question.Texts("names", NamesEndingIn(ending));
    const int answer = Ask(question);
    std::string name = Letter;
    if (answer == Offered) name = TakeIn(name, ending);
    if (answer == Cancelled || name.empty()) return 0;
    HandOutNextFile(saving);
    record.lpstrFile = record.lpstrInitialDir + name + '\0';
    return 1;
}

} // namespace

void RunDesktop(Form& startForm, void (*design)()) {
    RunTask([=, &startForm] {
        const std::string fault = std::exchange(Letter, {});
        design();
        ShowForm(startForm, Modality::Modeless);
        SetFocus(startForm);
        if (!fault.empty()) MsgBox("What you keep in this game will not last:\n\r" + fault + ".");
        ShowAll();
    });
}

void DeliverUnseen(Form& form, std::function<void()> handler) {
    if (form.Visible && (Modals.empty() || Modals.back() == &form)) RunTask(std::move(handler));
}

void Deliver(Form& form, std::function<void()> handler) {
    DeliverUnseen(form, [handler = std::move(handler)] {
        HandOutNextFile(false);
        handler();
        ShowAll();
    });
}

void DeliverCommand(Form& form, std::function<void()> handler) {
    Deliver(form, [handler = std::move(handler)] {
        LoseMouse();
        handler();
    });
}

void DeliverPlay(Form& form, Picture& picture, std::function<void()> handler) {
    Deliver(form, [&picture, handler = std::move(handler)] {
        handler();
        if (picture.InWords) PageSay(picture.InWords().c_str());
    });
}

void ShowAll() {
    ShowChanges(ShownRows::Changed);
}

void TakeMouse() {
    RunTask([] {
        LoseMouse();
        ShowAll();
    });
}

void TurnTo(Form& form) {
    if (std::exchange(LastActive, &form) == &form) return;
    DeliverCommand(form, [&form] {
        if (form.Activate) form.Activate();
    });
}

void TakeAnswer(int button) {
    Answered = button;
    ResumeTasks();
}

BoxAnswer MsgBox(const std::string& text, BoxButtons buttons, BoxIcon icon, const std::string& title,
                 BoxDefault preset) {
    const bool yesNo = buttons == BoxButtons::YesNo;
    std::vector<std::string> names = {yesNo ? "Yes" : "OK"};
    if (buttons != BoxButtons::Ok) names.push_back(yesNo ? "No" : "Cancel");
    Description question;
    question.Text("kind", "box").Text("title", title.empty() ? "Quillets" : title).Text("text", text);
    question.Text("icon", IconName(icon)).Texts("buttons", names);
    question.Number("preset", preset == BoxDefault::Second);
    const bool first = Ask(question) == 0;
    if (yesNo) return first ? BoxAnswer::Yes : BoxAnswer::No;
    return first ? BoxAnswer::Ok : BoxAnswer::Cancel;
}

std::int32_t GetOpenFileNameA(OpenFileName& record) {
    return AskForFile(record, false);
}

std::int32_t GetSaveFileNameA(OpenFileName& record) {
    return AskForFile(record, true);
}

std::intptr_t ProgramInstance() {
    return 1;
}

std::int32_t mciSendStringA(const std::string& command, std::string& returnString, std::int32_t, void*) {
    const std::string play = "play ";
    returnString.clear();
    if (command.starts_with(play))
        PagePlay(command.substr(command.rfind(PathSeparator) + 1).c_str());
    else if (command == "close all")
        PageSilence();
    return 0;
}

void ShowForm(Form& form, Modality modality) {
    Load(form);
    form.Visible = true;
    if (form.Resized) form.Resized();
    if (form.Activate) form.Activate();
    const bool modal = modality == Modality::Modal;
    if (modal) PrepareForModal();
    Panes[&form].Modal = modal;
    ShowPane(form, Panes[&form], ShownRows::Changed);
    PageRaise(&form);
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
    PageFocus(&form);
}

void PrintForm(Form& form) {
    ShowChanges(ShownRows::Changed);
    PagePrint(&form);
}

void Navigate(WebBrowser& browser, const std::string& address) {
    History& history = Histories[&browser];
    if (history.Addresses.empty() || history.Addresses[history.Shown] != address) {
        if (!history.Addresses.empty()) history.Addresses.resize(history.Shown + 1);
        history.Addresses.push_back(address);
        history.Shown = history.Addresses.size() - 1;
    }
    PageGoTo(&browser, address.c_str());
}

std::string LocationURL(const WebBrowser& browser) {
    const History& history = Histories[&browser];
    return history.Addresses.empty() ? "" : history.Addresses[history.Shown];
}

void GoBack(WebBrowser& browser) {
    History& history = Histories[&browser];
    if (history.Shown > 0) PageGoTo(&browser, history.Addresses[--history.Shown].c_str());
}

void GoForward(WebBrowser& browser) {
    History& history = Histories[&browser];
    if (history.Shown + 1 < history.Addresses.size())
        PageGoTo(&browser, history.Addresses[++history.Shown].c_str());
}

void EndProgram() {
    PageEnd();
    for (;;) WaitUntil([] { return false; });
}

float Timer() {
    return static_cast<float>(PageClock());
}

std::string ApplicationFolder() {
    return FolderName;
}
