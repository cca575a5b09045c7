// Modifier keys in the icon view: Option (Alt) shows all apps instead of the included ones, Fn
// (Super) fades the apps that are not running, and lists changed by Shift-clicks settle when
// Shift is let go. Also the view's reset when the panel lets it go.
#include "hviconview.h"

#include "hviconviewdrag.h"

#include "catalogue/hvappgroup.h"

#include <QFocusEvent>

void HVIconView::readModifierKeysFromEvent(Qt::KeyboardModifiers modifiers)
{
    m_oldKeys = m_keys;
    m_keys = HVModifierKeys::fromQt(modifiers);
}

void HVIconView::modifierKeysChanged(const HVNotification& notification)
{
    const QWidget* panel = window();
    if (!panel || !panel->isActiveWindow())
        return;
    m_oldKeys = m_keys;
    m_keys = HVModifierKeys::fromVariant(notification.userInfo.value(QStringLiteral("event")))
                 .value_or(HVModifierKeys::fromHardware());
    const bool requestsIncluded =
        m_groupToShow == HVAppGroupIncluded || m_groupToShow == HVAppGroupIncluded1D;
    if (m_keys.option != m_oldKeys.option && requestsIncluded)
        resizeViewForced(false);
    if (m_drag.dragDropInProgress) {
        update(); // the apps that can open the drop follow Command
    } else {
        if (m_keys.function != m_oldKeys.function && m_groupToShow != HVAppGroupRunning)
            update();
        if (m_oldKeys.shift && !m_keys.shift)
            resizeViewForced(false);
    }
    updateCursor();
}

void HVIconView::updateCursor()
{
    // A Shift-click makes the icon leave the group shown.
    const bool disappearing = m_keys.shift && !m_drag.dragDropInProgress && m_groupShown != HVAppGroupRunning;
    setCursor(disappearing ? Qt::DragMoveCursor : Qt::ArrowCursor);
}

void HVIconView::resetView()
{
    const bool hadFilter = !m_filter.isEmpty();
    const bool hadOption = m_keys.option;
    m_dragger->forget();
    m_drag = HVIconDragState();
    m_droppableApps.clear();
    m_keys = m_oldKeys = HVModifierKeys();
    m_filter.clear();
    cancelFilterSubstringTimer();
    selectCoords(Coords());
    m_startCoords = Coords();
    m_showIconSpectrums = false;
    // Option no longer held shows the included apps again.
    if (m_layoutPending ||
        (hadOption && (m_groupToShow == HVAppGroupIncluded || m_groupToShow == HVAppGroupIncluded1D)))
        resizeViewForced(false);
    updateCursor();
    update();
    if (hadFilter)
        sendFilterSubstringNotification();
}

void HVIconView::focusOutEvent(QFocusEvent* event)
{
    // Another view taking the keys lets this one go; the panel going inactive does not.
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason)
        resetView();
    QWidget::focusOutEvent(event);
}
