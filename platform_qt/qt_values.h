// From the game's texts, colours, fonts and places to those of Qt.
#pragma once

#include "platform/forms.h"

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

/// The text with each two-character line break as one.
QString QtText(const std::string& text);

QColor QtColour(Colour colour);

/// A font of the stated points at 96 dots to the inch, whatever the screen says of itself.
QFont QtFont(const Font& font);

/// The resource that holds an icon of that name.
QString IconFile(const std::string& name);

/// Twips as pixels of the window's own scale.
int PixelsOf(float twips);

/// Where a control lies in its container, in pixels.
QRect PlaceOf(const Control& control);
