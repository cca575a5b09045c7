// GIO's headers name a field "signals", which Qt defines as a keyword: they come first.
#include <gio/gio.h>

#include "installedentries.h"

namespace {
void applicationsChanged(GAppInfoMonitor*, gpointer self)
{
    static_cast<InstalledEntries*>(self)->markChanged();
}
} // namespace

InstalledEntries::InstalledEntries()
{
    // The monitor reports through the main thread's GLib context, which Qt's event loop runs.
    GAppInfoMonitor* monitor = g_app_info_monitor_get();
    m_monitor = monitor;
    m_handler = g_signal_connect(monitor, "changed", G_CALLBACK(applicationsChanged), this);
}

InstalledEntries::~InstalledEntries()
{
    auto* monitor = static_cast<GAppInfoMonitor*>(m_monitor);
    g_signal_handler_disconnect(monitor, m_handler);
    g_object_unref(monitor);
}

const DesktopEntryIndex& InstalledEntries::index()
{
    if (m_stale) {
        m_stale = false;
        m_index = DesktopEntryIndex::fromInstalledApplications();
    }
    return m_index;
}
