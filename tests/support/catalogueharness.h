// Builds a catalogue over private XDG folders with records made from plain paths.
#pragma once

#include "testenvironment.h"

#include "catalogue/hvappmanager.h"
#include "common/hvuserdefaults.h"

#include <memory>

class CatalogueHarness
{
public:
    CatalogueHarness();

    HVAppManager& manager() { return *m_manager; }
    HVUserDefaults& defaults() { return *m_defaults; }
    const TestEnvironment& env() const { return m_env; }

    HVAppRef app(const QString& path) { return m_manager->appForPath(path); }
    HVAppBunch apps(const QStringList& paths) { return m_manager->appsFromPaths(paths); }
    // Paths of a flat list / of each bunch, for compact comparisons.
    static QStringList names(const HVAppBunch& apps);
    static QList<QStringList> names(const HVAppBunches& bunches);

    // Writes a list file (a list of paths, or of lists of paths) into the user's folder.
    void writeUserFile(const QString& fileName, const QVariantList& array);
    QVariantList readUserFile(const QString& fileName) const;

private:
    TestEnvironment m_env;
    std::unique_ptr<HVUserDefaults> m_defaults;
    std::unique_ptr<HVAppManager> m_manager;
};
