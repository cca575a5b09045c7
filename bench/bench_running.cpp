// The running list on a real X server with a real window manager: rebuilding it with 50 mapped
// windows (the tracker reading every window again, and the catalogue's own rebuild), and the
// time from a window being mapped to the catalogue's running list having changed (and from its
// being destroyed to the application leaving the list).
//
// Run without a private desktop, the program runs itself again inside tests/with-desktop
// (a virtual X server, openbox and a session bus of its own).
#include "catalogue/hvappmanager.h"
#include "common/hvuserdefaults.h"
#include "platform/gioentryreader.h"
#include "platform/x11connection.h"
#include "platform/x11runningapps.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace {
constexpr int WindowCount = 50;
constexpr int TimeoutMs = 10000;
const char DesktopMarker[] = "NIMBO_BENCH_DESKTOP";

// Windows of this process's own, on a connection of their own, as another program would make them.
class WindowMaker
{
public:
    WindowMaker() : m_connection(xcb_connect(nullptr, nullptr))
    {
        m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        m_pidAtom = X11Connection::intern(m_connection, "_NET_WM_PID");
        m_clientListAtom = X11Connection::intern(m_connection, "_NET_CLIENT_LIST");
        const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(m_connection, m_screen->root, XCB_CW_EVENT_MASK, &mask);
        xcb_flush(m_connection);
    }
    ~WindowMaker() { xcb_disconnect(m_connection); }

    // A mapped top-level window with the WM_CLASS given (instance and class) and this process's pid.
    xcb_window_t map(const QByteArray& instance, const QByteArray& wmClass)
    {
        const xcb_window_t window = xcb_generate_id(m_connection);
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_screen->root, 0, 0, 120, 80, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, m_screen->root_visual, 0, nullptr);
        const QByteArray classes = instance + '\0' + wmClass + '\0';
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING,
                            8, uint32_t(classes.size()), classes.constData());
        const uint32_t pid = uint32_t(getpid());
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, m_pidAtom, XCB_ATOM_CARDINAL, 32, 1,
                            &pid);
        xcb_map_window(m_connection, window);
        xcb_flush(m_connection);
        return window;
    }
    void destroy(xcb_window_t window)
    {
        xcb_destroy_window(m_connection, window);
        xcb_flush(m_connection);
    }
    // Blocks until the window manager next rewrites its client list (false if the connection broke).
    bool waitForClientListChange()
    {
        while (xcb_generic_event_t* event = xcb_wait_for_event(m_connection)) {
            const auto* notify = reinterpret_cast<const xcb_property_notify_event_t*>(event);
            const bool found = (event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY &&
                               notify->window == m_screen->root && notify->atom == m_clientListAtom;
            std::free(event);
            if (found)
                return true;
        }
        return false;
    }
    // Forgets the changes seen so far.
    void skipPendingEvents()
    {
        while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection))
            std::free(event);
    }

private:
    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen = nullptr;
    xcb_atom_t m_pidAtom = XCB_ATOM_NONE;
    xcb_atom_t m_clientListAtom = XCB_ATOM_NONE;
};

// 50 windows of 40 applications: 30 entries claim one window each by StartupWMClass, 10 claim
// two each by desktop ID.
struct Desktop
{
    QTemporaryDir dir;
    std::unique_ptr<HVUserDefaults> defaults;
    std::unique_ptr<X11RunningApps> tracker;
    std::unique_ptr<HVAppManager> manager;
    WindowMaker windows;
    QString newcomer;

    QString writeEntry(const QString& name, const QByteArray& lines) const
    {
        const QString path = dir.path() + "/data/applications/" + name;
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write("[Desktop Entry]\nType=Application\nName=" + name.toUtf8() + "\nExec=sh\n" + lines);
        return path;
    }

    bool setUp()
    {
        qputenv("XDG_DATA_HOME", (dir.path() + "/data").toLocal8Bit());
        qputenv("XDG_DATA_DIRS", (dir.path() + "/system").toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", (dir.path() + "/config").toLocal8Bit());
        QDir().mkpath(dir.path() + "/data/applications");
        for (int i = 0; i < 30; ++i)
            writeEntry(QString("bench-wm-%1.desktop").arg(i),
                       "StartupWMClass=BenchWm" + QByteArray::number(i) + "\n");
        for (int i = 0; i < 10; ++i)
            writeEntry(QString("benchid%1.desktop").arg(i), QByteArray());
        newcomer = writeEntry("bench-newcomer.desktop", "StartupWMClass=BenchNewcomer\n");

        defaults = std::make_unique<HVUserDefaults>(dir.path() + "/Nimbo.conf");
        tracker = std::make_unique<X11RunningApps>();
        if (!tracker->isTracking())
            return false;
        manager = std::make_unique<HVAppManager>(defaults.get(), std::make_shared<GioEntryReader>());
        manager->setRunningAppsSource(tracker.get());
        for (int i = 0; i < 30; ++i)
            windows.map("bench-wm", "BenchWm" + QByteArray::number(i));
        for (int i = 0; i < 20; ++i)
            windows.map("benchid" + QByteArray::number(i % 10), "Bench");
        return waitFor([this] { return manager->runningApps().size() == 40; });
    }

    // Sleeps in the event loop until the catalogue's lists change in a way that satisfies `done`
    // (nothing spins: a busy wait would take the processor from the X server and the window manager).
    bool waitFor(const std::function<bool()>& done) const
    {
        if (done())
            return true;
        QEventLoop loop;
        bool satisfied = false;
        QObject::connect(manager.get(), &HVAppManager::didChange, &loop, [&] {
            if (done()) {
                satisfied = true;
                loop.quit();
            }
        });
        QTimer::singleShot(TimeoutMs, &loop, &QEventLoop::quit);
        loop.exec();
        return satisfied;
    }
};

Desktop* desktop = nullptr;

void BM_TrackerRereadsAllWindows(benchmark::State& state)
{
    for (auto _ : state)
        desktop->tracker->rereadAllWindows();
    state.counters["windows"] = WindowCount;
    state.counters["apps"] = double(desktop->tracker->runningApplications().size());
}
BENCHMARK(BM_TrackerRereadsAllWindows)->Unit(benchmark::kMicrosecond);

void BM_CatalogueRebuildsRunningList(benchmark::State& state)
{
    for (auto _ : state)
        desktop->manager->runningAppsListDidChange();
    state.counters["apps"] = double(desktop->manager->runningApps().size());
}
BENCHMARK(BM_CatalogueRebuildsRunningList)->Unit(benchmark::kMicrosecond);

double median(std::vector<double> values)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

bool newcomerRuns()
{
    for (const HVAppRef& app : desktop->manager->runningApps()) {
        if (app->path() == desktop->newcomer)
            return true;
    }
    return false;
}

// From the map request leaving this process to the catalogue's list holding the application:
// the window manager adopts the window and updates its client list, the tracker reads the new
// window, and the catalogue rebuilds. Destroying it again is timed the same way.
void BM_MappedWindowToRunningListChanged(benchmark::State& state)
{
    std::vector<double> arriving, leaving;
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        const xcb_window_t window = desktop->windows.map("bench-newcomer", "BenchNewcomer");
        if (!desktop->waitFor(newcomerRuns)) {
            state.SkipWithError("the mapped window never reached the running list");
            return;
        }
        state.SetIterationTime(double(timer.nsecsElapsed()) / 1e9);
        arriving.push_back(double(timer.nsecsElapsed()) / 1e6);
        timer.start();
        desktop->windows.destroy(window);
        if (!desktop->waitFor([] { return !newcomerRuns(); })) {
            state.SkipWithError("the destroyed window never left the running list");
            return;
        }
        leaving.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    state.counters["mapped_ms_median"] = median(arriving);
    state.counters["mapped_ms_max"] =
        arriving.empty() ? 0 : *std::max_element(arriving.begin(), arriving.end());
    state.counters["destroyed_ms_median"] = median(leaving);
}
BENCHMARK(BM_MappedWindowToRunningListChanged)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(40);
// The window manager's share of the above: from the map request to its new client list, and
// from the destroy request to the next one.
void BM_MappedWindowToClientList(benchmark::State& state)
{
    std::vector<double> leaving;
    desktop->windows.skipPendingEvents();
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        const xcb_window_t window = desktop->windows.map("bench-newcomer", "BenchNewcomer");
        if (!desktop->windows.waitForClientListChange()) {
            state.SkipWithError("the X connection broke");
            return;
        }
        state.SetIterationTime(double(timer.nsecsElapsed()) / 1e9);
        timer.start();
        desktop->windows.destroy(window);
        desktop->windows.waitForClientListChange();
        leaving.push_back(double(timer.nsecsElapsed()) / 1e6);
        desktop->windows.skipPendingEvents();
    }
    state.counters["destroyed_ms_median"] = median(leaving);
    desktop->waitFor([] { return !newcomerRuns(); });
}
BENCHMARK(BM_MappedWindowToClientList)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(40);
} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty(DesktopMarker)) {
        qputenv(DesktopMarker, "1");
        const QByteArray script = NIMBO_SOURCE_DIR "/tests/with-desktop";
        std::vector<char*> arguments{const_cast<char*>(script.constData())};
        for (int i = 0; i < argc; ++i)
            arguments.push_back(argv[i]);
        arguments.push_back(nullptr);
        execv(script.constData(), arguments.data());
        std::perror("Cannot run the benchmark inside tests/with-desktop");
        return 1;
    }
    QCoreApplication app(argc, argv);
    Desktop made;
    if (!made.setUp()) {
        std::fprintf(stderr, "No X server, or the %d windows never all reached the running list\n",
                     WindowCount);
        return 1;
    }
    desktop = &made;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
