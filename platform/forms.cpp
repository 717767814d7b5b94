// The sizes of forms and pictures, and of the surfaces that go with them.
#include "platform/forms.h"

int ClientWidth(const Form& form) {
    return NearestInt32((form.Width - FrameWidth(form.Border)) / TwipsPerPixelX());
}

int ClientHeight(const Form& form) {
    return NearestInt32((form.Height - FrameHeight(form.Border)) / TwipsPerPixelY());
}

void Place(Control& control, const char* name, float left, float top, float width, float height) {
    control.Name = name;
    control.Left = left;
    control.Top = top;
    control.Width = width;
    control.Height = height;
}

void Resize(Form& form, float width, float height) {
    form.Width = width;
    form.Height = height;
}

void FitImage(Form& form) {
    form.Image.Resize(ClientWidth(form), ClientHeight(form));
}

void Resize(Picture& picture, float width, float height) {
    picture.Width = width;
    picture.Height = height;
    picture.Image.Resize(NearestInt32(width / TwipsPerPixelX()), NearestInt32(height / TwipsPerPixelY()));
}
