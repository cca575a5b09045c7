// The processes Nimbo launched and the entry each was launched from. A process is known by
// its id and start time, so an id the system gives to a later process is not mistaken for it.
// Launches happen on worker threads and the tracker reads on the main thread: it is locked.
#pragma once

#include <QHash>
#include <QList>
#include <QMutex>
#include <QString>

class LaunchedProcesses
{
public:
    void record(qint64 pid, const QString& entryPath);
    // The entry the living process was launched from; empty when Nimbo did not launch it.
    QString entryForPid(qint64 pid) const;
    // The living processes launched from the entry.
    QList<qint64> pidsForEntry(const QString& entryPath) const;
    int count() const;

private:
    struct Launch
    {
        QString entryPath;
        quint64 startTime = 0;
    };
    bool isSameProcess(qint64 pid, const Launch& launch) const;
    void forgetEnded();

    mutable QMutex m_mutex;
    QHash<qint64, Launch> m_launches;
};
