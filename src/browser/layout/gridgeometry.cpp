#include "gridgeometry.h"

#include "layoutlimits.h"

#include <algorithm>
#include <cmath>

using HVLayoutLimits::Margin;

int HVGridGeometry::bunchSpacingForCellWidth(double cellWidth)
{
    return int(std::lround(cellWidth)) / 2;
}

QSizeF HVGridGeometry::viewSizeForCellSize(const QSizeF& cellSize, int rows, int columns) const
{
    const double w = cellSize.width();
    const double h = cellSize.height();
    if (w <= 0 || h <= 0 || rows < 1 || columns < 1)
        return QSizeF(0, 0);
    const double s = spacing;
    const double b = bunchCount;
    const double g = bunchSpacingForCellWidth(w);
    double width = columns * w + 2 * Margin + (columns - 1) * s;
    double height = rows * h + 2 * Margin + (rows - 1) * s;
    if (orientation == 2)
        width = columns * w + 2 * Margin + (columns - b) * s + (b - 1) * g;
    else if (orientation == 1)
        height = rows * h + 2 * Margin + (rows - b) * s + (b - 1) * g;
    return QSizeF(width, height);
}

QRectF topLeftRect(const QRectF& rect, double viewHeight)
{
    if (rect.isNull())
        return QRectF();
    return QRectF(rect.x(), viewHeight - rect.y() - rect.height(), rect.width(), rect.height());
}
