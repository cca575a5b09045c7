// The running applications, in launch order unless "sortRunningByLaunchOrder" is off.
#include "hvappmanager.h"

void HVAppManager::runningAppsListDidChange()
{
    HVListChange change(this, {HVAppListKeys::RunningApps});
    sortArray(m_runningApps);
}
