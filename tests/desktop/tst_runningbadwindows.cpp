// Windows that make tracking awkward, made directly on the X server: no process to ask, a dialog
// that speaks for its parent, windows kept off the taskbar, transients that point at each other,
// windows gone before they can be read, and a window manager that stops keeping its client list.
// The running list only gets shorter; nothing crashes or hangs.
#include "desktopfixture.h"

#include "platform/x11connection.h"
#include "platform/x11runningapps.h"

#include <QSignalSpy>

#include <xcb/xcb.h>

namespace {
// Top-level windows on a connection of the test's own, as another program would make them.
class RawWindows
{
public:
    RawWindows() : m_connection(xcb_connect(nullptr, nullptr))
    {
        m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
    }
    ~RawWindows() { xcb_disconnect(m_connection); }

    xcb_atom_t atom(const char* name) { return X11Connection::intern(m_connection, name); }

    // A window with the class given (its instance is the class in lower case) and no pid, given the
    // atom-valued properties ({property, value}) and then mapped unless `show` is false.
    xcb_window_t create(const QByteArray& wmClass,
                        const QList<std::pair<const char*, const char*>>& atoms = {}, bool show = true)
    {
        const xcb_window_t window = xcb_generate_id(m_connection);
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_screen->root, 0, 0, 100, 60, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, m_screen->root_visual, 0, nullptr);
        const QByteArray classes = wmClass.toLower() + '\0' + wmClass + '\0';
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING,
                            8, uint32_t(classes.size()), classes.constData());
        for (const auto& [property, value] : atoms) {
            const xcb_atom_t valueAtom = atom(value);
            xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(property), XCB_ATOM_ATOM,
                                32, 1, &valueAtom);
        }
        if (show)
            map(window);
        return window;
    }
    void setTransientFor(xcb_window_t window, xcb_window_t parent)
    {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_TRANSIENT_FOR,
                            XCB_ATOM_WINDOW, 32, 1, &parent);
    }
    void map(xcb_window_t window)
    {
        xcb_map_window(m_connection, window);
        xcb_flush(m_connection);
    }
    void destroy(xcb_window_t window)
    {
        xcb_destroy_window(m_connection, window);
        xcb_flush(m_connection);
    }

private:
    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen = nullptr;
};
} // namespace

class TestRunningBadWindows : public QObject
{
    Q_OBJECT
    DesktopFixture m_fixture;
    RawWindows m_windows;
    std::unique_ptr<X11RunningApps> m_tracker;
    QString m_classy, m_loopy, m_late;

    QStringList running() const
    {
        QStringList paths;
        for (const RunningApplication& app : m_tracker->runningApplications())
            paths.append(app.path);
        return paths;
    }
    // A later window shows that the tracker has read those before it: only it is added, and when
    // it goes the classy application alone runs again.
    void settle()
    {
        const xcb_window_t late = m_windows.create("NimboLate");
        QTRY_COMPARE(running(), (QStringList{m_classy, m_late}));
        m_windows.destroy(late);
        QTRY_COMPARE(running(), QStringList{m_classy});
    }

private slots:
    void initTestCase()
    {
        m_classy = m_fixture.writeEntry("nimbotest-classy.desktop", "Exec=sh\nStartupWMClass=NimboClassy\n");
        // Entries claim the windows kept off the taskbar: only their kind keeps them out.
        m_fixture.writeEntry("nimbotest-skippy.desktop", "Exec=sh\nStartupWMClass=NimboSkippy\n");
        m_fixture.writeEntry("nimbotest-docky.desktop", "Exec=sh\nStartupWMClass=NimboDocky\n");
        m_loopy = m_fixture.writeEntry("nimbotest-loopy.desktop", "Exec=sh\nStartupWMClass=NimboLoopy\n");
        m_late = m_fixture.writeEntry("nimbotest-late.desktop", "Exec=sh\nStartupWMClass=NimboLate\n");
        m_tracker = std::make_unique<X11RunningApps>();
        QVERIFY(m_tracker->isTracking());
    }

    // A window its entry claims needs no process; one that nothing claims and that names no
    // process does not count. A dialog counts for the window it belongs to, not as an application.
    void windowsWithoutAProcessAndDialogs()
    {
        const xcb_window_t main = m_windows.create("NimboClassy");
        m_windows.create("NimboNobody");
        const xcb_window_t dialog = m_windows.create(
            "NimboNobodyDialog", {{"_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DIALOG"}}, false);
        m_windows.setTransientFor(dialog, main);
        m_windows.map(dialog);
        QTRY_COMPARE(m_tracker->windowsOfApplication(m_classy).size(), 2);
        QCOMPARE(running(), QStringList{m_classy});
    }

    // Kept off the taskbar, or not a normal window at all: not running.
    void windowsOffTheTaskbarDoNotCount()
    {
        m_windows.create("NimboSkippy", {{"_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR"}});
        m_windows.create("NimboDocky", {{"_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK"}});
        settle();
    }

    // Two windows each transient for the other: the walk up the chain stops.
    void circularTransientsDoNotHang()
    {
        const xcb_window_t a = m_windows.create("NimboLoopy", {}, false);
        const xcb_window_t b = m_windows.create("NimboLoopy", {}, false);
        m_windows.setTransientFor(a, b);
        m_windows.setTransientFor(b, a);
        m_windows.map(a);
        m_windows.map(b);
        QTRY_COMPARE(running(), (QStringList{m_classy, m_loopy}));
        m_windows.destroy(a);
        m_windows.destroy(b);
        QTRY_COMPARE(running(), QStringList{m_classy});
    }

    // Windows that are gone by the time the tracker asks about them.
    void windowsThatVanishAtOnce()
    {
        for (int i = 0; i < 40; ++i)
            m_windows.destroy(m_windows.create(i % 2 ? "NimboLate" : "NimboFleeting"));
        settle();
        QVERIFY(m_tracker->windowsOfApplication(m_late).isEmpty());
    }

    // Without the window manager's client list nothing runs; when it comes back, so do the apps.
    void aWindowManagerWithoutAClientList()
    {
        QSignalSpy terminated(m_tracker.get(), &RunningAppsSource::applicationTerminated);
        QCOMPARE(runToEnd("xprop", {"-root", "-remove", "_NET_CLIENT_LIST"}).exitCode, 0);
        QTRY_COMPARE(running(), QStringList());
        QCOMPARE(terminated.size(), 1);
        QVERIFY(!m_tracker->activateApplication(m_classy));
        m_windows.create("NimboLate"); // the window manager writes its list again
        QTRY_COMPARE(running(), (QStringList{m_classy, m_late}));
    }
};

QTEST_GUILESS_MAIN(TestRunningBadWindows)
#include "tst_runningbadwindows.moc"
