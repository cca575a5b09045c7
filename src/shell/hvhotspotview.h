// What a cursor hot spot does: when the pointer (or a drag) comes into its rectangle, the
// action runs, after the dwell delay unless the panel is visible and hiding needs no dwell;
// leaving before the delay ends cancels it. With "highlightHotSpots" the spot is drawn red
// while the pointer is inside. The view fills an HVHotSpotWindow.
#pragma once

#include <QTimer>
#include <QWidget>

#include <functional>

class HVUserDefaults;
class PointerTracker;

// Who the hot spot acts for: the action toggles the panel, and whether the panel is visible
// decides whether the delay applies.
struct HVHotSpotTarget
{
    std::function<void()> action;
    std::function<bool()> mainWindowIsVisible;
};

class HVHotSpotView : public QWidget
{
    Q_OBJECT
public:
    // Seconds beyond which a stored delay is taken for a mistake.
    static constexpr double LongestDelay = 60.0;

    // `area` is the rectangle in screen coordinates, as designed (a window manager may place
    // the window elsewhere; the rectangle is what counts).
    HVHotSpotView(const QRect& area, HVUserDefaults* defaults, QWidget* parent = nullptr);
    ~HVHotSpotView() override;

    void setTarget(const HVHotSpotTarget& target) { m_target = target; }
    const HVHotSpotTarget& target() const { return m_target; }
    QRect area() const;

    // Following the pointer starts with the window's showing and ends with its hiding.
    void startTracking();
    void stopTracking();

    bool displayHotSpots() const { return m_displayHotSpots; }
    double delay() const { return m_delay; }
    bool ignoreDelayOnClose() const { return m_ignoreDelayOnClose; }
    bool isHighlighted() const { return m_red; }
    bool hasPendingAction() const { return m_delayTimer.isActive(); }

    void performAction();
    bool mainWindowIsVisible() const;
    void mouseEntered();
    void mouseExited();
    void showHotSpot();
    void hideHotSpot();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void readDefaults();
    void delayTimerFire();

    HVUserDefaults* m_defaults;
    PointerTracker* m_tracker;
    HVHotSpotTarget m_target;
    QTimer m_delayTimer;
    double m_delay = 0;
    bool m_displayHotSpots = false;
    bool m_ignoreDelayOnClose = true;
    bool m_red = false;
};
