// The icon grid of the browser view, worked out headless. From the group shown, the sizes of its
// bunches, the layout preferences and the largest size the panel allows, it counts rows and
// columns, shrinks the icons one point at a time until the grid fits, sizes the view, places
// every cell, the bunch, gap and margin strips, and maps a point back to them. Rectangles and
// points are in the view's top-left coordinates.
#pragma once

#include "appinfo.h"
#include "bunchrects.h"
#include "coords.h"
#include "gridgeometry.h"
#include "hviconlayoutpreferences.h"
#include "lookuptable.h"

#include <QList>
#include <QPointF>
#include <QSizeF>

class HVIconLayout
{
public:
    HVIconLayout(); // an empty grid

    // Lays out a list of bunches (or, when `flat`, one run of apps: the sum of the sizes).
    HVIconLayout(int groupShown, bool flat, const QList<qint64>& bunchSizes,
                 const HVIconLayoutPreferences& preferences, const QSizeF& maxIconViewSize);

    // Lays out the group the view shows for `groupToShow`: the Option key and the orientation
    // pick the group; a flat group shows the bunches' apps as one run, a group that has no list
    // shows nothing.
    static HVIconLayout forGroup(int groupToShow, bool optionKeyDown, const QList<qint64>& bunchSizes,
                                 const HVIconLayoutPreferences& preferences, const QSizeF& maxIconViewSize);

    // Command-= and Command-minus: a forced row count (bunches side by side, flat lists) gives the
    // columns, a forced column count (stacked bunches, flat lists) the rows; icon size and cells
    // follow. False, with the layout unchanged, when that grid would leave the table.
    bool forceRowColCountForRows(int rows, int cols);

    int groupShown() const { return m_groupShown; }
    bool isFlat() const { return m_flat; }
    const HVIconLayoutPreferences& preferences() const { return m_preferences; }
    const QSizeF& maxIconViewSize() const { return m_maxIconViewSize; }
    // The bunch sizes laid out (a flat list is one), trimmed to what the table shows.
    const QList<int>& bunchSizes() const { return m_sizes; }

    int rowCount() const { return m_rows; }
    int colCount() const { return m_cols; }
    int bunchCount() const { return m_bunchCount; }
    int iconWidth() const { return m_iconWidth; }
    int cellWidth() const { return m_cellWidth; }
    int cellHeight() const { return m_cellWidth; }
    QSizeF viewSize() const { return m_viewSize; }

    bool isValidRow(int row, int column) const { return m_table.isValidRow(row, column); }
    const HVLookupTable& lookupTable() const { return m_table; }
    const QList<QRectF>& bunchRects() const { return m_bunchRects.bunches; }
    const QList<QRectF>& bunchSpacingRects() const { return m_bunchRects.spacings; }
    const QList<QRectF>& marginRects() const { return m_marginRects; }

    // A null rectangle for a row or column outside the grid.
    QRectF rectOfCellForRow(int row, int column) const;
    QRectF rectOfCoords(const Coords& coords) const;
    Coords coordsOfPoint(const QPointF& point) const;
    // The first cell, row by row, holding the app at that position of the list.
    Coords coordsOfApp(quint64 bunch, quint64 index) const;

    QSizeF viewSizeForCellSize(const QSizeF& cellSize, int rows, int columns) const;
    int bunchSpacingForCellWidth(double cellWidth) const;
    int cellPaddingForIconWidth(int) const { return m_preferences.iconPadding; }

private:
    HVGridGeometry geometry() const;
    void calcRowColCount();
    void calcIconWidth();
    void buildLookupTable();
    void buildBunchRects();
    void buildMarginRects();
    void finishLayout();
    QRectF upwardRectOfCell(int row, int column) const;
    QList<int> bunchSpans() const;

    HVIconLayoutPreferences m_preferences = HVIconLayoutPreferences().clamped();
    QSizeF m_maxIconViewSize;
    int m_groupShown = -1;
    bool m_flat = true;
    QList<int> m_sizes;
    int m_appCount = 0;
    int m_rows = 0;
    int m_cols = 0;
    int m_bunchCount = 0;
    int m_iconWidth = 0;
    int m_cellWidth = 0;
    QSizeF m_viewSize{0, 0};
    HVLookupTable m_table;
    HVBunchRects m_bunchRects;
    QList<QRectF> m_marginRects;
};
