#include "catalogueharness.h"

#include "catalogue/listfilestore.h"

CatalogueHarness::CatalogueHarness()
{
    m_defaults = std::make_unique<HVUserDefaults>(m_env.configHome() + QStringLiteral("/Nimbo/Nimbo.conf"));
    m_manager = std::make_unique<HVAppManager>(m_defaults.get());
}

QStringList CatalogueHarness::names(const HVAppBunch& apps)
{
    QStringList names;
    for (const HVAppRef& app : apps)
        names.append(app->name());
    return names;
}

QList<QStringList> CatalogueHarness::names(const HVAppBunches& bunches)
{
    QList<QStringList> all;
    for (const HVAppBunch& bunch : bunches)
        all.append(names(bunch));
    return all;
}

void CatalogueHarness::writeUserFile(const QString& fileName, const QVariantList& array)
{
    ListFileStore::writeArray(array, ListFileStore::userFolder() + QLatin1Char('/') + fileName);
}

QVariantList CatalogueHarness::readUserFile(const QString& fileName) const
{
    return ListFileStore::readArray(ListFileStore::userFolder() + QLatin1Char('/') + fileName)
        .value_or(QVariantList());
}
