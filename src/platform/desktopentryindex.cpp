// GIO's headers name a field "signals", which Qt defines as a keyword: they come first.
#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include "desktopentryindex.h"

#include <QFile>
#include <QFileInfo>

void DesktopEntryIndex::add(const DesktopEntryFacts& entry)
{
    if (entry.path.isEmpty())
        return;
    ++m_count;
    if (!entry.startupWMClass.isEmpty())
        m_byWMClass.insert(entry.startupWMClass, m_byWMClass.value(entry.startupWMClass, entry.path));
    if (!entry.desktopId.isEmpty()) {
        const QString key = idKey(entry.desktopId);
        m_byId.insert(key, m_byId.value(key, entry.path));
    }
    if (!entry.executable.isEmpty())
        m_byExecutable.insert(entry.executable, m_byExecutable.value(entry.executable, entry.path));
}

QString DesktopEntryIndex::idKey(const QString& desktopId)
{
    QString key = desktopId.toLower();
    if (key.endsWith(QLatin1String(".desktop")))
        key.chop(8);
    return key;
}

QString DesktopEntryIndex::pathForStartupWMClass(const QString& wmClass) const
{
    return wmClass.isEmpty() ? QString() : m_byWMClass.value(wmClass);
}

QString DesktopEntryIndex::pathForDesktopId(const QString& desktopId) const
{
    return desktopId.isEmpty() ? QString() : m_byId.value(idKey(desktopId));
}

QString DesktopEntryIndex::pathForExecutable(const QString& executable) const
{
    return executable.isEmpty() ? QString() : m_byExecutable.value(executable);
}

namespace {
QString resolvedProgram(const char* executable)
{
    if (!executable || !*executable)
        return QString();
    gchar* found = g_find_program_in_path(executable);
    const QString path = found ? QFileInfo(QFile::decodeName(found)).canonicalFilePath() : QString();
    g_free(found);
    return path;
}
} // namespace

DesktopEntryIndex DesktopEntryIndex::fromInstalledApplications()
{
    DesktopEntryIndex index;
    GList* all = g_app_info_get_all();
    for (GList* item = all; item; item = item->next) {
        auto* info = static_cast<GAppInfo*>(item->data);
        if (G_IS_DESKTOP_APP_INFO(info)) {
            GDesktopAppInfo* desktop = G_DESKTOP_APP_INFO(info);
            const char* filename = g_desktop_app_info_get_filename(desktop);
            const char* id = g_app_info_get_id(info);
            const char* wmClass = g_desktop_app_info_get_startup_wm_class(desktop);
            index.add({filename ? QFile::decodeName(filename) : QString(), QString::fromUtf8(id ? id : ""),
                       QString::fromUtf8(wmClass ? wmClass : ""),
                       resolvedProgram(g_app_info_get_executable(info))});
        }
    }
    g_list_free_full(all, g_object_unref);
    return index;
}
