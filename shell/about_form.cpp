// The about box: its design, in twips. Its button, its text and Esc close it.
#include "shell/about_form.h"

#include "files/sound_cues.h"
#include "platform/desktop.h"

AboutWindow AboutForm;

namespace {

void AboutOk_Click() {
    UnloadForm(AboutForm);
}

void AboutText_MouseDown(std::int16_t, std::int16_t, float, float) {
    UnloadForm(AboutForm);
}

void Form_KeyDown(std::int16_t& KeyCode, std::int16_t) {
    constexpr std::int16_t EscapeKey = 27;
    if (KeyCode != EscapeKey) return;
    KeyCode = 0;
    UnloadForm(AboutForm);
}

} // namespace

void DesignAboutForm() {
    const AboutWindow blank;
    AboutForm = blank;
    AboutForm.Name = "AboutForm";
    AboutForm.Caption = "About Quillets";
    AboutForm.InTaskBar = false;
    AboutForm.Centred = true;
    Resize(AboutForm, 5160 + FrameWidth(AboutForm.Border), 1470 + FrameHeight(AboutForm.Border));
    const Font bold = {"MS Sans Serif", 8.25F, true};
    AboutForm.Font = bold;
    AboutForm.KeyDown = Form_KeyDown;

    TextBox& text = AboutForm.AboutText;
    Place(text, "AboutText", 30, 30, 4500, 1050);
    text.Font = bold;
    text.Text = "\r\nQuillets, by the founders of Quillets\r\nfounders@quillets.example\r\n" RELEASE_MONTH;
    text.MouseDown = AboutText_MouseDown;

    Place(AboutForm.Picture1, "Picture1", 4635, 30, 510, 480);
    AboutForm.Picture1.SpokenName = "The seven pieces";
    AboutForm.Picture1.Image.BackColor = ButtonFace;
    Resize(AboutForm.Picture1, 510, 480);
    AboutForm.Picture1.Image.Cls();
    AboutForm.Picture1.Icon = "quillets";

    Place(AboutForm.AboutOk, "AboutOk", 4605, 600, 510, 375);
    AboutForm.AboutOk.Caption = "OK";
    AboutForm.AboutOk.Font = bold;
    AboutForm.AboutOk.Click = AboutOk_Click;

    Label& version = AboutForm.Label1;
    Place(version, "Label1", 0, 1125, 5145, 300);
    version.Caption = "Version " RELEASE_NUMBER;
    version.Font = bold;
    version.ForeColor = Rgb(255, 255, 255);
    version.BackColor = Rgb(0, 0, 0);
    version.Centred = true;

    AboutForm.Controls = {&AboutForm.AboutText, &AboutForm.Picture1, &AboutForm.AboutOk, &AboutForm.Label1};
}

void Aboutx_Click() {
    PlayCue("click2");
    ShowForm(AboutForm, Modality::Modal);
}
