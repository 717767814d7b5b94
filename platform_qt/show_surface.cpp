// Shows a surface without copying it first; on a display of fractional scale, by its edges.
#include "platform_qt/show_surface.h"

#include "platform/scaled_surface.h"

#include <QImage>
#include <QPaintEngine>
#include <cmath>

namespace {

/// Draws pixel for pixel of the display.
void ShowByEdges(QPainter& painter, const Surface& surface, const QRect& part) {
    const QTransform toDevice = painter.deviceTransform();
    const QTransform toSurface = toDevice.inverted();
    const QRect place = toDevice.mapRect(QRectF(part)).toAlignedRect();
    QImage image(place.size(), QImage::Format_RGB32);
    const DisplayGrid grid{place.x(),      place.y(),      image.width(),   image.height(),
                           toSurface.dx(), toSurface.dy(), toSurface.m11(), toSurface.m22()};
    ScaleSurface(surface, grid, reinterpret_cast<Surface::Pixel*>(image.bits()),
                 image.bytesPerLine() / static_cast<int>(sizeof(Surface::Pixel)));
    painter.save();
    painter.setClipRect(part);
    painter.setWorldTransform(toSurface);
    painter.drawImage(place.topLeft(), image);
    painter.restore();
}

bool IsFractional(double scale) {
    return scale != std::round(scale);
}

} // namespace

void ShowSurface(QPainter& painter, const Surface& surface, const QRect& exposed) {
    const QRect part = exposed & QRect(0, 0, surface.Width(), surface.Height());
    if (part.isEmpty()) return;
    if (painter.paintEngine()->type() == QPaintEngine::Raster
        && IsFractional(painter.deviceTransform().m11())) {
        ShowByEdges(painter, surface, part);
    } else {
        const QImage image(reinterpret_cast<const uchar*>(surface.Row(0)), surface.Width(), surface.Height(),
                           surface.Width() * static_cast<int>(sizeof(Surface::Pixel)), QImage::Format_RGB32);
        painter.drawImage(part, image, part);
    }
    for (const Surface::TextItem& item : surface.Texts()) {
        const QColor ink(item.Ink & 0xFF, item.Ink >> 8 & 0xFF, item.Ink >> 16 & 0xFF);
        painter.setPen(ink);
        painter.drawText(item.X, item.Y + painter.fontMetrics().ascent(), QString::fromStdString(item.Text));
    }
}
