// The strips of the icon view around its cells: one rectangle per bunch, the gaps before,
// between and after the bunches, and the four outer margins. All in the view's top-left
// coordinates.
#pragma once

#include <QList>
#include <QRectF>
#include <QSizeF>

struct HVBunchRects
{
    QList<QRectF> bunches;
    QList<QRectF> spacings; // bunch count + 1: before, between and after the bunches

    // A flat list is one bunch covering the whole view, with empty gaps.
    static HVBunchRects forFlatList(const QSizeF& viewSize, int bunchCount);

    // Bunches side by side (orientation 2) span the full height; each is `span` columns wide.
    // The first gap is the left margin, the last the right one, the others half a cell wide.
    static HVBunchRects forSideBySide(const QSizeF& viewSize, const QList<int>& spans, int cell, int spacing);

    // Stacked bunches (orientation 1) span the full width, top down; the first gap is the top
    // margin, the last the bottom one, the others half a cell tall.
    static HVBunchRects forStacked(const QSizeF& viewSize, const QList<int>& spans, int cell, int spacing);
};

// Top, right, bottom and left margin strips of a view of that size.
QList<QRectF> marginRectsForViewSize(const QSizeF& viewSize);
