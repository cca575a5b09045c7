#include "windowmatcher.h"

#include "desktopentryindex.h"
#include "launchedprocesses.h"
#include "procfs.h"

#include <QFile>
#include <QFileInfo>

QString WindowMatcher::entryFor(const WindowFacts& window) const
{
    QString path = byWindowNames(window);
    if (path.isEmpty())
        path = m_index.pathForDesktopId(ProcFs::sandboxAppId(window.pid));
    if (path.isEmpty())
        path = m_index.pathForDesktopId(window.gtkApplicationId);
    if (path.isEmpty())
        path = byDesktopFileHint(window.kdeDesktopFile);
    if (path.isEmpty())
        path = entryForProcess(window.pid);
    return path;
}

QString WindowMatcher::byWindowNames(const WindowFacts& window) const
{
    for (const QString* name : {&window.instance, &window.wmClass}) {
        const QString path = m_index.pathForStartupWMClass(*name);
        if (!path.isEmpty())
            return path;
    }
    for (const QString* name : {&window.instance, &window.wmClass}) {
        const QString path = m_index.pathForDesktopId(*name);
        if (!path.isEmpty())
            return path;
    }
    return QString();
}

// KDE names the entry by its desktop ID, or now and then by its full path.
QString WindowMatcher::byDesktopFileHint(const QString& hint) const
{
    if (hint.startsWith(QLatin1Char('/')))
        return QFileInfo(hint).isFile() ? hint : QString();
    return m_index.pathForDesktopId(hint);
}

QString WindowMatcher::entryForProcess(qint64 pid) const
{
    if (pid <= 0)
        return QString();
    if (m_launched) {
        const QString launched = m_launched->entryForPid(pid);
        if (!launched.isEmpty())
            return launched;
    }
    // GIO names the entry and the process it launched; a child that inherited the variable
    // from its parent is not that process.
    const QByteArray gioFile = ProcFs::environmentValue(pid, "GIO_LAUNCHED_DESKTOP_FILE");
    const QByteArray gioPid = ProcFs::environmentValue(pid, "GIO_LAUNCHED_DESKTOP_FILE_PID");
    if (!gioFile.isEmpty() && (gioPid.isEmpty() || gioPid.toLongLong() == pid) &&
        QFileInfo(QFile::decodeName(gioFile)).isFile())
        return QFile::decodeName(gioFile);
    const QByteArray bamf = ProcFs::environmentValue(pid, "BAMF_DESKTOP_FILE_HINT");
    if (!bamf.isEmpty() && QFileInfo(QFile::decodeName(bamf)).isFile())
        return QFile::decodeName(bamf);
    const QString program = QFileInfo(ProcFs::executablePath(pid)).canonicalFilePath();
    return m_index.pathForExecutable(program);
}
