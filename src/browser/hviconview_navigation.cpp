// Moving a selection with the keyboard: the arrows step across the cells (sideways in the order
// the bunches are read, up and down to the nearest app of the next row), Home and End go to the
// first and last app, Page Up and Page Down to the first app of the previous or next bunch.
// Apps the filter fades are stepped over, and Return launches the app so selected.
#include "hviconview.h"

#include <QKeyEvent>

namespace {
bool isNavigationKey(int key)
{
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return true;
    default:
        return false;
    }
}
} // namespace

bool HVIconView::handleNavigationKey(QKeyEvent* event)
{
    if (!isNavigationKey(event->key()) || (event->modifiers() & ~Qt::KeypadModifier))
        return false;
    const HVAppBunch kept = keyFilteredApps1D();
    if (kept.isEmpty())
        return true;
    const HVAppRef current = keyboardSelectedApp();
    const qsizetype index = current ? kept.indexOf(current) : -1;
    HVAppRef target;
    switch (event->key()) {
    case Qt::Key_Left:
        target = kept.at(index > 0 ? index - 1 : 0);
        break;
    case Qt::Key_Right:
        target = kept.at(index < 0 ? 0 : std::min(index + 1, kept.size() - 1));
        break;
    case Qt::Key_Home:
        target = kept.first();
        break;
    case Qt::Key_End:
        target = kept.last();
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
        target = current ? appInNextRow(current, event->key() == Qt::Key_Up ? -1 : 1) : kept.first();
        break;
    default:
        target = firstAppOfNeighbourBunch(current, event->key() == Qt::Key_PageUp ? -1 : 1);
        break;
    }
    if (target)
        selectAppWithKeyboard(target);
    return true;
}

HVAppRef HVIconView::keyboardSelectedApp() const
{
    // The selection is the keyboard's while the pointer has not moved it elsewhere.
    if (!m_keyboardApp || coordsOfApp(m_keyboardApp) != m_selectedCoords)
        return {};
    return m_keyboardApp;
}

void HVIconView::selectAppWithKeyboard(const HVAppRef& app)
{
    m_keyboardApp = app;
    selectCoords(coordsOfApp(app));
}

HVAppRef HVIconView::appInNextRow(const HVAppRef& from, int step) const
{
    const Coords at = coordsOfApp(from);
    const int column = int(at.col);
    for (int row = int(at.row) + step; row >= 0 && row < m_layout.rowCount(); row += step) {
        // The nearest kept app of that row, the same column first.
        for (int distance = 0; distance < m_layout.colCount(); ++distance) {
            for (int c : {column - distance, column + distance}) {
                if (c < 0 || c >= m_layout.colCount())
                    continue;
                const HVAppRef app = appAtCell(row, c);
                if (app && !isCellFilteredOut(app.get(), row, c))
                    return app;
            }
        }
    }
    return from;
}

HVAppRef HVIconView::firstAppOfNeighbourBunch(const HVAppRef& from, int step) const
{
    qsizetype bunch = -1;
    for (qsizetype b = 0; from && b < m_shownBunches.size(); ++b) {
        if (m_shownBunches.at(b).contains(from))
            bunch = b;
    }
    if (bunch < 0)
        bunch = step > 0 ? -1 : m_shownBunches.size();
    for (qsizetype b = bunch + step; b >= 0 && b < m_shownBunches.size(); b += step) {
        for (const HVAppRef& app : m_shownBunches.at(b)) {
            if (app && !isAppKeyFilteredOut(*app))
                return app;
        }
    }
    return from;
}

void HVIconView::keepKeyboardSelectionInFilter()
{
    const HVAppRef current = keyboardSelectedApp();
    if (!current || !isAppKeyFilteredOut(*current))
        return;
    const HVAppBunch kept = keyFilteredApps1D();
    if (kept.isEmpty()) {
        m_keyboardApp.reset();
        selectCoords(Coords());
    } else {
        selectAppWithKeyboard(kept.first());
    }
}
