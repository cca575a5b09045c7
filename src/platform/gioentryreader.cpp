// GIO's headers name a field "signals", which Qt defines as a keyword: they come first.
#include <gio/gdesktopappinfo.h>
#include <glib.h>

#include "gioentryreader.h"

#include <QFile>

QString GioEntryReader::localisedName(const QString& path) const
{
    GKeyFile* keyFile = g_key_file_new();
    QString name;
    if (g_key_file_load_from_file(keyFile, QFile::encodeName(path).constData(), G_KEY_FILE_NONE, nullptr)) {
        // A null locale means the user's languages (LANGUAGE, LC_ALL, LC_MESSAGES, LANG).
        gchar* value = g_key_file_get_locale_string(keyFile, "Desktop Entry", "Name", nullptr, nullptr);
        if (value) {
            name = QString::fromUtf8(value).trimmed();
            g_free(value);
        }
    }
    g_key_file_free(keyFile);
    return name;
}

bool GioEntryReader::showsApplication(const QString& path) const
{
    GDesktopAppInfo* info = g_desktop_app_info_new_from_filename(QFile::encodeName(path).constData());
    if (!info)
        return false;
    const bool shows = !g_desktop_app_info_get_is_hidden(info) && g_app_info_should_show(G_APP_INFO(info));
    g_object_unref(info);
    return shows;
}
