// GLib's headers come first: Qt defines "signals" as a keyword.
#include <glib.h>

#include "iconthemeindex.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstdlib>

namespace {
// Bounds for hostile files: real index.theme files are tens of kilobytes with a few hundred folders.
constexpr qint64 MaxIndexBytes = 1024 * 1024;
constexpr int MaxDirectories = 4000;
constexpr int MaxInherits = 32;
constexpr int MaxIconEdge = 4096;

const char* const ThemeGroup = "Icon Theme";

bool isThemeName(const QString& name)
{
    return !name.isEmpty() && !name.contains(QLatin1Char('/')) && name != QLatin1String(".") &&
           name != QLatin1String("..");
}

QStringList stringList(GKeyFile* file, const char* group, const char* key, int limit)
{
    QStringList list;
    gsize length = 0;
    gchar** values = g_key_file_get_string_list(file, group, key, &length, nullptr);
    for (gsize i = 0; values && i < length && list.size() < limit; ++i) {
        const QString value = QString::fromUtf8(values[i]).trimmed();
        if (!value.isEmpty())
            list.append(value);
    }
    g_strfreev(values);
    return list;
}

int integer(GKeyFile* file, const QByteArray& group, const char* key, int fallback, int low, int high)
{
    GError* error = nullptr;
    const gint value = g_key_file_get_integer(file, group.constData(), key, &error);
    if (error) {
        g_error_free(error);
        return fallback;
    }
    return std::clamp(int(value), low, high);
}

std::optional<IconThemeDirectory> readDirectory(GKeyFile* file, const QString& path)
{
    const QByteArray group = path.toUtf8();
    if (!g_key_file_has_group(file, group.constData()) || path.contains(QLatin1String("..")))
        return std::nullopt;
    IconThemeDirectory directory;
    directory.path = path;
    directory.scale = integer(file, group, "Scale", 1, 1, 16);
    if (directory.scale != 1)
        return std::nullopt; // icons drawn for scaled screens; loads ask for plain pixels
    directory.size = integer(file, group, "Size", 0, 0, MaxIconEdge);
    if (directory.size <= 0)
        return std::nullopt;
    directory.minSize = integer(file, group, "MinSize", directory.size, 1, MaxIconEdge);
    directory.maxSize = integer(file, group, "MaxSize", directory.size, 1, MaxIconEdge);
    directory.threshold = integer(file, group, "Threshold", 2, 0, MaxIconEdge);
    gchar* type = g_key_file_get_string(file, group.constData(), "Type", nullptr);
    const QByteArray typeName(type ? type : "Threshold");
    g_free(type);
    directory.type = typeName == "Fixed"      ? IconThemeDirectory::Fixed
                     : typeName == "Scalable" ? IconThemeDirectory::Scalable
                                              : IconThemeDirectory::Threshold;
    return directory;
}
} // namespace

bool IconThemeDirectory::matchesSize(int pixels) const
{
    switch (type) {
    case Fixed:
        return size == pixels;
    case Scalable:
        return minSize <= pixels && pixels <= maxSize;
    case Threshold:
        return size - threshold <= pixels && pixels <= size + threshold;
    }
    return false;
}

int IconThemeDirectory::sizeDistance(int pixels) const
{
    switch (type) {
    case Fixed:
        return std::abs(size - pixels);
    case Scalable:
        return pixels < minSize ? minSize - pixels : pixels > maxSize ? pixels - maxSize : 0;
    case Threshold:
        return pixels < size - threshold   ? size - threshold - pixels
               : pixels > size + threshold ? pixels - size - threshold
                                           : 0;
    }
    return 0;
}

bool IconThemeDirectory::reachesSize(int pixels) const
{
    return (type == Scalable ? maxSize : size) >= pixels;
}

std::optional<IconThemeIndex> IconThemeIndex::load(const QString& name, const QStringList& baseFolders,
                                                   QString* error)
{
    if (!isThemeName(name)) {
        *error = QStringLiteral("\"%1\" is not an icon theme name").arg(name);
        return std::nullopt;
    }
    IconThemeIndex theme;
    theme.name = name;
    for (const QString& base : baseFolders) {
        const QString folder = base + QLatin1Char('/') + name;
        if (!QFileInfo(folder).isDir())
            continue;
        theme.folders.append(folder);
        if (theme.indexPath.isEmpty() && QFileInfo(folder + QStringLiteral("/index.theme")).isFile())
            theme.indexPath = folder + QStringLiteral("/index.theme");
    }
    if (theme.indexPath.isEmpty())
        return std::nullopt;
    if (QFileInfo(theme.indexPath).size() > MaxIndexBytes) {
        *error = QStringLiteral("%1 is too large to be an index.theme").arg(theme.indexPath);
        return std::nullopt;
    }
    GKeyFile* file = g_key_file_new();
    g_key_file_set_list_separator(file, ','); // index.theme lists are comma-separated
    GError* gerror = nullptr;
    const bool loaded = g_key_file_load_from_file(file, QFile::encodeName(theme.indexPath).constData(),
                                                  G_KEY_FILE_NONE, &gerror) &&
                        g_key_file_has_group(file, ThemeGroup);
    if (!loaded) {
        *error = QStringLiteral("%1 cannot be read: %2")
                     .arg(theme.indexPath, gerror ? QString::fromUtf8(gerror->message)
                                                  : QStringLiteral("no [Icon Theme] group"));
        if (gerror)
            g_error_free(gerror);
        g_key_file_free(file);
        return std::nullopt;
    }
    for (const QString& parent : stringList(file, ThemeGroup, "Inherits", MaxInherits)) {
        if (isThemeName(parent))
            theme.inherits.append(parent);
    }
    for (const QString& path : stringList(file, ThemeGroup, "Directories", MaxDirectories)) {
        if (std::optional<IconThemeDirectory> directory = readDirectory(file, path))
            theme.directories.append(*directory);
    }
    g_key_file_free(file);
    return theme;
}
