#include "hvhotspotwindow.h"

#include <QGuiApplication>

QRect HVHotSpotWindow::rectForLocation(Location location, const QRect& screen)
{
    const int x = screen.x(), y = screen.y(), w = screen.width(), h = screen.height();
    const int c = CornerSize, e = EdgeInset;
    switch (location) {
    case None:
        return {};
    case TopLeftCorner:
        return {x, y, c, c};
    case LeftEdge:
        return {x, y + e, 1, h - 2 * e};
    case BottomLeftCorner:
        return {x, y + h - c, c, c};
    case BottomEdge:
        return {x + e, y + h - 1, w - 2 * e, 1};
    case BottomRightCorner:
        return {x + w - c, y + h - c, c, c};
    case RightEdge:
        return {x + w - 1, y + e, 1, h - 2 * e};
    case TopRightCorner:
        return {x + w - c, y, c, c};
    case TopEdge:
        return {x + e, y, w - 2 * e, 1};
    }
    return {};
}

HVHotSpotWindow::HVHotSpotWindow(const QRect& area, HVUserDefaults* defaults, const HVHotSpotTarget& target)
    // Placed by itself: a window manager would frame it, and a frame takes the clicks its
    // content lets through. Unmanaged, it is on every workspace and in no taskbar by nature.
    : QWidget(nullptr, Qt::Window | Qt::BypassWindowManagerHint | Qt::FramelessWindowHint |
                           Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus |
                           Qt::WindowTransparentForInput),
      m_view(new HVHotSpotView(area, defaults, this))
{
    setWindowTitle(QStringLiteral("Nimbo Hot Spot"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setGeometry(area);
    m_view->setGeometry(rect());
    m_view->setTarget(target);
    setMask(QRegion(-1, -1, 1, 1)); // shown only when highlighted
}

HVHotSpotWindow::~HVHotSpotWindow()
{
    m_view->stopTracking();
}

void HVHotSpotWindow::orderFront()
{
    show();
    raise();
    m_view->startTracking();
}

bool HVHotSpotWindow::isSupported()
{
    return QGuiApplication::platformName() == QLatin1String("xcb");
}
