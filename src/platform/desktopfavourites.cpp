// GIO's headers name a field "signals", which Qt defines as a keyword: they come first.
#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include "desktopfavourites.h"

#include "common/xdgpaths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

namespace {
constexpr qint64 MaxConfigFileSize = 4 * 1024 * 1024;

// The settings object of an installed schema, or null (GSettings aborts on unknown schemas).
GSettings* settingsIfInstalled(const char* schemaId, const char* key, const char* path = nullptr)
{
    GSettingsSchemaSource* source = g_settings_schema_source_get_default();
    if (!source)
        return nullptr;
    GSettingsSchema* schema = g_settings_schema_source_lookup(source, schemaId, TRUE);
    if (!schema)
        return nullptr;
    GSettings* settings = nullptr;
    const bool relocatable = g_settings_schema_get_path(schema) == nullptr;
    if (g_settings_schema_has_key(schema, key) && relocatable == (path != nullptr))
        settings = g_settings_new_full(schema, nullptr, path);
    g_settings_schema_unref(schema);
    return settings;
}

QStringList stringsOf(GSettings* settings, const char* key)
{
    QStringList strings;
    gchar** values = g_settings_get_strv(settings, key);
    for (gchar** value = values; value && *value; ++value)
        strings.append(QString::fromUtf8(*value));
    g_strfreev(values);
    return strings;
}

QString filenameOf(GAppInfo* info)
{
    QString path;
    if (info && G_IS_DESKTOP_APP_INFO(info)) {
        if (const char* filename = g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(info)))
            path = QFile::decodeName(filename);
    }
    if (info)
        g_object_unref(info);
    return path;
}

bool isSmallRegularFile(const QString& path)
{
    const QFileInfo info(path);
    return info.isFile() && info.size() <= MaxConfigFileSize;
}

QString plankLauncherOf(const QString& itemFile)
{
    if (!isSmallRegularFile(itemFile))
        return QString();
    GKeyFile* keyFile = g_key_file_new();
    QString launcher;
    if (g_key_file_load_from_file(keyFile, QFile::encodeName(itemFile).constData(), G_KEY_FILE_NONE,
                                  nullptr)) {
        if (gchar* value = g_key_file_get_string(keyFile, "PlankDockItemPreferences", "Launcher", nullptr)) {
            launcher = QString::fromUtf8(value);
            g_free(value);
        }
    }
    g_key_file_free(keyFile);
    return launcher;
}
} // namespace

namespace DesktopFavourites {

QStringList gnomeFavouriteIds()
{
    GSettings* settings = settingsIfInstalled("org.gnome.shell", "favorite-apps");
    if (!settings)
        return {};
    const QStringList ids = stringsOf(settings, "favorite-apps");
    g_object_unref(settings);
    return ids;
}

QStringList plasmaLaunchers(const QString& appletsFile)
{
    QStringList launchers;
    if (!isSmallRegularFile(appletsFile))
        return launchers;
    QFile file(appletsFile);
    if (!file.open(QIODevice::ReadOnly))
        return launchers;
    // Every task manager keeps its launchers in one line of its [...][Configuration][General] group.
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (!line.startsWith(QLatin1String("launchers=")))
            continue;
        const QStringList items =
            line.mid(int(qstrlen("launchers="))).split(QLatin1Char(','), Qt::SkipEmptyParts);
        for (const QString& item : items)
            launchers.append(item.trimmed());
    }
    return launchers;
}

QStringList plankItemOrder()
{
    GSettings* settings = settingsIfInstalled("net.launchpad.plank.dock.settings", "dock-items",
                                              "/net/launchpad/plank/docks/dock1/");
    if (!settings)
        return {};
    const QStringList order = stringsOf(settings, "dock-items");
    g_object_unref(settings);
    return order;
}

QStringList plankLaunchers(const QString& launchersFolder, const QStringList& order)
{
    const QDir folder(launchersFolder);
    QStringList items = order;
    for (const QString& name : folder.entryList({QStringLiteral("*.dockitem")}, QDir::Files, QDir::Name)) {
        if (!items.contains(name))
            items.append(name);
    }
    QStringList launchers;
    for (const QString& item : std::as_const(items)) {
        if (item.contains(QLatin1Char('/')))
            continue;
        const QString launcher = plankLauncherOf(folder.filePath(item));
        if (!launcher.isEmpty())
            launchers.append(launcher);
    }
    return launchers;
}

QString entryPathForDesktopId(const QString& desktopId)
{
    if (desktopId.isEmpty())
        return QString();
    return filenameOf(G_APP_INFO(g_desktop_app_info_new(desktopId.toUtf8().constData())));
}

QString entryPathForLauncher(const QString& launcher)
{
    if (launcher.startsWith(QLatin1String("applications:")))
        return entryPathForDesktopId(launcher.mid(int(qstrlen("applications:"))));
    if (launcher == QLatin1String("preferred://browser"))
        return filenameOf(g_app_info_get_default_for_uri_scheme("https"));
    if (launcher == QLatin1String("preferred://filemanager"))
        return filenameOf(g_app_info_get_default_for_type("inode/directory", FALSE));
    const QUrl url(launcher);
    if (url.isLocalFile()) {
        const QString path = QDir::cleanPath(url.toLocalFile());
        return path.endsWith(QLatin1String(".desktop")) && QFileInfo(path).isFile() ? path : QString();
    }
    if (launcher.endsWith(QLatin1String(".desktop")) && !launcher.contains(QLatin1Char(':')))
        return entryPathForDesktopId(launcher);
    return QString();
}

QStringList keptApplicationPaths()
{
    QStringList launchers;
    for (const QString& id : gnomeFavouriteIds())
        launchers.append(QStringLiteral("applications:") + id);
    launchers +=
        plasmaLaunchers(XdgPaths::configHome() + QStringLiteral("/plasma-org.kde.plasma.desktop-appletsrc"));
    launchers +=
        plankLaunchers(XdgPaths::configHome() + QStringLiteral("/plank/dock1/launchers"), plankItemOrder());
    QStringList paths;
    for (const QString& launcher : std::as_const(launchers)) {
        const QString path = entryPathForLauncher(launcher);
        if (!path.isEmpty() && !paths.contains(path))
            paths.append(path);
    }
    return paths;
}

} // namespace DesktopFavourites
