// The hot key and the ways the user can reach Nimbo at all.
#include "hvcontroller.h"

#include "hvkeytable.h"

#include "common/hvuserdefaults.h"
#include "platform/globalhotkey.h"

bool HVController::registerHotKey()
{
    m_hotKey->unregisterHotKey();
    const int code = int(m_defaults->integerForKey(QStringLiteral("hotKeyCode")));
    if (code < 0)
        return true;
    const HVKeyTableRow row = HVKeyTable::rowForTag(HVKeyTable::rows(), code);
    if (row.keysym.isEmpty()) {
        qWarning("Hot key code %d is not in the key table; no hot key", code);
        return false;
    }
    return m_hotKey->registerHotKey(row.keysym,
                                    int(m_defaults->integerForKey(QStringLiteral("hotKeyModifiers"))));
}

bool HVController::hotKeyIsKeptBySystem() const
{
    return m_hotKey->wasKeptBySystem();
}

QString HVController::desktopShortcutAdvice() const
{
    if (!m_hotKey->needsDesktopShortcut())
        return {};
    return tr("This desktop does not let programs set a hot key of their own. To show and hide Nimbo with "
              "a key, add a shortcut in the desktop's keyboard settings that runs the command "
              "\"nimboctl toggle\".");
}

void HVController::adviseDesktopShortcut()
{
    emit desktopShortcutNeeded();
    const QString told = QStringLiteral("toldHowToBindShortcut");
    if (m_defaults->boolForKey(told))
        return;
    m_defaults->setBool(true, told);
    m_defaults->synchronize();
    showAlert(tr("Nimbo has no hot key on this desktop"), desktopShortcutAdvice());
}

QString HVController::hotKeyString() const
{
    return HVKeyTable::hotKeyString(HVKeyTable::rows(),
                                    int(m_defaults->integerForKey(QStringLiteral("hotKeyCode"))),
                                    int(m_defaults->integerForKey(QStringLiteral("hotKeyModifiers"))));
}

bool HVController::hasMenuAccess() const
{
    if (m_defaults->boolForKey(QStringLiteral("showAppInStatusBar")))
        return true;
    return m_finishedLaunching ? !m_runningDockless
                               : m_defaults->boolForKey(QStringLiteral("showIconInDock"));
}

bool HVController::hasMouseAccess() const
{
    return m_defaults->boolForKey(QStringLiteral("showAppInStatusBar")) ||
           m_defaults->boolForKey(QStringLiteral("showIconInDock")) || m_hotSpotWin != nullptr;
}

bool HVController::hasKeyboardAccess() const
{
    return m_defaults->integerForKey(QStringLiteral("hotKeyCode")) >= 0;
}

void HVController::alertIfNoAccess()
{
    if (hasMouseAccess() || hasKeyboardAccess())
        return;
    showAlert(tr("You have no access to Nimbo from the tray, the taskbar, a cursor hot spot or a hot key."),
              tr("You will only be able to re-open the window by double-clicking the application icon in the "
                 "file manager."));
}

void HVController::alertIfNoMouseAccess()
{
    if (hasMouseAccess())
        return;
    if (m_defaults->integerForKey(QStringLiteral("hotKeyCode")) < 0) {
        alertIfNoAccess();
        return;
    }
    showAlert(
        tr("You only have access to Nimbo using the following hot key:\n\n%1").arg(hotKeyString()),
        tr("You can also re-open the window by double-clicking the application icon in the file manager."));
}
