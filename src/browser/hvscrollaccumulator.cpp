#include "hvscrollaccumulator.h"

#include <QWheelEvent>

HVScrollAccumulator::Result HVScrollAccumulator::add(double delta)
{
    Result result;
    if (delta == 0)
        return result;
    if ((delta > 0 && m_sum < 0) || (delta < 0 && m_sum > 0)) {
        m_sum = 0;
        result.reversed = true;
        return result;
    }
    m_sum += delta;
    if (m_sum > m_threshold)
        result.step = 1;
    else if (m_sum < -m_threshold)
        result.step = -1;
    if (result.step != 0)
        m_sum = 0;
    return result;
}

namespace HVScrollDelta {
QPointF linesOfEvent(const QWheelEvent& event)
{
    if (!event.pixelDelta().isNull())
        return QPointF(event.pixelDelta()) / 10.0;
    return QPointF(event.angleDelta()) / 120.0;
}
} // namespace HVScrollDelta
