// Adds up scroll deltas of one direction until they pass a threshold, which makes one step.
// A delta against the running sum only starts it again from zero.
#pragma once

class QWheelEvent;
class QPointF;

class HVScrollAccumulator
{
public:
    explicit HVScrollAccumulator(double threshold) : m_threshold(threshold) {}

    struct Result
    {
        int step = 0;          // +1 past +threshold, -1 past -threshold, else 0
        bool reversed = false; // the delta went against the sum, which is now zero
    };
    // A zero delta changes nothing.
    Result add(double delta);
    void reset() { m_sum = 0; }
    double sum() const { return m_sum; }

private:
    double m_threshold;
    double m_sum = 0;
};

namespace HVScrollDelta {
// A wheel event's movement in lines: one notch of a wheel is one line, ten pixels of a touchpad
// are one line. Positive y scrolls up, positive x scrolls left.
QPointF linesOfEvent(const QWheelEvent& event);
} // namespace HVScrollDelta
