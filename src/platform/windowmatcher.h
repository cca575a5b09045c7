// Finds the desktop entry a window belongs to, trying in turn: the WM_CLASS instance, then the
// class, against StartupWMClass; the instance, then the class, against the desktop ID; the
// flatpak or snap application of the window's process; the window's _GTK_APPLICATION_ID and
// _KDE_NET_WM_DESKTOP_FILE; a process Nimbo launched, or the entry named in the process's
// environment by GIO or BAMF; and last the program the process runs against the entries'
// programs. The first that answers wins.
#pragma once

#include <QString>

class DesktopEntryIndex;
class LaunchedProcesses;

struct WindowFacts
{
    QString instance; // WM_CLASS, first part
    QString wmClass;  // WM_CLASS, second part
    qint64 pid = 0;   // 0: unknown, or the window's process runs on another machine
    QString gtkApplicationId;
    QString kdeDesktopFile;
};

class WindowMatcher
{
public:
    WindowMatcher(const DesktopEntryIndex& index, const LaunchedProcesses* launched)
        : m_index(index), m_launched(launched)
    {}

    // The entry's path; empty when none matches.
    QString entryFor(const WindowFacts& window) const;
    // The steps that need only the process (no window).
    QString entryForProcess(qint64 pid) const;

private:
    QString byWindowNames(const WindowFacts& window) const;
    QString byDesktopFileHint(const QString& hint) const;

    const DesktopEntryIndex& m_index;
    const LaunchedProcesses* m_launched;
};
