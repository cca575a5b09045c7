#include "hvappmanager.h"
#include "hvarraycontroller.h"

#include "scanstate.h"

#include "common/hvnotificationcenter.h"
#include "common/hvuserdefaults.h"
#include "common/notificationnames.h"

#include <QTimer>

HVListChange::HVListChange(HVAppManager* manager, QStringList keys)
    : m_manager(manager), m_keys(std::move(keys))
{
    emit m_manager->willChange(m_keys);
}

HVListChange::~HVListChange()
{
    emit m_manager->didChange(m_keys);
}

HVAppManager::HVAppManager(HVUserDefaults* defaults, std::shared_ptr<DesktopEntryReader> reader,
                           std::shared_ptr<AppActions> actions, QObject* parent)
    : QObject(parent), m_defaults(defaults ? defaults : HVUserDefaults::standardUserDefaults()),
      m_reader(std::move(reader)), m_actions(std::move(actions)), m_scan(std::make_unique<HVScanState>())
{
    qRegisterMetaType<HVAppRef>();
    initialize(m_defaults);
    updateMaxRecursionDepth();
}

HVAppManager::~HVAppManager()
{
    tearDown();
}

HVKeyPathObserverTable HVAppManager::halvornKeyPathObservers(HVUserDefaults* defaults)
{
    auto entry = [defaults](const char* key, const QVariant& value, const char* selector) {
        return HVKeyPathObserver{QString::fromLatin1(key), value, QByteArray(selector), defaults};
    };
    return {
        entry("groupContentsSortOrder", 1, "observe_groupContentsSortOrder"),
        entry("excludeArray", QVariantList(), ""),
        entry("maxFolderRecursionDepth", 4, "observe_maxFolderRecursionDepth"),
        entry("sortRunningByLaunchOrder", true, "observe_sortRunningByLaunchOrder"),
        entry("searchDirectories", QVariant(), "observe_searchDirectories"),
        entry("scanDirectories", QVariant(), "observe_scanDirectories"),
        entry("colorSortGrayThreshold", 0.05, "observe_colorSortGrayThreshold"),
        entry("colorSortWrapHue", 0.0, "observe_colorSortWrapHue"),
        entry("colorSortMinSaturation", 0.14, "observe_colorSortMinSaturation"),
        entry("colorSortMinLuminosity", 0.02, "observe_colorSortMinLuminosity"),
        entry("colorSortGraysBySecondaryColor", false, "observe_colorSortGraysBySecondaryColor"),
    };
}

void HVAppManager::initialize(HVUserDefaults* defaults)
{
    HVKeyPathObserving::registerUserDefaultsFromHalvornKeyPathObservers(
        halvornKeyPathObservers(defaults ? defaults : HVUserDefaults::standardUserDefaults()));
}

void HVAppManager::awakeFromNib()
{
    // The scan folders' defaults (and the move from the older preference) are taken up before
    // observing, so that taking them up at the first scan is not a change that scans again.
    HVArrayController::initialize(m_defaults);
    HVKeyPathObserving::registerHalvornKeyPathObservers(this, halvornKeyPathObservers(m_defaults));
    HVNotificationCenter* center = HVNotificationCenter::defaultCenter();
    center->addButFirstRemoveObserver(this, "scanPathListDidChange",
                                      HVNotificationNames::ScanPathListChanged);
    center->addButFirstRemoveObserver(this, "scanPathListDidChange", HVNotificationNames::AppIsMissing);
    center->addButFirstRemoveObserver(this, "startSpotlightQuery",
                                      HVNotificationNames::ApplicationDidFinishLaunching);
    center->addButFirstRemoveObserver(this, "appIconChanged", HVNotificationNames::AppIconChanged);
    m_observing = true;
}

void HVAppManager::tearDown()
{
    if (!m_observing)
        return;
    m_observing = false;
    HVNotificationCenter::defaultCenter()->removeObserver(this);
    HVKeyPathObserving::unregisterHalvornKeyPathObservers(this, halvornKeyPathObservers(m_defaults));
}

HVAppRef HVAppManager::appForPath(const QString& path)
{
    const QString standardized = HVApp::standardizedPath(path);
    HVAppRef app = m_appsByPath.value(standardized).lock();
    if (!app) {
        app = std::make_shared<HVApp>(standardized);
        if (m_reader)
            app->setEntryText(m_reader->entryText(standardized));
        app->setActions(m_actions);
        m_appsByPath.insert(standardized, app);
    }
    m_everythingSet.insert(app);
    return app;
}

HVAppArray HVAppManager::appArrayForGroup(int group) const
{
    switch (group) {
    case HVAppGroupRunning:
        return HVAppArray(&m_runningApps);
    case HVAppGroupIncluded:
        return HVAppArray(&m_includedApps);
    case HVAppGroupIncluded1D:
        return HVAppArray(&m_includedApps1D);
    case HVAppGroupExcluded:
        return HVAppArray(&m_excludedApps);
    case HVAppGroupExcluded1D:
        return HVAppArray(&m_excludedApps1D);
    case HVAppGroupAll:
        return HVAppArray(&m_allApps);
    case HVAppGroupAll1D:
        return HVAppArray(&m_allApps1D);
    case HVAppGroupMissing:
        return HVAppArray(&m_missingApps);
    case HVAppGroupUser:
        return HVAppArray(&m_userApps);
    case HVAppGroupUser1D:
        return HVAppArray(&m_userApps1D);
    default:
        return HVAppArray();
    }
}

int HVAppManager::groupForAppArray(const HVAppArray& array) const
{
    static const int order[] = {
        HVAppGroupRunning,  HVAppGroupAll,        HVAppGroupAll1D,   HVAppGroupIncluded, HVAppGroupIncluded1D,
        HVAppGroupExcluded, HVAppGroupExcluded1D, HVAppGroupMissing, HVAppGroupUser,     HVAppGroupUser1D};
    if (array.isNull())
        return HVAppGroupNone;
    for (int group : order) {
        if (appArrayForGroup(group) == array)
            return group;
    }
    return HVAppGroupNone;
}

namespace {
int longestBunch(const HVAppBunches& bunches)
{
    int longest = 0;
    for (const HVAppBunch& bunch : bunches)
        longest = std::max(longest, int(bunch.size()));
    return longest;
}
} // namespace

int HVAppManager::includedAppsLongestArrayCount() const
{
    return longestBunch(m_includedApps);
}

QStringList HVAppManager::pathsFromApps(const HVAppBunch& apps)
{
    QStringList paths;
    paths.reserve(apps.size());
    for (const HVAppRef& app : apps)
        paths.append(app->path());
    return paths;
}

QVariantList HVAppManager::pathArraysFromAppArrays(const HVAppBunches& bunches)
{
    QVariantList arrays;
    for (const HVAppBunch& bunch : bunches) {
        const QStringList paths = pathsFromApps(bunch);
        arrays.append(QVariant(QVariantList(paths.begin(), paths.end())));
    }
    return arrays;
}

HVAppBunch HVAppManager::appsFromPaths(const QStringList& paths)
{
    HVAppBunch apps;
    apps.reserve(paths.size());
    for (const QString& path : paths)
        apps.append(appForPath(path));
    return apps;
}

std::optional<HVAppBunches> HVAppManager::appArraysFromPathArrays(const QVariantList& pathArrays)
{
    // Only a list whose first element is a list is grouped; a flat file read here is ignored.
    if (pathArrays.isEmpty() || pathArrays.first().metaType().id() != QMetaType::QVariantList)
        return std::nullopt;
    HVAppBunches bunches;
    for (const QVariant& element : pathArrays) {
        if (element.metaType().id() == QMetaType::QVariantList)
            bunches.append(appsFromPaths(element.toStringList()));
    }
    return bunches;
}
