// The index of installed desktop entries, read from GIO when first needed and again after GIO
// reports that applications were installed or removed.
#pragma once

#include "desktopentryindex.h"

class InstalledEntries
{
public:
    InstalledEntries();
    ~InstalledEntries();
    InstalledEntries(const InstalledEntries&) = delete;
    InstalledEntries& operator=(const InstalledEntries&) = delete;

    const DesktopEntryIndex& index();
    void markChanged() { m_stale = true; }

private:
    DesktopEntryIndex m_index;
    bool m_stale = true;
    void* m_monitor = nullptr; // GAppInfoMonitor
    unsigned long m_handler = 0;
};
