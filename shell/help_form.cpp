// The help window: its design, in twips, and its three buttons.
#include "shell/help_form.h"

#include "files/sound_cues.h"
#include "platform/desktop.h"
#include "platform/files.h"

HelpWindow HelpForm;

namespace {

/// Back and Forward act only after a jump within the page.
bool AtAnAnchor() {
    return LocationURL(HelpForm.WebBrowser1).find('#') != std::string::npos;
}

void Command1_Click() {
    if (AtAnAnchor()) GoBack(HelpForm.WebBrowser1);
}

void Command2_Click() {
    if (AtAnAnchor()) GoForward(HelpForm.WebBrowser1);
}

void Command3_Click() {
    HideForm(HelpForm);
}

void Form_Activate() {
    Navigate(HelpForm.WebBrowser1, HelpForm.Address);
}

/// In a very small window a size would be negative; the browser then keeps its last one.
void Form_Resize() {
    ::WebBrowser& browser = HelpForm.WebBrowser1;
    const float width = HelpForm.Width - 120;
    const float height = HelpForm.Height - 480 - browser.Top;
    if (width >= 0) browser.Width = width;
    if (height >= 0) browser.Height = height;
}

void Form_Unload(std::int16_t&) {
    HideForm(HelpForm);
}

} // namespace

void DesignHelpForm() {
    const HelpWindow blank;
    HelpForm = blank;
    HelpForm.Name = "HelpForm";
    HelpForm.Caption = "Quillets Help";
    HelpForm.Border = BorderStyle::Sizable;
    HelpForm.CloseBox = true;
    HelpForm.Centred = true;
    HelpForm.HasIcon = false;
    Resize(HelpForm, 7185 + FrameWidth(HelpForm.Border), 5625 + FrameHeight(HelpForm.Border));
    Place(HelpForm.Command1, "Command1", 60, 30, 1095, 375);
    Place(HelpForm.Command2, "Command2", 1155, 30, 1095, 375);
    Place(HelpForm.Command3, "Command3", 2250, 30, 1095, 375);
    Place(HelpForm.WebBrowser1, "WebBrowser1", 30, 420, 7110, 5460);
    HelpForm.Command1.Caption = "Back";
    HelpForm.Command2.Caption = "Forward";
    HelpForm.Command3.Caption = "Exit";
    HelpForm.Command1.Click = Command1_Click;
    HelpForm.Command2.Click = Command2_Click;
    HelpForm.Command3.Click = Command3_Click;
    HelpForm.Controls = {&HelpForm.Command1, &HelpForm.Command2, &HelpForm.Command3, &HelpForm.WebBrowser1};
    HelpForm.Activate = Form_Activate;
    HelpForm.Resized = Form_Resize;
    HelpForm.Unload = Form_Unload;
}

void Helpx_Click() {
    PlayCue("click2");
    std::string folder = ApplicationFolder();
    if (!folder.ends_with(PathSeparator)) folder += PathSeparator;
    HelpForm.Address = folder + "quillets.htm";
    ShowForm(HelpForm, Modality::Modeless);
}
