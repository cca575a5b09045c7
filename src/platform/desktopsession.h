// The desktop services one Nimbo process works with: the processes it launched, the tracker of
// running applications, and what the desktop does for a record. Made once, at start-up, with
// the session's environment as Nimbo found it.
//
// Running applications are followed through their windows on X11 and through the systemd user
// units the desktop starts them in on Wayland, where no client sees the windows of others.
#pragma once

#include <QStringList>

#include <memory>

class AppActions;
class DesktopAppActions;
class LaunchedProcesses;
class RunningAppControl;
class RunningAppsSource;

class DesktopSession
{
public:
    DesktopSession();
    ~DesktopSession();
    DesktopSession(const DesktopSession&) = delete;
    DesktopSession& operator=(const DesktopSession&) = delete;

    std::shared_ptr<AppActions> appActions() const;
    // The running applications; null on X11 without a display (nothing then counts as running).
    RunningAppsSource* runningApps() const { return m_tracker.get(); }
    // Lets a failed launch announce the catalogue's own record as missing.
    DesktopAppActions* desktopActions() const { return m_actions.get(); }

private:
    std::shared_ptr<LaunchedProcesses> m_launched;
    std::shared_ptr<RunningAppsSource> m_tracker;
    std::shared_ptr<RunningAppControl> m_control;
    std::shared_ptr<DesktopAppActions> m_actions;
};
