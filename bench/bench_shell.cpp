// The panel as a user waits for it, with 1,000 applications naming real Papirus icons:
//  - hot key: from the key event (sent through XTest) to the panel exposed with its contents
//    painted and flushed, the median of 50 showings;
//  - start-up: from starting `nimbo` (its list files and icon cache already written by an
//    earlier run) to the panel painted, beside `rofi -show drun` on the same entries, without
//    and with icons (from start to its window being mapped), the median of 7 runs each, and
//    the ratios.
// Needs an X server; without one it runs itself inside tests/with-desktop.
#include "panelbench.h"

#include "browser/hviconview.h"
#include "catalogue/iconloader.h"
#include "common/hvuserdefaults.h"
#include "shell/hvcontroller.h"
#include "shell/hvwindow.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <xcb/xcb.h>
#include <xcb/xcb_keysyms.h>
#include <xcb/xtest.h>

#include <X11/keysym.h>

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace {
using namespace panelbench;
constexpr int HotKeyRuns = 50;
constexpr int StartRuns = 7;

void pressHotKey(xcb_connection_t* c, xcb_key_symbols_t* symbols)
{
    xcb_keycode_t* control = xcb_key_symbols_get_keycode(symbols, XK_Control_L);
    xcb_keycode_t* tab = xcb_key_symbols_get_keycode(symbols, XK_Tab);
    if (!control || !tab)
        return;
    xcb_test_fake_input(c, XCB_KEY_PRESS, control[0], XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    xcb_test_fake_input(c, XCB_KEY_PRESS, tab[0], XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    xcb_test_fake_input(c, XCB_KEY_RELEASE, tab[0], XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    xcb_test_fake_input(c, XCB_KEY_RELEASE, control[0], XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    xcb_flush(c);
    free(control);
    free(tab);
}

// Runs in this process, whose environment already names the private tree.
void benchHotKey(const QProcessEnvironment& env)
{
    HVUserDefaults defaults(env.value("XDG_CONFIG_HOME") + "/Nimbo/Nimbo.conf");
    defaults.setBool(false, "showWelcomeWindow");
    HVController controller(&defaults);
    controller.awakeFromNib();
    controller.applicationWillFinishLaunching();
    controller.applicationDidFinishLaunching();
    waitFor([&] { return controller.mainWindowIsVisible(); }, 20000);
    IconLoader::sharedIconLoader()->waitUntilIdle(60000);

    xcb_connection_t* c = xcb_connect(nullptr, nullptr);
    xcb_key_symbols_t* symbols = xcb_key_symbols_alloc(c);
    QList<double> ms;
    for (int run = 0; run < HotKeyRuns; ++run) {
        if (controller.mainWindowIsVisible())
            controller.explicitHideMainWindow();
        waitFor([] { return false; }, 100);
        PaintWatch watch;
        QWindow* panel = controller.mainWindow()->windowHandle();
        panel->installEventFilter(&watch);
        watch.clock.start();
        pressHotKey(c, symbols);
        waitFor([&] { return watch.paintedAtNs >= 0; }, 5000);
        if (watch.paintedAtNs < 0)
            std::fprintf(stderr, "showing %d: not painted within 5 s (visible %d)\n", run,
                         int(controller.mainWindowIsVisible()));
        panel->removeEventFilter(&watch);
        if (watch.paintedAtNs >= 0)
            ms.append(watch.paintedAtNs / 1e6);
    }
    xcb_key_symbols_free(symbols);
    xcb_disconnect(c);
    std::printf("hot key to panel painted on screen, %d apps: median %.2f ms over %lld showings "
                "(target 30 ms)\n",
                AppCount, median(ms), qlonglong(ms.size()));
}

// Starts a program and returns the milliseconds until `ready` says so, or -1.
double timeUntil(const QString& program, const QStringList& args, const QProcessEnvironment& env,
                 const std::function<bool(QProcess&, xcb_connection_t*)>& ready, QProcess& process)
{
    xcb_connection_t* c = xcb_connect(nullptr, nullptr);
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
    const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(c, root, XCB_CW_EVENT_MASK, &mask);
    xcb_discard_reply(c, xcb_get_input_focus(c).sequence);
    xcb_flush(c);
    process.setProcessEnvironment(env);
    process.setProgram(program);
    process.setArguments(args);
    QElapsedTimer timer;
    timer.start();
    process.start();
    double result = -1;
    while (timer.elapsed() < 30000 && process.state() != QProcess::NotRunning) {
        if (ready(process, c)) {
            result = timer.nsecsElapsed() / 1e6;
            break;
        }
        process.waitForReadyRead(1);
    }
    xcb_disconnect(c);
    return result;
}

bool panelPainted(QProcess& process, xcb_connection_t*)
{
    return process.readAllStandardError().contains("panel painted");
}

bool windowMapped(QProcess&, xcb_connection_t* c)
{
    bool mapped = false;
    while (xcb_generic_event_t* event = xcb_poll_for_event(c)) {
        mapped = mapped || (event->response_type & ~0x80) == XCB_MAP_NOTIFY;
        free(event);
    }
    return mapped;
}

void quitNimbo(QProcess& nimbo, const QProcessEnvironment& env)
{
    QProcess ctl;
    ctl.setProcessEnvironment(env);
    ctl.start(QStringLiteral(NIMBO_BINARY_DIR "/src/nimboctl"), {"quit"});
    ctl.waitForFinished(5000);
    if (!nimbo.waitForFinished(5000))
        nimbo.kill();
    nimbo.waitForFinished(5000);
}

void benchStartup(QProcessEnvironment env)
{
    const QString nimbo = QStringLiteral(NIMBO_BINARY_DIR "/src/nimbo");
    env.insert("QT_LOGGING_RULES", "nimbo.startup.info=true");
    {
        // The first run writes the list files and the icon cache.
        QProcess first;
        timeUntil(nimbo, {}, env, panelPainted, first);
        QThread::sleep(8);
        quitNimbo(first, env);
    }
    // rofi as the user would start it, and with icons as Nimbo always shows them.
    const QList<QStringList> peers = {{"-show", "drun"},
                                      {"-show", "drun", "-show-icons", "-icon-theme", "Papirus"}};
    QList<double> ours;
    QList<QList<double>> theirs(peers.size());
    for (int run = 0; run < StartRuns; ++run) {
        QProcess process;
        const double ms = timeUntil(nimbo, {}, env, panelPainted, process);
        if (ms >= 0)
            ours.append(ms);
        quitNimbo(process, env);
        for (qsizetype p = 0; p < peers.size(); ++p) {
            QProcess peer;
            const double peerMs = timeUntil("rofi", peers[p], env, windowMapped, peer);
            if (peerMs >= 0)
                theirs[p].append(peerMs);
            peer.kill();
            peer.waitForFinished(5000);
        }
    }
    std::printf("start to panel painted, %d apps (list files and icon cache present): median %.1f ms "
                "(target 300 ms)\n",
                AppCount, median(ours));
    for (qsizetype p = 0; p < peers.size(); ++p) {
        const double peer = median(theirs[p]);
        std::printf(
            "rofi %s, same entries, start to window mapped: median %.1f ms; ratio nimbo / rofi %.2f\n",
            qPrintable(peers[p].join(' ')), peer, peer > 0 ? median(ours) / peer : 0.0);
    }
}
} // namespace

int main(int argc, char** argv)
{
    runOnADesktop(argc, argv);
    QTemporaryDir dir;
    const QProcessEnvironment env = writeTree(dir.path());
    if (argc > 1 && QByteArray(argv[1]) == "--startup") {
        QCoreApplication app(argc, argv);
        benchStartup(env);
        return 0;
    }
    if (!(argc > 1 && QByteArray(argv[1]) == "--hotkey")) {
        QProcess startup;
        startup.setProcessChannelMode(QProcess::ForwardedChannels);
        startup.setProcessEnvironment(QProcessEnvironment::systemEnvironment());
        startup.start(QString::fromLocal8Bit(argv[0]), {"--startup"});
        startup.waitForFinished(-1);
    }
    useTree(env);
    QApplication app(argc, argv);
    benchHotKey(env);
    return 0;
}
