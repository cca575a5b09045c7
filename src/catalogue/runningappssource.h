// Where the catalogue learns which applications run and which one is in front. The platform
// layer watches the desktop's windows; tests give their own answers. An application runs while
// it has a window on the taskbar.
#pragma once

#include <QImage>
#include <QList>
#include <QObject>
#include <QString>

struct RunningApplication
{
    // The desktop entry's path, or the program's path when no entry claims its windows.
    QString path;
    // For a program without an entry: the name its windows give (their WM_CLASS); else empty.
    QString name;
    // For a program without an entry: its window's own icon; else null (the entry has one).
    QImage icon;
};

class RunningAppsSource : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    // The running applications in the order their first window appeared (launch order).
    virtual QList<RunningApplication> runningApplications() const = 0;
    // The application of the active window; empty when no application window is active.
    virtual QString activeApplicationPath() const = 0;
    // The path under which this program's own windows are listed.
    virtual QString ownApplicationPath() const = 0;

signals:
    // An application got its first window / lost its last one / came to the front.
    void applicationLaunched();
    void applicationTerminated();
    void frontApplicationSwitched();
};
