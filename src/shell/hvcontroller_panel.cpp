// When the panel shows and hides: on request (hot key, taskbar, bus), when Nimbo loses the
// focus (at once, or after 30 seconds when the user dragged the panel aside), and on a timer.
#include "hvcontroller.h"

#include "hvwindow.h"

#include "browser/hviconview.h"
#include "catalogue/hvappmanager.h"
#include "platform/panelwindowhints.h"

#include <QGuiApplication>
#include <QTimer>

namespace {
constexpr double MovedPanelCloseSeconds = 30.0;
} // namespace

bool HVController::mainWindowIsVisible() const
{
    return m_mainWindow->isPanelVisible();
}

void HVController::showMainWindow()
{
    if (!mainWindowIsVisible() && m_finishedLaunching) {
        m_panelShownAt.start();
        m_mainWindow->showPanel();
    }
}

void HVController::hideMainWindow()
{
    closePrefs();
    if (mainWindowIsVisible())
        m_mainWindow->hidePanel();
}

void HVController::activate()
{
    if (QGuiApplication::applicationState() != Qt::ApplicationActive && !m_mainWindow->isNonActivating()) {
        m_mainWindow->activateWindow();
        PanelWindowHints::requestActivation(m_mainWindow);
    }
}

void HVController::deactivate()
{
    // The window manager hands the focus back to the window that had it before.
    hideMainWindow();
}

void HVController::explicitHideMainWindow()
{
    // Raised while the previous application comes back, so the panel fades out on top.
    m_mainWindow->raisePanel();
    deactivate();
    hideMainWindow();
    m_mainWindow->lowerPanel();
}

void HVController::implicitHideMainWindow()
{
    if (!mainWindowIsVisible())
        return;
    if (m_mainWindow->hasBeenMoved())
        startWindowCloseTimerWithTimeInterval(MovedPanelCloseSeconds);
    else
        hideMainWindow();
}

void HVController::startWindowCloseTimerWithTimeInterval(double seconds)
{
    cancelWindowCloseTimer();
    m_windowCloseTimer = new QTimer(this);
    m_windowCloseTimer->setSingleShot(true);
    connect(m_windowCloseTimer, &QTimer::timeout, this, [this] {
        cancelWindowCloseTimer();
        hideMainWindow();
    });
    m_windowCloseTimer->start(int(seconds * 1000));
}

void HVController::cancelWindowCloseTimer()
{
    if (!m_windowCloseTimer)
        return;
    m_windowCloseTimer->stop();
    m_windowCloseTimer->deleteLater();
    m_windowCloseTimer = nullptr;
}

bool HVController::hasWindowCloseTimer() const
{
    return m_windowCloseTimer != nullptr;
}

void HVController::showHideMainWindow()
{
    const bool active = QGuiApplication::applicationState() == Qt::ApplicationActive;
    const bool visible = mainWindowIsVisible();
    if (active && !visible) {
        applicationOpenUntitledFile();
    } else if (active && visible) {
        explicitHideMainWindow();
    } else if (!visible) {
        activate();
        applicationOpenUntitledFile();
    } else if (m_mainWindow->hasBeenMoved()) {
        activate(); // a panel dragged aside comes back into use
    } else {
        hideMainWindow();
    }
}
