#include "hvgeometry.h"

#include <cmath>

namespace {
double roundToNearest(double x)
{
    return std::floor(x + 0.5);
}

// The vertical axis upside down, so the rules can speak of "bottom" as the lower edge.
QRectF flipped(const QRectF& r)
{
    return QRectF(r.x(), -(r.y() + r.height()), r.width(), r.height());
}

// Moves [start, start + extent) into [limitStart, limitEnd) on one axis.
double constrainedStart(double start, double extent, double limitStart, double limitEnd, bool integral)
{
    if (start < limitStart)
        return integral ? std::ceil(limitStart) : limitStart;
    if (start + extent > limitEnd)
        return integral ? std::floor(limitEnd - extent) : limitEnd - extent;
    return start;
}
} // namespace

namespace HVGeometry {

QRectF centerRectInRect(const QRectF& a, const QRectF& b, bool integral)
{
    double width = a.width();
    double height = a.height();
    if (integral) {
        width = roundToNearest(width);
        height = roundToNearest(height);
    }
    double x = b.x() + (b.width() - width) / 2;
    double yUp = -(b.y() + b.height()) + (b.height() - height) / 2;
    if (integral) {
        x = roundToNearest(x);
        yUp = roundToNearest(yUp);
    }
    return flipped(QRectF(x, yUp, width, height));
}

QRectF constrainRectInRect(const QRectF& a, const QRectF& b, bool integral)
{
    if (a.width() > b.width() && a.height() > b.height())
        return QRectF();
    QRectF up = flipped(a);
    QRectF limit = flipped(b);
    if (integral) {
        up.setSize(QSizeF(roundToNearest(up.width()), roundToNearest(up.height())));
        limit.setSize(QSizeF(std::floor(limit.width()), std::floor(limit.height())));
    }
    if (limit.contains(up))
        return flipped(up);
    up.moveLeft(constrainedStart(up.x(), up.width(), limit.x(), limit.x() + limit.width(), integral));
    up.moveTop(constrainedStart(up.y(), up.height(), limit.y(), limit.y() + limit.height(), integral));
    return flipped(up);
}

} // namespace HVGeometry
