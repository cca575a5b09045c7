// Reads desktop entries through GIO: names with GLib's key-file parser, the one GIO itself
// uses, and whether an entry shows with GDesktopAppInfo, as the desktop's own menus decide.
#pragma once

#include "catalogue/desktopentryreader.h"

class GioEntryReader : public DesktopEntryReader
{
public:
    QString localisedName(const QString& path) const override;
    // GIO loads it as an application (Type=Application, TryExec and the Exec program found),
    // it is not Hidden, and g_app_info_should_show() says yes for the current desktop
    // (NoDisplay, OnlyShowIn / NotShowIn against XDG_CURRENT_DESKTOP).
    bool showsApplication(const QString& path) const override;
};
