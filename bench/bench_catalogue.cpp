// The catalogue's own costs: loading a 5,000-application catalogue from its list files and
// rebuilding every derived list, and one favourite moved with both user files written.
#include "catalogue/hvappmanager.h"
#include "catalogue/listfilestore.h"
#include "common/hvuserdefaults.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {
constexpr int AppCount = 5000;
constexpr int FolderCount = 5;

struct Catalogue
{
    QTemporaryDir dir;
    std::unique_ptr<HVUserDefaults> defaults;

    Catalogue()
    {
        qputenv("XDG_DATA_HOME", dir.path().toLocal8Bit());
        qputenv("XDG_DATA_DIRS", (dir.path() + "/system").toLocal8Bit());
        defaults = std::make_unique<HVUserDefaults>(dir.path() + "/Nimbo.conf");
        QVariantList all;
        QVariantList excluded;
        QVariantList user;
        QVariantList user1D;
        for (int folder = 0; folder < FolderCount; ++folder) {
            QVariantList bunch;
            for (int i = folder; i < AppCount; i += FolderCount) {
                const QString path = QString("/usr/share/applications-%1/app-%2 Name %3.desktop")
                                         .arg(folder)
                                         .arg((i * 7919) % AppCount)
                                         .arg(i % 97);
                bunch.append(path);
                if (i % 25 == 0)
                    excluded.append(path);
                if (i % 100 == 1) {
                    user1D.append(path);
                    if (user.isEmpty() || user.last().toList().size() == 10)
                        user.append(QVariant(QVariantList()));
                    QVariantList last = user.takeLast().toList();
                    last.append(path);
                    user.append(QVariant(last));
                }
            }
            all.append(QVariant(bunch));
        }
        const QString folder = ListFileStore::userFolder() + "/";
        ListFileStore::writeArray(all, folder + HVListFileNames::AllApplications);
        ListFileStore::writeArray(excluded, folder + HVListFileNames::ExcludedApplications);
        ListFileStore::writeArray(user, folder + HVListFileNames::UserApplications);
        ListFileStore::writeArray(user1D, folder + HVListFileNames::UserApplications1D);
    }
};

void loadAndRebuild(HVAppManager& manager)
{
    manager.readAllAppsFromDisk();
    manager.sortAllApps();
    manager.readExcludedApps1DFromDisk();
    manager.readUserAppsFromDisk();
    manager.rebuildDependentApps();
    manager.rebuildEverythingSet();
}

void BM_LoadCatalogueAndRebuildDerivedLists(benchmark::State& state)
{
    Catalogue catalogue;
    for (auto _ : state) {
        HVAppManager manager(catalogue.defaults.get());
        loadAndRebuild(manager);
        benchmark::DoNotOptimize(manager.includedApps1D().size());
    }
    state.counters["apps"] = AppCount;
}
BENCHMARK(BM_LoadCatalogueAndRebuildDerivedLists)->Unit(benchmark::kMillisecond);

void BM_MoveFavouriteAndWriteBothFiles(benchmark::State& state)
{
    Catalogue catalogue;
    HVAppManager manager(catalogue.defaults.get());
    loadAndRebuild(manager);
    const HVAppBunch favourites = manager.userApps1D();
    qint64 step = 0;
    for (auto _ : state) {
        const HVAppRef& app = favourites.at(step % favourites.size());
        manager.moveApp(app, HVAppGroupUser, step % manager.userApps().size(), (step * 3) % 7);
        ++step;
    }
    state.counters["favourites"] = double(favourites.size());
}
BENCHMARK(BM_MoveFavouriteAndWriteBothFiles)->Unit(benchmark::kMicrosecond);
} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
