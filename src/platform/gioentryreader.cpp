#include "gioentryreader.h"

#include <QFile>

#include <glib.h>

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
