// When the panel shows and hides: on request (hot key, taskbar, bus), when Nimbo loses the
// focus (at once, or after 30 seconds when the user dragged the panel aside), and on a timer.
#include "hvcontroller.h"

#include "hvaboutwindow.h"
#include "hvfeedbackwindow.h"
#include "hvwelcomeassistant.h"
#include "hvwindow.h"

#include "browser/hviconview.h"
#include "catalogue/hvappmanager.h"
#include "catalogue/runningappssource.h"
#include "platform/desktopsession.h"
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
    if (!m_finishedLaunching) {
        // Asked before the catalogue is read (nimboctl, or nimbo run again, during start-up):
        // the panel opens once it is.
        m_showWhenLaunched = true;
        return;
    }
    if (!mainWindowIsVisible()) {
        m_panelShownAt.start();
        m_mainWindow->showPanel();
    }
}

void HVController::hideMainWindow()
{
    closePrefs();
    if (m_aboutWindow && m_aboutWindow->isVisible())
        m_aboutWindow->close();
    // Hidden, not closed: a report on its way goes on, and what was typed stays.
    if (feedbackWindowIsVisible())
        m_feedbackWindow->hide();
    closeExclusionWindow();
    m_welcomeAssistantWasOpen = HVWelcomeAssistant::isWindowVisible();
    if (m_welcomeAssistantWasOpen)
        HVWelcomeAssistant::closeWindow();
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
    // The application that was in front before Nimbo gets the focus back. Where Nimbo cannot
    // raise other windows, the window manager hands the focus back as the panel hides.
    const HVAppRef previous = m_appManager->lastActiveApp();
    if (previous && previous->path() != m_session->runningApps()->ownApplicationPath()) {
        if (!m_mainWindow->isNonActivating() && !previous->activate())
            hideMainWindow();
        return;
    }
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
        if (m_welcomeAssistantWasOpen)
            openWelcome(); // the tour comes back where it was left
    } else if (m_mainWindow->hasBeenMoved()) {
        activate(); // a panel dragged aside comes back into use
    } else {
        hideMainWindow();
    }
}
