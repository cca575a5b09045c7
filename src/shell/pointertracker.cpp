#include "pointertracker.h"

#include "platform/pointerposition.h"

#include <algorithm>
#include <cmath>

PointerTracker::PointerTracker(const QRect& area, QObject* parent)
    : QObject(parent), m_area(area), m_pointer(std::make_unique<PointerPosition>())
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &PointerTracker::poll);
}

PointerTracker::~PointerTracker() = default;

void PointerTracker::start()
{
    m_timer.start(0);
}

void PointerTracker::stop()
{
    m_timer.stop();
    m_inside = false;
}

void PointerTracker::setAttentive(bool attentive)
{
    m_attentive = attentive;
    if (attentive && m_inside && m_timer.isActive() && m_timer.remainingTime() > ShortestIntervalMs)
        m_timer.start(ShortestIntervalMs);
}

int PointerTracker::intervalFor(const QPoint& position) const
{
    if (m_area.contains(position))
        return m_attentive ? ShortestIntervalMs : InsideIntervalMs;
    // The distance to the nearest point of the rectangle, and the time a pointer needs for it.
    const int dx = std::max({m_area.left() - position.x(), 0, position.x() - m_area.right()});
    const int dy = std::max({m_area.top() - position.y(), 0, position.y() - m_area.bottom()});
    const double ms = std::hypot(double(dx), double(dy)) / MaxSpeed;
    return std::clamp(int(ms), ShortestIntervalMs, LongestIntervalMs);
}

void PointerTracker::poll()
{
    const QPoint position = m_pointer->position();
    const bool inside = m_area.contains(position);
    scheduleFor(position); // first: a handler below may stop the tracker
    if (inside == m_inside)
        return;
    m_inside = inside;
    if (inside)
        emit entered();
    else
        emit left();
}

void PointerTracker::scheduleFor(const QPoint& position)
{
    const int ms = intervalFor(position);
    // Short waits must keep their time; long ones may be bundled with other wake-ups.
    m_timer.setTimerType(ms <= 20 ? Qt::PreciseTimer : Qt::CoarseTimer);
    m_timer.start(ms);
}
