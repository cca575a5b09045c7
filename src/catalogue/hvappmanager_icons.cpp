// Icons: every record's icon loads in the background on the shared queue, the group about to
// be shown first. The queue is first in, first out, so the order of the calls here is the order
// in which icons arrive.
#include "hvappmanager.h"
#include "iconloader.h"

#include "common/hvuserdefaults.h"

#include <algorithm>

IconParameters HVAppManager::iconParametersFromPreferences() const
{
    IconParameters params;
    params.iconSize =
        quint64(std::max<qint64>(0, m_defaults->integerForKey(QStringLiteral("maximumIconSize"))));
    params.colorFraction = m_defaults->floatForKey(QStringLiteral("colorSortGrayThreshold"));
    params.sortGrayBySecColor = m_defaults->boolForKey(QStringLiteral("colorSortGraysBySecondaryColor"));
    params.wrapHue = m_defaults->floatForKey(QStringLiteral("colorSortWrapHue"));
    params.colorfulness = m_defaults->floatForKey(QStringLiteral("colorSortMinSaturation"));
    params.lightness = m_defaults->floatForKey(QStringLiteral("colorSortMinLuminosity"));
    return params;
}

void HVAppManager::loadIconsForApps(const HVAppBunch& apps)
{
    if (apps.isEmpty())
        return;
    const IconParameters params = iconParametersFromPreferences();
    const IconLoader::Batch batch(IconLoader::sharedIconLoader());
    // A copy: records announce their new colours as they go, and observers may touch the lists.
    const HVAppBunch records = apps;
    for (const HVAppRef& app : records)
        app->setIconParameters(params);
}

void HVAppManager::loadIconsForApps(const HVAppBunches& bunches)
{
    HVAppBunch apps;
    for (const HVAppBunch& bunch : bunches)
        apps += bunch;
    loadIconsForApps(apps);
}

void HVAppManager::loadAllIconsPrioritizingGroup(int group)
{
    const HVAppBunch* first = &m_includedApps1D;
    switch (group) {
    case HVAppGroupExcluded:
    case HVAppGroupExcluded1D:
        first = &m_excludedApps1D;
        break;
    case HVAppGroupAll:
    case HVAppGroupAll1D:
        first = &m_allApps1D;
        break;
    case HVAppGroupUser:
    case HVAppGroupUser1D:
        first = &m_userApps1D;
        break;
    default:
        break;
    }
    const HVAppBunch firstApps = *first;
    const QSet<HVAppRef> inFirst(firstApps.cbegin(), firstApps.cend());
    // The rest of the catalogue: every record it holds that the first list does not, in the
    // order of all applications, then of the favourites, then the others.
    HVAppBunch rest;
    QSet<HVAppRef> taken = inFirst;
    auto take = [this, &rest, &taken](const HVAppRef& app) {
        if (!taken.contains(app) && m_everythingSet.contains(app)) {
            taken.insert(app);
            rest.append(app);
        }
    };
    for (const HVAppBunch* list : {&m_allApps1D, &m_userApps1D})
        std::for_each(list->cbegin(), list->cend(), take);
    std::for_each(m_everythingSet.cbegin(), m_everythingSet.cend(), take);
    const IconLoader::Batch batch(IconLoader::sharedIconLoader());
    loadIconsForApps(firstApps);
    loadIconsForApps(rest);
}

void HVAppManager::clearIconsForAllApps()
{
    for (const HVAppRef& app : std::as_const(m_allApps1D))
        app->resetIconToDot();
    loadIconsForApps(m_allApps1D);
}
