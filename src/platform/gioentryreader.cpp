#include "gioentryreader.h"

#include "desktopentryrules.h"

#include "catalogue/hvitemclassifier.h"

#include <glib.h>

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
} // namespace

QString GioEntryReader::localisedName(const QString& path) const
{
    GKeyFile* keyFile = loadKeyFile(path);
    if (!keyFile)
        return QString();
    QString name;
    // A null locale means the user's languages (LANGUAGE, LC_ALL, LC_MESSAGES, LANG).
    if (gchar* value = g_key_file_get_locale_string(keyFile, "Desktop Entry", "Name", nullptr, nullptr)) {
        name = QString::fromUtf8(value).trimmed();
        g_free(value);
    }
    g_key_file_free(keyFile);
    return name;
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
