// The sizes of the icon grid: how big a view a grid of given cells needs, and back. Between two
// bunches lies a gap of half a cell instead of the ordinary spacing, along the columns when the
// bunches sit side by side (orientation 2) and along the rows when they are stacked (1).
#pragma once

#include <QRectF>
#include <QSizeF>

struct HVGridGeometry
{
    int orientation = 0;
    int spacing = 0;
    int bunchCount = 0;

    // The gap between two bunches: half the cell, rounded and halved as an integer.
    static int bunchSpacingForCellWidth(double cellWidth);

    // The view for `rows` x `columns` cells with the margins, spacing and bunch gaps; a zero size
    // (the view keeps the size it has) for a non-positive cell or fewer than one row or column.
    QSizeF viewSizeForCellSize(const QSizeF& cellSize, int rows, int columns) const;
};

// The view's geometry is worked out with y pointing up from the lower left; on screen the same
// rectangle lies at y = height - y - h from the top. An empty (null) rectangle stays null.
QRectF topLeftRect(const QRectF& rect, double viewHeight);
