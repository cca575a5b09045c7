// The pointer over the icon view: the selection follows it, a click acts on release on the app
// it was pressed on, Shift- and Command-clicks reach the icon actions directly.
#include "hviconview.h"
#include "hviconviewaccessible.h"
#include "hviconviewdrag.h"

#include "catalogue/hvappgroup.h"
#include "catalogue/hvappmanager.h"
#include "common/hvnotificationcenter.h"
#include "common/notificationnames.h"

#include <QMouseEvent>

#include <system_error>
#include <thread>

namespace {
// The rectangle of one field of the selection (a bunch, a gap or a margin), or none.
QRectF stripRect(const QList<QRectF>& rects, quint64 field)
{
    return field < quint64(rects.size()) ? rects.at(qsizetype(field)) : QRectF();
}
} // namespace

void HVIconView::selectCoords(const Coords& coords)
{
    if (coords == m_selectedCoords) {
        m_oldSelectedCoords = m_selectedCoords;
        return;
    }
    m_oldSelectedCoords = m_selectedCoords;
    m_selectedCoords = coords;
    const Coords& was = m_oldSelectedCoords;
    const auto mark = [this](const QRectF& rect) {
        if (!rect.isEmpty())
            update(rect.toAlignedRect());
    };
    if (was.row != coords.row || was.col != coords.col) {
        mark(rectOfCoords(was));
        mark(rectOfCoords(coords));
        QVariantMap info;
        if (const HVAppRef app = appAtCoords(coords))
            info = {{QStringLiteral("app"), QVariant::fromValue(app)},
                    {QStringLiteral("rect"), rectOfCoords(coords)}};
        HVNotificationCenter::defaultCenter()->postNotificationName(
            HVNotificationNames::SelectedAppChanged, QVariant::fromValue<QObject*>(this), info);
        HVIconViewAccessible::selectionMoved(this, appAtCoords(coords));
    }
    if (was.bunch != coords.bunch) {
        mark(stripRect(m_layout.bunchRects(), was.bunch));
        mark(stripRect(m_layout.bunchRects(), coords.bunch));
    }
    if (was.spacer != coords.spacer) {
        mark(stripRect(m_layout.bunchSpacingRects(), was.spacer));
        mark(stripRect(m_layout.bunchSpacingRects(), coords.spacer));
    }
    if (was.margin != coords.margin) {
        mark(stripRect(m_layout.marginRects(), was.margin));
        mark(stripRect(m_layout.marginRects(), coords.margin));
    }
}

void HVIconView::myMouseMoved(QMouseEvent* event)
{
    if (!event)
        return;
    // Shift was let go unseen (outside the panel): the lists changed meanwhile settle now.
    if (m_layoutPending && !event->modifiers().testFlag(Qt::ShiftModifier)) {
        readModifierKeysFromEvent(event->modifiers());
        resizeViewForced(false);
    }
    // The panel may hand over its own events: the global position holds wherever they come from.
    selectCoords(coordsOfPoint(mapFromGlobal(event->globalPosition())));
}

void HVIconView::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton) && m_dragger->mouseDragged(event, m_mouseDownPoint)) {
        m_mouseDownPoint = QPointF(); // the press became a move, not a click
        event->accept();
        return;
    }
    myMouseMoved(event);
    event->ignore(); // the panel follows the pointer too
}

void HVIconView::dragEnterEvent(QDragEnterEvent* event)
{
    m_dragger->dragEntered(event);
}

void HVIconView::dragMoveEvent(QDragMoveEvent* event)
{
    m_dragger->dragMoved(event);
}

void HVIconView::dragLeaveEvent(QDragLeaveEvent*)
{
    m_dragger->dragLeft();
}

void HVIconView::dropEvent(QDropEvent* event)
{
    m_dragger->dropped(event);
}

void HVIconView::leaveEvent(QEvent*)
{
    selectCoords(Coords());
}

void HVIconView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton)
        rightMouseDown(event);
    else if (event->button() == Qt::LeftButton)
        mouseDown(event);
    else
        event->ignore();
}

void HVIconView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        mouseUp(event);
    else
        event->ignore();
}

void HVIconView::mouseDown(QMouseEvent* event)
{
    m_mouseDownPoint = event->position();
    selectCoords(coordsOfPoint(m_mouseDownPoint));
    m_startCoords = m_selectedCoords;
    if (!appAtPoint(m_mouseDownPoint)) {
        event->ignore(); // the panel is dragged by its background
        return;
    }
    repaintCell(m_selectedCoords); // the pressed icon fades at once
    event->accept();
}

void HVIconView::mouseUp(QMouseEvent* event)
{
    readModifierKeysFromEvent(event->modifiers());
    const Coords pressed = coordsOfPoint(m_mouseDownPoint);
    const HVAppRef app = appAtCoords(pressed);
    m_mouseDownPoint = QPointF();
    const HVAppRef released = appAtPoint(event->position());
    if (!app || app != released) {
        repaintCell(pressed);
        event->ignore();
        return;
    }
    event->accept();
    if (m_dragger->clickWhileOffering(app))
        return;
    if (!m_keys.shift) {
        repaintCell(pressed);
        if (m_keys.command)
            showAppInFinder(app);
        else
            launchApp(app, std::nullopt);
    } else if (isUserGroup(m_groupShown)) {
        removeSelectedAppFromUser(app);
    } else if (m_groupShown == HVAppGroupRunning) {
        repaintCell(pressed);
    } else if (isAppExcluded(app.get())) {
        includeSelectedApp(app, event);
    } else {
        excludeSelectedApp(app, event);
    }
}

void HVIconView::offerItemsToOpen(const QList<QUrl>& items)
{
    m_dragger->offerItemsToOpen(items);
}

void HVIconView::rightMouseDown(QMouseEvent* event)
{
    selectCoords(coordsOfPoint(event->position()));
    repaintCell(m_selectedCoords);
    event->accept();
    contextualMenuForEvent(event->globalPosition().toPoint());
}

void HVIconView::launchApp(const HVAppRef& app, const std::optional<QList<QUrl>>& items)
{
    if (!app)
        return;
    if (!app->isPathValid()) {
        if (isUserGroup(m_groupShown) && m_manager)
            m_manager->locateUserApps(); // the favourite may have moved
        else
            qWarning("Invalid application path: %s", qPrintable(app->path()));
        return;
    }
    try {
        std::thread([app, items] { app->launchWithItems(items); }).detach();
    } catch (const std::system_error& error) {
        qWarning("Cannot start a thread to launch %s: %s", qPrintable(app->path()), error.what());
        return;
    }
    emit appLaunchRequested(app);
    // The panel goes away as the app comes up (its own hide, when it has one).
    if (QWidget* panel = window(); panel && panel != this)
        QMetaObject::invokeMethod(panel, "hide");
}

void HVIconView::showAppInFinder(const HVAppRef& app)
{
    if (app)
        app->revealInFinder();
}

void HVIconView::includeSelectedApp(const HVAppRef& app, const QEvent* event)
{
    if (!app || !m_manager || !isAppExcluded(app.get()))
        return;
    if (m_groupShown == HVAppGroupExcluded || m_groupShown == HVAppGroupExcluded1D)
        showPoofForEvent(event);
    m_manager->includeApp(app);
    setNeedsDisplayForApp(app);
}

void HVIconView::excludeSelectedApp(const HVAppRef& app, const QEvent* event)
{
    if (!app || !m_manager || isAppExcluded(app.get()))
        return;
    if (m_groupShown != HVAppGroupExcluded && m_groupShown != HVAppGroupExcluded1D)
        showPoofForEvent(event);
    m_manager->excludeApp(app);
    setNeedsDisplayForApp(app);
}

void HVIconView::removeSelectedAppFromUser(const HVAppRef& app)
{
    if (!app || !m_manager)
        return;
    m_manager->removeAppsFromUserApps({app});
    setNeedsDisplayForApp(app);
}
