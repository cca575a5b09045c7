#include "hvaboutwindow.h"
#include "hvcontroller.h"
#include "hvupdateprompt.h"
#include "hvwelcomeassistant.h"

#include "common/nimboinfo.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
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

void HVController::openWelcome()
{
    activate();
    HVWelcomeAssistant::sharedAssistantWithPDFName(QStringLiteral("Welcome to Nimbo"), m_defaults);
}

void HVController::openUserGuide()
{
    // The desktop's PDF viewer opens a copy of the built-in guide.
    const QString name = QStringLiteral("Nimbo User Guide.pdf");
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    const QString copy = folder + QLatin1Char('/') + name;
    QFile::remove(copy);
    if (!QDir().mkpath(folder) || !QFile::copy(QStringLiteral(":/docs/") + name, copy)) {
        qWarning("Nimbo could not put its user guide in %s", qPrintable(folder));
        return;
    }
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(copy)))
        qWarning("No PDF viewer opened the user guide %s", qPrintable(copy));
}

void HVController::checkForUpdates()
{
    if (!m_updatePrompt)
        m_updatePrompt = new HVUpdatePrompt(m_defaults, this);
    m_updatePrompt->checkNow();
}
