// The desktop services one Nimbo process works with: the processes it launched, the tracker of
// running applications' windows, and what the desktop does for a record. Made once, at start-up,
// with the session's environment as Nimbo found it.
#pragma once

#include <QStringList>

#include <memory>

class AppActions;
class DesktopAppActions;
class LaunchedProcesses;
class RunningAppsSource;
class X11RunningApps;

class DesktopSession
{
public:
    DesktopSession();
    ~DesktopSession();
    DesktopSession(const DesktopSession&) = delete;
    DesktopSession& operator=(const DesktopSession&) = delete;

    std::shared_ptr<AppActions> appActions() const;
    // The running applications, or null without an X display (nothing then counts as running).
    RunningAppsSource* runningApps() const;
    // Lets a failed launch announce the catalogue's own record as missing.
    DesktopAppActions* desktopActions() const { return m_actions.get(); }

private:
    std::shared_ptr<LaunchedProcesses> m_launched;
    std::shared_ptr<X11RunningApps> m_windows;
    std::shared_ptr<DesktopAppActions> m_actions;
};
