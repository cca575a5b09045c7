// Scanning: finding the desktop entries in the scan folders and keeping the catalogue current.
#include "hvappmanager.h"

#include "hvarraycontroller.h"
#include "hvdirectorylisting.h"
#include "hvitemclassifier.h"
#include "hvqueryroots.h"
#include "scanstate.h"

#include "common/hvnotificationcenter.h"
#include "common/hvuserdefaults.h"
#include "common/notificationnames.h"

#include <QDir>

namespace {
constexpr int FullScanDelayMs = 5000;
const QString MaxFolderRecursionDepthKey = QStringLiteral("maxFolderRecursionDepth");

// Takes the entry's desktop ID for the walk under way: false when an earlier scan folder
// holds the ID. An earlier entry of the same folder that held it leaves the list.
bool takeDesktopId(HVScanState& scan, const QString& path, HVAppBunch& apps)
{
    QString replaced;
    const QString id = HVDesktopIdClaims::desktopId(scan.currentScanFolder, path);
    switch (scan.claims.claim(id, scan.currentFolderIndex, path, &replaced)) {
    case HVDesktopIdClaims::Masked:
        return false;
    case HVDesktopIdClaims::Replaced:
        for (qsizetype i = apps.size() - 1; i >= 0; --i) {
            if (apps.at(i)->path() == replaced) {
                apps.removeAt(i);
                break;
            }
        }
        return true;
    case HVDesktopIdClaims::Claimed:
        return true;
    }
    return true;
}

bool holdsAnyPathInside(const QSet<QString>& paths, const QString& folder)
{
    const QString prefix = folder + QLatin1Char('/');
    return std::any_of(paths.begin(), paths.end(),
                       [&prefix](const QString& path) { return path.startsWith(prefix); });
}
} // namespace

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

QStringList HVAppManager::pathsFromPrefs() const
{
    HVArrayController::initialize(m_defaults);
    QStringList paths;
    for (const QVariant& entry : m_defaults->arrayForKey(HVArrayController::SearchDirectoriesKey)) {
        const QString path = entry.toMap().value(QStringLiteral("path")).toString();
        if (!path.isEmpty())
            paths.append(path);
    }
    return paths;
}

QStringList HVAppManager::uniquedPathsToScan() const
{
    QStringList paths;
    for (const QString& path : pathsFromPrefs()) {
        const QString resolved = HVArrayController::resolvedPath(path);
        if (!QDir::isAbsolutePath(resolved)) {
            qWarning("Scan folder \"%s\" is not an absolute path; skipped", qPrintable(path));
            continue;
        }
        if (!paths.contains(resolved))
            paths.append(resolved);
    }
    return paths;
}

QStringList HVAppManager::pathsToScan() const
{
    return uniquedPathsToScan();
}

void HVAppManager::updateMaxRecursionDepth()
{
    m_scan->maxRecursionDepth =
        std::clamp<qint64>(m_defaults->integerForKey(MaxFolderRecursionDepthKey), 1, 99);
}

qint64 HVAppManager::maxRecursionDepth() const
{
    return m_scan->maxRecursionDepth;
}

bool HVAppManager::isBusyScanning() const
{
    return m_scan->isBusyScanning;
}

void HVAppManager::scanAppsUnderPath(const QString& folder, HVAppBunch& apps, HVNode*)
{
    HVScanState& scan = *m_scan;
    const QString base = HVApp::standardizedPath(folder);
    if (scan.depth == 0 && !scan.scanningAllFolders) {
        // A walk of one folder on its own: its desktop IDs count from its own top.
        const QStringList folders = pathsToScan();
        scan.scanFolders = QSet<QString>(folders.begin(), folders.end());
        scan.claims.clear();
        scan.currentScanFolder = base;
        scan.currentFolderIndex = 0;
    }
    ++scan.depth;
    for (const HVDirectoryEntry& entry : HVDirectoryListing::entries(base)) {
        const QString path = HVDirectoryListing::childPath(base, entry.name);
        if (entry.type != HVItemClassifier::EntryType::Folder &&
            HVItemClassifier::isEntryFileName(entry.name) && !takeDesktopId(scan, path, apps))
            continue;
        switch (HVItemClassifier::classifyItem(path, m_reader.get(), entry.type)) {
        case HVItemClassApplication:
            if (const HVAppRef known = liveRecordForPath(path)) {
                readEntryText(known); // the entry may have been renamed, or the language changed
                apps.append(appForPath(path));
            } else {
                apps.append(appForPath(path));
            }
            break;
        case HVItemClassFolder:
            // A scan folder inside this one is walked as its own; the depth bound holds
            // whatever the folders are.
            if (!scan.scanFolders.contains(path) && scan.depth < scan.maxRecursionDepth)
                scanAppsUnderPath(path, apps, nullptr);
            break;
        case HVItemClassOther:
            break;
        }
    }
    --scan.depth;
}

void HVAppManager::scanSearchFoldersForAllApps()
{
    updateMaxRecursionDepth();
    HVScanState& scan = *m_scan;
    const QStringList folders = pathsToScan();
    scan.scanFolders = QSet<QString>(folders.begin(), folders.end());
    scan.claims.clear();
    scan.scanningAllFolders = true;
    HVAppBunches bunches;
    for (int i = 0; i < folders.size(); ++i) {
        showProgressStep(i + 1, int(folders.size()), folders.at(i));
        scan.currentScanFolder = folders.at(i);
        scan.currentFolderIndex = i;
        HVAppBunch apps;
        scanAppsUnderPath(folders.at(i), apps, nullptr);
        if (!apps.isEmpty())
            bunches.append(apps);
    }
    scan.scanningAllFolders = false;
    scan.claims.clear();
    {
        HVListChange change(this, {HVAppListKeys::AllApps, HVAppListKeys::AllApps1D});
        m_allApps = bunches;
        rebuildAllApps1D();
    }
    writeAppArrays(m_allApps, HVListFileNames::AllApplications);
    showProgressStep(0, 0, QString());
}

void HVAppManager::showProgressStep(int step, int count, const QString& label)
{
    const bool busy = step != 0 && count != 0;
    if (busy != m_scan->isBusyScanning) {
        HVListChange change(this, {HVAppListKeys::IsBusyScanning});
        m_scan->isBusyScanning = busy;
    }
    HVNotificationCenter::defaultCenter()->postNotificationName(
        HVNotificationNames::ShowProgressStep, QVariant(),
        {{QStringLiteral("step"), step}, {QStringLiteral("count"), count}, {QStringLiteral("label"), label}});
}

void HVAppManager::fullScan()
{
    scanSearchFoldersForAllApps();
    sortAllApps();
    rebuildDependentApps();
    rebuildEverythingSet();
    loadAllIconsPrioritizingGroup(HVAppGroupAll);
}

void HVAppManager::startFullScanTimer()
{
    if (!m_scan->fullScanTimer) {
        m_scan->fullScanTimer = std::make_unique<QTimer>();
        m_scan->fullScanTimer->setSingleShot(true);
        m_scan->fullScanTimer->setTimerType(Qt::PreciseTimer); // never early
        m_scan->fullScanTimer->setInterval(FullScanDelayMs);
        connect(m_scan->fullScanTimer.get(), &QTimer::timeout, this, &HVAppManager::fullScanTimerFire);
    }
    m_scan->fullScanTimer->start(); // a pending scan starts its five seconds again
}

void HVAppManager::fullScanTimerFire()
{
    if (m_scan->fullScanTimer)
        m_scan->fullScanTimer->stop();
    fullScan();
}

bool HVAppManager::hasPendingFullScan() const
{
    return m_scan->fullScanTimer && m_scan->fullScanTimer->isActive();
}

void HVAppManager::scanPathListDidChange(const HVNotification&)
{
    fullScanTimerFire();
    startSpotlightQuery();
}

QStringList HVAppManager::spotlightScanPaths()
{
    m_scan->spotlightTreeRoot = HVQueryRoots::treeForFolders(pathsToScan());
    return HVQueryRoots::rootsOfTree(*m_scan->spotlightTreeRoot);
}

void HVAppManager::startSpotlightQuery()
{
    m_scan->query.reset();
    if (spotlightScanPaths().isEmpty())
        return;
    updateMaxRecursionDepth();
    auto query = std::make_unique<HVEntryWatcher>();
    if (!query->watch(pathsToScan(), maxRecursionDepth()))
        return; // no live updates; scanning still works
    connect(query.get(), &HVEntryWatcher::entriesChanged, this, &HVAppManager::spotlightQueryDidUpdate);
    m_scan->query = std::move(query);
}

QStringList HVAppManager::spotlightWatchedFolders() const
{
    return m_scan->query ? m_scan->query->watchedFolders() : QStringList();
}

void HVAppManager::spotlightQueryDidUpdate(const QList<HVEntryChange>& changes)
{
    // Changes to applications already known leave the catalogue as it is; anything else
    // (a new entry, a removed one, one that no longer shows, lost events) asks for a full
    // scan five seconds after the last of them.
    QSet<QString> known;
    for (const HVAppRef& app : std::as_const(m_allApps1D))
        known.insert(app->path());
    int counted = 0;
    for (const HVEntryChange& change : changes) {
        switch (change.kind) {
        case HVEntryChange::Overflow:
            ++counted;
            break;
        case HVEntryChange::Removed:
            if (!change.isFolder || holdsAnyPathInside(known, change.path))
                ++counted;
            break;
        case HVEntryChange::Added:
        case HVEntryChange::Changed:
            if (change.isFolder)
                break; // the entries inside come as changes of their own
            if (!known.contains(change.path) ||
                HVItemClassifier::classifyItem(change.path, m_reader.get()) != HVItemClassApplication)
                ++counted;
            else if (const HVAppRef app = liveRecordForPath(change.path))
                readEntryText(app);
            break;
        }
    }
    if (counted)
        startFullScanTimer();
}

void HVAppManager::readEntryText(const HVAppRef& app)
{
    if (!m_reader)
        return;
    const QString name = app->name();
    app->setEntryText(m_reader->entryText(app->path()));
    if (app->name() != name && app->hasLetters())
        app->findLetters();
}

void HVAppManager::observe_maxFolderRecursionDepth(const QVariantMap&)
{
    // Taken up by the next scan; the live watcher follows the new depth now.
    updateMaxRecursionDepth();
    if (m_scan->query)
        m_scan->query->setMaxDepth(maxRecursionDepth());
}

void HVAppManager::observe_searchDirectories(const QVariantMap&)
{
    HVNotificationCenter::defaultCenter()->enqueueCoalescedNotificationName(
        HVNotificationNames::ScanPathListChanged);
}

void HVAppManager::observe_scanDirectories(const QVariantMap&)
{
    HVNotificationCenter::defaultCenter()->enqueueCoalescedNotificationName(
        HVNotificationNames::ScanPathListChanged);
}
