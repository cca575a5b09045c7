#include "desktopsession.h"

#include "desktopappactions.h"
#include "launchedprocesses.h"
#include "systemdrunningapps.h"
#include "x11runningapps.h"

#include <QGuiApplication>
#include <QProcess>

DesktopSession::DesktopSession() : m_launched(std::make_shared<LaunchedProcesses>())
{
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
        auto units = std::make_shared<SystemdRunningApps>();
        m_tracker = units;
        m_control = units;
    } else {
        auto windows = std::make_shared<X11RunningApps>(m_launched);
        if (windows->isTracking())
            m_tracker = windows;
        else
            qWarning("No X display to follow: running applications are not tracked");
        m_control = windows;
    }
    m_actions = std::make_shared<DesktopAppActions>(m_control, m_launched, QProcess::systemEnvironment());
}

DesktopSession::~DesktopSession() = default;

std::shared_ptr<AppActions> DesktopSession::appActions() const
{
    return m_actions;
}
