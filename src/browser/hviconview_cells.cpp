// How each cell of the icon view is drawn: opaque or faded, highlighted or not, and whether it
// carries the drop-spot mark of a moved favourite.
#include "hviconview.h"

#include "catalogue/hvappgroup.h"

#include <QGuiApplication>

bool HVIconView::isSelectedCell(int row, int column) const
{
    return m_selectedCoords.row == quint64(row) && m_selectedCoords.col == quint64(column);
}

bool HVIconView::isOpaqueRow(int row, int column) const
{
    return isOpaqueCell(appPointerAtCell(row, column), row, column);
}

bool HVIconView::isHighlightedRow(int row, int column) const
{
    return isHighlightedCell(appPointerAtCell(row, column), row, column);
}

bool HVIconView::isDecoratedRow(int row, int column) const
{
    return isDecoratedCell(appPointerAtCell(row, column), row, column);
}

bool HVIconView::isOpaqueCell(const HVApp* app, int row, int column) const
{
    if (!app)
        return true; // nothing to fade
    if (isCellFilteredOut(app, row, column))
        return false;
    if (m_drag.dragDropInProgress) {
        if (!m_droppableApps.contains(app))
            return false;
    } else if (m_drag.dragMoveInProgress) {
        if (app == m_drag.movedApp.get())
            return false; // its old place
    } else if (isSelectedCell(row, column) &&
               (QGuiApplication::mouseButtons() & (Qt::LeftButton | Qt::RightButton))) {
        return false; // pressed
    }
    switch (m_groupShown) {
    case HVAppGroupIncluded:
    case HVAppGroupIncluded1D:
    case HVAppGroupAll:
    case HVAppGroupAll1D:
        if (isAppExcluded(app))
            return false;
        break;
    case HVAppGroupExcluded:
    case HVAppGroupExcluded1D:
        if (!isAppExcluded(app))
            return false;
        break;
    default:
        break;
    }
    // Fn turns the emphasis round: the apps that are not running fade.
    return !(m_keys.function && m_groupShown != HVAppGroupRunning && !isAppRunning(app));
}

bool HVIconView::isHighlightedCell(const HVApp* app, int row, int column) const
{
    if (!app)
        return false;
    if (m_groupShown != HVAppGroupRunning && isAppRunning(app) && !m_keys.function)
        return true;
    return m_drag.dragDropInProgress && isSelectedCell(row, column) && m_droppableApps.contains(app);
}

bool HVIconView::isDecoratedCell(const HVApp* app, int row, int column) const
{
    if (!m_drag.dragMoveInProgress || !isUserGroup(m_groupShown) || !isSelectedCell(row, column))
        return false;
    return !app || app != m_drag.movedApp.get();
}
