#include "desktopsession.h"

#include "desktopappactions.h"
#include "launchedprocesses.h"
#include "x11runningapps.h"

#include <QProcess>

DesktopSession::DesktopSession()
    : m_launched(std::make_shared<LaunchedProcesses>()),
      m_windows(std::make_shared<X11RunningApps>(m_launched)),
      m_actions(std::make_shared<DesktopAppActions>(m_windows, m_launched, QProcess::systemEnvironment()))
{
    if (!m_windows->isTracking())
        qWarning("No X display to follow: running applications are not tracked");
}

DesktopSession::~DesktopSession() = default;

std::shared_ptr<AppActions> DesktopSession::appActions() const
{
    return m_actions;
}

RunningAppsSource* DesktopSession::runningApps() const
{
    return m_windows->isTracking() ? m_windows.get() : nullptr;
}
