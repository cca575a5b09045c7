#include "hvcontroller.h"

#include "firstpaintprobe.h"
#include "hvexclusionsheet.h"
#include "hvhotspotwindow.h"
#include "hvpreferences.h"
#include "hvstatusitem.h"
#include "hvstatusmenu.h"
#include "hvwelcomeassistant.h"
#include "hvwindow.h"
#include "modifiermonitor.h"

#include "browser/dropstack.h"
#include "browser/hviconview.h"
#include "catalogue/hvappmanager.h"
#include "catalogue/hvlisteditor.h"
#include "catalogue/iconloader.h"
#include "common/hvnotificationcenter.h"
#include "common/hvuserdefaults.h"
#include "common/notificationnames.h"
#include "platform/desktopappactions.h"
#include "platform/desktopfavourites.h"
#include "platform/desktopiconsource.h"
#include "platform/desktopsession.h"
#include "platform/gioentryreader.h"
#include "platform/globalhotkey.h"
#include "platform/launcherentry.h"
#include "platform/nimbobus.h"
#include "platform/panelwindowhints.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <utility>

namespace {
const QString LaunchCountKey = QStringLiteral("applicationLaunchCount");
// How long a panel just shown takes to settle into the focus: twice its fade.
constexpr qint64 FocusSettleMs = 500;
} // namespace

HVController::HVController(HVUserDefaults* defaults, QObject* parent)
    : QObject(parent), m_defaults(defaults ? defaults : HVUserDefaults::standardUserDefaults())
{
    initialize(m_defaults);
    // Icons come from the user's icon theme, through the persistent icon cache; the catalogue
    // loads them when it is first filled.
    IconLoader::sharedIconLoader()->setIconSource(std::make_shared<DesktopIconSource>());
    m_session = std::make_unique<DesktopSession>();
    auto reader = std::make_shared<GioEntryReader>();
    m_appManager = new HVAppManager(m_defaults, reader, m_session->appActions(), this);
    m_listEditor = std::make_unique<HVListEditor>(m_appManager, reader.get());
    m_session->desktopActions()->setRecordLookup(
        [this](const QString& path) { return m_appManager->appForPath(path); });
    m_session->desktopActions()->setOpenUntitledFile([this] { applicationOpenUntitledFile(); });
    m_appManager->setRunningAppsSource(m_session->runningApps());
    m_appManager->setKeptApplicationsSource(&DesktopFavourites::keptApplicationPaths);
    m_iconView = new HVIconView(m_appManager, m_defaults);
    m_mainWindow = new HVWindow(m_iconView, m_defaults);
    HVWelcomeAssistant::registerDefaults(m_defaults);
    new FirstPaintProbe(m_iconView);
    m_hotKey = new GlobalHotKey(this);
    m_modifierMonitor = new ModifierMonitor(this);
    m_bus = new NimboBusService(this);
    m_statusMenu = new HVStatusMenu(this);
    m_preferences = new HVPreferences(this, m_defaults);
    connect(m_hotKey, &GlobalHotKey::pressed, this, &HVController::showHideMainWindow);
    connect(m_hotKey, &GlobalHotKey::desktopShortcutNeeded, this, &HVController::adviseDesktopShortcut);
    connect(m_mainWindow, &HVWindow::closeRequested, this, &HVController::explicitHideMainWindow);
    connect(m_mainWindow, &HVWindow::menuRequested, m_statusMenu,
            [this](const QPoint& at) { m_statusMenu->popup(at); });
    connect(m_iconView, &HVIconView::alertRequested, this, &HVController::showAlert);
    // A launch hides the panel as Escape does: faded, its group remembered, its view reset.
    connect(m_iconView, &HVIconView::appLaunchRequested, this, &HVController::hideMainWindow);
    connect(m_bus, &NimboBusService::toggleRequested, this, &HVController::showHideMainWindow);
    connect(m_bus, &NimboBusService::showRequested, this, [this] {
        activate();
        applicationOpenUntitledFile();
    });
    connect(m_bus, &NimboBusService::hideRequested, this, [this] {
        if (mainWindowIsVisible())
            explicitHideMainWindow();
    });
    connect(m_bus, &NimboBusService::rescanRequested, this, [this] { rescanAllApps(true); });
    connect(m_bus, &NimboBusService::preferencesRequested, this, &HVController::openPrefs);
    connect(m_bus, &NimboBusService::quitRequested, this, &HVController::terminate);
    connect(m_bus, &NimboBusService::reopenRequested, this, &HVController::applicationShouldHandleReopen);
    connect(m_bus, &NimboBusService::openFilesRequested, this, &HVController::applicationOpenFiles);
    connect(qApp, &QGuiApplication::applicationStateChanged, this, &HVController::applicationStateChanged);
}

HVController::~HVController()
{
    if (m_observing) {
        HVKeyPathObserving::unregisterHalvornKeyPathObservers(this, halvornKeyPathObservers(m_defaults));
        HVNotificationCenter::defaultCenter()->removeObserver(this);
    }
    delete m_hotSpotWin;
    delete m_statusItem; // before the menu it carries
    delete m_statusMenu;
    delete m_mainWindow;
    m_appManager->setRunningAppsSource(nullptr); // the session's tracker goes first
}

HVKeyPathObserverTable HVController::halvornKeyPathObservers(HVUserDefaults* defaults)
{
    auto entry = [defaults](const char* key, const QVariant& value, const char* selector = "") {
        return HVKeyPathObserver{QString::fromLatin1(key), value, QByteArray(selector), defaults};
    };
    return {
        entry("startAtLogin", false, "observe_startAtLogin"),
        entry("showAppInStatusBar", true, "observe_showAppInStatusBar"),
        entry("showIconInDock", true, "observe_showIconInDock"),
        entry("statusBarTogglesWindow", true, "observe_statusBarTogglesWindow"),
        entry("cursorHotSpotLocation", 0, "observe_cursorHotSpotLocation"),
        entry("hotKeyCode", 48),
        entry("hotKeyModifiers", 4096),
        entry("showOnBecomeActive", false),
        entry("hideOnResignActive", false),
        entry("nonActivatingPanel", false),
        entry("tabletMode", false),
        entry("tabletHandedness", 1),
        entry("showNoMouseAccessWarning", true),
        entry("showNoUIAccessWarning", true),
        entry("highlightHotSpots", false),
        entry("cursorHotSpotDelay", 0.35),
        entry("ignoreCursorHotSpotDelayOnHide", true),
        entry("groupToShowWhenWindowOpens", 1),
        entry("groupShownWhenWindowClosed", -1),
        entry("showWindowAtLaunch", true),
        entry("appRemoverBundleIdentifier", QStringLiteral("org.gnome.Software.desktop")),
        entry("appRemoverName", QStringLiteral("Software")),
    };
}

void HVController::initialize(HVUserDefaults* defaults)
{
    HVKeyPathObserving::registerUserDefaultsFromHalvornKeyPathObservers(halvornKeyPathObservers(defaults));
}

bool HVController::registerBusService()
{
    return m_bus->registerService();
}

void HVController::awakeFromNib()
{
    m_appManager->awakeFromNib();
    HVKeyPathObserving::registerHalvornKeyPathObservers(this, halvornKeyPathObservers(m_defaults));
    auto* center = HVNotificationCenter::defaultCenter();
    center->addButFirstRemoveObserver(this, "modifierKeysChanged", HVNotificationNames::EventFlagsChanged);
    center->addButFirstRemoveObserver(this, "showProgressStep", HVNotificationNames::ShowProgressStep);
    m_observing = true;
    registerHotKey();
    updateStatusBar();
    followPrimaryScreen(); // and builds the hot spot
}

void HVController::applicationWillFinishLaunching()
{
    // The taskbar entry stands for the dock icon: without it Nimbo runs "dockless".
    m_runningDockless = !m_defaults->boolForKey(QStringLiteral("showIconInDock"));
    m_modifierMonitor->setEnabled(false);
}

void HVController::applicationDidFinishLaunching()
{
    m_finishedLaunching = true;
    readStartAtLogin(); // the autostart entry may have been edited or removed while Nimbo was away
    // The catalogue is read before the panel opens: the fade-in holds the main thread, and the
    // panel would otherwise open empty and small, then jump to its size once the lists are in.
    rescanAllApps(false);
    m_bus->setListEditor(m_listEditor.get()); // the lists are in: they can be organised from outside
    if (m_defaults->boolForKey(QStringLiteral("showWindowAtLaunch")))
        applicationOpenUntitledFile();
    const qint64 count = m_defaults->integerForKey(LaunchCountKey);
    if (count == 0)
        m_appManager->autoExcludeDockApps(false, true);
    if (count == 0 && m_defaults->boolForKey(QStringLiteral("showWelcomeWindow")))
        openWelcomeBesidePanel(); // the first launch takes the tour
    if (!hasMouseAccess() && !hasKeyboardAccess() &&
        m_defaults->boolForKey(QStringLiteral("showNoUIAccessWarning")))
        alertIfNoAccess();
    else if (!hasMouseAccess() && m_defaults->boolForKey(QStringLiteral("showNoMouseAccessWarning")))
        alertIfNoMouseAccess();
    m_defaults->setInteger(count + 1, LaunchCountKey);
    if (std::exchange(m_showWhenLaunched, false))
        showMainWindow();
    HVNotificationCenter::defaultCenter()->postNotificationName(
        HVNotificationNames::ApplicationDidFinishLaunching);
}

void HVController::rescanAllApps(bool fromMenu)
{
    int group = int(m_defaults->integerForKey(QStringLiteral("groupToShowWhenWindowOpens")));
    if (group == -1)
        group = int(m_defaults->integerForKey(QStringLiteral("groupShownWhenWindowClosed")));
    if (group == -1)
        group = 1;
    if (fromMenu)
        m_appManager->clearIconsForAllApps();
    m_appManager->rescanAllAppsPrioritizingGroup(group);
}

void HVController::applicationStateChanged(Qt::ApplicationState state)
{
    const bool active = state == Qt::ApplicationActive;
    if (active)
        m_panelShownAt.invalidate(); // the focus has come to the panel shown last
    if (active == m_isActive)
        return;
    if (!active && m_panelShownAt.isValid() && !m_panelShownAt.hasExpired(FocusSettleMs)) {
        // Hidden and summoned again quickly, the toolkit reports the focus lost at the hide only
        // now, before the panel has taken the focus back: asked again once it has settled.
        QTimer::singleShot(FocusSettleMs - m_panelShownAt.elapsed(), this,
                           [this] { applicationStateChanged(QGuiApplication::applicationState()); });
        return;
    }
    m_isActive = active;
    if (active) {
        cancelWindowCloseTimer(); // will become active
        applicationDidBecomeActive();
    } else {
        applicationWillResignActive();
        m_didBecomeActiveDate = QDateTime();
    }
}

void HVController::applicationDidBecomeActive()
{
    if (m_defaults->boolForKey(QStringLiteral("showOnBecomeActive")) && !mainWindowIsVisible())
        applicationOpenUntitledFile();
    m_modifierMonitor->setEnabled(true);
    m_didBecomeActiveDate = QDateTime::currentDateTime();
}

void HVController::applicationWillResignActive()
{
    m_modifierMonitor->setEnabled(false);
    implicitHideMainWindow();
    if (m_defaults->boolForKey(QStringLiteral("hideOnResignActive")) && mainWindowIsVisible()) {
        QApplication::beep();
        hideMainWindow();
    }
}

void HVController::applicationOpenFiles(const QStringList& uris)
{
    QList<QUrl> items;
    for (const QString& uri : uris) {
        const QUrl url(uri, QUrl::StrictMode);
        if (url.isValid() && !url.scheme().isEmpty())
            items.append(url);
        else
            qWarning("Not a file or URL to open: %s", qPrintable(uri.left(200)));
    }
    activate();
    applicationOpenUntitledFile();
    if (items.isEmpty())
        return;
    // The offer replaces any earlier one, whose items leave the drop stack first.
    m_iconView->offerItemsToOpen(items);
    DropStack::sharedDropStack().push(QVariant::fromValue(items));
}

bool HVController::applicationShouldOpenUntitledFile() const
{
    return !mainWindowIsVisible() && m_finishedLaunching;
}

bool HVController::applicationOpenUntitledFile()
{
    showMainWindow();
    return true;
}

void HVController::applicationShouldHandleReopen()
{
    // A click on the taskbar entry (or running nimbo again) activates first and then reopens;
    // within a quarter second of activation the same click must not hide the panel again.
    const bool activeForAWhile =
        m_didBecomeActiveDate.isValid() && m_didBecomeActiveDate.msecsTo(QDateTime::currentDateTime()) > 250;
    if (activeForAWhile && mainWindowIsVisible()) {
        explicitHideMainWindow();
    } else {
        activate();
        applicationOpenUntitledFile();
    }
}

void HVController::quitApp()
{
    if (m_runningDockless && !hasStatusItem()) {
        activate();
        QMessageBox box(QMessageBox::Question, QStringLiteral("Nimbo"),
                        tr("Are you sure you want to quit Nimbo?"));
        QPushButton* quit = box.addButton(tr("Quit"), QMessageBox::AcceptRole);
        box.addButton(tr("Don't Quit"), QMessageBox::RejectRole);
        box.exec();
        if (box.clickedButton() != quit)
            return;
    }
    terminate();
}

void HVController::terminate()
{
    m_defaults->synchronize();
    emit quitRequested(); // the application's main loop ends on this
}

void HVController::showAlert(const QString& message, const QString& informativeText)
{
    emit alertShown(message, informativeText);
    auto* box =
        new QMessageBox(QMessageBox::Warning, QStringLiteral("Nimbo"), message, QMessageBox::NoButton);
    box->setInformativeText(informativeText);
    box->addButton(tr("Ok"), QMessageBox::AcceptRole);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void HVController::modifierKeysChanged(const HVNotification&)
{
    // The preferences sheet reveals its hidden controls while Option is held; it has none yet.
}

void HVController::observe_showIconInDock(const QVariantMap& change)
{
    m_runningDockless = !change.value(HVKeyValueChange::NewKey).toBool();
    updateTaskbarPresence();
    alertIfNoMouseAccess();
}

void HVController::observe_showAppInStatusBar(const QVariantMap&)
{
    updateStatusBar();
    alertIfNoMouseAccess();
}

void HVController::updateTaskbarPresence()
{
    PanelWindowHints::setSkipTaskbar(m_mainWindow, m_runningDockless);
}

void HVController::openPrefs()
{
    readStartAtLogin(); // the window shows the autostart entry as it really is
    m_preferences->open();
}

void HVController::closePrefs()
{
    m_preferences->close();
}

bool HVController::preferencesAreVisible() const
{
    return m_preferences->isVisible();
}

void HVController::autoExcludeApps()
{
    if (m_exclusionSheet && m_exclusionSheet->isVisible()) {
        m_exclusionSheet->raise();
        return;
    }
    activate();
    showMainWindow();
    if (!m_exclusionSheet)
        m_exclusionSheet = new HVExclusionSheet(m_appManager, m_mainWindow);
    m_exclusionSheet->fillWords();
    m_exclusionSheet->show();
    m_exclusionSheet->raise();
    m_exclusionSheet->activateWindow();
}

void HVController::closeExclusionWindow()
{
    if (m_exclusionSheet)
        m_exclusionSheet->hide();
}
