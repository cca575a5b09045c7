#include "hvlisteditor.h"

#include "hvappgroup.h"
#include "hvappmanager.h"
#include "hvitemclassifier.h"

#include <QJsonArray>

namespace {
QJsonArray jsonPaths(const HVAppBunch& apps)
{
    return QJsonArray::fromStringList(HVAppManager::pathsFromApps(apps));
}
} // namespace

HVListEditor::HVListEditor(HVAppManager* manager, const DesktopEntryReader* reader)
    : m_manager(manager), m_reader(reader)
{}

QJsonObject HVListEditor::favourites() const
{
    QJsonArray bunches;
    for (const HVAppBunch& bunch : m_manager->userApps())
        bunches.append(jsonPaths(bunch));
    return {{QStringLiteral("userApps"), bunches},
            {QStringLiteral("userApps1D"), jsonPaths(m_manager->userApps1D())}};
}

QString HVListEditor::problemWith(const QStringList& paths, const QStringList& inList) const
{
    if (paths.isEmpty())
        return QStringLiteral("no application given");
    for (const QString& path : paths) {
        const QString standardized = HVApp::standardizedPath(path);
        if (inList.contains(standardized))
            continue;
        if (HVItemClassifier::classifyItem(standardized, m_reader) != HVItemClassApplication)
            return QStringLiteral("%1 is not an application entry (a .desktop file that shows)").arg(path);
    }
    return QString();
}

QString HVListEditor::addFavourite(const QString& path, qint64 bunch, qint64 index, bool newBunch)
{
    if (const QString problem = problemWith({path}); !problem.isEmpty())
        return problem;
    const HVAppRef app = m_manager->appForPath(path);
    if (newBunch)
        m_manager->moveApp(app, HVAppGroupUser, HVIndexPastEnd, 0);
    else
        m_manager->moveApp(app, HVAppGroupUser, std::max<qint64>(bunch, 0), index);
    return QString();
}

QString HVListEditor::removeFavourite(const QString& path)
{
    const QStringList favourites = HVAppManager::pathsFromApps(m_manager->userApps1D());
    if (const QString problem = problemWith({path}, favourites); !problem.isEmpty())
        return problem;
    m_manager->removeAppsFromUserApps({m_manager->appForPath(path)});
    return QString();
}

QString HVListEditor::exclude(const QStringList& paths)
{
    if (const QString problem = problemWith(paths); !problem.isEmpty())
        return problem;
    for (const QString& path : paths)
        m_manager->excludeApp(m_manager->appForPath(path));
    return QString();
}

QString HVListEditor::include(const QStringList& paths)
{
    const QStringList excluded = HVAppManager::pathsFromApps(m_manager->excludedApps1D());
    if (const QString problem = problemWith(paths, excluded); !problem.isEmpty())
        return problem;
    for (const QString& path : paths)
        m_manager->includeApp(m_manager->appForPath(path));
    return QString();
}
