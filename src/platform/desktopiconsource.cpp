#include "desktopiconsource.h"

#include "entryiconname.h"
#include "iconfilerenderer.h"
#include "iconthemechoice.h"

#include "catalogue/iconanalysis.h"
#include "catalogue/iconlogging.h"
#include "common/xdgpaths.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <sys/resource.h>
#include <unistd.h>

namespace {
// Loads run a little behind the main thread: with eight of them on a machine of few cores, the
// panel must still get a core as soon as it has something to do.
constexpr int LoadingNiceness = 10;
// Cache files can wait until the icons are shown.
constexpr int WritingNiceness = 19;

void lowerThisThreadOnce(int niceness = LoadingNiceness)
{
    thread_local bool lowered = false;
    if (lowered)
        return;
    lowered = true;
    const pid_t thread = ::gettid();
    errno = 0;
    const int current = ::getpriority(PRIO_PROCESS, id_t(thread));
    if (errno == 0)
        ::setpriority(PRIO_PROCESS, id_t(thread), std::min(current + niceness, 19));
}
} // namespace

DesktopIconSource::Settings DesktopIconSource::userSettings()
{
    Settings settings;
    settings.themes.themeName = IconThemeChoice::currentThemeName();
    settings.themes.baseFolders = {QDir::homePath() + QStringLiteral("/.icons"),
                                   XdgPaths::dataHome() + QStringLiteral("/icons")};
    for (const QString& folder : XdgPaths::dataDirs())
        settings.themes.baseFolders.append(folder + QStringLiteral("/icons"));
    settings.themes.pixmapFolders = {QStringLiteral("/usr/share/pixmaps")};
    settings.cacheFolder = XdgPaths::cacheHome() + QStringLiteral("/Nimbo/icons");
    return settings;
}

DesktopIconSource::DesktopIconSource(Settings settings)
    : m_settings(std::move(settings)), m_cache(m_settings.cacheFolder)
{
    m_writer.setMaxThreadCount(1);
    if (!m_settings.cacheFolder.isEmpty()) {
        m_writer.start([this] {
            lowerThisThreadOnce(WritingNiceness);
            if (const int removed = m_cache.removeLeftovers())
                qCDebug(lcIconLoading, "%d half-written icon cache files removed", removed);
            if (const int removed = m_cache.removeUnused())
                qCDebug(lcIconLoading, "%d icon cache files unused for %d days removed", removed,
                        IconDiskCache::UnusedDays);
        });
    }
}

DesktopIconSource::~DesktopIconSource()
{
    waitForCacheWrites();
}

void DesktopIconSource::waitForCacheWrites()
{
    m_writer.waitForDone();
}

void DesktopIconSource::writeToCache(const IconCacheKey& key, const IconCacheEntry& entry)
{
    if (m_queuedWrites.fetch_add(1) >= MaxQueuedWrites) {
        // The writer is far behind: this load pays for its own file, which bounds the memory
        // that waiting icons hold.
        store(key, entry);
        --m_queuedWrites;
        return;
    }
    m_writer.start([this, key, entry] {
        lowerThisThreadOnce(WritingNiceness);
        store(key, entry);
        --m_queuedWrites;
    });
}

void DesktopIconSource::store(const IconCacheKey& key, const IconCacheEntry& entry)
{
    QString why;
    if (!m_cache.write(key, entry, &why) && !why.isEmpty() && !m_writeFailureLogged.exchange(true)) {
        // Said once: every icon would fail alike, and they are all rendered again next time.
        qWarning("Icon cache folder %s cannot be written (%s): icons are rendered at every start",
                 qUtf8Printable(m_cache.folder()), qUtf8Printable(why));
    }
}

DesktopIconSource::Counts DesktopIconSource::counts() const
{
    return Counts{m_hits.load(), m_colourUpdates.load(), m_renders.load(), m_rejected.load()};
}

std::shared_ptr<const IconThemeLookup> DesktopIconSource::lookup(quint64* fingerprint)
{
    QMutexLocker locker(&m_mutex);
    if (!m_lookup) {
        m_lookup = std::make_shared<const IconThemeLookup>(m_settings.themes);
        m_fingerprint = m_lookup->fingerprint();
        m_checked.start();
    } else if (m_settings.themeRecheckMs <= 0 || m_checked.hasExpired(m_settings.themeRecheckMs)) {
        const quint64 now = m_lookup->fingerprint();
        if (now != m_fingerprint) {
            // Themes were installed, removed or changed: read them again.
            m_lookup = std::make_shared<const IconThemeLookup>(m_settings.themes);
            m_fingerprint = m_lookup->fingerprint();
        }
        m_checked.restart();
    }
    *fingerprint = m_fingerprint;
    return m_lookup;
}

LoadedIcon DesktopIconSource::loadIcon(const IconRequest& request, QString* error)
{
    lowerThisThreadOnce();
    const FileStamp entryStamp = FileStamp::of(request.path);
    if (!entryStamp.exists) {
        *error = QStringLiteral("%1 does not exist").arg(request.path);
        return LoadedIcon();
    }
    quint64 fingerprint = 0;
    const std::shared_ptr<const IconThemeLookup> themes = lookup(&fingerprint);
    const IconCacheKey key{request.path, request.size, m_settings.themes.themeName};
    const bool caching = !m_settings.cacheFolder.isEmpty();
    std::optional<IconCacheEntry> cached;
    if (caching) {
        QString why;
        cached = m_cache.read(key, &why);
        const bool current = cached && cached->entry == entryStamp &&
                             cached->themeFingerprint == fingerprint &&
                             FileStamp::of(cached->iconFile) == cached->icon;
        if (cached && !current) {
            // Expected whenever an entry, an icon or a theme changes: rebuilt without a word.
            ++m_rejected;
            qCDebug(lcIconLoading, "cached icon of %s is stale: rebuilt", qUtf8Printable(request.path));
            cached.reset();
        } else if (!cached && why == QLatin1String("another version")) {
            ++m_rejected; // written by an older Nimbo: replaced as it is met
            qCDebug(lcIconLoading, "cached icon of %s is of another version", qUtf8Printable(request.path));
        } else if (!cached && why != QLatin1String("not cached")) {
            // A damaged file is never shown; it goes, so that it cannot be read again.
            ++m_rejected;
            const QString file = m_cache.fileForKey(key);
            qWarning("Icon cache file %s for %s is unusable (%s): removed, the icon is rendered again",
                     qUtf8Printable(file), qUtf8Printable(request.path), qUtf8Printable(why));
            QFile::remove(file);
        }
    }
    if (cached) {
        LoadedIcon icon{cached->image, cached->analysis};
        if (icon.analysis &&
            IconAnalysisWork::matches(*icon.analysis, request.colorfulness, request.lightness)) {
            ++m_hits;
            return icon;
        }
        icon.analysis = IconAnalysisWork::analyse(icon.image, request.colorfulness, request.lightness);
        cached->analysis = icon.analysis;
        writeToCache(key, *cached);
        ++m_colourUpdates;
        return icon;
    }
    IconCacheEntry entry;
    entry.entry = entryStamp;
    entry.themeFingerprint = fingerprint;
    LoadedIcon icon = render(request, *themes, &entry, error);
    if (!icon.image.isNull()) {
        ++m_renders;
        if (caching)
            writeToCache(key, entry);
    }
    return icon;
}

LoadedIcon DesktopIconSource::render(const IconRequest& request, const IconThemeLookup& themes,
                                     IconCacheEntry* entry, QString* error) const
{
    const EntryIcon wanted = EntryIconName::iconForFile(request.path, error);
    QString file = wanted.filePath;
    for (qsizetype i = 0; file.isEmpty() && i < wanted.names.size(); ++i)
        file = themes.findIcon(wanted.names[i], request.size);
    if (file.isEmpty()) {
        if (!wanted.isEmpty())
            *error =
                QStringLiteral("no icon named %1 in %2 or the pixmaps")
                    .arg(wanted.names.join(QLatin1Char('/')), themes.themeNames().join(QLatin1String(", ")));
        return LoadedIcon();
    }
    // The time is taken before reading, so a file replaced while it is read is read again next time.
    entry->iconFile = file;
    entry->icon = FileStamp::of(file);
    LoadedIcon icon;
    icon.image = IconFileRenderer::render(file, request.size, error);
    if (icon.image.isNull())
        return icon;
    icon.analysis = IconAnalysisWork::analyse(icon.image, request.colorfulness, request.lightness);
    entry->image = icon.image;
    entry->analysis = icon.analysis;
    return icon;
}
