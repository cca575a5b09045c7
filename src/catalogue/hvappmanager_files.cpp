// The catalogue's list files: reading them into the lists and writing the lists back.
#include "hvappmanager.h"

#include <QDir>

namespace {
QStringList stringsOf(const QVariantList& array)
{
    QStringList strings;
    for (const QVariant& element : array) {
        if (element.metaType().id() == QMetaType::QString)
            strings.append(element.toString());
    }
    return strings;
}

bool isGroupedFile(const QVariantList& array)
{
    return !array.isEmpty() && array.first().metaType().id() == QMetaType::QVariantList;
}
} // namespace

QString HVAppManager::userApplicationSupportFolder() const
{
    return ListFileStore::userFolder();
}

QStringList HVAppManager::localApplicationSupportFolders() const
{
    return ListFileStore::localFolders();
}

bool HVAppManager::writeAppArrays(const HVAppBunches& bunches, const QString& fileName, int domain)
{
    const QStringList local = localApplicationSupportFolders();
    const QString folder =
        domain == LocalDomain && !local.isEmpty() ? local.first() : userApplicationSupportFolder();
    return ListFileStore::writeArray(pathArraysFromAppArrays(bunches), folder + QLatin1Char('/') + fileName);
}

bool HVAppManager::writeAppArray(const HVAppBunch& apps, const QString& fileName, int domain)
{
    const QStringList local = localApplicationSupportFolders();
    const QString folder =
        domain == LocalDomain && !local.isEmpty() ? local.first() : userApplicationSupportFolder();
    const QStringList paths = pathsFromApps(apps);
    return ListFileStore::writeArray(QVariantList(paths.begin(), paths.end()),
                                     folder + QLatin1Char('/') + fileName);
}

std::optional<QVariantList> HVAppManager::readPathArraysFromAppSupportFileNamed(const QString& fileName,
                                                                                int domain)
{
    if (domain != LocalDomain)
        return ListFileStore::readArray(userApplicationSupportFolder() + QLatin1Char('/') + fileName);
    // The machine's folders, in order, read as one list.
    std::optional<QVariantList> all;
    for (const QString& folder : localApplicationSupportFolders()) {
        if (const auto array = ListFileStore::readArray(folder + QLatin1Char('/') + fileName))
            all = all.value_or(QVariantList()) + *array;
    }
    return all;
}

void HVAppManager::readAllAppsFromDisk()
{
    const auto array = readPathArraysFromAppSupportFileNamed(HVListFileNames::AllApplications);
    const auto bunches = appArraysFromPathArrays(array.value_or(QVariantList()));
    if (!bunches)
        return;
    HVListChange change(this, {HVAppListKeys::AllApps, HVAppListKeys::AllApps1D});
    m_allApps = *bunches;
    rebuildAllApps1D();
}

void HVAppManager::readExcludedApps1DFromDisk()
{
    // The user's list united with every administrator's list; duplicates vanish.
    QStringList paths;
    for (int domain : {int(UserDomain), int(LocalDomain)}) {
        const auto array =
            readPathArraysFromAppSupportFileNamed(HVListFileNames::ExcludedApplications, domain);
        if (!array)
            continue;
        if (isGroupedFile(*array)) {
            qWarning("%s holds bunches where a plain list belongs; ignored",
                     qPrintable(HVListFileNames::ExcludedApplications));
            continue;
        }
        for (const QString& path : stringsOf(*array)) {
            const QString standardized = HVApp::standardizedPath(path);
            if (!paths.contains(standardized))
                paths.append(standardized);
        }
    }
    if (paths.isEmpty())
        return;
    HVListChange change(this, {HVAppListKeys::ExcludedApps1D});
    m_excludedApps1D = appsFromPaths(paths);
    sortArray(m_excludedApps1D);
}

void HVAppManager::readUserAppsFromDisk()
{
    const auto array = readPathArraysFromAppSupportFileNamed(HVListFileNames::UserApplications);
    if (!array)
        return;
    HVListChange change(this, {HVAppListKeys::UserApps, HVAppListKeys::UserApps1D});
    if (const auto bunches = appArraysFromPathArrays(*array))
        m_userApps = *bunches;
    const auto flat = readPathArraysFromAppSupportFileNamed(HVListFileNames::UserApplications1D);
    const QStringList flatPaths = flat && !isGroupedFile(*flat) ? stringsOf(*flat) : QStringList();
    if (!flatPaths.isEmpty())
        m_userApps1D = appsFromPaths(flatPaths);
    else
        rebuildUserApps1D(); // an arrangement saved without its flat order gets one derived once
}

void HVAppManager::writeUserAppsToDisk()
{
    writeAppArrays(m_userApps, HVListFileNames::UserApplications);
    writeAppArray(m_userApps1D, HVListFileNames::UserApplications1D);
}

void HVAppManager::writeExcludedAppsToDisk()
{
    writeAppArray(m_excludedApps1D, HVListFileNames::ExcludedApplications);
}
