#include "launchedprocesses.h"

#include "procfs.h"

namespace {
// Past this many remembered launches the ended ones are forgotten.
constexpr int PruneThreshold = 256;
} // namespace

void LaunchedProcesses::record(qint64 pid, const QString& entryPath)
{
    if (pid <= 0)
        return;
    QMutexLocker locker(&m_mutex);
    if (m_launches.size() >= PruneThreshold)
        forgetEnded();
    m_launches.insert(pid, Launch{entryPath, ProcFs::startTime(pid)});
}

bool LaunchedProcesses::isSameProcess(qint64 pid, const Launch& launch) const
{
    return ProcFs::isLiveProcessOfUser(pid) && ProcFs::startTime(pid) == launch.startTime;
}

void LaunchedProcesses::forgetEnded()
{
    for (auto it = m_launches.begin(); it != m_launches.end();) {
        if (isSameProcess(it.key(), it.value()))
            ++it;
        else
            it = m_launches.erase(it);
    }
}

QString LaunchedProcesses::entryForPid(qint64 pid) const
{
    QMutexLocker locker(&m_mutex);
    const auto it = m_launches.constFind(pid);
    return it != m_launches.cend() && isSameProcess(pid, it.value()) ? it->entryPath : QString();
}

QList<qint64> LaunchedProcesses::pidsForEntry(const QString& entryPath) const
{
    QMutexLocker locker(&m_mutex);
    QList<qint64> pids;
    for (auto it = m_launches.cbegin(); it != m_launches.cend(); ++it) {
        if (it->entryPath == entryPath && isSameProcess(it.key(), it.value()))
            pids.append(it.key());
    }
    return pids;
}

int LaunchedProcesses::count() const
{
    QMutexLocker locker(&m_mutex);
    return int(m_launches.size());
}
