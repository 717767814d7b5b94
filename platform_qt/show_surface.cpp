// Shows a surface without copying it first.
#include "platform_qt/show_surface.h"

#include <QImage>

void ShowSurface(QPainter& painter, const Surface& surface, const QRect& exposed) {
    const QRect part = exposed & QRect(0, 0, surface.Width(), surface.Height());
    if (part.isEmpty()) return;
    const QImage image(reinterpret_cast<const uchar*>(surface.Row(0)), surface.Width(), surface.Height(),
                       surface.Width() * static_cast<int>(sizeof(Surface::Pixel)), QImage::Format_RGB32);
    painter.drawImage(part, image, part);
    const QFontMetrics metrics = painter.fontMetrics();
    for (const Surface::TextItem& item : surface.Texts()) {
        const QColor ink(item.Ink & 0xFF, item.Ink >> 8 & 0xFF, item.Ink >> 16 & 0xFF);
        painter.setPen(ink);
        painter.drawText(item.X, item.Y + metrics.ascent(), QString::fromStdString(item.Text));
    }
}
