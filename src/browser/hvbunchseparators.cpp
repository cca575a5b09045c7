#include "hvbunchseparators.h"

#include "layout/hviconlayout.h"
#include "layout/layoutlimits.h"

#include <cmath>

namespace {
enum Margin { Top = 0, Right = 1, Bottom = 2, Left = 3 };

// Where the lines of one gap lie along its extent. The offsets are worked out with y pointing
// up (stacked bunches are measured from the bottom) and turned over by the caller.
QList<double> lineOffsets(double start, double extent, bool first, bool last, bool insertion)
{
    if (!insertion)
        return {std::floor(start + extent * 0.5) + 0.5};
    QList<double> offsets;
    if (!last)
        offsets.append(std::floor(start) + 0.5);
    if (!first)
        offsets.append(std::floor(start + extent) - 0.5);
    return offsets;
}
} // namespace

namespace HVBunchSeparators {

QList<QLineF> linesForLayout(const HVIconLayout& layout, quint64 insertionSpacer)
{
    QList<QLineF> lines;
    const int bunchCount = layout.bunchCount();
    if (layout.isFlat() || bunchCount < 1)
        return lines;
    const bool stacked = layout.preferences().groupOrientation == 1;
    const double width = layout.viewSize().width();
    const double height = layout.viewSize().height();
    const double margin = HVLayoutLimits::Margin;
    const QList<QRectF>& gaps = layout.bunchSpacingRects();
    for (int i = 0; i <= bunchCount && i < gaps.size(); ++i) {
        const bool insertion = quint64(i) == insertionSpacer;
        if (!insertion && (i == 0 || i == bunchCount))
            continue; // the outer gaps get no line
        const QRectF& gap = gaps.at(i);
        // An insertion mark runs along the first gap's lower (y up) or left edge, the last gap's
        // upper or right edge, and both edges of a gap between two bunches.
        const bool first = i == 0;
        const bool last = i == bunchCount;
        if (stacked) {
            const double upwardY = height - gap.bottom();
            for (double y : lineOffsets(upwardY, gap.height(), first, last, insertion))
                lines.append(QLineF(margin, height - y, width - margin, height - y));
        } else {
            for (double x : lineOffsets(gap.left(), gap.width(), first, last, insertion))
                lines.append(QLineF(x, margin, x, height - margin));
        }
    }
    return lines;
}

QPolygonF marginMark(const HVIconLayout& layout, const Coords& selected)
{
    if (Coords::isNone(selected.bunch) || Coords::isNone(selected.margin) || layout.isFlat())
        return {};
    const bool stacked = layout.preferences().groupOrientation == 1;
    const quint64 margin = selected.margin;
    const bool across = stacked ? (margin == Left || margin == Right) : (margin == Top || margin == Bottom);
    if (!across || selected.bunch >= quint64(layout.bunchRects().size()) ||
        margin >= quint64(layout.marginRects().size()))
        return {};
    const QRectF area =
        layout.marginRects().at(int(margin)).intersected(layout.bunchRects().at(int(selected.bunch)));
    if (area.isEmpty())
        return {};
    switch (margin) {
    case Top: // points down into the grid
        return QPolygonF({area.topLeft(), area.topRight(), QPointF(area.center().x(), area.bottom())});
    case Bottom:
        return QPolygonF({area.bottomLeft(), area.bottomRight(), QPointF(area.center().x(), area.top())});
    case Left:
        return QPolygonF({area.topLeft(), area.bottomLeft(), QPointF(area.right(), area.center().y())});
    default:
        return QPolygonF({area.topRight(), area.bottomRight(), QPointF(area.left(), area.center().y())});
    }
}

} // namespace HVBunchSeparators
