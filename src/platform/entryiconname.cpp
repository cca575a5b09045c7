// GIO's headers come first: Qt defines "signals" as a keyword.
#include <gio/gio.h>
#include <glib.h>

#include "entryiconname.h"

#include <QFile>
#include <QFileInfo>

namespace EntryIconName {

namespace {
const QString GenericProgramIcon = QStringLiteral("application-x-executable");

EntryIcon fromDesktopEntry(const QString& path, QString* error)
{
    GKeyFile* file = g_key_file_new();
    GError* gerror = nullptr;
    EntryIcon icon;
    if (!g_key_file_load_from_file(file, QFile::encodeName(path).constData(), G_KEY_FILE_NONE, &gerror)) {
        *error = QStringLiteral("%1: %2").arg(path, QString::fromUtf8(gerror->message));
        g_error_free(gerror);
    } else if (!g_key_file_has_group(file, "Desktop Entry")) {
        *error = QStringLiteral("%1 has no [Desktop Entry] group").arg(path);
    } else {
        // A null locale means the user's languages (LANGUAGE, LC_ALL, LC_MESSAGES, LANG).
        gchar* value = g_key_file_get_locale_string(file, "Desktop Entry", "Icon", nullptr, nullptr);
        icon = value ? fromIconValue(QString::fromUtf8(value)) : EntryIcon{QString(), {GenericProgramIcon}};
        g_free(value);
        if (icon.isEmpty())
            *error = QStringLiteral("%1 names no usable icon").arg(path);
    }
    g_key_file_free(file);
    return icon;
}

EntryIcon fromContentType(const QString& path, QString* error)
{
    const QByteArray encoded = QFile::encodeName(path);
    EntryIcon icon;
    gchar* type = QFileInfo(path).isDir() ? g_strdup("inode/directory")
                                          : g_content_type_guess(encoded.constData(), nullptr, 0, nullptr);
    GIcon* gicon = type ? g_content_type_get_icon(type) : nullptr;
    if (gicon && G_IS_THEMED_ICON(gicon)) {
        for (const gchar* const* name = g_themed_icon_get_names(G_THEMED_ICON(gicon)); name && *name; ++name)
            icon.names.append(QString::fromUtf8(*name));
    }
    if (gicon)
        g_object_unref(gicon);
    g_free(type);
    if (icon.isEmpty())
        *error = QStringLiteral("%1 has a content type without an icon").arg(path);
    return icon;
}
} // namespace

EntryIcon fromIconValue(const QString& value)
{
    const QString trimmed = value.trimmed();
    if (trimmed.startsWith(QLatin1Char('/')))
        return EntryIcon{trimmed, {}};
    if (trimmed.isEmpty() || trimmed.contains(QLatin1Char('/')))
        return EntryIcon();
    QString name = trimmed;
    for (const char* extension : {".png", ".svg", ".svgz", ".xpm"}) {
        if (name.endsWith(QLatin1String(extension), Qt::CaseInsensitive)) {
            name.chop(int(qstrlen(extension)));
            break;
        }
    }
    return name.isEmpty() ? EntryIcon() : EntryIcon{QString(), {name}};
}

EntryIcon iconForFile(const QString& path, QString* error)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        *error = QStringLiteral("%1 does not exist").arg(path);
        return EntryIcon();
    }
    if (!path.endsWith(QLatin1String(".desktop")))
        return fromContentType(path, error);
    if (!info.isFile() || info.size() > MaxEntryBytes) {
        *error = QStringLiteral("%1 is not a desktop entry of a sensible size").arg(path);
        return EntryIcon();
    }
    return fromDesktopEntry(path, error);
}

} // namespace EntryIconName
