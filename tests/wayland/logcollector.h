// Keeps every log line of the test program, echoed to standard error, for tests that check what
// Nimbo said. Lines come from Qt's D-Bus and Wayland threads too, hence the lock.
#pragma once

#include <QMutex>
#include <QStringList>

#include <cstdio>

namespace LogCollector {

inline QMutex lock;
inline QStringList collected;

// Installed with qInstallMessageHandler().
inline void collect(QtMsgType, const QMessageLogContext&, const QString& message)
{
    const QMutexLocker locker(&lock);
    collected << message;
    fprintf(stderr, "%s\n", qPrintable(message));
}

// The lines so far, copied under the lock.
inline QStringList lines()
{
    const QMutexLocker locker(&lock);
    return collected;
}

} // namespace LogCollector
