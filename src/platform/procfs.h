// What /proc tells about a process: its program, its environment, its sandbox and its owner.
// Every read is bounded; a process that is gone or belongs to someone else answers empty.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace ProcFs {
// The program's path (/proc/<pid>/exe); empty when unknown.
QString executablePath(qint64 pid);
// One variable of the process's environment; null when absent or unreadable.
QByteArray environmentValue(qint64 pid, const QByteArray& name);
// The flatpak or snap application's desktop ID (without ".desktop"); empty outside a sandbox.
QString sandboxAppId(qint64 pid);
// A desktop ID from a cgroup file's text (the sandbox's scope name); empty when none.
QString sandboxAppIdFromCgroup(const QByteArray& cgroup);
// The process's start time in clock ticks since boot; 0 when it does not exist.
quint64 startTime(qint64 pid);
// Whether the process exists, is not a zombie and belongs to this user.
bool isLiveProcessOfUser(qint64 pid);
// Every process id in /proc.
QList<qint64> allPids();
} // namespace ProcFs
