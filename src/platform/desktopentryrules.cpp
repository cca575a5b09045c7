#include "desktopentryrules.h"

#include <QByteArray>

namespace {
const char* const Group = "Desktop Entry";

QByteArray stringValue(GKeyFile* keyFile, const char* key)
{
    QByteArray value;
    if (gchar* text = g_key_file_get_string(keyFile, Group, key, nullptr)) {
        value = text;
        g_free(text);
    }
    return value;
}

bool booleanValue(GKeyFile* keyFile, const char* key)
{
    return g_key_file_get_boolean(keyFile, Group, key, nullptr);
}

bool programExists(const QByteArray& program)
{
    gchar* found = g_find_program_in_path(program.constData());
    g_free(found);
    return found != nullptr;
}

QStringList listValue(GKeyFile* keyFile, const char* key)
{
    QStringList list;
    gchar** values = g_key_file_get_string_list(keyFile, Group, key, nullptr, nullptr);
    for (gchar** value = values; value && *value; ++value)
        list.append(QString::fromUtf8(*value));
    g_strfreev(values);
    return list;
}
} // namespace

namespace DesktopEntryRules {

QStringList currentDesktops()
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'), Qt::SkipEmptyParts);
}

bool isLaunchableApplication(GKeyFile* keyFile)
{
    gchar* start = g_key_file_get_start_group(keyFile);
    const bool entryFirst = start && qstrcmp(start, Group) == 0;
    g_free(start);
    if (!entryFirst || stringValue(keyFile, "Type") != "Application")
        return false;
    const QByteArray tryExec = stringValue(keyFile, "TryExec");
    if (!tryExec.isEmpty() && !programExists(tryExec))
        return false;
    const QByteArray exec = stringValue(keyFile, "Exec");
    if (exec.isEmpty())
        return true;
    gint argc = 0;
    gchar** argv = nullptr;
    if (!g_shell_parse_argv(exec.constData(), &argc, &argv, nullptr))
        return false;
    const bool found = argc > 0 && programExists(argv[0]);
    g_strfreev(argv);
    return found;
}

bool isHidden(GKeyFile* keyFile)
{
    return booleanValue(keyFile, "Hidden");
}

bool shouldShow(GKeyFile* keyFile, const QStringList& desktops)
{
    if (booleanValue(keyFile, "NoDisplay"))
        return false;
    const QStringList onlyShowIn = listValue(keyFile, "OnlyShowIn");
    const QStringList notShowIn = listValue(keyFile, "NotShowIn");
    for (const QString& desktop : desktops) {
        if (onlyShowIn.contains(desktop))
            return true;
        if (notShowIn.contains(desktop))
            return false;
    }
    return onlyShowIn.isEmpty();
}

} // namespace DesktopEntryRules
