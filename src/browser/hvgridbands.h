// The columns and rows of the icon grid as bands across the view: every cell of a column shares
// its left and right edges, every cell of a row its top and bottom. From them the cells that a
// repaint touches are found by bisection instead of by testing every cell.
#pragma once

#include <QRegion>

#include <vector>

class HVIconLayout;

class HVGridBands
{
public:
    void build(const HVIconLayout& layout);
    // Sets to 1 the entries (row by row, `columns` per row) of the cells that meet `region`,
    // clearing all others; `cells` is resized to the grid.
    void cellsMeeting(const QRegion& region, std::vector<char>& cells) const;

private:
    struct Band
    {
        double start = 0;
        double end = 0;
    };
    // The bands that overlap [start, end) as a half-open index range.
    static std::pair<int, int> overlapping(const std::vector<Band>& bands, double start, double end);

    std::vector<Band> m_columns;
    std::vector<Band> m_rows;
};
