// What can be done to a running application, named by its desktop entry's path (or its
// program's). On X11 its windows are asked; on Wayland, where no client reaches the windows of
// others, its systemd unit is, and only launching and quitting are possible.
#pragma once

#include <QString>

class RunningAppControl
{
public:
    virtual ~RunningAppControl() = default;

    // Whether its windows can be raised, shown and hidden.
    virtual bool controlsWindows() const = 0;
    virtual qint64 pidOfApplication(const QString& path) const = 0; // 0 when unknown
    // Brings its most recent window forward; false when that cannot be done.
    virtual bool activateApplication(const QString& path) = 0;
    virtual void showApplication(const QString& path) = 0;
    virtual void hideApplication(const QString& path) = 0;
    virtual bool isApplicationVisible(const QString& path) const = 0;
    // Asks it to end; false when there was nothing to ask (the caller then ends the processes
    // Nimbo launched from the entry).
    virtual bool quitApplication(const QString& path) = 0;
    // A process Nimbo has just launched from the entry. Called on the launching thread.
    virtual void processLaunched(qint64 pid, const QString& entryPath)
    {
        Q_UNUSED(pid);
        Q_UNUSED(entryPath);
    }
};
