#include "hvaboutwindow.h"
#include "hvcontroller.h"
#include "hvfeedbackwindow.h"
#include "hvupdateprompt.h"
#include "hvwelcomeassistant.h"
#include "hvwindow.h"

#include "common/nimboinfo.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QScreen>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>

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

void HVController::openWelcomeBesidePanel()
{
    HVWelcomeAssistant* tour =
        HVWelcomeAssistant::sharedAssistantWithPDFName(QStringLiteral("Welcome to Nimbo"), m_defaults, true);
    if (!tour || !mainWindowIsVisible())
        return;
    // Right of the panel where there is room, else left of it, else below; centred beside it.
    constexpr int Gap = 16;
    const QRect panel = m_mainWindow->frameGeometry();
    const QRect screen = m_mainWindow->screen()->availableGeometry();
    QRect place(QPoint(), tour->frameGeometry().size());
    place.moveCenter(panel.center());
    if (panel.right() + Gap + place.width() <= screen.right())
        place.moveLeft(panel.right() + Gap);
    else if (panel.left() - Gap - place.width() >= screen.left())
        place.moveRight(panel.left() - Gap);
    else
        place.moveTop(panel.bottom() + Gap);
    place.moveTop(
        std::clamp(place.top(), screen.top(), std::max(screen.top(), screen.bottom() - place.height())));
    tour->move(place.topLeft());
    m_mainWindow->raisePanel();
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

void HVController::openFeedback()
{
    activate();
    if (!m_feedbackWindow) {
        m_feedbackWindow = new HVFeedbackWindow(m_defaults, m_appManager);
        connect(this, &QObject::destroyed, m_feedbackWindow, [window = m_feedbackWindow] { delete window; });
    }
    m_feedbackWindow->show();
    m_feedbackWindow->raise();
    m_feedbackWindow->activateWindow();
}

bool HVController::feedbackWindowIsVisible() const
{
    return m_feedbackWindow && m_feedbackWindow->isVisible();
}
