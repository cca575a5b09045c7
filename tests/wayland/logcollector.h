// Keeps every log line of the test program, echoed to standard error, for tests that check what
// Nimbo said. Lines come from Qt's D-Bus and Wayland threads too, hence the lock.
#pragma once

#include <QMutex>
#include <QStringList>

#include <algorithm>
#include <cstdio>

namespace LogCollector {

inline QMutex lock;
inline QStringList lines;

inline void collect(QtMsgType, const QMessageLogContext&, const QString& message)
{
    const QMutexLocker locker(&lock);
    lines << message;
    fprintf(stderr, "%s\n", qPrintable(message));
}

inline void install()
{
    qInstallMessageHandler(collect);
}

// How many lines so far satisfy `test`.
template<typename Test>
qsizetype count(Test test)
{
    const QMutexLocker locker(&lock);
    return std::count_if(lines.cbegin(), lines.cend(), test);
}

inline qsizetype linesWith(const QString& text)
{
    return count([&text](const QString& line) { return line.contains(text); });
}

} // namespace LogCollector
