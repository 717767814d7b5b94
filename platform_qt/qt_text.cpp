// Conversions to Qt's own kinds of values.
#include "platform_qt/qt_text.h"

QString QtText(const std::string& text) {
    QString result = QString::fromStdString(text);
    result.replace("\r\n", "\n").replace("\n\r", "\n");
    return result;
}

QColor QtColour(Colour colour) {
    return QColor(colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF);
}

QFont QtFont(const Font& font) {
    QFont result(QString::fromStdString(font.Family));
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
