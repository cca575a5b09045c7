// The scroll wheel over the icon view: up and down step a one-letter filter through the
// alphabet, a sideways swipe switches to the next or previous group.
#include "hviconview.h"

#include "hvletterstepping.h"
#include "hvswipegesture.h"

#include "common/hvnotificationcenter.h"
#include "common/hvuserdefaults.h"
#include "common/notificationnames.h"

#include <QWheelEvent>

#include <cmath>

void HVIconView::wheelEvent(QWheelEvent* event)
{
    scrollWheel(event);
    event->accept();
}

void HVIconView::scrollWheel(QWheelEvent* event)
{
    const QPointF delta = HVScrollDelta::linesOfEvent(*event);
    const double dx = delta.x();
    const double dy = delta.y();
    if (std::abs(dx) < 0.0001 && std::abs(dy) < 0.0001)
        return;
    const bool vertical = std::abs(dx) <= std::abs(dy);
    if (m_filter.text().size() >= 2) {
        // A typed word stays while typing goes on; afterwards the wheel takes over.
        m_scrollAccumulatorY.reset();
        HVSwipeGesture::shared().resetDistance();
        if (isFilterSubstringTimerRunning())
            return;
        m_filter.clear();
        changeFilter(true);
    } else if (m_filter.text().size() == 1 && !vertical && isFilterSubstringTimerRunning()) {
        HVSwipeGesture::shared().resetDistance();
        return;
    }
    if (vertical)
        scrollVertically(dy);
    else
        scrollHorizontally(dx, event->timestamp());
}

void HVIconView::scrollVertically(double deltaY)
{
    const HVScrollAccumulator::Result result = m_scrollAccumulatorY.add(deltaY);
    if (result.step == 0)
        return;
    const int step =
        m_defaults->boolForKey(QStringLiteral("reverseScrollWheel")) ? -result.step : result.step;
    if (m_filter.text().size() <= 1) {
        const bool changed = m_filter.setText(HVLetterStepping::steppedFilter(m_filter.text(), step));
        cancelFilterSubstringTimer(); // the stepped letter stays until changed
        if (changed)
            repaintFilteredCells();
    }
    sendFilterSubstringNotification();
}

void HVIconView::scrollHorizontally(double deltaX, quint64 timestamp)
{
    const HVSwipeGesture::Outcome outcome = HVSwipeGesture::shared().addEvent(deltaX, timestamp);
    if (outcome == HVSwipeGesture::NoSwitch)
        return;
    HVNotificationCenter::defaultCenter()->postNotificationName(
        outcome == HVSwipeGesture::NextGroup ? HVNotificationNames::SelectNextIconGroup
                                             : HVNotificationNames::SelectPrevIconGroup,
        QVariant::fromValue<QObject*>(this));
}
