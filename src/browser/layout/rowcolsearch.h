// How many rows and columns the icon grid takes. A flat list looks for the shape closest to the
// screen's aspect, the running list makes a strip of as few rows as fit the width, and bunches
// try ever fewer rows while the shape gets closer to the aspect (or, when empty cells are to be
// kept few, while it leaves fewer of them). No search leaves the 256 x 256 table.
#pragma once

#include <QList>

struct HVRowColCount
{
    int rows = 0;
    int cols = 0;
    friend bool operator==(const HVRowColCount&, const HVRowColCount&) = default;
};

namespace HVRowColSearch {
// ceil(count / divisor), worked out in single precision as the grid always has.
int ceilDiv(int count, int divisor);

// The lines (columns, or rows when stacked) each bunch takes when a line holds `lineLength`
// cells; an empty bunch still takes one line.
QList<int> bunchSpans(const QList<int>& sizes, int lineLength);

// The running apps: a row-first strip whose rows of cells `largestCell` wide fit `width`.
HVRowColCount forRunningList(int appCount, double width, int largestCell);

// Any other flat list: the shape whose columns / rows ratio comes closest to `aspect`.
HVRowColCount forFlatList(int appCount, double aspect);

// Bunches as bands of columns (turned by the caller when they are stacked); `heightOverWidth`
// compares the turned ratio with the aspect.
struct BunchSearch
{
    double aspect = 1;
    int largestCell = 0;
    int spacing = 0;
    bool heightOverWidth = false;
    bool minimizeEmptyCells = false;
};
HVRowColCount forBunches(const QList<int>& sizes, const BunchSearch& search);
} // namespace HVRowColSearch
