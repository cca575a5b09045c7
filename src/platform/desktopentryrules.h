// Whether a desktop entry's key file is an application that shows on this desktop, decided as
// GIO decides for g_app_info_get_all() and g_app_info_should_show(): the first group is
// "Desktop Entry", Type=Application, TryExec and the Exec program are found, Hidden and
// NoDisplay are not true, and OnlyShowIn / NotShowIn allow the current desktop. It reads the
// one key file only; GDesktopAppInfo would first index every application folder, following
// links without bound.
#pragma once

#include <glib.h>

#include <QStringList>

namespace DesktopEntryRules {
// XDG_CURRENT_DESKTOP, split at ":".
QStringList currentDesktops();

bool isLaunchableApplication(GKeyFile* keyFile);
bool isHidden(GKeyFile* keyFile);
// NoDisplay, then each current desktop in order: shown when OnlyShowIn names it, not shown
// when NotShowIn names it; when none is named, shown unless there is an OnlyShowIn.
bool shouldShow(GKeyFile* keyFile, const QStringList& desktops);
} // namespace DesktopEntryRules
