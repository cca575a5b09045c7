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

    // An unmapped window with the class given (its instance is the class in lower case) and no pid.
    xcb_window_t create(const QByteArray& wmClass)
    {
        const xcb_window_t window = xcb_generate_id(m_connection);
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_screen->root, 0, 0, 100, 60, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, m_screen->root_visual, 0, nullptr);
        const QByteArray classes = wmClass.toLower() + '\0' + wmClass + '\0';
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING,
                            8, uint32_t(classes.size()), classes.constData());
        return window;
    }
    void setAtoms(xcb_window_t window, const char* property, const QList<const char*>& values)
    {
        QList<xcb_atom_t> atoms;
        for (const char* value : values)
            atoms.append(atom(value));
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(property), XCB_ATOM_ATOM, 32,
                            uint32_t(atoms.size()), atoms.constData());
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
    xcb_window_t mapped(const QByteArray& wmClass)
    {
        const xcb_window_t window = create(wmClass);
        map(window);
        return window;
    }
    void destroy(xcb_window_t window)
    {
        xcb_destroy_window(m_connection, window);
        xcb_flush(m_connection);
    }
    void deleteRootProperty(const char* property)
    {
        xcb_delete_property(m_connection, m_screen->root, atom(property));
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
public:
    explicit TestRunningBadWindows(DesktopFixture& fixture) : m_fixture(fixture) {}

private:
    DesktopFixture& m_fixture;
    RawWindows m_windows;
    std::unique_ptr<X11RunningApps> m_tracker;
    QString m_classy, m_skippy, m_docky, m_loopy, m_late;

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
        const xcb_window_t late = m_windows.mapped("NimboLate");
        QTRY_COMPARE(running(), (QStringList{m_classy, m_late}));
        m_windows.destroy(late);
        QTRY_COMPARE(running(), QStringList{m_classy});
    }

private slots:
    void initTestCase()
    {
        m_classy = m_fixture.writeEntry("nimbotest-classy.desktop", "Exec=sh\nStartupWMClass=NimboClassy\n");
        m_skippy = m_fixture.writeEntry("nimbotest-skippy.desktop", "Exec=sh\nStartupWMClass=NimboSkippy\n");
        m_docky = m_fixture.writeEntry("nimbotest-docky.desktop", "Exec=sh\nStartupWMClass=NimboDocky\n");
        m_loopy = m_fixture.writeEntry("nimbotest-loopy.desktop", "Exec=sh\nStartupWMClass=NimboLoopy\n");
        m_late = m_fixture.writeEntry("nimbotest-late.desktop", "Exec=sh\nStartupWMClass=NimboLate\n");
        m_tracker = std::make_unique<X11RunningApps>();
        QVERIFY(m_tracker->isTracking());
    }

    // A window its entry claims needs no process; one that nothing claims and that names no
    // process does not count. A dialog counts for the window it belongs to, not as an application.
    void windowsWithoutAProcessAndDialogs()
    {
        const xcb_window_t main = m_windows.mapped("NimboClassy");
        m_windows.mapped("NimboNobody");
        const xcb_window_t dialog = m_windows.create("NimboNobodyDialog");
        m_windows.setTransientFor(dialog, main);
        m_windows.setAtoms(dialog, "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DIALOG"});
        m_windows.map(dialog);
        QTRY_COMPARE(m_tracker->windowsOfApplication(m_classy).size(), 2);
        QCOMPARE(running(), QStringList{m_classy});
        QCOMPARE(m_tracker->pidOfApplication(m_classy), 0);
    }

    // Kept off the taskbar, or not a normal window at all: not running.
    void windowsOffTheTaskbarDoNotCount()
    {
        const xcb_window_t skipped = m_windows.create("NimboSkippy");
        m_windows.setAtoms(skipped, "_NET_WM_STATE", {"_NET_WM_STATE_SKIP_TASKBAR"});
        m_windows.map(skipped);
        const xcb_window_t dock = m_windows.create("NimboDocky");
        m_windows.setAtoms(dock, "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DOCK"});
        m_windows.map(dock);
        settle();
    }

    // Two windows each transient for the other: the walk up the chain stops.
    void circularTransientsDoNotHang()
    {
        const xcb_window_t a = m_windows.create("NimboLoopy");
        const xcb_window_t b = m_windows.create("NimboLoopy");
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
            m_windows.destroy(m_windows.mapped(i % 2 ? "NimboLate" : "NimboFleeting"));
        settle();
        QVERIFY(m_tracker->windowsOfApplication(m_late).isEmpty());
    }

    // Without the window manager's client list nothing runs; when it comes back, so do the apps.
    void aWindowManagerWithoutAClientList()
    {
        QSignalSpy terminated(m_tracker.get(), &RunningAppsSource::applicationTerminated);
        m_windows.deleteRootProperty("_NET_CLIENT_LIST");
        QTRY_COMPARE(running(), QStringList());
        QCOMPARE(terminated.size(), 1);
        QVERIFY(!m_tracker->activateApplication(m_classy));
        m_windows.mapped("NimboLate"); // the window manager writes its list again
        QTRY_COMPARE(running(), (QStringList{m_classy, m_late}));
    }
};

NIMBO_DESKTOP_TEST_MAIN(TestRunningBadWindows, QCoreApplication)
#include "tst_runningbadwindows.moc"
