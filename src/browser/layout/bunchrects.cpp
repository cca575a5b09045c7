#include "bunchrects.h"

#include "gridgeometry.h"
#include "layoutlimits.h"

using HVLayoutLimits::Margin;

HVBunchRects HVBunchRects::forFlatList(const QSizeF& viewSize, int bunchCount)
{
    HVBunchRects rects;
    if (bunchCount > 0)
        rects.bunches.append(QRectF(QPointF(0, 0), viewSize));
    rects.spacings.fill(QRectF(), bunchCount + 1);
    return rects;
}

HVBunchRects HVBunchRects::forSideBySide(const QSizeF& viewSize, const QList<int>& spans, int cell,
                                         int spacing)
{
    const double height = viewSize.height();
    const int gap = HVGridGeometry::bunchSpacingForCellWidth(cell);
    HVBunchRects rects;
    rects.spacings.append(QRectF(0, 0, Margin, height));
    double x = Margin;
    for (qsizetype i = 0; i < spans.size(); ++i) {
        if (i > 0) {
            rects.spacings.append(QRectF(x, 0, gap, height));
            x += gap;
        }
        const double width = spans.at(i) * cell + (spans.at(i) - 1) * spacing;
        rects.bunches.append(QRectF(x, 0, width, height));
        x += width;
    }
    rects.spacings.append(QRectF(x, 0, Margin, height));
    return rects; // the same in both coordinate systems: every strip spans the full height
}

HVBunchRects HVBunchRects::forStacked(const QSizeF& viewSize, const QList<int>& spans, int cell, int spacing)
{
    const double width = viewSize.width();
    const double viewHeight = viewSize.height();
    const int gap = HVGridGeometry::bunchSpacingForCellWidth(cell);
    HVBunchRects rects;
    // Worked out top down with y pointing up, then turned to the top-left system.
    double top = viewHeight - Margin;
    rects.spacings.append(topLeftRect(QRectF(0, top, width, Margin), viewHeight));
    for (qsizetype i = 0; i < spans.size(); ++i) {
        if (i > 0) {
            top -= gap;
            rects.spacings.append(topLeftRect(QRectF(0, top, width, gap), viewHeight));
        }
        const double height = spans.at(i) * cell + (spans.at(i) - 1) * spacing;
        top -= height;
        rects.bunches.append(topLeftRect(QRectF(0, top, width, height), viewHeight));
    }
    rects.spacings.append(topLeftRect(QRectF(0, 0, width, Margin), viewHeight));
    return rects;
}

QList<QRectF> marginRectsForViewSize(const QSizeF& viewSize)
{
    const double w = viewSize.width();
    const double h = viewSize.height();
    const QList<QRectF> upward{QRectF(0, h - Margin, w, Margin), QRectF(w - Margin, 0, Margin, h),
                               QRectF(0, 0, w, Margin), QRectF(0, 0, Margin, h)};
    QList<QRectF> rects;
    for (const QRectF& rect : upward)
        rects.append(topLeftRect(rect, h));
    return rects;
}
