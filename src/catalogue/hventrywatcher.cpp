#include "hventrywatcher.h"

#include "hvdirectorylisting.h"
#include "hvitemclassifier.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>

#include <sys/inotify.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace {
constexpr quint32 WatchMask = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_CLOSE_WRITE |
                              IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR | IN_DONT_FOLLOW |
                              IN_EXCL_UNLINK;

bool isWalkedFolderName(const QString& name)
{
    return !name.startsWith(QLatin1Char('.')) && !name.endsWith(QLatin1String(".framework"));
}

bool isInside(const QString& path, const QString& folder)
{
    return path == folder ||
           path.startsWith(folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/'));
}
} // namespace

HVEntryWatcher::HVEntryWatcher(QObject* parent) : QObject(parent)
{
    m_fd = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (m_fd < 0) {
        qWarning("Live updates are off: inotify_init1 failed (%s)", std::strerror(errno));
        return;
    }
    m_notifier = new QSocketNotifier(m_fd, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &HVEntryWatcher::readEvents);
}

HVEntryWatcher::~HVEntryWatcher()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

bool HVEntryWatcher::watch(const QStringList& scanFolders, qint64 maxDepth)
{
    if (m_fd < 0)
        return false;
    m_scanFolderList = scanFolders;
    m_scanFolders = QSet<QString>(scanFolders.begin(), scanFolders.end());
    m_maxDepth = std::max<qint64>(1, maxDepth);
    rewatchAll();
    return true;
}

void HVEntryWatcher::setMaxDepth(qint64 maxDepth)
{
    maxDepth = std::max<qint64>(1, maxDepth);
    if (maxDepth == m_maxDepth || m_fd < 0)
        return;
    m_maxDepth = maxDepth;
    rewatchAll();
}

QStringList HVEntryWatcher::watchedFolders() const
{
    QStringList folders = m_watches.keys();
    folders.sort();
    return folders;
}

void HVEntryWatcher::rewatchAll()
{
    const QList<int> all = m_folders.keys() + m_waitingAt.keys();
    for (int wd : all)
        ::inotify_rm_watch(m_fd, wd);
    m_folders.clear();
    m_watches.clear();
    m_waitingAt.clear();
    m_missing.clear();
    for (const QString& folder : std::as_const(m_scanFolderList))
        watchTree(folder, 1, nullptr);
}

void HVEntryWatcher::watchTree(const QString& folder, qint64 level, QList<HVEntryChange>* found)
{
    if (m_watches.contains(folder))
        return;
    const int wd = ::inotify_add_watch(m_fd, QFile::encodeName(folder).constData(), WatchMask);
    if (wd < 0) {
        if (level == 1 && (errno == ENOENT || errno == ENOTDIR))
            waitForFolder(folder);
        else if (errno == ENOSPC && !m_warnedAboutLimit) {
            m_warnedAboutLimit = true;
            qWarning("Live updates miss some folders: the inotify watch limit is reached (at %s)",
                     qPrintable(folder));
        }
        return;
    }
    m_folders.insert(wd, {folder, level});
    m_watches.insert(folder, wd);
    for (const HVDirectoryEntry& entry : HVDirectoryListing::entries(folder)) {
        const QString path = HVDirectoryListing::childPath(folder, entry.name);
        if (entry.type == HVItemClassifier::EntryType::Folder) {
            if (!isWalkedFolderName(entry.name))
                continue;
            if (m_scanFolders.contains(path))
                watchTree(path, 1, found); // walked as a scan folder of its own
            else if (level < m_maxDepth)
                watchTree(path, level + 1, found);
        } else if (found && HVItemClassifier::isEntryFileName(entry.name)) {
            found->append({path, HVEntryChange::Added, false});
        }
    }
}

void HVEntryWatcher::waitForFolder(const QString& folder)
{
    // Watch the nearest folder above it that exists, to see the next step of its way appear.
    if (!m_missing.contains(folder))
        m_missing.append(folder);
    QString ancestor = QFileInfo(folder).absolutePath();
    while (ancestor != QLatin1String("/") && !QFileInfo(ancestor).isDir())
        ancestor = QFileInfo(ancestor).absolutePath();
    const int wd = ::inotify_add_watch(m_fd, QFile::encodeName(ancestor).constData(), WatchMask);
    if (wd >= 0)
        m_waitingAt.insert(wd, ancestor);
}

void HVEntryWatcher::retryMissingFolders(QList<HVEntryChange>& changes)
{
    const QStringList missing = std::exchange(m_missing, {});
    for (auto it = m_waitingAt.begin(); it != m_waitingAt.end();) {
        if (!m_folders.contains(it.key()))
            ::inotify_rm_watch(m_fd, it.key());
        it = m_waitingAt.erase(it);
    }
    for (const QString& folder : missing) {
        watchTree(folder, 1, &changes);
        if (m_watches.contains(folder))
            changes.append({folder, HVEntryChange::Added, true});
    }
}

void HVEntryWatcher::forgetWatch(int wd)
{
    const auto folder = m_folders.constFind(wd);
    if (folder == m_folders.constEnd())
        return;
    m_watches.remove(folder->path);
    m_folders.erase(folder);
}

void HVEntryWatcher::forgetTree(const QString& folder)
{
    for (auto it = m_folders.begin(); it != m_folders.end();) {
        if (isInside(it->path, folder)) {
            if (!m_waitingAt.contains(it.key()))
                ::inotify_rm_watch(m_fd, it.key());
            m_watches.remove(it->path);
            it = m_folders.erase(it);
        } else {
            ++it;
        }
    }
}

void HVEntryWatcher::readEvents()
{
    QList<HVEntryChange> changes;
    alignas(inotify_event) char buffer[64 * 1024];
    for (;;) {
        const ssize_t length = ::read(m_fd, buffer, sizeof buffer);
        if (length <= 0)
            break;
        for (ssize_t offset = 0; offset < length;) {
            const auto* event = reinterpret_cast<const inotify_event*>(buffer + offset);
            offset += ssize_t(sizeof(inotify_event)) + event->len;
            const QString name = event->len ? QFile::decodeName(event->name) : QString();
            handleEvent(event->wd, event->mask, name, changes);
        }
    }
    if (!changes.isEmpty())
        emit entriesChanged(changes);
}

void HVEntryWatcher::handleEvent(int wd, quint32 mask, const QString& name, QList<HVEntryChange>& changes)
{
    if (mask & IN_Q_OVERFLOW) {
        changes.append({QString(), HVEntryChange::Overflow, false});
        return;
    }
    if (m_waitingAt.contains(wd) && (mask & IN_ISDIR) && (mask & (IN_CREATE | IN_MOVED_TO)))
        retryMissingFolders(changes);
    const auto found = m_folders.constFind(wd);
    if (found == m_folders.constEnd())
        return;
    const Folder folder = *found;
    if (mask & IN_IGNORED) {
        forgetWatch(wd);
        if (folder.level == 1 && m_scanFolders.contains(folder.path) && !QFileInfo(folder.path).isDir())
            waitForFolder(folder.path);
        return;
    }
    if (mask & (IN_DELETE_SELF | IN_MOVE_SELF)) {
        if (folder.level == 1) {
            changes.append({folder.path, HVEntryChange::Removed, true});
            forgetTree(folder.path);
            waitForFolder(folder.path);
        }
        return;
    }
    if (name.isEmpty())
        return;
    const QString path = HVDirectoryListing::childPath(folder.path, name);
    if (mask & IN_ISDIR) {
        if (!isWalkedFolderName(name))
            return;
        if (mask & (IN_CREATE | IN_MOVED_TO))
            folderAppeared(folder, path, changes);
        if (mask & (IN_DELETE | IN_MOVED_FROM)) {
            forgetTree(path);
            changes.append({path, HVEntryChange::Removed, true});
        }
        return;
    }
    if (!HVItemClassifier::isEntryFileName(name))
        return;
    if (mask & (IN_CREATE | IN_MOVED_TO))
        changes.append({path, HVEntryChange::Added, false});
    else if (mask & (IN_DELETE | IN_MOVED_FROM))
        changes.append({path, HVEntryChange::Removed, false});
    else if (mask & (IN_CLOSE_WRITE | IN_ATTRIB))
        changes.append({path, HVEntryChange::Changed, false});
}

void HVEntryWatcher::folderAppeared(const Folder& parent, const QString& path, QList<HVEntryChange>& changes)
{
    const qint64 level = m_scanFolders.contains(path) ? 1 : parent.level + 1;
    if (level > m_maxDepth)
        return;
    watchTree(path, level, &changes);
    changes.append({path, HVEntryChange::Added, true});
}
