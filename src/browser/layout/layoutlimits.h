// The fixed bounds of the icon grid. Its lookup table holds at most 256 rows and 256 columns, so
// a list is trimmed to what such a grid can show before it is laid out; a margin of 12 points
// surrounds the cells.
#pragma once

#include <QList>

namespace HVLayoutLimits {
inline constexpr int MaxRows = 256;
inline constexpr int MaxColumns = 256;
inline constexpr int MaxCells = MaxRows * MaxColumns;
inline constexpr int Margin = 12;

// A flat list shows at most one app per table cell.
int appCountFittingTable(qint64 count);

// Bunches laid out side by side need at least one column each and, with the tallest grid of
// 256 rows, ceil(size / 256) columns each: later bunches, and the tail of a bunch that would push
// the grid past 256 columns, are left out. Negative sizes count as empty bunches.
QList<int> bunchesFittingTable(const QList<qint64>& sizes);
} // namespace HVLayoutLimits
