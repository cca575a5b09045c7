#include "procfs.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <sys/stat.h>
#include <unistd.h>

namespace {
constexpr qint64 MaxProcFileSize = 256 * 1024;

QString procPath(qint64 pid, const char* entry)
{
    return QStringLiteral("/proc/%1/%2").arg(pid).arg(QLatin1String(entry));
}

QByteArray readBounded(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.read(MaxProcFileSize);
}

// The fields of /proc/<pid>/stat after the command name, which may itself hold spaces and ")".
QList<QByteArray> statFieldsAfterName(qint64 pid)
{
    const QByteArray stat = readBounded(procPath(pid, "stat"));
    const qsizetype close = stat.lastIndexOf(')');
    if (close < 0)
        return {};
    return stat.mid(close + 2).split(' ');
}
} // namespace

namespace ProcFs {
QString executablePath(qint64 pid)
{
    if (pid <= 0)
        return QString();
    char buffer[4096];
    const QByteArray link = QFile::encodeName(procPath(pid, "exe"));
    const ssize_t length = readlink(link.constData(), buffer, sizeof buffer - 1);
    if (length <= 0)
        return QString();
    QString path = QFile::decodeName(QByteArray(buffer, length));
    // A program replaced while it runs (an upgrade) still names its old path.
    if (path.endsWith(QLatin1String(" (deleted)")))
        path.chop(10);
    return path;
}

QByteArray environmentValue(qint64 pid, const QByteArray& name)
{
    if (pid <= 0 || name.isEmpty())
        return QByteArray();
    const QByteArray prefix = name + '=';
    for (const QByteArray& variable : readBounded(procPath(pid, "environ")).split('\0')) {
        if (variable.startsWith(prefix))
            return variable.mid(prefix.size());
    }
    return QByteArray();
}

QString sandboxAppIdFromCgroup(const QByteArray& cgroup)
{
    // Flatpak: app-flatpak-org.gnome.Maps-12345.scope; snap: snap.firefox.firefox-<id>.scope.
    static const QRegularExpression flatpak(QStringLiteral("app-flatpak-(.+)-\\d+\\.scope"));
    static const QRegularExpression snap(
        QStringLiteral("snap\\.([^./]+)\\.([^./]+?)(?:-[0-9a-f-]+)?\\.scope"));
    const QString text = QString::fromUtf8(cgroup);
    QRegularExpressionMatch match = flatpak.match(text);
    if (match.hasMatch())
        return match.captured(1);
    match = snap.match(text);
    if (match.hasMatch())
        return match.captured(1) + QLatin1Char('_') + match.captured(2);
    return QString();
}

QString sandboxAppId(qint64 pid)
{
    return pid > 0 ? sandboxAppIdFromCgroup(readBounded(procPath(pid, "cgroup"))) : QString();
}

quint64 startTime(qint64 pid)
{
    // Field 22 of the stat line; the state (field 3) is the first after the name.
    const QList<QByteArray> fields = statFieldsAfterName(pid);
    return fields.size() > 19 ? fields.at(19).toULongLong() : 0;
}

bool isLiveProcessOfUser(qint64 pid)
{
    if (pid <= 0)
        return false;
    struct stat info;
    if (stat(QFile::encodeName(procPath(pid, "")).constData(), &info) != 0 || info.st_uid != getuid())
        return false;
    const QList<QByteArray> fields = statFieldsAfterName(pid);
    return !fields.isEmpty() && fields.first() != "Z" && fields.first() != "X";
}

QList<qint64> allPids()
{
    QList<qint64> pids;
    for (const QString& name : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        bool isNumber = false;
        const qint64 pid = name.toLongLong(&isNumber);
        if (isNumber)
            pids.append(pid);
    }
    return pids;
}
} // namespace ProcFs
