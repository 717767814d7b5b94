// Shows a surface without copying it first; on a display of fractional scale, by its edges.
#include "platform_qt/show_surface.h"

#include <QImage>
#include <QPaintEngine>
#include <algorithm>
#include <cmath>

namespace {

/// The colour of a pixel of the surface, or of the nearest one inside.
Surface::Pixel PixelAt(const Surface& surface, int x, int y) {
    return surface.Row(std::clamp(y, 0, surface.Height() - 1))[std::clamp(x, 0, surface.Width() - 1)];
}

/// The colour at a point between pixels. Where an edge runs at 45 degrees its steps are cut through their
/// middles: the half of a pixel's corner that lies beyond takes the colour from there. Everything else keeps
/// its pixel's.
Surface::Pixel ColourAt(const Surface& surface, double x, double y) {
    const int column = static_cast<int>(std::floor(x)), row = static_cast<int>(std::floor(y));
    const double right = x - column, down = y - row;
    const int sideX = right < 0.5 ? -1 : 1, sideY = down < 0.5 ? -1 : 1;
    const Surface::Pixel own = PixelAt(surface, column, row);
    if (std::min(right, 1 - right) + std::min(down, 1 - down) >= 0.5) return own;
    const Surface::Pixel beside = PixelAt(surface, column + sideX, row);
    if (beside == own || beside != PixelAt(surface, column, row + sideY)) return own;
    const bool thinLine =
        beside == PixelAt(surface, column - sideX, row) || beside == PixelAt(surface, column, row - sideY);
    const bool goesOn = own == PixelAt(surface, column + sideX, row - sideY)
                        || own == PixelAt(surface, column - sideX, row + sideY);
    return goesOn && !thinLine ? beside : own;
}

/// Draws pixel for pixel of the display.
void ShowByEdges(QPainter& painter, const Surface& surface, const QRect& part) {
    const QTransform toDevice = painter.deviceTransform();
    const QTransform toSurface = toDevice.inverted();
    const QRect place = toDevice.mapRect(QRectF(part)).toAlignedRect();
    QImage image(place.size(), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<Surface::Pixel*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QPointF point = toSurface.map(QPointF(place.x() + x + 0.5, place.y() + y + 0.5));
            row[x] = ColourAt(surface, point.x(), point.y());
        }
    }
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
