#include "icondiskcache.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDataStream>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QThread>

#include <cstdio>
#include <cstring>
#include <ctime>
#include <sys/stat.h>

namespace {
const QByteArray Magic("NimboIcn");
constexpr int MaxEdge = 1024;
constexpr int MaxColours = 64;
// Header, a 128 x 128 icon and its colours come to some 66 kB; anything far larger is not ours.
constexpr qint64 MaxFileBytes = 8 * 1024 * 1024;

// FNV-1a taken eight bytes at a time: quick enough to check every icon read at start-up.
quint64 checksum(const char* data, qsizetype length)
{
    quint64 hash = 14695981039346656037ull;
    qsizetype i = 0;
    for (; i + 8 <= length; i += 8) {
        quint64 word = 0;
        std::memcpy(&word, data + i, 8);
        hash ^= word;
        hash *= 1099511628211ull;
        hash ^= hash >> 29;
    }
    for (; i < length; ++i) {
        hash ^= quint8(data[i]);
        hash *= 1099511628211ull;
    }
    return hash;
}

QDataStream& operator<<(QDataStream& out, const FileStamp& stamp)
{
    return out << stamp.exists << stamp.mtimeNs << stamp.size << stamp.inode;
}

QDataStream& operator>>(QDataStream& in, FileStamp& stamp)
{
    return in >> stamp.exists >> stamp.mtimeNs >> stamp.size >> stamp.inode;
}

QString keyText(const IconCacheKey& key)
{
    return key.path + QLatin1Char('\n') + QString::number(key.size) + QLatin1Char('\n') + key.theme;
}

void writeColour(QDataStream& out, const SpectrumColor& colour)
{
    out << colour.luv.c1 << colour.luv.c2 << colour.luv.c3 << colour.luv.alpha << colour.count << colour.hue
        << colour.saturation << colour.luminosity;
}

SpectrumColor readColour(QDataStream& in)
{
    SpectrumColor colour;
    in >> colour.luv.c1 >> colour.luv.c2 >> colour.luv.c3 >> colour.luv.alpha >> colour.count >> colour.hue >>
        colour.saturation >> colour.luminosity;
    return colour;
}
} // namespace

FileStamp FileStamp::of(const QString& path)
{
    struct stat info;
    FileStamp stamp;
    if (path.isEmpty() || ::stat(QFile::encodeName(path).constData(), &info) != 0)
        return stamp;
    stamp.exists = true;
    stamp.mtimeNs = qint64(info.st_mtim.tv_sec) * 1000000000 + info.st_mtim.tv_nsec;
    stamp.size = info.st_size;
    stamp.inode = info.st_ino;
    return stamp;
}

IconDiskCache::IconDiskCache(QString folder) : m_folder(std::move(folder)) {}

QString IconDiskCache::fileForKey(const IconCacheKey& key) const
{
    const QByteArray digest =
        QCryptographicHash::hash(keyText(key).toUtf8(), QCryptographicHash::Sha1).toHex();
    return m_folder + QLatin1Char('/') + QString::fromLatin1(digest) + QStringLiteral(".icon");
}

std::optional<IconCacheEntry> IconDiskCache::read(const IconCacheKey& key, QString* why) const
{
    QString ignored;
    QString& reason = why ? *why : ignored;
    QFile file(fileForKey(key));
    if (!file.open(QIODevice::ReadOnly)) {
        reason = QStringLiteral("not cached");
        return std::nullopt;
    }
    if (file.size() > MaxFileBytes || file.size() < Magic.size() + 8) {
        reason = QStringLiteral("wrong size");
        return std::nullopt;
    }
    const QByteArray bytes = file.readAll();
    const qsizetype bodyLength = bytes.size() - 8;
    quint64 stored = 0;
    std::memcpy(&stored, bytes.constData() + bodyLength, 8);
    if (!bytes.startsWith(Magic) || stored != checksum(bytes.constData(), bodyLength)) {
        reason = QStringLiteral("damaged");
        return std::nullopt;
    }
    QDataStream in(QByteArray::fromRawData(bytes.constData() + Magic.size(), bodyLength - Magic.size()));
    quint32 version = 0;
    QString storedKey;
    IconCacheEntry entry;
    in >> version;
    if (version != Version) {
        reason = QStringLiteral("another version");
        return std::nullopt;
    }
    in >> storedKey >> entry.entry >> entry.themeFingerprint >> entry.iconFile >> entry.icon;
    bool analysed = false, hasColours = false;
    IconAnalysis analysis;
    quint32 colourCount = 0;
    in >> analysed >> analysis.colorfulness >> analysis.lightness >> hasColours >> colourCount;
    if (in.status() != QDataStream::Ok || storedKey != keyText(key) || colourCount > MaxColours) {
        reason = QStringLiteral("another key or a bad header");
        return std::nullopt;
    }
    std::vector<SpectrumColor> colours;
    for (quint32 i = 0; i < colourCount; ++i)
        colours.push_back(readColour(in));
    if (hasColours)
        analysis.colors = std::move(colours);
    if (analysed)
        entry.analysis = analysis;
    qint32 width = 0, height = 0;
    QByteArray pixels;
    in >> width >> height >> pixels;
    if (in.status() != QDataStream::Ok || width != key.size || height != key.size || width <= 0 ||
        width > MaxEdge || pixels.size() != qsizetype(width) * height * 4) {
        reason = QStringLiteral("bad pixels");
        return std::nullopt;
    }
    entry.image = QImage(width, height, QImage::Format_RGBA8888_Premultiplied);
    if (entry.image.isNull())
        return std::nullopt;
    for (int y = 0; y < height; ++y)
        std::memcpy(entry.image.scanLine(y), pixels.constData() + qsizetype(y) * width * 4,
                    size_t(width) * 4);
    markUsed(file);
    return entry;
}

void IconDiskCache::markUsed(QFile& file)
{
    // The file's time says when it was last used, for removeUnused; a day's precision is enough,
    // so a start does not rewrite a thousand inodes.
    struct stat info;
    if (::fstat(file.handle(), &info) == 0 && info.st_mtime < std::time(nullptr) - 24 * 60 * 60)
        ::futimens(file.handle(), nullptr);
}

int IconDiskCache::removeUnused(int unusedDays) const
{
    const QDateTime before = QDateTime::currentDateTime().addDays(-unusedDays);
    int removed = 0;
    const QFileInfoList files = QDir(m_folder).entryInfoList({QStringLiteral("*.icon")}, QDir::Files);
    for (const QFileInfo& file : files) {
        if (file.lastModified() < before && QFile::remove(file.filePath()))
            ++removed;
    }
    return removed;
}

int IconDiskCache::removeLeftovers(int minimumAgeSeconds) const
{
    // Files are written as "<key>.icon.<process>.<thread>" and renamed to "<key>.icon".
    const QDateTime before = QDateTime::currentDateTime().addSecs(-minimumAgeSeconds);
    int removed = 0;
    const QFileInfoList aside =
        QDir(m_folder).entryInfoList({QStringLiteral("*.icon.*")}, QDir::Files | QDir::Hidden | QDir::System);
    for (const QFileInfo& file : aside) {
        if (file.lastModified() < before && QFile::remove(file.filePath()))
            ++removed;
    }
    return removed;
}

bool IconDiskCache::write(const IconCacheKey& key, const IconCacheEntry& entry, QString* diskError) const
{
    const QImage image = entry.image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    if (image.width() != key.size || image.height() != key.size || key.size > MaxEdge)
        return false;
    QByteArray pixels;
    pixels.reserve(qsizetype(image.width()) * image.height() * 4);
    for (int y = 0; y < image.height(); ++y)
        pixels.append(reinterpret_cast<const char*>(image.constScanLine(y)), qsizetype(image.width()) * 4);
    QByteArray bytes = Magic;
    {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly | QIODevice::Append);
        QDataStream out(&buffer);
        out << Version << keyText(key) << entry.entry << entry.themeFingerprint << entry.iconFile
            << entry.icon;
        const bool hasColours = entry.analysis && entry.analysis->colors;
        const IconAnalysis analysis = entry.analysis.value_or(IconAnalysis());
        const quint32 count = hasColours ? quint32(analysis.colors->size()) : 0;
        out << entry.analysis.has_value() << analysis.colorfulness << analysis.lightness << hasColours
            << count;
        for (quint32 i = 0; i < count; ++i)
            writeColour(out, (*analysis.colors)[i]);
        out << qint32(image.width()) << qint32(image.height()) << pixels;
    }
    const quint64 sum = checksum(bytes.constData(), bytes.size());
    bytes.append(reinterpret_cast<const char*>(&sum), 8);
    const auto failed = [diskError](const QString& why) {
        if (diskError)
            *diskError = why;
        return false;
    };
    if (!QDir().mkpath(m_folder))
        return failed(QStringLiteral("the folder cannot be made"));
    // Written aside and renamed over, so a reader never sees half a file. Not synced to disk: a
    // file cut short by a crash fails its checksum and is rendered again, which is all a cache
    // needs, and start-up does not wait for a thousand disk flushes.
    const QString target = fileForKey(key);
    const QString aside = QStringLiteral("%1.%2.%3")
                              .arg(target)
                              .arg(QCoreApplication::applicationPid())
                              .arg(quintptr(QThread::currentThreadId()), 0, 16);
    QFile file(aside);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return failed(file.errorString());
    const bool written = file.write(bytes) == bytes.size() && file.flush();
    file.close();
    if (!written ||
        ::rename(QFile::encodeName(aside).constData(), QFile::encodeName(target).constData()) != 0) {
        const QString why = written ? QString::fromLocal8Bit(std::strerror(errno)) : file.errorString();
        QFile::remove(aside);
        return failed(why);
    }
    return true;
}
