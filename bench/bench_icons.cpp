// Icon loading at start-up: 1,000 desktop entries naming real Adwaita and Papirus icons (a theme
// of the user's own that inherits Adwaita, then Papirus), loaded at the default 64-pixel size
// with the shown group first. Measured: the time until every icon is delivered to its record
// and analysed for colour, with no icon cache (cold) and with the cache of a previous start
// (warm), and the longest stretch the main thread did not get back to its event loop while the
// icons loaded (a 1 ms timer records the largest gap between its ticks; busy_ms is the main
// thread's own CPU time within such a gap, queue_ms the catalogue's call that queues the loads).
// New cache files are written behind the loads; written_s says when the last one was. The
// "WithPanel" runs show the group in the icon view meanwhile, which redraws as icons arrive.
#include "browser/hviconview.h"
#include "catalogue/hvappmanager.h"
#include "catalogue/iconloader.h"
#include "catalogue/listfilestore.h"
#include "common/hvuserdefaults.h"
#include "platform/desktopiconsource.h"

#include "offscreenbenchmarkmain.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>

#include <benchmark/benchmark.h>

#include <ctime>
#include <sys/resource.h>

namespace {
constexpr int EntryCount = 1000;
constexpr int AdwaitaEntries = 400;
constexpr int BunchCount = 10;
const QString SystemIcons = QStringLiteral("/usr/share/icons");

// The names of a theme's icons (without extension), symbolic ones left out.
QStringList iconNames(const QString& theme, const QString& under)
{
    QSet<QString> names;
    QDirIterator it(SystemIcons + QLatin1Char('/') + theme + under,
                    {QStringLiteral("*.png"), QStringLiteral("*.svg")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString name = it.nextFileInfo().completeBaseName();
        if (!name.contains(QLatin1String("symbolic")))
            names.insert(name);
    }
    QStringList sorted(names.begin(), names.end());
    sorted.sort();
    return sorted;
}

struct IconBench
{
    QTemporaryDir dir;
    DesktopIconSource::Settings settings;
    QStringList entries;
    int runs = 0;
    int caches = 0;

    // A cache folder never used: a cold start. Old ones stay until the end, since deleting a
    // thousand files just before a run makes the file system slow to create the next thousand,
    // which no real first start meets.
    void useEmptyCache()
    {
        settings.cacheFolder = QString("%1/cache-%2/Nimbo/icons").arg(dir.path()).arg(++caches);
    }

    IconBench()
    {
        qputenv("XDG_DATA_HOME", (dir.path() + "/data").toLocal8Bit());
        qputenv("XDG_DATA_DIRS", (dir.path() + "/system").toLocal8Bit());
        QDir().mkpath(dir.path() + "/icons/BenchIcons");
        QFile index(dir.path() + "/icons/BenchIcons/index.theme");
        index.open(QIODevice::WriteOnly);
        index.write("[Icon Theme]\nName=BenchIcons\nInherits=Adwaita,Papirus\nDirectories=\n");
        index.close();
        settings.themes.themeName = QStringLiteral("BenchIcons");
        settings.themes.baseFolders = {dir.path() + "/icons", SystemIcons};
        settings.themes.pixmapFolders = {QStringLiteral("/usr/share/pixmaps")};
        settings.cacheFolder = dir.path() + "/cache/Nimbo/icons";

        // Adwaita's names first (each entry its own, repeated when there are too few), then
        // Papirus applications that Adwaita does not have.
        const QStringList adwaita = iconNames(QStringLiteral("Adwaita"), QString());
        const QSet<QString> inAdwaita(adwaita.begin(), adwaita.end());
        QStringList papirus;
        for (const QString& name : iconNames(QStringLiteral("Papirus"), QStringLiteral("/64x64/apps"))) {
            if (!inAdwaita.contains(name))
                papirus.append(name);
        }
        QVariantList bunches;
        QVariantList bunch;
        for (int i = 0; i < EntryCount; ++i) {
            const QString icon = i < AdwaitaEntries ? adwaita.at(i % adwaita.size())
                                                    : papirus.at((i - AdwaitaEntries) * 7 % papirus.size());
            const QString path =
                QString("%1/apps/bench-%2.desktop").arg(dir.path()).arg(i, 4, 10, QChar('0'));
            QDir().mkpath(dir.path() + "/apps");
            QFile entry(path);
            entry.open(QIODevice::WriteOnly);
            entry.write("[Desktop Entry]\nType=Application\nName=Bench " + QByteArray::number(i) +
                        "\nExec=true\nIcon=" + icon.toUtf8() + "\n");
            entries.append(path);
            bunch.append(path);
            if (bunch.size() == EntryCount / BunchCount) {
                bunches.append(QVariant(bunch));
                bunch.clear();
            }
        }
        QDir().mkpath(ListFileStore::userFolder());
        ListFileStore::writeArray(bunches,
                                  ListFileStore::userFolder() + "/" + HVListFileNames::AllApplications);
    }
};

IconBench& bench()
{
    static IconBench instance;
    return instance;
}

qint64 threadCpuNs()
{
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return qint64(now.tv_sec) * 1000000000 + now.tv_nsec;
}

double processCpuSeconds()
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

struct Run
{
    double seconds = 0;
    double longestStallMs = 0;      // wall time between two ticks of the probe
    double longestBusyMs = 0;       // the main thread's own CPU time between two ticks
    double queueingMs = 0;          // the catalogue's call that queues every load
    double cpuSeconds = 0;          // all threads
    double cacheWrittenSeconds = 0; // until the last new cache file was written

    int withIcon = 0;
    int analysed = 0;
    DesktopIconSource::Counts counts;
};

// One start-up's icon loading, as the catalogue does it once its lists are read; with
// `panel`, the icon view shows the group on screen meanwhile and redraws as icons arrive.
Run loadAllIcons(IconBench& setup, bool panel = false)
{
    auto source = std::make_shared<DesktopIconSource>(setup.settings);
    IconLoader* loader = IconLoader::sharedIconLoader();
    loader->setIconSource(source);
    HVUserDefaults defaults(QString("%1/Nimbo-%2.conf").arg(setup.dir.path()).arg(++setup.runs));
    defaults.registerDefaults({{"maximumIconSize", 64}});
    HVAppManager manager(&defaults);
    manager.awakeFromNib();
    manager.readAllAppsFromDisk();
    manager.sortAllApps();
    manager.rebuildDependentApps();
    manager.rebuildEverythingSet();
    std::unique_ptr<HVIconView> view;
    if (panel) {
        view = std::make_unique<HVIconView>(&manager, &defaults);
        view->setMaxIconViewSize(QSizeF(1872, 1032));
        view->setGroupToShow(HVAppGroupIncluded);
        view->show();
        while (!view->windowHandle() || !view->windowHandle()->isExposed())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
        view->repaint();
    }

    QEventLoop loop;
    QElapsedTimer clock;
    qint64 lastTick = 0, longestGap = 0, started = -1, finished = 0, queued = 0;
    qint64 lastCpu = threadCpuNs(), longestBusy = 0;
    const double cpuBefore = processCpuSeconds();
    QTimer probe;
    probe.setTimerType(Qt::PreciseTimer);
    probe.setInterval(1);
    QObject::connect(&probe, &QTimer::timeout, [&] {
        const qint64 now = clock.nsecsElapsed();
        const qint64 cpu = threadCpuNs();
        longestGap = std::max(longestGap, now - lastTick);
        longestBusy = std::max(longestBusy, cpu - lastCpu);
        lastTick = now;
        lastCpu = cpu;
        if (started >= 0 && loader->pendingLoads() == 0) {
            finished = now;
            loop.quit();
        }
    });
    QTimer::singleShot(0, [&] {
        started = clock.nsecsElapsed();
        manager.loadAllIconsPrioritizingGroup(HVAppGroupIncluded);
        queued = clock.nsecsElapsed() - started;
    });
    clock.start();
    probe.start();
    loop.exec();
    probe.stop();
    source->waitForCacheWrites();
    const qint64 written = clock.nsecsElapsed();

    Run run;
    run.seconds = double(finished - started) / 1e9;
    run.cacheWrittenSeconds = double(written - started) / 1e9;
    run.longestStallMs = double(longestGap) / 1e6;
    run.longestBusyMs = double(longestBusy) / 1e6;
    run.queueingMs = double(queued) / 1e6;
    run.cpuSeconds = processCpuSeconds() - cpuBefore;
    for (const HVAppRef& app : manager.allApps1D()) {
        run.withIcon += app->hasIcon() ? 1 : 0;
        run.analysed += app->colourState().hclColors() ? 1 : 0;
    }
    run.counts = source->counts();
    view.reset();
    manager.tearDown();
    return run;
}

struct Longest
{
    double stall = 0, busy = 0, queueing = 0;
    void add(const Run& run)
    {
        stall = std::max(stall, run.longestStallMs);
        busy = std::max(busy, run.longestBusyMs);
        queueing = std::max(queueing, run.queueingMs);
    }
};

void report(benchmark::State& state, const Run& run, const Longest& longest)
{
    state.SetIterationTime(run.seconds);
    state.counters["stall_ms"] = longest.stall;
    state.counters["busy_ms"] = longest.busy;
    state.counters["queue_ms"] = longest.queueing;
    state.counters["cpu_s"] = run.cpuSeconds;              // of the last run
    state.counters["written_s"] = run.cacheWrittenSeconds; // of the last run
    state.counters["icons"] = run.withIcon;
    state.counters["analysed"] = run.analysed;
    state.counters["rendered"] = run.counts.renders;
    state.counters["cached"] = run.counts.cacheHits;
}

void BM_ColdStart(benchmark::State& state)
{
    IconBench& setup = bench();
    Longest longest;
    for (auto _ : state) {
        setup.useEmptyCache();
        const Run run = loadAllIcons(setup);
        longest.add(run);
        report(state, run, longest);
    }
}

void BM_WarmStart(benchmark::State& state)
{
    IconBench& setup = bench();
    loadAllIcons(setup); // the previous start leaves every icon in the cache
    Longest longest;
    for (auto _ : state) {
        const Run run = loadAllIcons(setup);
        longest.add(run);
        report(state, run, longest);
    }
}

void BM_ColdStartWithPanel(benchmark::State& state)
{
    IconBench& setup = bench();
    Longest longest;
    for (auto _ : state) {
        setup.useEmptyCache();
        const Run run = loadAllIcons(setup, true);
        longest.add(run);
        report(state, run, longest);
    }
}

void BM_WarmStartWithPanel(benchmark::State& state)
{
    IconBench& setup = bench();
    loadAllIcons(setup);
    Longest longest;
    for (auto _ : state) {
        const Run run = loadAllIcons(setup, true);
        longest.add(run);
        report(state, run, longest);
    }
}

BENCHMARK(BM_ColdStart)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_WarmStart)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_ColdStartWithPanel)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_WarmStartWithPanel)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
} // namespace

int main(int argc, char** argv)
{
    return runBenchmarksOffscreen(argc, argv);
}
