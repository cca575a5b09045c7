#include "hvswipegesture.h"

HVSwipeGesture& HVSwipeGesture::shared()
{
    static HVSwipeGesture gesture;
    return gesture;
}

void HVSwipeGesture::reset()
{
    *this = HVSwipeGesture();
}

void HVSwipeGesture::start(quint64 timestamp)
{
    m_started = true;
    m_count = 1;
    m_accumulator.reset();
    m_switched = false;
    m_averageInterval = 0;
    m_lastTimestamp = timestamp;
}

HVSwipeGesture::Outcome HVSwipeGesture::addEvent(double deltaX, quint64 timestamp)
{
    // Time stamps going backwards count as no gap.
    const double gap = timestamp > m_lastTimestamp ? double(timestamp - m_lastTimestamp) / 1000.0 : 0.0;
    if (!m_started || (m_averageInterval > 0 && gap > MaxGapSeconds)) {
        start(timestamp); // a new swipe begins; its first event only starts the clock
        return NoSwitch;
    }
    m_lastTimestamp = timestamp;
    if (m_switched)
        return NoSwitch; // one swipe switches one group
    m_averageInterval = (gap + m_averageInterval * m_count) / (m_count + 1);
    ++m_count;
    const HVScrollAccumulator::Result result = m_accumulator.add(deltaX);
    if (result.reversed)
        m_count = 0;
    if (result.step == 0)
        return NoSwitch;
    m_switched = true;
    return result.step > 0 ? NextGroup : PreviousGroup;
}
