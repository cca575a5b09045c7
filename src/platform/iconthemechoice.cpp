// GIO's headers come first: Qt defines "signals" as a keyword.
#include <gio/gio.h>
#include <glib.h>

#include "iconthemechoice.h"

#include "common/xdgpaths.h"

#include <QFile>

namespace IconThemeChoice {

namespace {
QString keyFileValue(const QString& path, const char* group, const char* key)
{
    GKeyFile* file = g_key_file_new();
    QString value;
    if (g_key_file_load_from_file(file, QFile::encodeName(path).constData(), G_KEY_FILE_NONE, nullptr)) {
        gchar* text = g_key_file_get_string(file, group, key, nullptr);
        if (text)
            value = QString::fromUtf8(text).trimmed();
        g_free(text);
    }
    g_key_file_free(file);
    return value;
}

// GNOME's setting: the user's own value, or the schema's default when `userOnly` is false.
// Nothing when the schema is not installed (asking for it then would abort the program).
QString gnomeTheme(bool userOnly)
{
    GSettingsSchemaSource* source = g_settings_schema_source_get_default();
    GSettingsSchema* schema =
        source ? g_settings_schema_source_lookup(source, "org.gnome.desktop.interface", TRUE) : nullptr;
    if (!schema || !g_settings_schema_has_key(schema, "icon-theme")) {
        if (schema)
            g_settings_schema_unref(schema);
        return QString();
    }
    GSettings* settings = g_settings_new_full(schema, nullptr, nullptr);
    GVariant* value = userOnly ? g_settings_get_user_value(settings, "icon-theme")
                               : g_settings_get_value(settings, "icon-theme");
    QString theme;
    if (value && g_variant_is_of_type(value, G_VARIANT_TYPE_STRING))
        theme = QString::fromUtf8(g_variant_get_string(value, nullptr)).trimmed();
    if (value)
        g_variant_unref(value);
    g_object_unref(settings);
    g_settings_schema_unref(schema);
    return theme;
}
} // namespace

QString gtkSettingsTheme(const QString& configHome)
{
    return keyFileValue(configHome + QStringLiteral("/gtk-3.0/settings.ini"), "Settings",
                        "gtk-icon-theme-name");
}

QString kdeGlobalsTheme(const QString& configHome)
{
    return keyFileValue(configHome + QStringLiteral("/kdeglobals"), "Icons", "Theme");
}

QString currentThemeName()
{
    const QString chosen = qEnvironmentVariable("NIMBO_ICON_THEME").trimmed();
    if (!chosen.isEmpty())
        return chosen;
    const QString configHome = XdgPaths::configHome();
    const bool kde = qEnvironmentVariable("XDG_CURRENT_DESKTOP").contains(QLatin1String("KDE"));
    for (const QString& theme :
         {kde ? kdeGlobalsTheme(configHome) : gnomeTheme(true), gtkSettingsTheme(configHome),
          kde ? gnomeTheme(true) : kdeGlobalsTheme(configHome), gnomeTheme(false)}) {
        if (!theme.isEmpty())
            return theme;
    }
    return QStringLiteral("hicolor");
}

} // namespace IconThemeChoice
