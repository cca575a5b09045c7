// The ways Nimbo is reached besides the hot key: launch at login, the tray item and the taskbar
// entry's scan progress.
#include "shell/hvcontroller.h"

#include "common/hvkeypathobservers.h"
#include "common/hvuserdefaults.h"
#include "platform/launchatlogin.h"
#include "platform/launcherentry.h"
#include "shell/hvstatusitem.h"
#include "shell/hvstatusmenu.h"

#include <QLoggingCategory>

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
