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

QSizeF HVGridGeometry::cellSizeForViewSize(const QSizeF& viewSize, int rows, int columns) const
{
    if (viewSize.width() <= 0 || viewSize.height() <= 0 || rows < 1 || columns < 1 ||
        (orientation != 1 && orientation != 2))
        return QSizeF(0, 0);
    const double s = spacing;
    const double b = bunchCount;
    // The gap between bunches counts as half a cell.
    double widthSpace = viewSize.width() - 2 * Margin - (columns - 1) * s;
    double heightSpace = viewSize.height() - 2 * Margin - (rows - 1) * s;
    double widthCells = columns;
    double heightCells = rows;
    if (orientation == 2) {
        widthSpace = viewSize.width() - 2 * Margin - (columns - b) * s;
        widthCells = columns + (b - 1) / 2;
    } else {
        heightSpace = viewSize.height() - 2 * Margin - (rows - b) * s;
        heightCells = rows + (b - 1) / 2;
    }
    return QSizeF(std::max(0.0, std::floor(widthSpace / widthCells)),
                  std::max(0.0, std::floor(heightSpace / heightCells)));
}

QRectF topLeftRect(const QRectF& rect, double viewHeight)
{
    if (rect.isNull())
        return QRectF();
    return QRectF(rect.x(), viewHeight - rect.y() - rect.height(), rect.width(), rect.height());
}
