// A full scan of 5,000 desktop entries in three application folders (the user's and two system
// ones, some in vendor sub-folders, some desktop IDs in more than one folder), with the file
// system's cache warm, side by side with GIO's own g_app_info_get_all() plus
// g_app_info_should_show() over the same tree.
//
// GIO indexes the application folders once per process, so it is measured in fresh processes
// (this program run again with --gio-child): each child times its first call, which reads the
// folders and every entry, and then its later calls, which reuse the folder index. The closing
// lines print the scan's median time against both.
// GIO's headers name a field "signals", which Qt defines as a keyword: they come first.
#include <gio/gio.h>

#include "catalogue/hvappmanager.h"
#include "common/hvuserdefaults.h"
#include "platform/gioentryreader.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>

namespace {
constexpr int EntryCount = 5000;
constexpr int FolderCount = 3;
constexpr int ChildCalls = 5; // GIO calls per child process: the first, then with its index

struct Tree
{
    QTemporaryDir dir;
    QStringList folders; // the three application folders, in scan order

    Tree()
    {
        folders = {dir.path() + "/home/applications", dir.path() + "/usr/applications",
                   dir.path() + "/local/applications"};
        qputenv("XDG_DATA_HOME", (dir.path() + "/home").toLocal8Bit());
        qputenv("XDG_DATA_DIRS", (dir.path() + "/usr:" + dir.path() + "/local").toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", (dir.path() + "/config").toLocal8Bit());
        qputenv("XDG_CURRENT_DESKTOP", "GNOME");
        for (int i = 0; i < EntryCount; ++i)
            write(i);
    }

    // Mostly ordinary entries with translations; every 20th does not show in one way or another;
    // every 50th repeats a desktop ID of the first folder (masked there).
    void write(int i) const
    {
        const int f = i % FolderCount;
        QString relative = QString("app%1.desktop").arg(i);
        if (i % 7 == 0)
            relative = QString("vendor%1/app%2.desktop").arg(i % 5).arg(i);
        if (i % 50 == 3 && f != 0)
            relative = QString("app%1.desktop").arg(i - i % FolderCount);
        QByteArray text = "[Desktop Entry]\nType=Application\nName=Application " + QByteArray::number(i) +
                          "\nName[de]=Anwendung " + QByteArray::number(i) + "\nName[fr]=Application " +
                          QByteArray::number(i) + "\nGenericName=Tool\nComment=Does thing number " +
                          QByteArray::number(i) + "\nExec=sh %F\nIcon=app" + QByteArray::number(i) +
                          "\nTerminal=false\nCategories=Utility;Development;\nMimeType=text/plain;\n";
        switch (i % 20) {
        case 5:
            text += "NoDisplay=true\n";
            break;
        case 10:
            text += "OnlyShowIn=KDE;\n";
            break;
        case 15:
            text += "TryExec=nimbo-bench-no-such-program\n";
            break;
        default:
            break;
        }
        text += "\n[Desktop Action new]\nName=New\nExec=sh\n";
        const QString path = folders.at(f) + "/" + relative;
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(text);
    }
};

Tree* tree = nullptr;
// Wall-clock and processor seconds; on a busy machine the processor time is the steadier one.
std::vector<double> scanSeconds, gioFirstSeconds, gioIndexedSeconds;
std::vector<double> scanCpuSeconds, gioFirstCpuSeconds;
qsizetype scanCount = 0;
int gioCount = 0;

double processCpuSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) / 1e9;
}

double median(std::vector<double> values)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

// In the child: the calls, each printed as "<seconds> <processor seconds> <applications shown>".
int runGioChild()
{
    for (int call = 0; call < ChildCalls; ++call) {
        const double cpuStart = processCpuSeconds();
        const gint64 start = g_get_monotonic_time();
        GList* all = g_app_info_get_all();
        int shown = 0;
        for (GList* item = all; item; item = item->next)
            shown += g_app_info_should_show(G_APP_INFO(item->data)) ? 1 : 0;
        g_list_free_full(all, g_object_unref);
        const double seconds = double(g_get_monotonic_time() - start) / 1e6;
        std::printf("%.9f %.9f %d\n", seconds, processCpuSeconds() - cpuStart, shown);
    }
    return 0;
}

void BM_FullScan5000Entries(benchmark::State& state)
{
    HVUserDefaults defaults(tree->dir.path() + "/Nimbo.conf");
    HVAppManager manager(&defaults, std::make_shared<GioEntryReader>());
    manager.fullScan(); // the file system's cache is warm from here on
    for (auto _ : state) {
        const double cpuStart = processCpuSeconds();
        const auto start = std::chrono::steady_clock::now();
        manager.fullScan();
        scanSeconds.push_back(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        scanCpuSeconds.push_back(processCpuSeconds() - cpuStart);
    }
    scanCount = manager.allApps1D().size();
    state.counters["apps"] = double(scanCount);
}
BENCHMARK(BM_FullScan5000Entries)->Unit(benchmark::kMillisecond)->MinTime(3);

// One fresh process per iteration; the time is what the child measured for its first call.
void BM_GioGetAllInFreshProcess(benchmark::State& state)
{
    for (auto _ : state) {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {"--gio-child"});
        if (!child.waitForFinished(60000) || child.exitCode() != 0) {
            state.SkipWithError("the GIO child failed");
            return;
        }
        const QList<QByteArray> lines = child.readAllStandardOutput().trimmed().split('\n');
        for (int call = 0; call < lines.size(); ++call) {
            const QList<QByteArray> fields = lines.at(call).split(' ');
            const double seconds = fields.value(0).toDouble();
            gioCount = fields.value(2).toInt();
            (call == 0 ? gioFirstSeconds : gioIndexedSeconds).push_back(seconds);
            if (call == 0) {
                gioFirstCpuSeconds.push_back(fields.value(1).toDouble());
                state.SetIterationTime(seconds);
            }
        }
    }
    state.counters["apps"] = gioCount;
}
BENCHMARK(BM_GioGetAllInFreshProcess)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(15);
} // namespace

int main(int argc, char** argv)
{
    if (argc > 1 && std::strcmp(argv[1], "--gio-child") == 0)
        return runGioChild();
    QCoreApplication app(argc, argv);
    Tree built;
    tree = &built;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    const double scan = median(scanSeconds);
    const double first = median(gioFirstSeconds);
    const double indexed = median(gioIndexedSeconds);
    if (scan > 0 && first > 0) {
        std::printf("\n%d entries in %d folders, warm cache (medians):\n", EntryCount, FolderCount);
        std::printf("  Nimbo full scan                         %8.2f ms  %lld apps\n", scan * 1e3,
                    static_cast<long long>(scanCount));
        std::printf("  GIO get_all + should_show, first call   %8.2f ms  %d shown\n", first * 1e3, gioCount);
        std::printf("  GIO get_all + should_show, later calls  %8.2f ms\n", indexed * 1e3);
        if (scanCount != gioCount)
            std::printf("  (the scan and GIO disagree on the number of applications)\n");
        std::printf("  ratio scan / GIO first call   %.2f\n", scan / first);
        if (indexed > 0)
            std::printf("  ratio scan / GIO later calls  %.2f\n", scan / indexed);
        const double scanCpu = median(scanCpuSeconds);
        const double firstCpu = median(gioFirstCpuSeconds);
        if (firstCpu > 0)
            std::printf("  processor time: scan %.2f ms, GIO first call %.2f ms, ratio %.2f\n", scanCpu * 1e3,
                        firstCpu * 1e3, scanCpu / firstCpu);
    }
    return 0;
}
