// The persistent cache of rendered icons and their colours: one file per icon file, size and
// theme under $XDG_CACHE_HOME/Nimbo/icons/, holding what made it valid (the entry's and the
// icon file's time, size and inode, the themes' fingerprint) and the colour parameters its
// colours were found with. A file that is truncated, damaged or of another version reads as
// nothing, so it is rebuilt and never shown.
#pragma once

#include "catalogue/iconsource.h"

#include <QFile>
#include <QImage>
#include <QString>

#include <optional>

// A file's identity for validity checks; an absent file has exists == false.
struct FileStamp
{
    bool exists = false;
    qint64 mtimeNs = 0;
    qint64 size = 0;
    quint64 inode = 0;

    static FileStamp of(const QString& path);
    bool operator==(const FileStamp&) const = default;
};

struct IconCacheKey
{
    QString path; // the file whose icon it is (a desktop entry)
    int size = 0;
    QString theme;
};

struct IconCacheEntry
{
    FileStamp entry;
    quint64 themeFingerprint = 0;
    QString iconFile;
    FileStamp icon;
    QImage image; // size x size, premultiplied RGBA
    std::optional<IconAnalysis> analysis;
};

class IconDiskCache
{
public:
    static constexpr quint32 Version = 1;

    // Files go into `folder` (made on the first write).
    explicit IconDiskCache(QString folder);
    QString folder() const { return m_folder; }

    QString fileForKey(const IconCacheKey& key) const;
    // The stored entry for the key; nothing when there is none or it is damaged (`why` says how).
    std::optional<IconCacheEntry> read(const IconCacheKey& key, QString* why = nullptr) const;
    // Replaces the key's file at once (written aside, then renamed). False when the entry was not
    // stored; `diskError` then says why if the folder or file could not be written (an image the
    // cache does not keep, such as one that is not square, is no error).
    bool write(const IconCacheKey& key, const IconCacheEntry& entry, QString* diskError = nullptr) const;

    // Removes the half-written files a killed process left beside the cache files (older than
    // `minimumAgeSeconds`, so that another process's writing is left alone); their number.
    int removeLeftovers(int minimumAgeSeconds = 60) const;
    // Removes the cache files no start has used for `unusedDays` (icons of applications gone, or
    // of sizes no longer shown); their number. A file read is marked used at most once a day.
    int removeUnused(int unusedDays = UnusedDays) const;
    static constexpr int UnusedDays = 60;

private:
    static void markUsed(QFile& file);

    QString m_folder;
};
