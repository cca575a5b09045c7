// The running applications, in launch order unless "sortRunningByLaunchOrder" is off, and the
// order in which applications came to the front.
#include "hvappmanager.h"
#include "runningappssource.h"

namespace {
int indexOfEqual(const HVAppBunch& apps, const HVAppRef& app)
{
    for (int i = 0; i < apps.size(); ++i) {
        if (apps.at(i)->isEqual(app.get()))
            return i;
    }
    return -1;
}
} // namespace

void HVAppManager::setRunningAppsSource(RunningAppsSource* source)
{
    if (m_runningSource)
        disconnect(m_runningSource, nullptr, this, nullptr);
    m_runningSource = source;
    if (source) {
        connect(source, &RunningAppsSource::applicationLaunched, this, &HVAppManager::handleAppLaunched);
        connect(source, &RunningAppsSource::applicationTerminated, this, &HVAppManager::handleAppTerminated);
        connect(source, &RunningAppsSource::frontApplicationSwitched, this,
                &HVAppManager::handleAppFrontSwitched);
        connect(source, &QObject::destroyed, this, [this, source] {
            if (m_runningSource == source)
                m_runningSource = nullptr;
        });
    }
    m_frontApps.clear();
    runningAppsListDidChange();
    if (HVAppRef active = activeApp())
        m_frontApps.append(active);
}

// The live record of the path when there is one, so a running application shares the icon
// the catalogue loaded; otherwise a new record, registered so that later lists share it too.
HVAppRef HVAppManager::recordForRunningApplication(const RunningApplication& running)
{
    const QString path = HVApp::standardizedPath(running.path);
    HVAppRef app = liveRecordForPath(path);
    if (!app) {
        app = std::make_shared<HVApp>(path);
        if (!running.name.isEmpty())
            app->setDisplayName(running.name);
        else if (m_reader)
            app->setEntryText(m_reader->entryText(path));
        app->setActions(m_actions);
        m_appsByPath.insert(path, app);
    }
    if (!running.icon.isNull() && !app->hasIcon()) {
        if (path.endsWith(QLatin1String(".desktop")))
            app->setIcon(running.icon); // until the entry's own icon has loaded
        else
            app->setWindowIcon(running.icon);
    }
    return app;
}

HVAppRef HVAppManager::liveRecordForPath(const QString& path) const
{
    return m_appsByPath.value(HVApp::standardizedPath(path)).lock();
}

HVAppBunch HVAppManager::launchedHVApps()
{
    HVAppBunch apps;
    if (!m_runningSource)
        return apps;
    for (const RunningApplication& running : m_runningSource->runningApplications()) {
        if (!running.path.isEmpty())
            apps.append(recordForRunningApplication(running));
    }
    return apps;
}

void HVAppManager::runningAppsListDidChange()
{
    HVAppBunch needIcons;
    {
        HVListChange change(this, {HVAppListKeys::RunningApps});
        const HVAppBunch previous = m_runningApps;
        m_runningApps.clear();
        for (const HVAppRef& app : launchedHVApps()) {
            // A running application keeps its record, and with it its icon, across rebuilds.
            const int kept = indexOfEqual(previous, app);
            m_runningApps.append(kept >= 0 ? previous.at(kept) : app);
        }
        sortArray(m_runningApps);
        for (const HVAppRef& app : std::as_const(m_runningApps)) {
            if (!app->hasIcon())
                needIcons.append(app);
        }
    }
    if (!needIcons.isEmpty())
        loadIconsForApps(needIcons);
    m_frontApps.removeIf([this](const HVAppRef& app) { return !isAppRunning(app); });
}

bool HVAppManager::isAppRunning(const HVAppRef& app) const
{
    return app && indexOfEqual(m_runningApps, app) >= 0;
}

HVAppRef HVAppManager::activeApp()
{
    const QString path = m_runningSource ? m_runningSource->activeApplicationPath() : QString();
    if (path.isEmpty())
        return nullptr;
    const HVAppRef app = recordForRunningApplication({path, QString(), QImage()});
    const int running = indexOfEqual(m_runningApps, app);
    if (running >= 0)
        return m_runningApps.at(running);
    if (!app->hasIcon())
        loadIconsForApps({app});
    return app;
}

HVAppRef HVAppManager::lastActiveApp() const
{
    const QString own = m_runningSource ? m_runningSource->ownApplicationPath() : QString();
    const HVApp self(own);
    for (auto it = m_frontApps.crbegin(); it != m_frontApps.crend(); ++it) {
        if (!(*it)->isEqual(&self))
            return *it;
    }
    // Nothing but this program came to the front: the latest running application that is not
    // this program; when every one is, the walk ends at the first and answers it all the same.
    for (int i = int(m_runningApps.size()) - 1; i >= 0; --i) {
        if (i == 0 || !m_runningApps.at(i)->isEqual(&self))
            return m_runningApps.at(i);
    }
    return nullptr;
}

void HVAppManager::quitApp(const HVAppRef& app)
{
    if (app)
        app->quit();
}

void HVAppManager::handleAppFrontSwitched()
{
    const HVAppRef active = activeApp();
    if (!active)
        return;
    const int index = indexOfEqual(m_frontApps, active);
    if (index >= 0)
        m_frontApps.removeAt(index);
    m_frontApps.append(active);
}

void HVAppManager::handleAppLaunched()
{
    runningAppsListDidChange();
}

void HVAppManager::handleAppTerminated()
{
    runningAppsListDidChange();
}
