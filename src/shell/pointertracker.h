// Whether the pointer is inside a rectangle of the screen, told as it enters and leaves, for
// any pointer a program may ask the window system about (also one carrying a drag, and one
// over other programs' windows, which send this program no events).
//
// The position is polled, at a rate that follows the pointer's distance: a pointer cannot
// cross the screen in no time, so one far away is asked about rarely and one close by often.
// Far from the rectangle the tracker wakes a few times a second; inside it, while attentive
// (someone waits for the pointer to stay), every few milliseconds.
#pragma once

#include <QObject>
#include <QRect>
#include <QTimer>

#include <memory>

class PointerPosition;

class PointerTracker : public QObject
{
    Q_OBJECT
public:
    // A pointer is taken to move at most this fast (pixels per millisecond: a quick flick).
    static constexpr double MaxSpeed = 4.0;
    static constexpr int ShortestIntervalMs = 4;
    static constexpr int LongestIntervalMs = 250;
    // Inside the rectangle and not attentive, leaving only needs noticing in good time.
    static constexpr int InsideIntervalMs = 100;

    explicit PointerTracker(const QRect& area, QObject* parent = nullptr);
    ~PointerTracker() override;

    QRect area() const { return m_area; }
    bool isInside() const { return m_inside; }

    // Starts asking (the first time at once); stop() forgets whether the pointer was inside.
    void start();
    void stop();
    void setAttentive(bool attentive);

signals:
    void entered();
    void left();

private:
    // The milliseconds until the next question for a pointer at `position`.
    int intervalFor(const QPoint& position) const;
    void poll();
    void scheduleFor(const QPoint& position);

    QRect m_area;
    std::unique_ptr<PointerPosition> m_pointer;
    QTimer m_timer;
    bool m_inside = false;
    bool m_attentive = false;
};
