// The cursor hot spot, with 1,000 applications naming real Papirus icons:
//  - reaction: from the pointer (moved through XTest) reaching the top-left corner to the
//    panel exposed with its contents painted and flushed, less the configured dwell delay;
//    the pointer glides there as a hand moves it (3,000 px/s), and jumps there in one step;
//    the median and the slowest of 30 showings each (target: at most 20 ms);
//  - idle cost: the CPU time of a running `nimbo` while the pointer circles in the middle of
//    the screen for a while (--seconds N, 10 by default; 60 for the figure that counts), with
//    the hot spot and without, and the difference as a share of one core (target: at most
//    0.1 %).
// Needs an X server; without one it runs itself inside tests/with-desktop.
#include "panelbench.h"

#include "catalogue/iconloader.h"
#include "common/hvuserdefaults.h"
#include "shell/hvcontroller.h"
#include "shell/hvhotspotwindow.h"
#include "shell/hvwindow.h"

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <cmath>
#include <thread>

namespace {
using namespace panelbench;
constexpr int Runs = 30;
constexpr int StepMs = 8;
constexpr double GlideSpeed = 3.0; // pixels per millisecond
const QPoint Middle(800, 500);

// Moves the pointer through XTest on a connection of its own (usable from any one thread).
class FakePointer
{
public:
    FakePointer() : m_c(xcb_connect(nullptr, nullptr))
    {
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_c)).data->root;
    }
    ~FakePointer() { xcb_disconnect(m_c); }
    // Returns once the server has moved the pointer.
    void moveTo(QPoint to)
    {
        xcb_test_fake_input(m_c, XCB_MOTION_NOTIFY, 0, XCB_CURRENT_TIME, m_root, int16_t(to.x()),
                            int16_t(to.y()), 0);
        free(xcb_get_input_focus_reply(m_c, xcb_get_input_focus(m_c), nullptr));
    }
    // From `from` to `to` in steps of StepMs at `speed`; the time of arrival on `clock`.
    qint64 glide(QPoint from, QPoint to, double speed, const QElapsedTimer& clock)
    {
        const QPointF way = to - from;
        const int steps = std::max(1, int(std::hypot(way.x(), way.y()) / (speed * StepMs)));
        for (int i = 1; i <= steps; ++i) {
            moveTo((QPointF(from) + way * (double(i) / steps)).toPoint());
            if (i < steps)
                std::this_thread::sleep_for(std::chrono::milliseconds(StepMs));
        }
        return clock.nsecsElapsed();
    }

private:
    xcb_connection_t* m_c;
    xcb_window_t m_root;
};

void reportReaction(const char* how, QList<double> ms, const QList<double>& noticing,
                    const QList<double>& painting)
{
    std::sort(ms.begin(), ms.end());
    std::printf("hot spot to panel painted, less the delay, pointer %s: median %.1f ms, slowest %.1f ms "
                "over %lld showings (target 20 ms); ratio median / target %.2f\n",
                how, median(ms), ms.isEmpty() ? 0.0 : ms.last(), qlonglong(ms.size()), median(ms) / 20.0);
    std::printf("  of which the hot spot noticing the pointer: median %.1f ms; the panel from shown to "
                "painted: median %.1f ms\n",
                median(noticing), median(painting));
}

void benchReaction(const QProcessEnvironment& env)
{
    HVUserDefaults defaults(env.value("XDG_CONFIG_HOME") + "/Nimbo/Nimbo.conf");
    defaults.setInteger(HVHotSpotWindow::TopLeftCorner, "cursorHotSpotLocation");
    FakePointer pointer;
    pointer.moveTo(Middle);
    HVController controller(&defaults); // registers the delay's default
    const double delayMs = defaults.doubleForKey("cursorHotSpotDelay") * 1000;
    controller.awakeFromNib();
    controller.applicationWillFinishLaunching();
    controller.applicationDidFinishLaunching();
    waitFor([&] { return controller.mainWindowIsVisible(); }, 20000);
    IconLoader::sharedIconLoader()->waitUntilIdle(60000);

    for (const bool glides : {true, false}) {
        QList<double> total, noticing, painting;
        for (int run = 0; run < Runs; ++run) {
            if (controller.mainWindowIsVisible())
                controller.explicitHideMainWindow();
            pointer.moveTo(Middle);
            waitFor([] { return false; }, 500); // faded out, and the pointer seen far away
            PaintWatch watch;
            QWindow* panel = controller.mainWindow()->windowHandle();
            panel->installEventFilter(&watch);
            watch.clock.start();
            qint64 arrivedNs = -1;
            std::thread mover([&] {
                arrivedNs = pointer.glide(Middle, {0, 0}, glides ? GlideSpeed : 1e9, watch.clock);
            });
            qint64 noticedNs = -1, shownNs = -1; // as the event loop sees them, to the millisecond
            waitFor(
                [&] {
                    if (noticedNs < 0 && controller.hotSpotWindow()->view()->hasPendingAction())
                        noticedNs = watch.clock.nsecsElapsed();
                    if (shownNs < 0 && controller.mainWindowIsVisible())
                        shownNs = watch.clock.nsecsElapsed();
                    return watch.paintedAtNs >= 0;
                },
                5000);
            mover.join();
            panel->removeEventFilter(&watch);
            if (watch.paintedAtNs < 0)
                std::fprintf(stderr, "showing %d: not painted within 5 s\n", run);
            if (watch.paintedAtNs < 0 || noticedNs < 0 || shownNs < 0)
                continue;
            total.append((watch.paintedAtNs - arrivedNs) / 1e6 - delayMs);
            noticing.append((noticedNs - arrivedNs) / 1e6);
            painting.append((watch.paintedAtNs - shownNs) / 1e6);
        }
        reportReaction(glides ? "gliding there" : "jumping there", total, noticing, painting);
    }
}

// Nanoseconds each thread of the process has spent on a processor.
QHash<QString, qint64> cpuOf(qint64 pid)
{
    QHash<QString, qint64> threads;
    const QString tasks = QString("/proc/%1/task").arg(pid);
    for (const QString& task : QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile file(tasks + "/" + task + "/schedstat");
        if (file.open(QIODevice::ReadOnly))
            threads.insert(task, file.readAll().split(' ').first().toLongLong());
    }
    return threads;
}

// Milliseconds on a processor between two readings: of the main thread (where the hot spot
// runs), and of all threads that lived through both (idle pool threads come and go).
QPair<double, double> cpuBetween(qint64 pid, const QHash<QString, qint64>& before,
                                 const QHash<QString, qint64>& after)
{
    double all = 0;
    for (auto it = after.begin(); it != after.end(); ++it)
        if (before.contains(it.key()))
            all += (it.value() - before.value(it.key())) / 1e6;
    const QString main = QString::number(pid);
    return {(after.value(main) - before.value(main)) / 1e6, all};
}

// Starts nimbo with the hot spot at `location`, lets it settle with its panel hidden, and
// measures it while the pointer circles around the middle of the screen.
QPair<double, double> idleCpu(const QProcessEnvironment& env, qint64 location, int seconds)
{
    {
        HVUserDefaults defaults(env.value("XDG_CONFIG_HOME") + "/Nimbo/Nimbo.conf");
        defaults.setInteger(location, "cursorHotSpotLocation");
        defaults.synchronize();
    }
    QProcess nimbo;
    nimbo.setProcessEnvironment(env);
    nimbo.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    nimbo.start(QStringLiteral(NIMBO_BINARY_DIR "/src/nimbo"), {});
    QThread::sleep(10); // scanned, icons loaded
    QProcess ctl;
    ctl.setProcessEnvironment(env);
    ctl.start(QStringLiteral(NIMBO_BINARY_DIR "/src/nimboctl"), {"hide"});
    ctl.waitForFinished(5000);
    QThread::sleep(3);

    FakePointer pointer;
    const qint64 pid = nimbo.processId();
    const auto before = cpuOf(pid);
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < seconds * 1000) {
        const double angle = clock.elapsed() / 1000.0 * 2; // about 600 px/s on a radius of 300
        pointer.moveTo(Middle + QPoint(int(300 * std::cos(angle)), int(300 * std::sin(angle))));
        std::this_thread::sleep_for(std::chrono::milliseconds(16));
    }
    const auto after = cpuOf(pid);
    const double wallMs = clock.nsecsElapsed() / 1e6;
    ctl.start(QStringLiteral(NIMBO_BINARY_DIR "/src/nimboctl"), {"quit"});
    ctl.waitForFinished(5000);
    if (!nimbo.waitForFinished(5000))
        nimbo.kill();
    nimbo.waitForFinished(5000);
    const auto [mainMs, processMs] = cpuBetween(pid, before, after);
    std::printf("nimbo, pointer circling for %.0f s, hot spot %s: main thread %.1f ms CPU, "
                "all threads %.1f ms\n",
                wallMs / 1000, location ? "top-left" : "none", mainMs, processMs);
    return {processMs, wallMs};
}

void benchIdle(const QProcessEnvironment& env, int seconds)
{
    const auto with = idleCpu(env, HVHotSpotWindow::TopLeftCorner, seconds);
    const auto without = idleCpu(env, HVHotSpotWindow::None, seconds);
    const double share = (with.first - without.first) / with.second * 100;
    std::printf("hot spot tracking, pointer moving elsewhere for %d s: %.4f %% of a core (target 0.1 %%); "
                "ratio / target %.2f\n",
                seconds, share, share / 0.1);
}
} // namespace

int main(int argc, char** argv)
{
    runOnADesktop(argc, argv);
    int seconds = 10;
    const QStringList args = [&] {
        QStringList list;
        for (int i = 1; i < argc; ++i)
            list << QString::fromLocal8Bit(argv[i]);
        return list;
    }();
    if (const qsizetype at = args.indexOf("--seconds"); at >= 0)
        seconds = std::max(1, args.value(at + 1).toInt());
    QTemporaryDir dir;
    const QProcessEnvironment env = writeTree(dir.path());
    if (args.contains("--idle")) {
        QCoreApplication app(argc, argv);
        benchIdle(env, seconds);
        return 0;
    }
    if (!args.contains("--reaction")) {
        QProcess idle;
        idle.setProcessChannelMode(QProcess::ForwardedChannels);
        idle.start(QString::fromLocal8Bit(argv[0]), {"--idle", "--seconds", QString::number(seconds)});
        idle.waitForFinished(-1);
    }
    useTree(env);
    QApplication app(argc, argv);
    benchReaction(env);
    return 0;
}
