// The icon grid's lookup table: for every cell, row by row, the bunch it belongs to, the position
// of its app and whether an app sits there. It never holds more than 256 x 256 cells.
#pragma once

#include "appinfo.h"

#include <QList>

#include <vector>

class HVLookupTable
{
public:
    int rows() const { return m_rows; }
    int cols() const { return m_cols; }
    bool isValidRow(int row, int column) const
    {
        return row >= 0 && column >= 0 && row < m_rows && column < m_cols;
    }
    const appInfo& at(int row, int column) const { return m_cells[std::size_t(row) * m_cols + column]; }
    appInfo& at(int row, int column) { return m_cells[std::size_t(row) * m_cols + column]; }
    const std::vector<appInfo>& cells() const { return m_cells; }

    void erase();

    // A flat list of `appCount` apps: across then down when `readingOrder` is 1, else down then
    // across. Every cell is in bunch 0.
    void fillFlat(int rows, int columns, int appCount, int readingOrder);

    // Bunches side by side, each taking its span of columns left to right; within a bunch across
    // then down when `readingOrder` is 1, else down then across.
    void fillSideBySide(int rows, int columns, const QList<int>& sizes, int readingOrder);

    // Bunches stacked, each taking its span of rows top down; within a bunch down then across
    // when `readingOrder` is 2, else across then down.
    void fillStacked(int rows, int columns, const QList<int>& sizes, int readingOrder);

private:
    void resize(int rows, int columns);

    int m_rows = 0;
    int m_cols = 0;
    std::vector<appInfo> m_cells;
};
