// Icons: loading every record's icon in the background, the shown group first.
#include "hvappmanager.h"
#include "iconstate.h"

void HVAppManager::loadIconsForApps(const HVAppBunch&) {}

void HVAppManager::loadAllIconsPrioritizingGroup(int) {}

void HVAppManager::clearIconsForAllApps()
{
    for (const HVAppRef& app : std::as_const(m_everythingSet))
        app->resetIconToDot();
}
