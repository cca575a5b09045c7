// nimboctl scan: what the menu's rescan does, without a display, in the current HOME, XDG
// folders and preferences. Writes "AllApplications.plist" and prints the catalogue's lists as
// one JSON object of paths.
#include "ctlcommand.h"

#include "catalogue/hvappmanager.h"
#include "catalogue/hvarraycontroller.h"
#include "common/hvuserdefaults.h"
#include "platform/gioentryreader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTextStream>

namespace {
QByteArray json(const HVAppBunch& apps)
{
    return QJsonDocument(QJsonArray::fromStringList(HVAppManager::pathsFromApps(apps)))
        .toJson(QJsonDocument::Compact);
}

QByteArray json(const HVAppBunches& bunches)
{
    QJsonArray arrays;
    for (const HVAppBunch& bunch : bunches)
        arrays.append(QJsonArray::fromStringList(HVAppManager::pathsFromApps(bunch)));
    return QJsonDocument(arrays).toJson(QJsonDocument::Compact);
}

// The group the panel would show first, as the shell passes it to the rescan.
int groupToShowFirst(const HVUserDefaults& defaults)
{
    for (const char* key : {"groupToShowWhenWindowOpens", "groupShownWhenWindowClosed"}) {
        const QString name = QString::fromLatin1(key);
        if (defaults.objectForKey(name).isValid() && defaults.integerForKey(name) != HVAppGroupNone)
            return int(defaults.integerForKey(name));
    }
    return HVAppGroupIncluded;
}

int runScan(const QStringList& args)
{
    if (!args.isEmpty()) {
        QTextStream(stderr) << "usage: nimboctl scan\n";
        return 2;
    }
    HVUserDefaults* defaults = HVUserDefaults::standardUserDefaults();
    HVArrayController::initialize(defaults);
    HVAppManager manager(defaults, std::make_shared<GioEntryReader>());
    // A running catalogue holds the saved lists when the user asks for a rescan, so the
    // rescan always scans.
    manager.clearIconsForAllApps();
    manager.readAllAppsFromDisk();
    manager.rescanAllAppsPrioritizingGroup(groupToShowFirst(*defaults));

    QTextStream out(stdout);
    out << "{\"allApps\": " << json(manager.allApps()) << ", \"allApps1D\": " << json(manager.allApps1D())
        << ", \"includedApps\": " << json(manager.includedApps())
        << ", \"includedApps1D\": " << json(manager.includedApps1D())
        << ", \"excludedApps\": " << json(manager.excludedApps())
        << ", \"excludedApps1D\": " << json(manager.excludedApps1D())
        << ", \"missingApps\": " << json(manager.missingApps())
        << ", \"userApps\": " << json(manager.userApps())
        << ", \"userApps1D\": " << json(manager.userApps1D()) << "}\n";
    return 0;
}
} // namespace

NIMBOCTL_COMMAND("scan", "scan", runScan)
