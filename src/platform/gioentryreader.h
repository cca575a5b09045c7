// Reads desktop entries with GLib's key-file parser, the one GIO itself uses: localised names,
// and whether an entry shows, decided as GIO decides for the desktop's own menus.
#pragma once

#include "catalogue/desktopentryreader.h"

class GioEntryReader : public DesktopEntryReader
{
public:
    QString localisedName(const QString& path) const override;
    // The name, and as search words the localised Keywords and GenericName and the program that
    // Exec runs (its file name, past an `env VAR=value` prefix).
    DesktopEntryText entryText(const QString& path) const override;
    // An application (Type=Application, TryExec and the Exec program found), not Hidden, and
    // shown on the current desktop (NoDisplay, OnlyShowIn / NotShowIn against XDG_CURRENT_DESKTOP).
    bool showsApplication(const QString& path) const override;
};
