// The window of a cursor hot spot: a few pixels at a corner or along an edge of the primary
// screen, above every other window and on every workspace, out of the taskbar, never focused
// and transparent to input, so clicks there reach the window beneath. Its content is an
// HVHotSpotView; the window is invisible unless the view highlights it.
#pragma once

#include "hvhotspotview.h"

#include <QWidget>

class HVHotSpotWindow : public QWidget
{
    Q_OBJECT
public:
    // The places a hot spot can take, as stored in "cursorHotSpotLocation".
    enum Location {
        None = 0,
        TopLeftCorner,
        LeftEdge,
        BottomLeftCorner,
        BottomEdge,
        BottomRightCorner,
        RightEdge,
        TopRightCorner,
        TopEdge,
    };
    static constexpr int CornerSize = 4;
    // An edge is one pixel thick and leaves this much free at each end, clear of the corners.
    static constexpr int EdgeInset = 28;

    static bool isLocation(qint64 code) { return code >= None && code <= TopEdge; }
    // The rectangle of a location on a screen of the given geometry; empty for None.
    static QRect rectForLocation(Location location, const QRect& screen);
    // Whether this session lets a program follow the pointer and place windows at the screen's
    // edges (X11); Wayland lets it do neither.
    static bool isSupported();

    HVHotSpotWindow(const QRect& area, HVUserDefaults* defaults, const HVHotSpotTarget& target);
    ~HVHotSpotWindow() override;

    HVHotSpotView* view() const { return m_view; }
    // Shows the window above the others and starts following the pointer.
    void orderFront();

private:
    HVHotSpotView* m_view;
};
