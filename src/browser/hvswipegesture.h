// A horizontal swipe across the icon view switches to the next or previous group, at most once
// per swipe. Events closer than 0.15 s belong to one swipe; the state is shared by every view,
// as the swipe belongs to the pointing device rather than to a view.
#pragma once

#include "hvscrollaccumulator.h"

#include <QtGlobal>

class HVSwipeGesture
{
public:
    enum Outcome { NoSwitch, NextGroup, PreviousGroup };

    static HVSwipeGesture& shared();

    // One horizontal scroll event: its movement in lines (positive to the left) and its time
    // stamp in milliseconds.
    Outcome addEvent(double deltaX, quint64 timestamp);
    // Zeroes the distance travelled (the swipe itself goes on).
    void resetDistance() { m_accumulator.reset(); }
    void reset();

private:
    void start(quint64 timestamp);

    static constexpr double MaxGapSeconds = 0.15;
    static constexpr double SwitchDistance = 10.0;

    int m_count = 0;
    bool m_started = false;
    quint64 m_lastTimestamp = 0;
    double m_averageInterval = 0;
    bool m_switched = false;
    HVScrollAccumulator m_accumulator{SwitchDistance};
};
