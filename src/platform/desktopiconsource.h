// The desktop's icons for the loader: the icon a file asks for (a desktop entry's Icon key),
// found in the user's icon theme, rendered at the size, analysed for colour, and kept in the
// persistent cache so that the next start shows it without finding or rendering anything.
// A cached icon is used only while the entry, the icon file and the themes are as they were
// when it was made; its colours only while the colour parameters match. New cache files are
// written by one thread of their own, behind the loads, so icons reach the panel first.
#pragma once

#include "icondiskcache.h"
#include "iconthemelookup.h"

#include "catalogue/iconsource.h"

#include <QElapsedTimer>
#include <QMutex>
#include <QThreadPool>

#include <atomic>
#include <memory>

class DesktopIconSource : public IconSource
{
public:
    struct Settings
    {
        IconThemeLookup::Settings themes;
        QString cacheFolder; // empty: no persistent cache
        // How long a check that the themes are unchanged holds (files replaced in place are
        // noticed at once, by their own times); 0 checks at every load.
        int themeRecheckMs = 2000;
    };

    // The user's: the chosen theme (IconThemeChoice), icons under ~/.icons, $XDG_DATA_HOME/icons
    // and each $XDG_DATA_DIRS/icons, /usr/share/pixmaps, the cache in $XDG_CACHE_HOME/Nimbo/icons.
    static Settings userSettings();

    explicit DesktopIconSource(Settings settings = userSettings());
    // Writes what is still waiting for the cache.
    ~DesktopIconSource() override;

    LoadedIcon loadIcon(const IconRequest& request, QString* error) override;

    // What the loads did so far.
    struct Counts
    {
        int cacheHits = 0;       // shown from the cache with their colours
        int colourUpdates = 0;   // shown from the cache, colours found again for new parameters
        int renders = 0;         // found and rendered
        int rejectedEntries = 0; // cache files that were there but stale or damaged
    };
    Counts counts() const;
    // Waits until every cache file due so far is written.
    void waitForCacheWrites();

private:
    // Cache files queued for the writer at most; beyond that a load writes its own.
    static constexpr int MaxQueuedWrites = 256;

    std::shared_ptr<const IconThemeLookup> lookup(quint64* fingerprint);
    void writeToCache(const IconCacheKey& key, const IconCacheEntry& entry);
    void store(const IconCacheKey& key, const IconCacheEntry& entry);
    LoadedIcon render(const IconRequest& request, const IconThemeLookup& themes, IconCacheEntry* entry,
                      QString* error) const;

    Settings m_settings;
    IconDiskCache m_cache;
    QMutex m_mutex;
    std::shared_ptr<const IconThemeLookup> m_lookup;
    quint64 m_fingerprint = 0;
    QElapsedTimer m_checked;
    std::atomic<int> m_hits{0}, m_colourUpdates{0}, m_renders{0}, m_rejected{0};
    std::atomic<int> m_queuedWrites{0};
    std::atomic<bool> m_writeFailureLogged{false};
    QThreadPool m_writer;
};
