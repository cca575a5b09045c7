#include "hvpreferences.h"

#include "hvcontroller.h"
#include "hvkeytable.h"
#include "hvpreferenceswindow.h"
#include "hvremoverchooser.h"
#include "hvwindow.h"

#include "catalogue/hvappmanager.h"
#include "common/hvuserdefaults.h"

HVPreferences::HVPreferences(HVController* controller, HVUserDefaults* defaults)
    : QObject(controller), m_controller(controller), m_defaults(defaults)
{}

HVPreferences::~HVPreferences()
{
    delete m_window;
}

void HVPreferences::open()
{
    if (isVisible()) {
        m_window->raise();
        m_window->activateWindow();
        return;
    }
    m_controller->activate();
    m_controller->showMainWindow();
    if (!m_window)
        m_window = new HVPreferencesWindow(this, m_defaults, m_controller->mainWindow());
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

void HVPreferences::close()
{
    if (isVisible()) {
        m_window->colourSortingSheet()->hide();
        m_window->removerChooser()->hide();
        m_window->hide();
        m_defaults->synchronize();
    }
}

HVPreferencesWindow* HVPreferences::window() const
{
    return m_window;
}

bool HVPreferences::isVisible() const
{
    return m_window && m_window->isVisible();
}

QString HVPreferences::setHotKey(int code, int modifierMask)
{
    const QString wanted = HVKeyTable::hotKeyString(HVKeyTable::rows(), code, modifierMask);
    QString problem;
    if (code >= 0 && modifierMask == 0) {
        problem = tr("%1 alone would stop that key from typing: choose Ctrl, Alt, Super or Shift with it")
                      .arg(wanted);
    } else {
        const qint64 oldCode = m_defaults->integerForKey(QStringLiteral("hotKeyCode"));
        const qint64 oldModifiers = m_defaults->integerForKey(QStringLiteral("hotKeyModifiers"));
        m_defaults->setInteger(code, QStringLiteral("hotKeyCode"));
        m_defaults->setInteger(modifierMask, QStringLiteral("hotKeyModifiers"));
        if (m_controller->registerHotKey()) {
            m_defaults->synchronize();
            m_controller->alertIfNoAccess();
            return {};
        }
        const bool keptBySystem = m_controller->hotKeyIsKeptBySystem();
        m_defaults->setInteger(oldCode, QStringLiteral("hotKeyCode"));
        m_defaults->setInteger(oldModifiers, QStringLiteral("hotKeyModifiers"));
        m_controller->registerHotKey();
        problem = keptBySystem ? tr("%1 switches to another console and never reaches a program: choose "
                                    "another combination")
                                     .arg(wanted)
                               : tr("%1 is in use by another program").arg(wanted);
    }
    qWarning("%s; the hot key stays %s", qPrintable(problem), qPrintable(m_controller->hotKeyString()));
    return problem;
}

void HVPreferences::resetColorSortingOptions()
{
    m_controller->appManager()->resetColorSortingOptions();
}
