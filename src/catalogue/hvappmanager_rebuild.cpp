// Keeping the derived lists consistent with the primary ones, and repairing the user's lists.
#include "hvappmanager.h"

#include <QDir>

namespace {
QSet<HVAppRef> setOf(const HVAppBunch& apps)
{
    return QSet<HVAppRef>(apps.begin(), apps.end());
}

HVAppBunch concatenation(const HVAppBunches& bunches)
{
    HVAppBunch all;
    for (const HVAppBunch& bunch : bunches)
        all += bunch;
    return all;
}

// A path's components as the file system names them, the root included.
QStringList pathComponents(const QString& path)
{
    QStringList components = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    if (path.startsWith(QLatin1Char('/')))
        components.prepend(QStringLiteral("/"));
    return components;
}

int sharedTrailingComponents(const QStringList& a, const QStringList& b)
{
    int count = 0;
    for (auto i = a.crbegin(), j = b.crbegin(); i != a.crend() && j != b.crend() && *i == *j; ++i, ++j)
        ++count;
    return count;
}
} // namespace

bool HVAppManager::sharesAny(const HVAppBunch& list, const HVAppBunch& apps)
{
    const QSet<HVAppRef> wanted = setOf(apps);
    return std::any_of(list.begin(), list.end(), [&](const HVAppRef& app) { return wanted.contains(app); });
}

int HVAppManager::removeFromBunches(HVAppBunches& bunches, const QSet<HVAppRef>& apps, bool dropEmptyBunches)
{
    int removed = 0;
    for (HVAppBunch& bunch : bunches)
        removed += int(bunch.removeIf([&](const HVAppRef& app) { return apps.contains(app); }));
    if (dropEmptyBunches)
        bunches.removeIf([](const HVAppBunch& bunch) { return bunch.isEmpty(); });
    return removed;
}

void HVAppManager::rebuildAllApps1D()
{
    HVListChange change(this, {HVAppListKeys::AllApps1D});
    m_allApps1D = concatenation(m_allApps);
}

void HVAppManager::rebuildUserApps1D()
{
    HVListChange change(this, {HVAppListKeys::UserApps1D});
    m_userApps1D = concatenation(m_userApps);
}

void HVAppManager::rebuildEverythingSet()
{
    HVListChange change(this, {HVAppListKeys::EveryApp});
    m_everythingSet.clear();
    for (const HVAppBunches* bunches : {&m_allApps, &m_userApps}) {
        for (const HVAppBunch& bunch : *bunches) {
            for (const HVAppRef& app : bunch)
                m_everythingSet.insert(app);
        }
    }
    m_appsByPath.removeIf([](const auto& entry) { return entry.value().expired(); });
}

void HVAppManager::rebuildDependentApps()
{
    // Excluded applications that scanning no longer finds are missing.
    const QSet<HVAppRef> all = setOf(m_allApps1D);
    m_missingApps.clear();
    for (const HVAppRef& app : std::as_const(m_excludedApps1D)) {
        if (!all.contains(app))
            m_missingApps.append(app);
    }
    const QSet<HVAppRef> missing = setOf(m_missingApps);

    // They leave the user's lists (emptied bunches stay); the files are rewritten at the next edit.
    if (sharesAny(m_userApps1D, m_missingApps)) {
        HVListChange change(this, {HVAppListKeys::UserApps, HVAppListKeys::UserApps1D});
        removeFromBunches(m_userApps, missing, false);
        m_userApps1D.removeIf([&](const HVAppRef& app) { return missing.contains(app); });
    }
    // ...and the exclusion list in memory; its file keeps them until it is next saved.
    if (!m_missingApps.isEmpty()) {
        HVListChange change(this, {HVAppListKeys::ExcludedApps1D});
        m_excludedApps1D.removeIf([&](const HVAppRef& app) { return missing.contains(app); });
        sortArray(m_excludedApps1D);
    }

    // The included and excluded lists follow the bunches of all applications, in their order.
    {
        HVListChange change(
            this, {HVAppListKeys::ExcludedApps, HVAppListKeys::IncludedApps, HVAppListKeys::IncludedApps1D});
        m_excludedApps.clear();
        m_includedApps.clear();
        m_includedApps1D.clear();
        const QSet<HVAppRef> excluded = setOf(m_excludedApps1D);
        for (const HVAppBunch& bunch : std::as_const(m_allApps)) {
            HVAppBunch included;
            HVAppBunch excludedHere;
            for (const HVAppRef& app : bunch)
                (excluded.contains(app) ? excludedHere : included).append(app);
            if (!included.isEmpty()) {
                m_includedApps.append(included);
                m_includedApps1D += included;
            }
            if (!excludedHere.isEmpty())
                m_excludedApps.append(excludedHere);
        }
        sortArray(m_includedApps1D);
    }
}

void HVAppManager::removeAppsFromUserApps(const HVAppBunch& apps)
{
    if (!sharesAny(m_userApps1D, apps))
        return;
    const QSet<HVAppRef> gone = setOf(apps);
    {
        HVListChange change(this, {HVAppListKeys::UserApps, HVAppListKeys::UserApps1D});
        removeFromBunches(m_userApps, gone, true);
        m_userApps1D.removeIf([&](const HVAppRef& app) { return gone.contains(app); });
    }
    writeUserAppsToDisk();
}

HVAppRef HVAppManager::bestMatchForApp(const HVAppRef& app, const HVAppArray& array) const
{
    return bestMatchForApp(app, array.allApps());
}

HVAppRef HVAppManager::bestMatchForApp(const HVAppRef& app, const HVAppBunch& apps) const
{
    if (!app || apps.isEmpty())
        return nullptr;
    // The entry's file name first (a moved entry keeps its desktop ID's last part, while its
    // vanished record can no longer read its own name), then the name.
    const QString fileName = app->path().section(QLatin1Char('/'), -1);
    const QString name = app->name();
    HVAppBunch candidates;
    for (const HVAppRef& candidate : apps) {
        if (candidate->path().section(QLatin1Char('/'), -1) == fileName)
            candidates.append(candidate);
    }
    if (candidates.isEmpty()) {
        for (const HVAppRef& candidate : apps) {
            if (candidate->name() == name)
                candidates.append(candidate);
        }
    }
    if (candidates.size() <= 1)
        return candidates.value(0);
    // Between several of the same name, the one whose enclosing folders match longest wins.
    const QStringList components = pathComponents(app->path());
    HVAppRef best;
    int bestCount = 0;
    for (const HVAppRef& candidate : std::as_const(candidates)) {
        const int count = sharedTrailingComponents(components, pathComponents(candidate->path()));
        if (count > bestCount) {
            best = candidate;
            bestCount = count;
        }
    }
    return best;
}

void HVAppManager::locateUserApps()
{
    HVAppBunch pool = m_allApps1D;
    const QSet<HVAppRef> user = setOf(m_userApps1D);
    pool.removeIf([&](const HVAppRef& app) { return user.contains(app); });
    {
        HVListChange change(this, {HVAppListKeys::UserApps, HVAppListKeys::UserApps1D});
        for (HVAppBunch& bunch : m_userApps) {
            for (HVAppRef& app : bunch) {
                if (app->isPathValid())
                    continue;
                if (HVAppRef match = bestMatchForApp(app, pool)) {
                    app = match;
                    pool.removeOne(match); // no found record is given to two entries
                }
            }
        }
        // The repaired arrangement sets the flat order again.
        rebuildUserApps1D();
    }
    writeUserAppsToDisk();
}

void HVAppManager::excludeApp(const HVAppRef& app)
{
    if (!app)
        return;
    if (!m_excludedApps1D.contains(app)) {
        HVListChange change(this, {HVAppListKeys::ExcludedApps1D});
        m_excludedApps1D.append(app);
        writeExcludedAppsToDisk();
    }
    rebuildDependentApps();
}

void HVAppManager::includeApp(const HVAppRef& app)
{
    if (!app)
        return;
    {
        HVListChange change(this, {HVAppListKeys::ExcludedApps1D});
        m_excludedApps1D.removeAll(app);
    }
    writeExcludedAppsToDisk();
    rebuildDependentApps();
}

void HVAppManager::autoExcludeDockApps(bool dock, bool named)
{
    int added = 0;
    HVListChange change(this, {HVAppListKeys::ExcludedApps1D});
    QSet<HVAppRef> excluded = setOf(m_excludedApps1D);
    auto exclude = [&](const HVAppRef& app) {
        if (excluded.contains(app))
            return;
        m_excludedApps1D.append(app);
        excluded.insert(app);
        ++added;
    };
    if (named) {
        for (const HVAppRef& app : std::as_const(m_allApps1D)) {
            if (app->containsExcludedKeywords())
                exclude(app);
        }
    }
    if (dock && m_keptApplications) {
        const QSet<HVAppRef> all = setOf(m_allApps1D);
        for (const QString& path : m_keptApplications()) {
            const HVAppRef app = appForPath(path);
            if (all.contains(app))
                exclude(app);
        }
    }
    if (added > 0) {
        writeExcludedAppsToDisk();
        rebuildDependentApps();
    }
}

QStringList HVAppManager::excludedNameSubstrings() const
{
    return HVApp::excludedNameSubstrings();
}

void HVAppManager::setExcludedNameSubstrings(const QStringList& words)
{
    HVApp::setExcludedNameSubstrings(words);
    for (const HVAppRef& app : std::as_const(m_allApps1D))
        app->findExcludedStringsInName();
}

HVAppBunch HVAppManager::allAppsThatCanAcceptURL(const QUrl& url) const
{
    HVAppBunch apps;
    for (const HVAppBunch& bunch : m_allApps) {
        for (const HVAppRef& app : bunch) {
            if (app->canAcceptURL(url))
                apps.append(app);
        }
    }
    return apps;
}

HVAppBunch HVAppManager::allAppsThatPreferURL(const QUrl& url) const
{
    HVAppBunch apps;
    for (const HVAppBunch& bunch : m_allApps) {
        for (const HVAppRef& app : bunch) {
            if (app->prefersURL(url))
                apps.append(app);
        }
    }
    return apps;
}
