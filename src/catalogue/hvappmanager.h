// The catalogue: every list of applications the panel can show, kept consistent with the
// user's own lists and the list files. The lists are live; every change to one is announced
// by willChange / didChange with the keys of the lists that change ("allApps", "userApps1D"...).
//
// The class is implemented in several files: lists (hvappmanager.cpp), files
// (hvappmanager_files.cpp), rebuilding
// (hvappmanager_rebuild.cpp), moves (hvappmanager_moves.cpp), ordering
// (hvappmanager_sorting.cpp), running applications (hvappmanager_running.cpp), scanning
// (hvappmanager_scanning.cpp) and icons (hvappmanager_icons.cpp).
#pragma once

#include "appactions.h"
#include "desktopentryreader.h"
#include "hvapparray.h"
#include "hvappgroup.h"
#include "listfilestore.h"

#include "common/hvkeypathobservers.h"
#include "common/hvnotification.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>

#include <functional>
#include <memory>

class HVUserDefaults;
class QTimer;
struct HVScanState;

namespace HVAppListKeys {
inline const QString AllApps = QStringLiteral("allApps");
inline const QString AllApps1D = QStringLiteral("allApps1D");
inline const QString IncludedApps = QStringLiteral("includedApps");
inline const QString IncludedApps1D = QStringLiteral("includedApps1D");
inline const QString ExcludedApps = QStringLiteral("excludedApps");
inline const QString ExcludedApps1D = QStringLiteral("excludedApps1D");
inline const QString UserApps = QStringLiteral("userApps");
inline const QString UserApps1D = QStringLiteral("userApps1D");
inline const QString RunningApps = QStringLiteral("runningApps");
inline const QString EveryApp = QStringLiteral("everyApp");
inline const QString IsBusyScanning = QStringLiteral("isBusyScanning");
} // namespace HVAppListKeys

namespace HVListFileNames {
inline const QString AllApplications = QStringLiteral("AllApplications.plist");
inline const QString ExcludedApplications = QStringLiteral("ExcludedApplications.plist");
inline const QString UserApplications = QStringLiteral("UserApplications.plist");
inline const QString UserApplications1D = QStringLiteral("UserApplications1D.plist");
} // namespace HVListFileNames

class HVAppManager : public QObject
{
    Q_OBJECT
public:
    enum Domain { UserDomain = 1, LocalDomain = 2 };
    enum SortOrder { SortByPath = 0, SortByName = 1, SortByColor = 2 };

    // The defaults are the standard ones when null; the entry reader names records; the
    // actions are handed to every record (both may be null in a headless catalogue).
    explicit HVAppManager(HVUserDefaults* defaults = nullptr, std::shared_ptr<DesktopEntryReader> reader = {},
                          std::shared_ptr<AppActions> actions = {}, QObject* parent = nullptr);
    ~HVAppManager() override;

    // The preferences the catalogue registers and observes; registered once per process.
    static HVKeyPathObserverTable halvornKeyPathObservers(HVUserDefaults* defaults = nullptr);
    static void initialize(HVUserDefaults* defaults = nullptr);
    // Starts observing preferences and notifications (once the rest of the program exists).
    void awakeFromNib();
    void tearDown();

    HVUserDefaults* userDefaults() const { return m_defaults; }
    ListFileStore& listFiles() { return m_files; }

    // The one record for a path.
    HVAppRef appForPath(const QString& path);

    // The live lists.
    const HVAppBunches& allApps() const { return m_allApps; }
    const HVAppBunch& allApps1D() const { return m_allApps1D; }
    const HVAppBunches& includedApps() const { return m_includedApps; }
    const HVAppBunch& includedApps1D() const { return m_includedApps1D; }
    const HVAppBunches& excludedApps() const { return m_excludedApps; }
    const HVAppBunch& excludedApps1D() const { return m_excludedApps1D; }
    const HVAppBunches& userApps() const { return m_userApps; }
    const HVAppBunch& userApps1D() const { return m_userApps1D; }
    const HVAppBunch& missingApps() const { return m_missingApps; }
    const HVAppBunch& runningApps() const { return m_runningApps; }
    const HVAppBunch& frontApps() const { return m_frontApps; }
    const QSet<HVAppRef>& everythingSet() const { return m_everythingSet; }

    HVAppArray appArrayForGroup(int group) const;
    int groupForAppArray(const HVAppArray& array) const;

    int includedAppsLongestArrayCount() const;

    // Conversions between records and paths.
    static QStringList pathsFromApps(const HVAppBunch& apps);
    static QVariantList pathArraysFromAppArrays(const HVAppBunches& bunches);
    HVAppBunch appsFromPaths(const QStringList& paths);
    // Null (nullopt) when the argument is empty or not a list of lists.
    std::optional<HVAppBunches> appArraysFromPathArrays(const QVariantList& pathArrays);

    // List files.
    QString userApplicationSupportFolder() const;
    QStringList localApplicationSupportFolders() const;
    bool writeAppArrays(const HVAppBunches& bunches, const QString& fileName, int domain = UserDomain);
    bool writeAppArray(const HVAppBunch& apps, const QString& fileName, int domain = UserDomain);
    std::optional<QVariantList> readPathArraysFromAppSupportFileNamed(const QString& fileName,
                                                                      int domain = UserDomain);
    void readAllAppsFromDisk();
    void readExcludedApps1DFromDisk();
    void readUserAppsFromDisk();
    void writeUserAppsToDisk();
    void writeExcludedAppsToDisk();

    // Rebuilding the derived lists.
    void rebuildAllApps1D();
    void rebuildUserApps1D();
    void rebuildDependentApps();
    void rebuildEverythingSet();
    void removeAppsFromUserApps(const HVAppBunch& apps);
    void locateUserApps();
    HVAppRef bestMatchForApp(const HVAppRef& app, const HVAppArray& array) const;
    HVAppRef bestMatchForApp(const HVAppRef& app, const HVAppBunch& apps) const;

    // Inclusion and exclusion.
    void excludeApp(const HVAppRef& app);
    void includeApp(const HVAppRef& app);
    void autoExcludeDockApps(bool dock, bool named);
    // The words that mark an application for exclusion by name; setting them checks every
    // record of the catalogue against the new words.
    QStringList excludedNameSubstrings() const;
    void setExcludedNameSubstrings(const QStringList& words);
    // Where automatic exclusion finds the desktop's kept (favourite) applications' entry paths.
    void setKeptApplicationsSource(std::function<QStringList()> source)
    {
        m_keptApplications = std::move(source);
    }

    // Documents.
    HVAppBunch allAppsThatCanAcceptURL(const QUrl& url) const;
    HVAppBunch allAppsThatPreferURL(const QUrl& url) const;

    // Moving within the user's lists.
    void moveApp(const HVAppRef& app, int group, qint64 bunch, qint64 index);
    void moveAppToNewBunch(const HVAppRef& app, int group, qint64 bunchIndex);

    // Ordering.
    int sortOrder() const;
    void sortArray(HVAppBunch& apps) const;
    bool isSortedList(const HVAppBunch& apps) const;
    void sortAllApps();
    void sortAllArrays();
    void resetColorSortingOptions();
    Q_INVOKABLE void appIconChanged(const HVNotification& notification);
    Q_INVOKABLE void sortIconColorTimerFire();
    bool hasPendingColorSort() const;

    Q_INVOKABLE void observe_groupContentsSortOrder(const QVariantMap& change);
    Q_INVOKABLE void observe_colorSortGrayThreshold(const QVariantMap& change);
    Q_INVOKABLE void observe_colorSortWrapHue(const QVariantMap& change);
    Q_INVOKABLE void observe_colorSortMinSaturation(const QVariantMap& change);
    Q_INVOKABLE void observe_colorSortMinLuminosity(const QVariantMap& change);
    Q_INVOKABLE void observe_colorSortGraysBySecondaryColor(const QVariantMap& change);
    Q_INVOKABLE void observe_sortRunningByLaunchOrder(const QVariantMap& change);

    // ---- Running applications (hvappmanager_running.cpp) ----
    // Gives the catalogue the desktop's running applications (not owned; null: none run). The
    // running list is filled at once and the then-active application starts the front order;
    // from then on launches and terminations rebuild the list and front switches reorder it.
    void setRunningAppsSource(class RunningAppsSource* source);
    class RunningAppsSource* runningAppsSource() const { return m_runningSource; }
    void runningAppsListDidChange();
    // One record per running application, in the source's (launch) order.
    HVAppBunch launchedHVApps();
    bool isAppRunning(const HVAppRef& app) const;
    HVAppRef activeApp();
    // The most recent front application that is not this program.
    HVAppRef lastActiveApp() const;
    void quitApp(const HVAppRef& app);
    void handleAppFrontSwitched();
    void handleAppLaunched();
    void handleAppTerminated();
    // The record that exists for the path, without making one (null when none does); the
    // platform layer announces a missing application with it.
    HVAppRef liveRecordForPath(const QString& path) const;

private:
    HVAppRef recordForRunningApplication(const struct RunningApplication& running);
    // Reads the record's name and search words from its entry again; letters follow the name.
    void readEntryText(const HVAppRef& app);
    class RunningAppsSource* m_runningSource = nullptr;

public:
    // ---- end of running applications ----

    // Scanning (hvappmanager_scanning.cpp).
    void rescanAllAppsPrioritizingGroup(int group);
    void scanSearchFoldersForAllApps();
    void fullScan();
    Q_INVOKABLE void scanPathListDidChange(const HVNotification& notification);
    Q_INVOKABLE void startSpotlightQuery();
    void updateMaxRecursionDepth();
    qint64 maxRecursionDepth() const;
    bool isBusyScanning() const;
    Q_INVOKABLE void observe_maxFolderRecursionDepth(const QVariantMap& change);
    Q_INVOKABLE void observe_searchDirectories(const QVariantMap& change);
    Q_INVOKABLE void observe_scanDirectories(const QVariantMap& change);
    QStringList pathsFromPrefs() const;
    QStringList uniquedPathsToScan() const;
    QStringList pathsToScan() const;
    void scanAppsUnderPath(const QString& folder, HVAppBunch& apps, class HVNode* node);
    void showProgressStep(int step, int count, const QString& label);
    void startFullScanTimer();
    Q_INVOKABLE void fullScanTimerFire();
    bool hasPendingFullScan() const;
    QStringList spotlightScanPaths();
    void spotlightQueryDidUpdate(const QList<struct HVEntryChange>& changes);
    QStringList spotlightWatchedFolders() const;

    // Icons (hvappmanager_icons.cpp). Loads hand every record of the list (bunch by bunch for a
    // grouped one) the icon parameters read once from the preferences; the records fetch what
    // changed on the shared icon queue.
    IconParameters iconParametersFromPreferences() const;
    void loadIconsForApps(const HVAppBunch& apps);
    void loadIconsForApps(const HVAppBunches& bunches);
    // The list of the group about to be shown first, then every other record of the catalogue.
    void loadAllIconsPrioritizingGroup(int group);
    // Every application back to the "dot", then all of them loaded again.
    void clearIconsForAllApps();

signals:
    void willChange(const QStringList& keys);
    void didChange(const QStringList& keys);

private:
    friend class HVListChange;
    void colorSortPreferenceChanged(HVLastValue<float>& memory, float value);
    void moveAppInFlatUserList(const HVAppRef& app, qint64 index);
    void moveAppInUserBunches(const HVAppRef& app, qint64 bunch, qint64 index);
    static bool sharesAny(const HVAppBunch& list, const HVAppBunch& apps);
    static int removeFromBunches(HVAppBunches& bunches, const QSet<HVAppRef>& apps, bool dropEmptyBunches);

    HVUserDefaults* m_defaults;
    std::shared_ptr<DesktopEntryReader> m_reader;
    std::shared_ptr<AppActions> m_actions;
    ListFileStore m_files;
    std::function<QStringList()> m_keptApplications;

    HVAppBunch m_runningApps;
    HVAppBunch m_frontApps;
    QSet<HVAppRef> m_everythingSet;
    QHash<QString, std::weak_ptr<HVApp>> m_appsByPath; // one live record per path
    HVAppBunches m_allApps;
    HVAppBunch m_allApps1D;
    HVAppBunches m_includedApps;
    HVAppBunch m_includedApps1D;
    HVAppBunches m_excludedApps;
    HVAppBunch m_excludedApps1D;
    HVAppBunches m_userApps;
    HVAppBunch m_userApps1D;
    HVAppBunch m_missingApps;

    QTimer* m_sortColorTimer = nullptr;
    HVLastValue<qint64> m_lastSortOrder;
    HVLastValue<bool> m_lastSortRunningByLaunchOrder;
    HVLastValue<float> m_lastColorThresholdOrHue;
    HVLastValue<float> m_lastColorSaturationLuminosityOrGrays;
    bool m_observing = false;

    std::unique_ptr<HVScanState> m_scan;
};

// Brackets one change of the catalogue's lists with willChange / didChange of their keys.
class HVListChange
{
public:
    HVListChange(HVAppManager* manager, QStringList keys);
    ~HVListChange();
    HVListChange(const HVListChange&) = delete;
    HVListChange& operator=(const HVListChange&) = delete;

private:
    HVAppManager* m_manager;
    QStringList m_keys;
};
