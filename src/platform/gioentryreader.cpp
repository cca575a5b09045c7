#include "gioentryreader.h"

#include "desktopentryrules.h"

#include "catalogue/hvitemclassifier.h"

#include <glib.h>

#include <cstring>

namespace {
// The entry's key file, read with the classifier's bounds; null when it cannot be read or parsed.
GKeyFile* loadKeyFile(const QString& path)
{
    QByteArray contents;
    if (!HVItemClassifier::readEntryFile(path, &contents))
        return nullptr;
    GKeyFile* keyFile = g_key_file_new();
    if (!g_key_file_load_from_data(keyFile, contents.constData(), gsize(contents.size()), G_KEY_FILE_NONE,
                                   nullptr)) {
        g_key_file_free(keyFile);
        return nullptr;
    }
    return keyFile;
}

// A localised string key; a null locale means the user's languages (LANGUAGE, LC_ALL, ...).
QString localeString(GKeyFile* keyFile, const char* key)
{
    gchar* value = g_key_file_get_locale_string(keyFile, "Desktop Entry", key, nullptr, nullptr);
    const QString text = QString::fromUtf8(value).trimmed();
    g_free(value);
    return text;
}

QStringList keywords(GKeyFile* keyFile)
{
    QStringList words;
    gsize count = 0;
    if (gchar** list = g_key_file_get_locale_string_list(keyFile, "Desktop Entry", "Keywords", nullptr,
                                                         &count, nullptr)) {
        for (gsize i = 0; i < count; ++i)
            words.append(QString::fromUtf8(list[i]).trimmed());
        g_strfreev(list);
    }
    return words;
}

QString programName(GKeyFile* keyFile)
{
    gchar* exec = g_key_file_get_string(keyFile, "Desktop Entry", "Exec", nullptr);
    gint argc = 0;
    gchar** argv = nullptr;
    QString program;
    if (exec && g_shell_parse_argv(exec, &argc, &argv, nullptr)) {
        int i = 0;
        if (argc > 1 && g_str_equal(argv[0], "env")) {
            for (i = 1; i < argc && strchr(argv[i], '='); ++i) {
            }
        }
        if (i < argc)
            program = QString::fromUtf8(argv[i]).section(QLatin1Char('/'), -1);
        g_strfreev(argv);
    }
    g_free(exec);
    return program;
}
} // namespace

QString GioEntryReader::localisedName(const QString& path) const
{
    return entryText(path).name;
}

DesktopEntryText GioEntryReader::entryText(const QString& path) const
{
    GKeyFile* keyFile = loadKeyFile(path);
    if (!keyFile)
        return {};
    DesktopEntryText text{localeString(keyFile, "Name"), QString()};
    QStringList words = keywords(keyFile);
    words.append(localeString(keyFile, "GenericName"));
    words.append(programName(keyFile));
    words.removeAll(QString());
    text.searchText = words.join(QLatin1Char('\n')).toLower();
    g_key_file_free(keyFile);
    return text;
}

bool GioEntryReader::showsApplication(const QString& path) const
{
    GKeyFile* keyFile = loadKeyFile(path);
    if (!keyFile)
        return false;
    const bool shows = DesktopEntryRules::isLaunchableApplication(keyFile) &&
                       !DesktopEntryRules::isHidden(keyFile) &&
                       DesktopEntryRules::shouldShow(keyFile, DesktopEntryRules::currentDesktops());
    g_key_file_free(keyFile);
    return shows;
}
