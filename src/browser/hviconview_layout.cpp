// The icon view's layout: which group it shows, the list laid out, and the grid the layout
// engine makes of it. The view keeps the list as it was laid out, so that cells keep their apps
// until the next layout even while the catalogue changes underneath.
#include "hviconview.h"

#include "catalogue/hvappgroup.h"
#include "catalogue/hvappmanager.h"
#include "common/hvuserdefaults.h"
#include "layout/groupshown.h"

#include <climits>

namespace {
struct GridShape
{
    int cols = 0;
    int rows = 0;
    int bunches = 0;
    int cellWidth = 0;
    friend bool operator==(const GridShape&, const GridShape&) = default;
};

GridShape shapeOf(const HVIconLayout& layout)
{
    return {layout.colCount(), layout.rowCount(), layout.bunchCount(), layout.cellWidth()};
}

HVAppBunches snapshotOf(const HVAppArray& array, bool flat)
{
    if (array.isEmpty())
        return {};
    if (array.is2D() && !flat)
        return *array.bunches();
    return {array.is2D() ? array.allApps() : *array.flat()};
}

int toIndex(quint64 field)
{
    return field > quint64(INT_MAX) ? -1 : int(field);
}
} // namespace

QSizeF HVIconView::viewSize() const
{
    // Without a grid the view keeps the size it has.
    const QSizeF size = m_layout.viewSize();
    return size.isEmpty() ? QSizeF(this->size()) : size;
}

QSize HVIconView::sizeHint() const
{
    return viewSize().toSize();
}

void HVIconView::setMaxIconViewSize(const QSizeF& size)
{
    if (size == m_maxIconViewSize)
        return;
    m_maxIconViewSize = size;
    resizeViewForced(false);
}

void HVIconView::setGroupToShow(int group)
{
    m_groupToShow = group;
    resizeViewForced(false);
}

void HVIconView::updateLayout()
{
    m_preferences = HVIconLayoutPreferences::fromUserDefaults(*m_defaults).clamped();
    resizeViewForced(true);
}

void HVIconView::resizeViewForced(bool forced)
{
    m_layoutPending = false;
    m_selectedCoords = Coords();
    const int shown = HVGroupShown::groupToShowConsideringModifiers(m_groupToShow, m_keys.option,
                                                                    m_preferences.groupOrientation);
    const HVAppArray array = m_manager ? m_manager->appArrayForGroup(shown) : HVAppArray();
    if (!(array == m_appsShown) || shown != m_groupShown) {
        m_appsShown = array;
        m_groupShown = shown;
        update();
        emit groupShownChanged(shown);
    }
    // Without bunching, bunches show as one run of apps.
    const bool flat = !array.is2D() || m_preferences.groupOrientation == 0;
    m_shownBunches = snapshotOf(array, flat);

    const GridShape before = shapeOf(m_layout);
    QList<qint64> sizes;
    for (const HVAppBunch& bunch : std::as_const(m_shownBunches))
        sizes.append(bunch.size());
    m_layout = HVIconLayout(shown, flat, sizes, m_preferences, m_maxIconViewSize);
    layoutDidChange();
    if (!forced && shapeOf(m_layout) == before)
        return;
    resize(viewSize().toSize());
    updateGeometry();
    postSubviewNeedsResizing();
}

bool HVIconView::forceRowColCountForRows(int rows, int cols)
{
    if (!m_layout.forceRowColCountForRows(rows, cols))
        return false;
    layoutDidChange();
    resize(viewSize().toSize());
    updateGeometry();
    postSubviewNeedsResizing();
    return true;
}

void HVIconView::layoutDidChange()
{
    m_firstCells.reset();
    QSet<const HVApp*> shown;
    for (const HVAppBunch& bunch : std::as_const(m_shownBunches)) {
        for (const HVAppRef& app : bunch)
            shown.insert(app.get());
    }
    m_iconCache.retainOnly(shown);
    const int rows = m_layout.rowCount();
    const int columns = m_layout.colCount();
    m_cellApps.assign(std::size_t(rows) * std::size_t(columns), nullptr);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column)
            m_cellApps[std::size_t(row) * columns + column] = appOfCell(row, column);
    }
    m_gridBands.build(m_layout);
    m_filteredCells.invalidate();
    update();
}

const HVApp* HVIconView::appOfCell(int row, int column) const
{
    if (!m_layout.isValidRow(row, column))
        return nullptr;
    const appInfo& cell = m_layout.lookupTable().at(row, column);
    if (!cell.filled || cell.bunch >= quint64(m_shownBunches.size()))
        return nullptr;
    const HVAppBunch& bunch = m_shownBunches.at(qsizetype(cell.bunch));
    return cell.index < quint64(bunch.size()) ? bunch.at(qsizetype(cell.index)).get() : nullptr;
}

const HVApp* HVIconView::appPointerAtCell(int row, int column) const
{
    if (!m_layout.isValidRow(row, column))
        return nullptr;
    const std::size_t cell = std::size_t(row) * std::size_t(m_layout.colCount()) + std::size_t(column);
    return cell < m_cellApps.size() ? m_cellApps[cell] : nullptr;
}

HVAppRef HVIconView::appAtCell(int row, int column) const
{
    if (!appPointerAtCell(row, column))
        return {};
    const appInfo& cell = m_layout.lookupTable().at(row, column);
    return m_shownBunches.at(qsizetype(cell.bunch)).at(qsizetype(cell.index));
}

HVAppRef HVIconView::appAtCoords(const Coords& coords) const
{
    return appAtCell(toIndex(coords.row), toIndex(coords.col));
}

const QHash<const HVApp*, QPoint>& HVIconView::firstCellOfApps() const
{
    if (!m_firstCells) {
        QHash<const HVApp*, QPoint> cells;
        for (int row = 0; row < m_layout.rowCount(); ++row) {
            for (int column = 0; column < m_layout.colCount(); ++column) {
                if (const HVApp* app = appPointerAtCell(row, column); app && !cells.contains(app))
                    cells.insert(app, QPoint(column, row));
            }
        }
        m_firstCells = std::move(cells);
    }
    return *m_firstCells;
}

Coords HVIconView::coordsOfApp(const HVAppRef& app) const
{
    Coords coords;
    if (!app)
        return coords;
    const auto found = firstCellOfApps().constFind(app.get());
    if (found == firstCellOfApps().constEnd())
        return coords;
    coords.row = quint64(found->y());
    coords.col = quint64(found->x());
    coords.bunch = m_layout.lookupTable().at(found->y(), found->x()).bunch;
    return coords;
}
