#include "hviconlayout.h"

#include "groupshown.h"
#include "layoutlimits.h"
#include "rowcolsearch.h"

#include <QDebug>

#include <algorithm>
#include <numeric>

using namespace HVLayoutLimits;

HVIconLayout::HVIconLayout() : HVIconLayout(-1, true, {}, HVIconLayoutPreferences(), QSizeF()) {}

HVIconLayout::HVIconLayout(int groupShown, bool flat, const QList<qint64>& bunchSizes,
                           const HVIconLayoutPreferences& preferences, const QSizeF& maxIconViewSize)
    : m_preferences(preferences.clamped()), m_maxIconViewSize(maxIconViewSize), m_groupShown(groupShown)
{
    // Without bunching a list of bunches shows as one run of apps.
    m_flat = flat || m_preferences.groupOrientation == 0;
    if (m_flat) {
        qint64 total = 0;
        for (qint64 size : bunchSizes)
            total += std::clamp<qint64>(size, 0, MaxCells);
        m_appCount = appCountFittingTable(total);
        if (m_appCount > 0)
            m_sizes = {m_appCount};
    } else {
        m_sizes = bunchesFittingTable(bunchSizes);
        m_appCount = std::accumulate(m_sizes.begin(), m_sizes.end(), 0);
        if (m_appCount == 0) // bunches without apps show nothing
            m_sizes.clear();
    }
    calcRowColCount();
    finishLayout();
}

HVIconLayout HVIconLayout::forGroup(int groupToShow, bool optionKeyDown, const QList<qint64>& bunchSizes,
                                    const HVIconLayoutPreferences& preferences, const QSizeF& maxIconViewSize)
{
    const int orientation = preferences.clamped().groupOrientation;
    const int shown = HVGroupShown::groupToShowConsideringModifiers(groupToShow, optionKeyDown, orientation);
    if (HVGroupShown::isFlatGroup(shown))
        return HVIconLayout(shown, true, bunchSizes, preferences, maxIconViewSize);
    if (HVGroupShown::isGroupedGroup(shown))
        return HVIconLayout(shown, false, bunchSizes, preferences, maxIconViewSize);
    return HVIconLayout(shown, true, {}, preferences, maxIconViewSize); // no list for that number
}

bool HVIconLayout::forceRowColCountForRows(int rows, int cols)
{
    if (m_bunchCount == 0)
        return false;
    const bool stacked = !m_flat && m_preferences.groupOrientation == 1;
    const auto linesFor = [this](int lineLength) {
        const QList<int> spans = HVRowColSearch::bunchSpans(m_sizes, lineLength);
        return std::accumulate(spans.begin(), spans.end(), 0);
    };
    int newRows = 0;
    int newCols = 0;
    if (rows > 0 && !stacked) {
        newRows = std::min(rows, MaxRows);
        newCols = linesFor(newRows);
    } else if (cols > 0 && (m_flat || stacked)) {
        newCols = std::min(cols, MaxColumns);
        newRows = linesFor(newCols);
    } else {
        qWarning("Icon grid: cannot force %d rows and %d columns on this layout", rows, cols);
        return false;
    }
    if (newRows > MaxRows || newCols > MaxColumns) {
        qWarning("Icon grid: %d x %d cells do not fit the grid", newRows, newCols);
        return false;
    }
    m_rows = newRows;
    m_cols = newCols;
    finishLayout();
    return true;
}

HVGridGeometry HVIconLayout::geometry() const
{
    return HVGridGeometry{m_preferences.groupOrientation, m_preferences.iconSpacing, m_bunchCount};
}

void HVIconLayout::finishLayout()
{
    calcIconWidth();
    buildLookupTable();
    buildBunchRects();
    buildMarginRects();
}

void HVIconLayout::calcRowColCount()
{
    m_rows = m_cols = m_bunchCount = 0;
    if (m_sizes.isEmpty())
        return;
    m_bunchCount = m_flat ? 1 : int(m_sizes.size());
    const double width = m_maxIconViewSize.width() - 2 * Margin;
    const double height = m_maxIconViewSize.height() - 2 * Margin;
    const double aspect = width / height;
    const int largestCell = m_preferences.maximumIconSize + 2 * m_preferences.iconPadding;
    HVRowColCount count;
    if (m_flat && m_groupShown == 0) {
        count = HVRowColSearch::forRunningList(m_appCount, width, largestCell);
    } else if (m_flat) {
        count = HVRowColSearch::forFlatList(m_appCount, aspect);
    } else {
        const bool stacked = m_preferences.groupOrientation == 1;
        count = HVRowColSearch::forBunches(m_sizes, {aspect, largestCell, m_preferences.iconSpacing, stacked,
                                                     m_preferences.minimizeEmptyCells});
        if (stacked) // searched with bunches as columns, turned for stacked bunches
            std::swap(count.rows, count.cols);
    }
    m_rows = count.rows;
    m_cols = count.cols;
}

void HVIconLayout::calcIconWidth()
{
    const int padding = m_preferences.iconPadding;
    m_iconWidth = m_preferences.maximumIconSize;
    if (m_maxIconViewSize.width() > 0 && m_maxIconViewSize.height() > 0 && m_bunchCount > 0) {
        // Shrink one point at a time until the whole grid fits, never below one point.
        m_iconWidth += 1;
        QSizeF size;
        do {
            --m_iconWidth;
            const double cell = m_iconWidth + 2 * padding;
            size = viewSizeForCellSize(QSizeF(cell, cell), m_rows, m_cols);
        } while ((size.width() > m_maxIconViewSize.width() || size.height() > m_maxIconViewSize.height()) &&
                 m_iconWidth > 1);
    }
    m_cellWidth = m_iconWidth + 2 * padding;
    m_viewSize = viewSizeForCellSize(QSizeF(m_cellWidth, m_cellWidth), m_rows, m_cols);
}

void HVIconLayout::buildLookupTable()
{
    const int readingOrder = m_preferences.iconReadingOrder;
    if (m_bunchCount == 0)
        m_table.erase();
    else if (m_flat)
        m_table.fillFlat(m_rows, m_cols, m_appCount, readingOrder);
    else if (m_preferences.groupOrientation == 1)
        m_table.fillStacked(m_rows, m_cols, m_sizes, readingOrder);
    else
        m_table.fillSideBySide(m_rows, m_cols, m_sizes, readingOrder);
    for (int row = 0; row < m_table.rows(); ++row) {
        for (int column = 0; column < m_table.cols(); ++column)
            m_table.at(row, column).rect = topLeftRect(upwardRectOfCell(row, column), m_viewSize.height());
    }
}

QRectF HVIconLayout::upwardRectOfCell(int row, int column) const
{
    // Rows count from the top while y points up: rr is the row counted from the bottom.
    const double w = m_cellWidth;
    const double s = m_preferences.iconSpacing;
    const double g = bunchSpacingForCellWidth(w);
    const int rr = m_rows - 1 - row;
    double x = column * s;
    double y = rr * s;
    if (m_preferences.groupOrientation == 2) {
        const double bunch = double(m_table.at(0, column).bunch);
        x = g * bunch + (column - bunch) * s;
    } else if (m_preferences.groupOrientation == 1) {
        const double below = double(m_bunchCount - 1) - double(m_table.at(row, 0).bunch);
        y = g * below + (rr - below) * s;
    }
    return QRectF(Margin + w * column + x, Margin + w * rr + y, w, w);
}

QList<int> HVIconLayout::bunchSpans() const
{
    const bool stacked = m_preferences.groupOrientation == 1;
    return HVRowColSearch::bunchSpans(m_sizes, stacked ? m_cols : m_rows);
}

void HVIconLayout::buildBunchRects()
{
    if (m_flat || m_bunchCount == 0)
        m_bunchRects = HVBunchRects::forFlatList(m_viewSize, m_bunchCount);
    else if (m_preferences.groupOrientation == 1)
        m_bunchRects =
            HVBunchRects::forStacked(m_viewSize, bunchSpans(), m_cellWidth, m_preferences.iconSpacing);
    else
        m_bunchRects =
            HVBunchRects::forSideBySide(m_viewSize, bunchSpans(), m_cellWidth, m_preferences.iconSpacing);
}

void HVIconLayout::buildMarginRects()
{
    m_marginRects = marginRectsForViewSize(m_viewSize);
}

QRectF HVIconLayout::rectOfCellForRow(int row, int column) const
{
    return isValidRow(row, column) ? m_table.at(row, column).rect : QRectF();
}

QSizeF HVIconLayout::viewSizeForCellSize(const QSizeF& cellSize, int rows, int columns) const
{
    return geometry().viewSizeForCellSize(cellSize, rows, columns);
}

int HVIconLayout::bunchSpacingForCellWidth(double cellWidth) const
{
    return HVGridGeometry::bunchSpacingForCellWidth(cellWidth);
}
