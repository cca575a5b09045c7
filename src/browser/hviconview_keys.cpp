// Keys in the icon view: typing filters the icons (a pause of a second starts a new word),
// Return or Enter launches the app the arrows selected, else the single match, Escape clears the
// filter, and the Command (Ctrl) chords change the grid or show colour spectrums.
#include "hviconview.h"

#include "hvkeycharacters.h"

#include "catalogue/hvappgroup.h"
#include "common/hvnotificationcenter.h"
#include "common/hvuserdefaults.h"
#include "common/notificationnames.h"
#include "layout/groupshown.h"

#include <QKeyEvent>
#include <QTimer>

#include <algorithm>

using namespace HVKeyCharacters;

bool HVIconView::handleKeyDown(QKeyEvent* event)
{
    if (!event)
        return false;
    if (performKeyEquivalent(event) || handleNavigationKey(event))
        return true;
    if (event->modifiers().testFlag(Qt::ControlModifier))
        return false; // Command chords are shortcuts, not typing
    const QString characters = charactersIgnoringModifiers(*event);
    if (characters.size() != 1)
        return false;
    const QChar character = characters.at(0);
    if (event->isAutoRepeat() && character != QChar(Delete))
        return false; // a held key types once; a held Delete keeps deleting

    const bool isReturn = character == QChar(Return) || character == QChar(Enter);
    if (isReturn && keyboardSelectedApp()) {
        launchApp(keyboardSelectedApp(), std::nullopt);
        return true;
    }
    const HVAppBunch remaining = isReturn ? keyFilteredApps1D() : HVAppBunch();
    bool changed = false;
    if (!isFilterSubstringTimerRunning())
        changed = m_filter.clear(); // a new word starts after a pause
    bool handled = true;
    if (isReturn) {
        if (remaining.size() == 1)
            changed = m_filter.clear() || changed;
    } else if (character == QChar(Delete)) {
        changed = m_filter.removeLastCharacter() || changed;
    } else if (character.isLetterOrNumber()) {
        changed = m_filter.appendLetterOrDigit(character) || changed;
    } else if (character == QLatin1Char(' ')) {
        changed = m_filter.appendSpace() || changed;
    } else {
        handled = false;
    }
    if (!handled) {
        if (changed)
            changeFilter(true);
        return false;
    }
    startFilterSubstringTimerWithTimeInterval(FilterResetInterval);
    changeFilter(changed);
    if (isReturn && remaining.size() == 1)
        launchApp(remaining.first(), std::nullopt);
    return true;
}

void HVIconView::handleKeyUp(QKeyEvent*) {}

void HVIconView::keyPressEvent(QKeyEvent* event)
{
    // Keys the view does not take go on to the panel.
    if (!handleKeyDown(event))
        event->ignore();
}

void HVIconView::keyReleaseEvent(QKeyEvent* event)
{
    handleKeyUp(event);
    event->ignore();
}

bool HVIconView::performKeyEquivalent(QKeyEvent* event)
{
    if (!event)
        return false;
    const QString characters = charactersIgnoringModifiers(*event);
    if (characters.size() != 1)
        return false;
    const QChar character = characters.at(0);
    const bool command = event->modifiers().testFlag(Qt::ControlModifier);
    if ((character == QChar(Escape) && !command) || (character == QLatin1Char('.') && command))
        return handleCancelOperation();
    if (!command)
        return false;
    if (character == QLatin1Char('=') || character == QLatin1Char('+') || character == QLatin1Char('-')) {
        if (!HVGroupShown::isGroupedGroup(m_groupShown) || m_layout.bunchCount() == 0)
            return false;
        const int step = character == QLatin1Char('-') ? -1 : 1;
        // One more or one fewer row; of columns when the bunches are stacked.
        if (m_layout.preferences().groupOrientation == 1)
            forceRowColCountForRows(0, std::max(1, m_layout.colCount() + step));
        else
            forceRowColCountForRows(std::max(1, m_layout.rowCount() + step), 0);
        return true;
    }
    if (character == QLatin1Char('`')) {
        if (m_defaults->integerForKey(QStringLiteral("groupContentsSortOrder")) == 2) {
            m_showIconSpectrums = !m_showIconSpectrums;
            update();
        }
        return true;
    }
    return false;
}

bool HVIconView::handleCancelOperation()
{
    if (m_filter.isEmpty())
        return false; // the panel closes instead
    m_filter.clear();
    changeFilter(true);
    return true;
}

void HVIconView::changeFilter(bool changed)
{
    if (changed) {
        repaintFilteredCells();
        keepKeyboardSelectionInFilter();
    }
    sendFilterSubstringNotification();
}

void HVIconView::repaintFilteredCells()
{
    const HVFilteredCells::Change change = m_filteredCells.refresh(m_cellApps, m_filter);
    // Past a quarter of the grid one rectangle is cheaper than a region of many.
    if (change.everyCell || change.cells.size() * 4 > qsizetype(m_cellApps.size())) {
        update();
        return;
    }
    const int columns = m_layout.colCount();
    for (int cell : change.cells)
        update(m_layout.rectOfCellForRow(cell / columns, cell % columns).toAlignedRect());
}

bool HVIconView::isCellFilteredOut(const HVApp* app, int row, int column) const
{
    if (m_filteredCells.isCurrentFor(m_filter.text()) && m_layout.isValidRow(row, column))
        return m_filteredCells.isFilteredOut(std::size_t(row) * std::size_t(m_layout.colCount()) +
                                             std::size_t(column));
    return app && isAppKeyFilteredOut(*app);
}

HVAppBunch HVIconView::keyFilteredApps1D() const
{
    HVAppBunch kept;
    for (const HVAppBunch& bunch : m_shownBunches) {
        for (const HVAppRef& app : bunch) {
            if (app && !isAppKeyFilteredOut(*app))
                kept.append(app);
        }
    }
    return kept;
}

void HVIconView::resetFilterSubstring()
{
    if (m_filter.clear())
        repaintFilteredCells();
}

void HVIconView::cancelFilterSubstringTimer()
{
    m_filterSubstringTimer->stop();
}

void HVIconView::startFilterSubstringTimerWithTimeInterval(double seconds)
{
    m_filterSubstringTimer->start(int(std::clamp(seconds, 0.0, 3600.0) * 1000));
}

void HVIconView::filterSubstringTimerFired()
{
    // Only the pause ends here; the filter stays until the next key.
    m_filterSubstringTimer->stop();
}

bool HVIconView::isFilterSubstringTimerRunning() const
{
    return m_filterSubstringTimer->isActive();
}

void HVIconView::sendFilterSubstringNotification()
{
    HVNotificationCenter::defaultCenter()->postNotificationName(
        HVNotificationNames::FilterStringChanged, QVariant::fromValue<QObject*>(this),
        {{QStringLiteral("filterString"), m_filter.text()},
         {QStringLiteral("resetInterval"), float(FilterResetInterval)}});
}
