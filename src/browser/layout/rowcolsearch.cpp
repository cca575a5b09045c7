#include "rowcolsearch.h"

#include "layoutlimits.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace HVLayoutLimits;

namespace HVRowColSearch {

int ceilDiv(int count, int divisor)
{
    return int(std::ceil(float(count) / float(divisor)));
}

QList<int> bunchSpans(const QList<int>& sizes, int lineLength)
{
    QList<int> spans;
    spans.reserve(sizes.size());
    for (int size : sizes)
        spans.append(lineLength > 0 ? ceilDiv(std::max(size, 1), lineLength) : 1);
    return spans;
}

HVRowColCount forRunningList(int appCount, double width, int largestCell)
{
    const double cell = std::min(double(largestCell), width);
    HVRowColCount count;
    do {
        ++count.rows;
        count.cols = ceilDiv(appCount, count.rows);
    } while ((count.cols * cell > width || count.cols > MaxColumns) && count.rows < MaxRows);
    return count;
}

HVRowColCount forFlatList(int appCount, double aspect)
{
    HVRowColCount count;
    HVRowColCount previous;
    double ratio = 0;
    double previousRatio = 0;
    do {
        previous = count;
        previousRatio = ratio;
        ++count.rows;
        count.cols = ceilDiv(appCount, count.rows);
        ratio = double(count.cols) / double(count.rows);
    } while ((ratio > aspect || count.cols > MaxColumns) && count.rows < MaxRows);
    // One row fewer wins when its ratio was strictly closer to the aspect.
    if (previousRatio > 0 && previous.cols <= MaxColumns &&
        std::abs(previousRatio - aspect) < std::abs(ratio - aspect))
        return previous;
    return count;
}

namespace {
// The shape the bunches take when no bunch may be taller than `rows`.
HVRowColCount shapeForRows(const QList<int>& sizes, int rows)
{
    HVRowColCount shape;
    for (int size : sizes) {
        const int filled = std::max(size, 1);
        const int columns = ceilDiv(filled, rows);
        shape.cols += columns;
        shape.rows = std::max(shape.rows, ceilDiv(filled, columns));
    }
    return shape;
}
} // namespace

HVRowColCount forBunches(const QList<int>& sizes, const BunchSearch& search)
{
    const int bunches = int(sizes.size());
    int appCount = 0;
    int tallest = 0;
    for (int size : sizes) {
        appCount += size;
        tallest = std::max(tallest, size);
    }
    const double cell = search.largestCell;
    const double gap = search.largestCell / 2; // half a cell between two bunches
    HVRowColCount best{tallest, bunches};
    double bestDifference = std::numeric_limits<double>::max();
    quint64 bestEmpty = std::numeric_limits<quint64>::max();
    for (int r = tallest; r > 1;) {
        const HVRowColCount shape = shapeForRows(sizes, r);
        if (shape.rows > MaxRows) { // too tall for the table: try fewer rows
            r = shape.rows - 1;
            continue;
        }
        if (shape.cols > MaxColumns) // fewer rows only widen the grid further
            break;
        const double width =
            (bunches - 1) * gap + shape.cols * cell + (shape.cols - bunches) * search.spacing;
        const double height = shape.rows * cell + (shape.rows - 1) * search.spacing;
        const double ratio = search.heightOverWidth ? height / width : width / height;
        const double difference = std::abs(ratio - search.aspect);
        const quint64 empty = quint64(shape.cols) * quint64(shape.rows) - quint64(appCount);
        if (!(difference < bestDifference) && (empty >= bestEmpty || !search.minimizeEmptyCells))
            break;
        best = shape;
        bestDifference = difference;
        bestEmpty = empty;
        r = shape.rows - 1;
    }
    if (best.rows > MaxRows ||
        best.cols > MaxColumns) // nothing that fits the table was taken: the tallest grid it holds
        best = shapeForRows(sizes, MaxRows);
    return best;
}

} // namespace HVRowColSearch
