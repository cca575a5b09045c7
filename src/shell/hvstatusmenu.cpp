#include "hvstatusmenu.h"

#include "hvcontroller.h"
#include "hvwelcomeassistant.h"

HVStatusMenu::HVStatusMenu(HVController* controller, QWidget* parent)
    : QMenu(parent), m_controller(controller)
{
    setObjectName(QStringLiteral("StatusItemMenu"));
    setTitle(QStringLiteral("StatusItemMenu"));
    setSeparatorsCollapsible(true);

    m_showHide = addAction(tr("Show Nimbo"), controller, &HVController::showHideMainWindow);
    addSeparator();
    addAction(tr("About Nimbo"), controller, &HVController::openAbout);
    addSeparator();
    addAction(tr("Check for Updates..."), controller, &HVController::checkForUpdates);
    addSeparator();
    // Preferences.
    m_preferences = addAction(tr("Preferences…"), controller, &HVController::openPrefs);
    addAction(tr("Rescan Applications"), controller, [controller] { controller->rescanAllApps(true); });
    m_autoExclude = addAction(tr("Automatic Exclusion…"), controller, &HVController::autoExcludeApps);
    addSeparator();
    // Welcome, user guide, home page, feedback.
    m_welcome = addAction(tr("Welcome to Nimbo"), controller, &HVController::openWelcome);
    addAction(tr("Nimbo User Guide"), controller, &HVController::openUserGuide);
    addAction(tr("Nimbo Home Page"), controller, &HVController::openHomeURL);
    m_feedback = addAction(tr("Send Feedback…"), controller, &HVController::openFeedback);
    addSeparator();
    addAction(tr("Quit Nimbo"), controller, &HVController::quitApp);

    connect(this, &QMenu::aboutToShow, this, &HVStatusMenu::validateMenuItems);
}

void HVStatusMenu::validateMenuItems()
{
    m_showHide->setText(m_controller->mainWindowIsVisible() ? tr("Hide Nimbo") : tr("Show Nimbo"));
    m_preferences->setEnabled(!m_controller->preferencesAreVisible());
    m_welcome->setEnabled(!HVWelcomeAssistant::isWindowVisible());
    m_feedback->setEnabled(!m_controller->feedbackWindowIsVisible());
}
