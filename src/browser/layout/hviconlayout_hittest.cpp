// Mapping points of the view back to cells, bunches, gaps and margins.
#include "hviconlayout.h"

#include <climits>

namespace {
// A rectangle holds its top and left edges but not its bottom and right ones.
bool holds(const QRectF& rect, const QPointF& point)
{
    return point.x() >= rect.left() && point.x() < rect.right() && point.y() >= rect.top() &&
           point.y() < rect.bottom();
}

int firstHolding(const QList<QRectF>& rects, const QPointF& point)
{
    for (qsizetype i = 0; i < rects.size(); ++i) {
        if (holds(rects.at(i), point))
            return int(i);
    }
    return -1;
}

int toIndex(quint64 field)
{
    return field > quint64(INT_MAX) ? -1 : int(field);
}
} // namespace

Coords HVIconLayout::coordsOfPoint(const QPointF& point) const
{
    Coords coords;
    if (m_bunchCount == 0 || !holds(QRectF(QPointF(0, 0), m_viewSize), point))
        return coords;
    const int bunch = firstHolding(bunchRects(), point);
    if (bunch >= 0) {
        coords.bunch = quint64(bunch);
        // Stacked bunches are scanned row by row, the others column by column.
        const bool rowWise = m_preferences.groupOrientation == 1;
        const int outerCount = rowWise ? m_table.rows() : m_table.cols();
        const int innerCount = rowWise ? m_table.cols() : m_table.rows();
        for (int outer = 0; outer < outerCount && !coords.hasCell(); ++outer) {
            for (int inner = 0; inner < innerCount; ++inner) {
                const int row = rowWise ? outer : inner;
                const int column = rowWise ? inner : outer;
                const appInfo& cell = m_table.at(row, column);
                if (cell.bunch == coords.bunch && holds(cell.rect, point)) {
                    coords.row = quint64(row);
                    coords.col = quint64(column);
                    break;
                }
            }
        }
    } else if (const int spacer = firstHolding(bunchSpacingRects(), point); spacer >= 0) {
        coords.spacer = quint64(spacer);
    }
    if (!coords.hasCell()) {
        if (const int margin = firstHolding(m_marginRects, point); margin >= 0)
            coords.margin = quint64(margin);
    }
    return coords;
}

Coords HVIconLayout::coordsOfApp(quint64 bunch, quint64 index) const
{
    for (int row = 0; row < m_table.rows(); ++row) {
        for (int column = 0; column < m_table.cols(); ++column) {
            const appInfo& cell = m_table.at(row, column);
            if (cell.filled && cell.bunch == bunch && cell.index == index) {
                Coords coords;
                coords.row = quint64(row);
                coords.col = quint64(column);
                coords.bunch = bunch;
                return coords;
            }
        }
    }
    return Coords();
}

QRectF HVIconLayout::rectOfCoords(const Coords& coords) const
{
    return rectOfCellForRow(toIndex(coords.row), toIndex(coords.col));
}
