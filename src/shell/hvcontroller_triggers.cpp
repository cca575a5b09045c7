// The ways Nimbo is reached besides the hot key: launch at login, the tray item, the cursor hot
// spot and the taskbar entry's scan progress.
#include "shell/hvcontroller.h"

#include "common/hvkeypathobservers.h"
#include "common/hvuserdefaults.h"
#include "platform/launchatlogin.h"
#include "platform/launcherentry.h"
#include "shell/hvhotspotwindow.h"
#include "shell/hvstatusitem.h"
#include "shell/hvstatusmenu.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QScreen>

Q_LOGGING_CATEGORY(lcTriggers, "nimbo.triggers")

void HVController::observe_startAtLogin(const QVariantMap& change)
{
    const bool wanted = change.value(HVKeyValueChange::NewKey).toBool();
    LaunchAtLogin login;
    login.setLaunchAtLogin(wanted);
    // A file that could not be written or removed leaves the preference showing the truth.
    const bool actual = login.launchAtLogin();
    if (actual != wanted)
        m_defaults->setBool(actual, QStringLiteral("startAtLogin"));
}

void HVController::readStartAtLogin()
{
    const bool actual = LaunchAtLogin().launchAtLogin();
    if (m_defaults->boolForKey(QStringLiteral("startAtLogin")) != actual)
        m_defaults->setBool(actual, QStringLiteral("startAtLogin"));
}

void HVController::updateStatusBar()
{
    delete m_statusItem;
    m_statusItem = nullptr;
    if (!m_defaults->boolForKey(QStringLiteral("showAppInStatusBar")))
        return;
    if (!HVStatusItem::isAvailable()) {
        if (!m_saidNoTrayHost)
            qCInfo(lcTriggers) << "No tray is shown on this desktop (no StatusNotifierItem host or "
                                  "system tray): Nimbo has no tray item";
        m_saidNoTrayHost = true;
        return;
    }
    m_statusItem = new HVStatusItem(m_statusMenu,
                                    m_defaults->boolForKey(QStringLiteral("statusBarTogglesWindow")), this);
    connect(m_statusItem, &HVStatusItem::toggleRequested, this, &HVController::showHideMainWindow);
}

void HVController::observe_statusBarTogglesWindow(const QVariantMap&)
{
    updateStatusBar();
}

void HVController::showProgressStep(const HVNotification& notification)
{
    // The icon view draws its own progress; the tray item and the taskbar entry show it outside.
    const int step = notification.userInfo.value(QStringLiteral("step")).toInt();
    const int count = notification.userInfo.value(QStringLiteral("count")).toInt();
    if (m_statusItem)
        m_statusItem->showProgressStep(step, count);
    if (!m_runningDockless) {
        if (!m_launcherEntry)
            m_launcherEntry = std::make_unique<LauncherEntry>();
        m_launcherEntry->showProgress(step, count);
    }
}

void HVController::observe_cursorHotSpotLocation(const QVariantMap&)
{
    updateCursorHotSpot();
    alertIfNoMouseAccess();
}

void HVController::updateCursorHotSpot()
{
    const QVariant stored = m_defaults->objectForKey(QStringLiteral("cursorHotSpotLocation"));
    bool isNumber = false;
    const qint64 location = stored.toLongLong(&isNumber);
    if (!isNumber) {
        disableHotCorner();
        if (m_saidBadHotSpotLocation != stored)
            qCWarning(lcTriggers, "\"cursorHotSpotLocation\" %s is not a number: no hot spot",
                      qPrintable(stored.toString()));
        m_saidBadHotSpotLocation = stored;
        return;
    }
    enableCursorHotSpot(location);
}

void HVController::enableCursorHotSpot(qint64 location)
{
    disableHotCorner();
    if (!HVHotSpotWindow::isLocation(location)) {
        // A code of no known place stands for the top edge.
        if (m_saidBadHotSpotLocation != QVariant(location))
            qCWarning(lcTriggers,
                      "\"cursorHotSpotLocation\" %lld is not a place on the screen (0 to 8): "
                      "the top edge instead",
                      location);
        m_saidBadHotSpotLocation = location;
        location = HVHotSpotWindow::TopEdge;
    }
    if (location == HVHotSpotWindow::None)
        return;
    if (!HVHotSpotWindow::isSupported()) {
        // Elsewhere (Wayland) a program neither learns where the pointer is nor places windows.
        if (!m_saidNoHotSpots)
            qCInfo(lcTriggers, "Cursor hot spots need an X11 session; on %s there is none",
                   qPrintable(QGuiApplication::platformName()));
        m_saidNoHotSpots = true;
        return;
    }
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QRect area = HVHotSpotWindow::rectForLocation(HVHotSpotWindow::Location(location),
                                                        screen ? screen->geometry() : QRect());
    if (area.isEmpty())
        return; // no screen, or one too small for an edge
    m_hotSpotWin = new HVHotSpotWindow(
        area, m_defaults, {[this] { showHideMainWindow(); }, [this] { return mainWindowIsVisible(); }});
    m_hotSpotWin->orderFront();
}

void HVController::disableHotCorner()
{
    delete m_hotSpotWin;
    m_hotSpotWin = nullptr;
}

void HVController::followPrimaryScreen()
{
    // The hot spot belongs to the primary screen: it moves with that screen's size and place,
    // and to another screen when that becomes primary or this one is unplugged.
    auto rebuild = [this] {
        disconnect(m_primaryScreenGeometry);
        if (const QScreen* screen = QGuiApplication::primaryScreen())
            m_primaryScreenGeometry =
                connect(screen, &QScreen::geometryChanged, this, &HVController::updateCursorHotSpot);
        updateCursorHotSpot();
    };
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, rebuild);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, rebuild);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, rebuild);
    rebuild();
}
