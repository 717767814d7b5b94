// The one way from pixels of a surface to pixels of a window.
#pragma once

#include "platform/surface.h"

#include <QPainter>

/// Paints the part of the surface that lies in `exposed` (logical pixels) at its own place. On a scaled
/// display each pixel is repeated, or, where the scale is a fraction, each edge gets the steps of the
/// display; no colours are ever mixed. The surface's texts are drawn over it in the painter's font.
void ShowSurface(QPainter& painter, const Surface& surface, const QRect& exposed);
