#include "hvpanelscreen.h"

#include "hvgeometry.h"

#include "common/hvuserdefaults.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

QScreen* HVPanelScreen::screenToOpenOn(const HVUserDefaults& defaults)
{
    if (defaults.boolForKey(QStringLiteral("openOnPointerScreen"))) {
        if (QScreen* screen = QGuiApplication::screenAt(QCursor::pos()))
            return screen;
    }
    return QGuiApplication::primaryScreen();
}

bool HVPanelScreen::moveOnto(QWidget* window, QScreen* screen)
{
    if (!screen || !window)
        return false;
    const QRect frame = window->geometry();
    if (screen->geometry().contains(frame.center()))
        return false;
    window->winId(); // the native window knows its screen, which bounds the panel from now on
    window->windowHandle()->setScreen(screen);
    window->setGeometry(
        HVGeometry::centerRectInRect(QRectF(frame), QRectF(screen->availableGeometry()), true).toRect());
    return true;
}
