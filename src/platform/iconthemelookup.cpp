#include "iconthemelookup.h"

#include <QFile>
#include <QtDebug>

#include <dirent.h>
#include <limits>
#include <sys/stat.h>

namespace {
constexpr int MaxInheritanceDepth = 16;
const char* const Extensions[] = {".png", ".svg", ".xpm"};
const QString Hicolor = QStringLiteral("hicolor");

bool isFile(const QByteArray& path)
{
    struct stat info;
    return ::stat(path.constData(), &info) == 0 && S_ISREG(info.st_mode);
}

void mixIn(quint64& hash, quint64 value)
{
    // FNV-1a over the eight bytes of the value.
    for (int i = 0; i < 8; ++i) {
        hash ^= (value >> (8 * i)) & 0xff;
        hash *= 1099511628211ull;
    }
}

void mixInTime(quint64& hash, const QByteArray& path)
{
    struct stat info;
    if (::stat(path.constData(), &info) != 0) {
        mixIn(hash, ~0ull);
        return;
    }
    mixIn(hash, quint64(info.st_mtim.tv_sec));
    mixIn(hash, quint64(info.st_mtim.tv_nsec));
    mixIn(hash, quint64(info.st_ino));
}

void mixInText(quint64& hash, const QString& text)
{
    for (const QChar c : text)
        mixIn(hash, c.unicode());
    mixIn(hash, 0);
}

// How a candidate file compares with the others for a size: lower is better.
struct Rank
{
    int tier = std::numeric_limits<int>::max();
    int distance = std::numeric_limits<int>::max();
    bool operator<(const Rank& other) const
    {
        return tier != other.tier ? tier < other.tier : distance < other.distance;
    }
};

Rank rankFor(const IconThemeDirectory& directory, bool scalableFile, int pixels)
{
    if (directory.reachesSize(pixels))
        return {0, directory.sizeDistance(pixels)}; // drawn at least as large: scaled down or not at all
    const int shortfall =
        pixels - (directory.type == IconThemeDirectory::Scalable ? directory.maxSize : directory.size);
    if (scalableFile)
        return {1, shortfall}; // drawn for a smaller size, but sharp at any size
    return {2, shortfall};     // a small bitmap: scaled up only when nothing else exists
}
} // namespace

IconThemeLookup::IconThemeLookup(Settings settings) : m_settings(std::move(settings))
{
    QStringList visited;
    addTheme(m_settings.themeName, visited, 0);
    addTheme(Hicolor, visited, 0);
}

void IconThemeLookup::addTheme(const QString& name, QStringList& visited, int depth)
{
    if (visited.contains(name) || depth > MaxInheritanceDepth)
        return;
    visited.append(name);
    QString error;
    std::optional<IconThemeIndex> index = IconThemeIndex::load(name, m_settings.baseFolders, &error);
    if (!index) {
        // An inherited theme that is not installed is common (Papirus names breeze); a broken
        // one, or a chosen one that is missing, is worth a line.
        if (!error.isEmpty())
            qWarning("Icon theme skipped: %s", qUtf8Printable(error));
        else if (depth == 0 && name != Hicolor)
            qWarning("Icon theme %s is not installed; icons come from hicolor", qUtf8Printable(name));
        return;
    }
    Theme theme;
    theme.index = *index;
    for (const QString& folder : index->folders)
        theme.folders.append(QFile::encodeName(folder));
    for (const IconThemeDirectory& directory : index->directories)
        theme.paths.append(QFile::encodeName(directory.path));
    const QStringList parents = index->inherits;
    m_themes.append(std::move(theme));
    for (const QString& parent : parents)
        addTheme(parent, visited, depth + 1);
}

QStringList IconThemeLookup::themeNames() const
{
    QStringList names;
    for (const Theme& theme : m_themes)
        names.append(theme.index.name);
    return names;
}

QString IconThemeLookup::findIcon(const QString& name, int pixels) const
{
    if (name.isEmpty() || name.contains(QLatin1Char('/')) || name.startsWith(QLatin1Char('.')))
        return QString();
    const QByteArray encoded = QFile::encodeName(name);
    for (const Theme& theme : m_themes) {
        const QString found = findInTheme(theme, encoded, pixels);
        if (!found.isEmpty())
            return found;
    }
    for (const QString& folder : m_settings.pixmapFolders) {
        const QByteArray encodedFolder = QFile::encodeName(folder);
        for (const char* extension : Extensions) {
            if (hasFile(encodedFolder, encoded + extension))
                return QFile::decodeName(encodedFolder + '/' + encoded + extension);
        }
    }
    return QString();
}

QString IconThemeLookup::findInTheme(const Theme& theme, const QByteArray& name, int pixels) const
{
    const QList<IconThemeDirectory>& directories = theme.index.directories;
    // A folder meant for this size, in the theme's order.
    for (qsizetype d = 0; d < directories.size(); ++d) {
        if (!directories[d].matchesSize(pixels))
            continue;
        for (const QByteArray& folder : theme.folders) {
            const QByteArray directory = folder + '/' + theme.paths[d];
            for (const char* extension : Extensions) {
                if (hasFile(directory, name + extension))
                    return QFile::decodeName(directory + '/' + name + extension);
            }
        }
    }
    // Otherwise the closest file; the first of equals wins.
    QByteArray best;
    Rank bestRank;
    for (qsizetype d = 0; d < directories.size(); ++d) {
        for (const QByteArray& folder : theme.folders) {
            for (const char* extension : Extensions) {
                const Rank rank = rankFor(directories[d], qstrcmp(extension, ".svg") == 0, pixels);
                if (!(rank < bestRank))
                    continue;
                const QByteArray directory = folder + '/' + theme.paths[d];
                if (hasFile(directory, name + extension)) {
                    best = directory + '/' + name + extension;
                    bestRank = rank;
                }
            }
        }
    }
    return best.isEmpty() ? QString() : QFile::decodeName(best);
}

bool IconThemeLookup::hasFile(const QByteArray& folder, const QByteArray& fileName) const
{
    const Listing names = listing(folder);
    if (names && !names->contains(fileName))
        return false;
    return isFile(folder + '/' + fileName); // listed: still a file (links may dangle)?
}

IconThemeLookup::Listing IconThemeLookup::listing(const QByteArray& folder) const
{
    {
        QMutexLocker locker(&m_listingMutex);
        const auto known = m_listings.constFind(folder);
        if (known != m_listings.cend())
            return *known;
    }
    auto names = std::make_shared<QSet<QByteArray>>();
    if (DIR* dir = ::opendir(folder.constData())) {
        while (const dirent* entry = ::readdir(dir)) {
            if (entry->d_type == DT_DIR)
                continue;
            if (names->size() == MaxListedNames) {
                names.reset();
                break;
            }
            names->insert(QByteArray(entry->d_name));
        }
        ::closedir(dir);
    }
    // Two threads may list the same folder at once; either listing serves.
    QMutexLocker locker(&m_listingMutex);
    return *m_listings.insert(folder, std::move(names));
}

quint64 IconThemeLookup::fingerprint() const
{
    quint64 hash = 14695981039346656037ull;
    for (const QString& base : m_settings.baseFolders)
        mixInTime(hash, QFile::encodeName(base));
    for (const QString& folder : m_settings.pixmapFolders)
        mixInTime(hash, QFile::encodeName(folder));
    for (const Theme& theme : m_themes) {
        mixInText(hash, theme.index.name);
        mixInTime(hash, QFile::encodeName(theme.index.indexPath));
        for (const QByteArray& folder : theme.folders) {
            mixInTime(hash, folder);
            for (const QByteArray& path : theme.paths)
                mixInTime(hash, folder + '/' + path);
        }
    }
    return hash;
}
