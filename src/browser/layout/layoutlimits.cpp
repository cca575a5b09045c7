#include "layoutlimits.h"

#include "rowcolsearch.h"

#include <QDebug>

#include <algorithm>

namespace HVLayoutLimits {

int appCountFittingTable(qint64 count)
{
    if (count > MaxCells) {
        qWarning("Icon grid: only the first %d of %lld apps fit the grid", MaxCells, count);
        return MaxCells;
    }
    return int(std::max<qint64>(count, 0));
}

QList<int> bunchesFittingTable(const QList<qint64>& sizes)
{
    const qsizetype bunchCount = std::min<qsizetype>(sizes.size(), MaxColumns);
    if (bunchCount < sizes.size())
        qWarning("Icon grid: only the first %d of %lld bunches fit the grid", MaxColumns,
                 qint64(sizes.size()));
    QList<int> fitted;
    fitted.reserve(bunchCount);
    int columnsLeft = MaxColumns;
    for (qsizetype i = 0; i < bunchCount; ++i) {
        int size = int(std::clamp<qint64>(sizes.at(i), 0, MaxCells));
        const int bunchesAfter = int(bunchCount - 1 - i);
        const int allowed = columnsLeft - bunchesAfter;
        int columns = HVRowColSearch::ceilDiv(std::max(size, 1), MaxRows);
        if (columns > allowed) {
            qWarning("Icon grid: bunch %lld is cut to %d apps to fit the grid", qint64(i), allowed * MaxRows);
            columns = allowed;
            size = allowed * MaxRows;
        }
        columnsLeft -= columns;
        fitted.append(size);
    }
    return fitted;
}

} // namespace HVLayoutLimits
