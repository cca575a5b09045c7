#include "hvaboutwindow.h"
#include "hvcontroller.h"
#include "hvupdateprompt.h"

#include "common/nimboinfo.h"

#include <QDesktopServices>
#include <QUrl>

void HVController::openAbout()
{
    if (!m_aboutWindow) {
        m_aboutWindow = new HVAboutWindow;
        // A top-level window has no QObject parent: it goes with the controller.
        connect(this, &QObject::destroyed, m_aboutWindow, [window = m_aboutWindow] { delete window; });
    }
    m_aboutWindow->show();
    m_aboutWindow->raise();
    m_aboutWindow->activateWindow();
}

void HVController::openHomeURL()
{
    if (!QDesktopServices::openUrl(QUrl(NimboInfo::homeUrl())))
        qWarning("Nimbo could not open its home page %s in a browser", qPrintable(NimboInfo::homeUrl()));
}

void HVController::checkForUpdates()
{
    if (!m_updatePrompt)
        m_updatePrompt = new HVUpdatePrompt(m_defaults, this);
    m_updatePrompt->checkNow();
}
