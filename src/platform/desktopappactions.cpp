// GIO's headers name a field "signals", which Qt defines as a keyword: they come first.
#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include "desktopappactions.h"

#include "entrydesktopid.h"
#include "filemanagerreveal.h"
#include "procfs.h"

#include "common/hvnotificationcenter.h"
#include "common/notificationnames.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QThread>

#include <csignal>

namespace {
const char AppstreamHandler[] = "x-scheme-handler/appstream";

bool handlesAppstream(GDesktopAppInfo* remover)
{
    const char* const* types = g_app_info_get_supported_types(G_APP_INFO(remover));
    for (; types && *types; ++types) {
        if (qstrcmp(*types, AppstreamHandler) == 0)
            return true;
    }
    return false;
}
} // namespace

DesktopAppActions::DesktopAppActions(std::shared_ptr<RunningAppControl> running,
                                     std::shared_ptr<LaunchedProcesses> launched, QStringList environment)
    : m_running(std::move(running)),
      m_launched(launched ? std::move(launched) : std::make_shared<LaunchedProcesses>()),
      m_launcher(m_launched, std::move(environment))
{
    if (m_running)
        m_launcher.setLaunchedHandler([running = m_running](qint64 pid, const QString& entryPath) {
            running->processLaunched(pid, entryPath);
        });
}

bool DesktopAppActions::launch(HVApp& app, const std::optional<QList<QUrl>>& items)
{
    const QString path = app.path();
    if ((!items || items->isEmpty()) && m_running && m_running->activateApplication(path))
        return true;
    QByteArrayList uris;
    for (const QUrl& item : items.value_or(QList<QUrl>()))
        uris.append(item.toEncoded());
    const LaunchOutcome outcome = m_launcher.launch(path, uris);
    if (outcome.ok())
        return true;
    const QByteArray url = app.url().toEncoded();
    qWarning("%s returned err: %ld for URL: %s", outcome.call, outcome.status, url.constData());
    if (outcome.status == LaunchOutcome::Missing)
        announceMissing(path);
    return false;
}

void DesktopAppActions::announceMissing(const QString& path)
{
    // Copies, so that the answer does not depend on this object outliving the queued call.
    auto post = [lookup = m_lookup, openUntitledFile = m_openUntitledFile, path] {
        if (openUntitledFile)
            openUntitledFile();
        HVAppRef record = lookup ? lookup(path) : nullptr;
        if (!record)
            record = std::make_shared<HVApp>(path);
        HVNotificationCenter::defaultCenter()->postNotificationName(HVNotificationNames::AppIsMissing,
                                                                    QVariant::fromValue(record));
    };
    // The catalogue answers on the main thread; launching runs on a worker.
    QCoreApplication* application = QCoreApplication::instance();
    if (application && QThread::currentThread() != application->thread())
        QMetaObject::invokeMethod(application, post, Qt::QueuedConnection);
    else
        post();
}

bool DesktopAppActions::pid(const HVApp& app, qint64* pid) const
{
    const qint64 found = m_running ? m_running->pidOfApplication(app.path()) : 0;
    if (pid)
        *pid = found;
    return found > 0;
}

bool DesktopAppActions::isVisible(const HVApp& app) const
{
    return m_running && m_running->isApplicationVisible(app.path());
}

void DesktopAppActions::show(const HVApp& app)
{
    if (m_running)
        m_running->showApplication(app.path());
}

void DesktopAppActions::hide(const HVApp& app)
{
    if (m_running)
        m_running->hideApplication(app.path());
}

bool DesktopAppActions::activate(const HVApp& app)
{
    return m_running && m_running->activateApplication(app.path());
}

void DesktopAppActions::quit(const HVApp& app)
{
    if (!m_running || !m_running->quitApplication(app.path()))
        terminateProcessesOf(app.path());
}

// An application without windows (or unit) is asked to end through its processes: those Nimbo launched
// from the entry and those GIO launched from it, as their environment tells; never others.
void DesktopAppActions::terminateProcessesOf(const QString& entryPath)
{
    QSet<qint64> pids;
    for (qint64 pid : m_launched->pidsForEntry(entryPath))
        pids.insert(pid);
    const QByteArray entry = QFile::encodeName(entryPath);
    for (qint64 pid : ProcFs::allPids()) {
        if (ProcFs::environmentValue(pid, "GIO_LAUNCHED_DESKTOP_FILE") == entry &&
            ProcFs::environmentValue(pid, "GIO_LAUNCHED_DESKTOP_FILE_PID").toLongLong() == pid &&
            ProcFs::isLiveProcessOfUser(pid))
            pids.insert(pid);
    }
    for (qint64 pid : std::as_const(pids))
        ::kill(pid_t(pid), SIGTERM);
}

void DesktopAppActions::revealInFinder(const HVApp& app)
{
    FileManagerReveal::reveal(app.path());
}

QByteArray DesktopAppActions::appstreamUriForEntry(const QString& entryPath)
{
    QString id = desktopIdOfEntry(entryPath);
    if (id.endsWith(QLatin1String(".desktop")))
        id.chop(8);
    return "appstream://" + QUrl::toPercentEncoding(id, "-._~");
}

bool DesktopAppActions::sendForDeletion(const HVApp& app, const QString& removerIdentifier)
{
    GDesktopAppInfo* remover = g_desktop_app_info_new(removerIdentifier.toUtf8().constData());
    if (!remover) {
        qWarning("The application remover \"%s\" is not installed", qPrintable(removerIdentifier));
        return false;
    }
    const QString removerPath = QFile::decodeName(g_desktop_app_info_get_filename(remover));
    const bool handles = handlesAppstream(remover);
    g_object_unref(remover);
    if (!handles) {
        qWarning("The application remover \"%s\" does not open %s links", qPrintable(removerIdentifier),
                 AppstreamHandler);
        return false;
    }
    const QByteArray uri = appstreamUriForEntry(app.path());
    const LaunchOutcome outcome = m_launcher.launch(removerPath, {uri});
    if (!outcome.ok())
        qWarning("%s returned err: %ld for URL: %s", outcome.call, outcome.status, uri.constData());
    return outcome.ok();
}

bool DesktopAppActions::canAcceptURL(const HVApp& app, const QUrl& item) const
{
    return m_mime.canAccept(app.path(), item);
}

bool DesktopAppActions::prefersURL(const HVApp& app, const QUrl& item) const
{
    return m_mime.prefers(app.path(), item);
}

bool DesktopAppActions::canControlWindows() const
{
    return m_running && m_running->controlsWindows();
}

bool DesktopAppActions::isApplicationInstalled(const QString& desktopId) const
{
    GDesktopAppInfo* info = g_desktop_app_info_new(desktopId.toUtf8().constData());
    if (info)
        g_object_unref(info);
    return info;
}

QList<QPair<QString, QString>> DesktopAppActions::entryActions(const HVApp& app) const
{
    return GioLauncher::actionsOfEntry(app.path());
}

bool DesktopAppActions::launchEntryAction(const HVApp& app, const QString& action)
{
    const LaunchOutcome outcome = m_launcher.launchAction(app.path(), action);
    if (!outcome.ok())
        qWarning("%s returned err: %ld for the action %s of %s", outcome.call, outcome.status,
                 qPrintable(action), qPrintable(app.path()));
    return outcome.ok();
}
