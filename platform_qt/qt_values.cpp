// Conversions to Qt's own kinds of values.
#include "platform_qt/qt_values.h"

QString QtText(const std::string& text) {
    QString result = QString::fromStdString(text);
    result.replace("\r\n", "\n").replace("\n\r", "\n");
    return result;
}

QColor QtColour(Colour colour) {
    return QColor(colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF);
}

QFont QtFont(const Font& font) {
    // Few machines have the faces that the forms were drawn for; these are the nearest.
    QFont result;
    result.setFamilies({QString::fromStdString(font.Family), "Arial", "Liberation Sans"});
    result.setStyleHint(QFont::SansSerif);
    result.setPixelSize(NearestInt32(font.Points * 96 / 72));
    result.setBold(font.Bold);
    return result;
}

QString IconFile(const std::string& name) {
    return QString(":/icons/%1.svg").arg(QString::fromStdString(name));
}

int PixelsOf(float twips) {
    return NearestInt32(twips / TwipsPerPixelX());
}

QRect PlaceOf(const Control& control) {
    return {PixelsOf(control.Left), PixelsOf(control.Top), PixelsOf(control.Width), PixelsOf(control.Height)};
}
