// Scanning: finding the desktop entries in the scan folders and keeping the catalogue current.
#include "hvappmanager.h"
#include "scanstate.h"

void HVAppManager::rescanAllAppsPrioritizingGroup(int group)
{
    // The first call after launch shows the saved catalogue at once and scans only when there
    // is none; every later call scans.
    if (m_allApps.isEmpty()) {
        readAllAppsFromDisk();
        if (m_allApps.isEmpty())
            scanSearchFoldersForAllApps();
    } else {
        scanSearchFoldersForAllApps();
    }
    sortAllApps();
    readExcludedApps1DFromDisk();
    readUserAppsFromDisk();
    rebuildDependentApps();
    rebuildEverythingSet();
    loadAllIconsPrioritizingGroup(group == HVAppGroupNone ? int(HVAppGroupAll) : group);
}

void HVAppManager::scanSearchFoldersForAllApps()
{
}

void HVAppManager::fullScan()
{
}

void HVAppManager::scanPathListDidChange(const HVNotification&)
{
}

void HVAppManager::startSpotlightQuery()
{
}

void HVAppManager::updateMaxRecursionDepth()
{
}

qint64 HVAppManager::maxRecursionDepth() const
{
    return m_scan->maxRecursionDepth;
}

bool HVAppManager::isBusyScanning() const
{
    return m_scan->isBusyScanning;
}

void HVAppManager::observe_maxFolderRecursionDepth(const QVariantMap&)
{
}

void HVAppManager::observe_searchDirectories(const QVariantMap&)
{
}

void HVAppManager::observe_scanDirectories(const QVariantMap&)
{
}
