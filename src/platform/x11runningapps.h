// The running applications of an X11 desktop. An application runs while it has a normal
// window on the taskbar; a transient window counts for its parent's application. Windows are
// matched to desktop entries (WindowMatcher); a window no entry claims counts as its program,
// named by its WM_CLASS and shown with its own icon. The window manager's client list and
// active window are watched through PropertyNotify on the root window: nothing polls.
//
// Without an X display (Wayland, headless) it does nothing and nothing runs.
#pragma once

#include "catalogue/runningappssource.h"
#include "installedentries.h"
#include "launchedprocesses.h"
#include "runningappcontrol.h"
#include "x11connection.h"

#include <QHash>
#include <QMutex>

#include <memory>

class X11RunningApps : public RunningAppsSource, public RunningAppControl
{
    Q_OBJECT
public:
    explicit X11RunningApps(std::shared_ptr<LaunchedProcesses> launched = {}, QObject* parent = nullptr);
    ~X11RunningApps() override;

    bool isTracking() const { return m_x11 != nullptr; }
    QList<RunningApplication> runningApplications() const override;
    QString activeApplicationPath() const override;
    QString ownApplicationPath() const override;

    // Window control by application path. These are safe from any thread: launching runs on
    // worker threads and activates a running application instead of starting it again.
    QList<quint32> windowsOfApplication(const QString& path) const; // the most recently active first
    bool controlsWindows() const override { return isTracking(); }
    qint64 pidOfApplication(const QString& path) const override;
    bool activateApplication(const QString& path) override; // false when it has no window
    void showApplication(const QString& path) override;
    void hideApplication(const QString& path) override;
    bool isApplicationVisible(const QString& path) const override;
    bool quitApplication(const QString& path) override; // asks each window to close; false without any

    // Forgets every window and reads them all again.
    void rereadAllWindows();

private:
    struct Window
    {
        QString appPath;
        QString name;
        QImage icon;
        qint64 pid = 0;
        bool counts = false;
        xcb_window_t transientFor = XCB_WINDOW_NONE;
    };
    struct Snapshot
    {
        QList<RunningApplication> apps;
        QHash<QString, QList<quint32>> windows;
        QHash<QString, qint64> pids;
        QString active;
    };

    void handleEvent(const xcb_generic_event_t* event);
    void refreshClients();
    void refreshActive();
    void learnWindows(const QList<xcb_window_t>& windows);
    void nameByProgram(xcb_window_t id, Window& window, const QString& wmClass);
    QString appOf(xcb_window_t window) const;
    xcb_window_t appWindowOf(xcb_window_t window) const;
    void publish();
    QList<quint32> windowsByRecency(const QList<xcb_window_t>& windows) const;

    std::unique_ptr<X11Connection> m_x11;
    std::shared_ptr<LaunchedProcesses> m_launched;
    std::unique_ptr<InstalledEntries> m_entries;
    QHash<xcb_window_t, Window> m_windows;
    QList<xcb_window_t> m_clients;
    QHash<QString, quint64> m_appOrder;          // application -> when it first appeared
    QHash<xcb_window_t, quint64> m_activeStamps; // window -> when it was last active
    quint64 m_counter = 0;

    mutable QMutex m_mutex; // guards m_published, which other threads read
    Snapshot m_published;
};
