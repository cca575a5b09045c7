// Placing the panel on the screen: centring one rectangle in another and keeping it inside the
// screen's free area. Rectangles are in Qt's top-left coordinates; the rules read bottom-up
// (a rectangle too tall keeps its bottom edge on the screen), as the panel always has.
#pragma once

#include <QRectF>

namespace HVGeometry {
// A's size (rounded to the nearest point when integral) centred in B.
QRectF centerRectInRect(const QRectF& a, const QRectF& b, bool integral);
// A moved, never resized, so that it lies in B; an A both wider and taller than B is not
// placed at all (the null rectangle).
QRectF constrainRectInRect(const QRectF& a, const QRectF& b, bool integral);
} // namespace HVGeometry
