// Reads desktop entries with GLib's key-file parser, the one GIO itself uses.
#pragma once

#include "catalogue/desktopentryreader.h"

class GioEntryReader : public DesktopEntryReader
{
public:
    QString localisedName(const QString& path) const override;
};
