#include "lookuptable.h"

#include "layoutlimits.h"
#include "rowcolsearch.h"

#include <algorithm>

void HVLookupTable::erase()
{
    resize(0, 0);
}

void HVLookupTable::resize(int rows, int columns)
{
    m_rows = std::clamp(rows, 0, HVLayoutLimits::MaxRows);
    m_cols = std::clamp(columns, 0, HVLayoutLimits::MaxColumns);
    if (m_rows == 0 || m_cols == 0)
        m_rows = m_cols = 0;
    m_cells.assign(std::size_t(m_rows) * m_cols, appInfo());
}

void HVLookupTable::fillFlat(int rows, int columns, int appCount, int readingOrder)
{
    resize(rows, columns);
    for (int row = 0; row < m_rows; ++row) {
        for (int column = 0; column < m_cols; ++column) {
            appInfo& cell = at(row, column);
            cell.index = readingOrder == 1 ? quint64(column) + quint64(row) * m_cols
                                           : quint64(row) + quint64(column) * m_rows;
            cell.filled = cell.index < quint64(appCount);
        }
    }
}

void HVLookupTable::fillSideBySide(int rows, int columns, const QList<int>& sizes, int readingOrder)
{
    resize(rows, columns);
    const QList<int> spans = HVRowColSearch::bunchSpans(sizes, m_rows);
    int first = 0; // the bunch's first column
    for (qsizetype bunch = 0; bunch < sizes.size() && first < m_cols; ++bunch) {
        const int span = spans.at(bunch);
        for (int j = 0; j < span && first + j < m_cols; ++j) {
            for (int row = 0; row < m_rows; ++row) {
                appInfo& cell = at(row, first + j);
                cell.bunch = quint64(bunch);
                cell.index =
                    readingOrder == 1 ? quint64(j) + quint64(row) * span : quint64(row) + quint64(j) * m_rows;
                cell.filled = cell.index < quint64(sizes.at(bunch));
            }
        }
        first += span;
    }
}

void HVLookupTable::fillStacked(int rows, int columns, const QList<int>& sizes, int readingOrder)
{
    resize(rows, columns);
    const QList<int> spans = HVRowColSearch::bunchSpans(sizes, m_cols);
    int first = 0; // the bunch's first row
    for (qsizetype bunch = 0; bunch < sizes.size() && first < m_rows; ++bunch) {
        const int span = spans.at(bunch);
        for (int i = 0; i < span && first + i < m_rows; ++i) {
            for (int column = 0; column < m_cols; ++column) {
                appInfo& cell = at(first + i, column);
                cell.bunch = quint64(bunch);
                cell.index = readingOrder == 2 ? quint64(i) + quint64(column) * span
                                               : quint64(i) * m_cols + quint64(column);
                cell.filled = cell.index < quint64(sizes.at(bunch));
            }
        }
        first += span;
    }
}
