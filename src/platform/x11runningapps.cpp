#include "x11runningapps.h"

#include "procfs.h"
#include "windowmatcher.h"
#include "x11windowcontrol.h"
#include "x11windowfacts.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <unistd.h>

namespace {
// Transient chains longer than this (or circular ones) stop where they are.
constexpr int MaxTransientDepth = 8;
} // namespace

X11RunningApps::X11RunningApps(std::shared_ptr<LaunchedProcesses> launched, QObject* parent)
    : RunningAppsSource(parent), m_x11(X11Connection::open()), m_launched(std::move(launched))
{
    if (!m_x11)
        return;
    m_entries = std::make_unique<InstalledEntries>();
    m_x11->setEventHandler([this](const xcb_generic_event_t* event) { handleEvent(event); });
    m_x11->watchRootProperties();
    refreshClients();
    refreshActive();
    m_x11->drainSoon();
}

X11RunningApps::~X11RunningApps()
{
    if (m_x11)
        m_x11->setEventHandler(nullptr);
}

void X11RunningApps::handleEvent(const xcb_generic_event_t* event)
{
    if ((event->response_type & 0x7f) != XCB_PROPERTY_NOTIFY)
        return;
    const auto* notify = reinterpret_cast<const xcb_property_notify_event_t*>(event);
    if (notify->window != m_x11->root())
        return;
    if (notify->atom == m_x11->ewmh()->_NET_CLIENT_LIST) {
        refreshClients();
        refreshActive();
    } else if (notify->atom == m_x11->ewmh()->_NET_ACTIVE_WINDOW) {
        refreshActive();
    }
}

void X11RunningApps::refreshClients()
{
    // A window manager that keeps no client list shows no running applications.
    const QList<xcb_window_t> clients = X11Windows::clientList(*m_x11).value_or(QList<xcb_window_t>());
    const QSet<xcb_window_t> listed(clients.cbegin(), clients.cend());
    QList<xcb_window_t> added;
    for (xcb_window_t window : clients) {
        if (!m_windows.contains(window))
            added.append(window);
    }
    m_windows.removeIf([&listed](const auto& it) { return !listed.contains(it.key()); });
    m_activeStamps.removeIf([&listed](const auto& it) { return !listed.contains(it.key()); });
    m_clients = clients;
    if (!added.isEmpty())
        learnWindows(added);
    publish();
}

void X11RunningApps::learnWindows(const QList<xcb_window_t>& windows)
{
    const QList<X11WindowFacts> facts = X11Windows::readFacts(*m_x11, windows);
    const WindowMatcher matcher(m_entries->index(), m_launched.get());
    for (qsizetype i = 0; i < windows.size(); ++i) {
        Window window;
        // A window that vanished before it could be asked about stays, not counting, until the
        // client list drops it.
        if (facts[i].exists) {
            window.counts = facts[i].counts;
            window.pid = facts[i].names.pid;
            window.transientFor = facts[i].transientFor;
            window.appPath = matcher.entryFor(facts[i].names);
        }
        m_windows.insert(windows[i], window);
    }
    // Windows no entry claims, and that no listed parent speaks for, count as their program.
    for (qsizetype i = 0; i < windows.size(); ++i) {
        Window& window = m_windows[windows[i]];
        if (window.counts && window.appPath.isEmpty() && appWindowOf(windows[i]) == windows[i]) {
            const WindowFacts& names = facts[i].names;
            nameByProgram(windows[i], window, names.wmClass.isEmpty() ? names.instance : names.wmClass);
        }
    }
}

void X11RunningApps::nameByProgram(xcb_window_t id, Window& window, const QString& wmClass)
{
    // Without a process to ask (no pid, or one of another user) the window does not count.
    window.appPath = ProcFs::executablePath(window.pid);
    if (window.appPath.isEmpty())
        return;
    window.name = wmClass.isEmpty() ? QFileInfo(window.appPath).fileName() : wmClass;
    window.icon = X11Windows::icon(*m_x11, id);
}

xcb_window_t X11RunningApps::appWindowOf(xcb_window_t window) const
{
    for (int depth = 0; depth < MaxTransientDepth; ++depth) {
        const auto it = m_windows.constFind(window);
        if (it == m_windows.cend())
            break;
        const xcb_window_t parent = it->transientFor;
        if (parent == XCB_WINDOW_NONE || parent == window || !m_windows.contains(parent))
            break;
        window = parent;
    }
    return window;
}

QString X11RunningApps::appOf(xcb_window_t window) const
{
    const auto it = m_windows.constFind(appWindowOf(window));
    return it != m_windows.cend() ? it->appPath : QString();
}

QList<quint32> X11RunningApps::windowsByRecency(const QList<xcb_window_t>& windows) const
{
    // Most recently active first; windows never seen active after them, the newest first.
    QList<quint32> sorted(windows.crbegin(), windows.crend());
    std::stable_sort(sorted.begin(), sorted.end(), [this](quint32 a, quint32 b) {
        return m_activeStamps.value(a) > m_activeStamps.value(b);
    });
    return sorted;
}

void X11RunningApps::publish()
{
    Snapshot next;
    QHash<QString, QList<xcb_window_t>> windows;
    for (xcb_window_t id : std::as_const(m_clients)) {
        const Window& window = m_windows[id];
        const xcb_window_t appWindow = appWindowOf(id);
        const Window& owner = m_windows[appWindow];
        if (!window.counts || owner.appPath.isEmpty())
            continue;
        if (!windows.contains(owner.appPath)) {
            next.apps.append({owner.appPath, owner.name, owner.icon});
            if (!m_appOrder.contains(owner.appPath))
                m_appOrder.insert(owner.appPath, ++m_counter);
        }
        windows[owner.appPath].append(id);
        if (!next.pids.value(owner.appPath) && window.pid > 0)
            next.pids.insert(owner.appPath, window.pid);
    }
    m_appOrder.removeIf([&windows](const auto& it) { return !windows.contains(it.key()); });
    std::stable_sort(next.apps.begin(), next.apps.end(), [this](const auto& a, const auto& b) {
        return m_appOrder.value(a.path) < m_appOrder.value(b.path);
    });
    for (auto it = windows.cbegin(); it != windows.cend(); ++it)
        next.windows.insert(it.key(), windowsByRecency(it.value()));

    bool launched = false, terminated = false;
    {
        QMutexLocker locker(&m_mutex);
        for (const RunningApplication& app : std::as_const(next.apps))
            launched = launched || !m_published.windows.contains(app.path);
        for (const RunningApplication& app : std::as_const(m_published.apps))
            terminated = terminated || !next.windows.contains(app.path);
        next.active = m_published.active;
        m_published = std::move(next);
    }
    if (launched)
        emit applicationLaunched();
    if (terminated)
        emit applicationTerminated();
}

void X11RunningApps::refreshActive()
{
    xcb_window_t active = X11Windows::activeWindow(*m_x11);
    if (active != XCB_WINDOW_NONE && !m_windows.contains(active))
        refreshClients(); // the active window may be newer than the last client list read
    QString path;
    if (m_windows.contains(active)) {
        m_activeStamps.insert(active, ++m_counter);
        path = appOf(active);
        QMutexLocker locker(&m_mutex);
        const auto windows = m_published.windows.find(path);
        if (windows != m_published.windows.end() && windows->removeOne(active))
            windows->prepend(active);
    }
    {
        QMutexLocker locker(&m_mutex);
        if (m_published.active == path)
            return;
        m_published.active = path;
    }
    emit frontApplicationSwitched();
}

void X11RunningApps::rereadAllWindows()
{
    if (!m_x11)
        return;
    m_windows.clear();
    refreshClients();
}

QList<RunningApplication> X11RunningApps::runningApplications() const
{
    QMutexLocker locker(&m_mutex);
    return m_published.apps;
}

QString X11RunningApps::activeApplicationPath() const
{
    QMutexLocker locker(&m_mutex);
    return m_published.active;
}

QString X11RunningApps::ownApplicationPath() const
{
    const qint64 own = getpid();
    for (auto it = m_windows.cbegin(); it != m_windows.cend(); ++it) {
        if (it->pid == own && it->counts && !appOf(it.key()).isEmpty())
            return appOf(it.key());
    }
    QString path;
    if (m_entries)
        path = WindowMatcher(m_entries->index(), m_launched.get()).entryForProcess(own);
    return path.isEmpty() ? ProcFs::executablePath(own) : path;
}

QList<quint32> X11RunningApps::windowsOfApplication(const QString& path) const
{
    QMutexLocker locker(&m_mutex);
    return m_published.windows.value(path);
}

qint64 X11RunningApps::pidOfApplication(const QString& path) const
{
    QMutexLocker locker(&m_mutex);
    return m_published.pids.value(path);
}

bool X11RunningApps::activateApplication(const QString& path)
{
    const QList<quint32> windows = windowsOfApplication(path);
    if (windows.isEmpty())
        return false;
    X11WindowControl::activate(*m_x11, windows.first());
    return true;
}

void X11RunningApps::showApplication(const QString& path)
{
    // The least recent first, so that the most recent window ends in front.
    const QList<quint32> windows = windowsOfApplication(path);
    for (auto it = windows.crbegin(); it != windows.crend(); ++it) {
        if (X11Windows::isHidden(*m_x11, *it))
            X11WindowControl::activate(*m_x11, *it);
    }
    if (m_x11)
        m_x11->drainSoon();
}

void X11RunningApps::hideApplication(const QString& path)
{
    for (quint32 window : windowsOfApplication(path))
        X11WindowControl::iconify(*m_x11, window);
}

bool X11RunningApps::isApplicationVisible(const QString& path) const
{
    bool visible = false;
    for (quint32 window : windowsOfApplication(path))
        visible = visible || !X11Windows::isHidden(*m_x11, window);
    if (m_x11)
        m_x11->drainSoon();
    return visible;
}

bool X11RunningApps::quitApplication(const QString& path)
{
    const QList<quint32> windows = windowsOfApplication(path);
    for (quint32 window : windows)
        X11WindowControl::close(*m_x11, window);
    return !windows.isEmpty();
}
