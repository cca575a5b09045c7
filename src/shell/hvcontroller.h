// The application's controller: it owns the catalogue, the panel with its icon view and the
// triggers (hot key, session bus), starts them in order, and decides when the panel shows and
// hides. Implemented in hvcontroller.cpp (start-up, preferences, the exclusion sheet,
// application events), hvcontroller_panel.cpp (showing and hiding), hvcontroller_hotkey.cpp
// (hot key, access), hvcontroller_triggers.cpp (launch at login, tray item, hot spots, taskbar
// progress) and hvcontroller_info.cpp (about window, home page, updates, feedback).
#pragma once

#include "common/hvkeypathobservers.h"
#include "common/hvnotification.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QObject>

#include <memory>

class DesktopSession;
class GlobalHotKey;
class LauncherEntry;
class HVAppManager;
class HVHotSpotWindow;
class HVIconView;
class HVPreferences;
class HVStatusItem;
class HVStatusMenu;
class HVUserDefaults;
class HVWindow;
class ModifierMonitor;
class NimboBusService;
class QTimer;

class HVController : public QObject
{
    Q_OBJECT
public:
    explicit HVController(HVUserDefaults* defaults = nullptr, QObject* parent = nullptr);
    ~HVController() override;

    static HVKeyPathObserverTable halvornKeyPathObservers(HVUserDefaults* defaults);
    static void initialize(HVUserDefaults* defaults);

    // Start-up, in order.
    void awakeFromNib();
    void applicationWillFinishLaunching();
    void applicationDidFinishLaunching();
    // Takes the session bus name; false when another Nimbo already runs.
    bool registerBusService();

    HVAppManager* appManager() const { return m_appManager; }
    HVWindow* mainWindow() const { return m_mainWindow; }
    HVIconView* iconView() const { return m_iconView; }
    // The menu of the tray item and the gear button.
    HVStatusMenu* statusItemMenu() const { return m_statusMenu; }
    HVUserDefaults* userDefaults() const { return m_defaults; }
    bool isFinishedLaunching() const { return m_finishedLaunching; }
    bool isAppRunningDockless() const { return m_runningDockless; }
    bool hasStatusItem() const { return m_statusItem != nullptr; }
    HVStatusItem* statusItem() const { return m_statusItem; }

    // Showing and hiding the panel.
    bool mainWindowIsVisible() const;
    void showMainWindow();
    void hideMainWindow();
    void implicitHideMainWindow();
    void explicitHideMainWindow();
    Q_INVOKABLE void showHideMainWindow();
    void activate();
    void deactivate();
    void startWindowCloseTimerWithTimeInterval(double seconds);
    void cancelWindowCloseTimer();
    bool hasWindowCloseTimer() const;

    // Application events.
    bool applicationShouldOpenUntitledFile() const;
    bool applicationOpenUntitledFile();
    void applicationShouldHandleReopen();
    // Files or URLs handed over (`nimbo FILE...`): they go on the drop stack and the panel
    // shows the apps that open them, a click on one opening them with it.
    void applicationOpenFiles(const QStringList& uris);
    void applicationDidBecomeActive();
    void applicationWillResignActive();

    void rescanAllApps(bool fromMenu);
    // The about window, the home page and the update check (hvcontroller_info.cpp).
    void openAbout();
    void openHomeURL();
    void openWelcome();
    // The tour at the first launch: beside the panel, which keeps the focus.
    void openWelcomeBesidePanel();
    void openUserGuide();
    void checkForUpdates();
    // The feedback form (one, kept with what was typed while Nimbo runs).
    void openFeedback();
    class HVFeedbackWindow* feedbackWindow() const { return m_feedbackWindow; }
    bool feedbackWindowIsVisible() const;
    // Quits, asking first only when Nimbo could not be reached again (no taskbar entry, no tray).
    void quitApp();
    void terminate();

    // The preferences window (see HVPreferences).
    Q_INVOKABLE void openPrefs();
    void closePrefs();
    bool preferencesAreVisible() const;
    HVPreferences* preferences() const { return m_preferences; }

    // The automatic exclusion sheet over the panel (one at a time; it closes with the panel).
    Q_INVOKABLE void autoExcludeApps();
    void closeExclusionWindow();
    class HVExclusionSheet* exclusionSheet() const { return m_exclusionSheet; }

    // The hot key. registerHotKey answers false when the key could not be grabbed.
    bool registerHotKey();
    // Whether the last registerHotKey failed because the system keeps that combination.
    bool hotKeyIsKeptBySystem() const;
    // How to reach Nimbo by a key where the desktop binds none for it; empty where it does.
    QString desktopShortcutAdvice() const;
    // Tells the user that advice once (ever), as the desktop first refuses the hot key.
    void adviseDesktopShortcut();
    QString hotKeyString() const;
    bool hasMenuAccess() const;
    bool hasMouseAccess() const;
    bool hasKeyboardAccess() const;
    void alertIfNoAccess();
    void alertIfNoMouseAccess();

    Q_INVOKABLE void modifierKeysChanged(const HVNotification& notification);
    Q_INVOKABLE void showProgressStep(const HVNotification& notification);
    Q_INVOKABLE void observe_showIconInDock(const QVariantMap& change);
    Q_INVOKABLE void observe_showAppInStatusBar(const QVariantMap& change);

    // Launch at login (hvcontroller_triggers.cpp): the preference mirrors the autostart entry.
    Q_INVOKABLE void observe_startAtLogin(const QVariantMap& change);
    // Copies the autostart entry's real state into "startAtLogin" (as the preferences open).
    void readStartAtLogin();
    // The tray item, rebuilt from "showAppInStatusBar" and "statusBarTogglesWindow".
    void updateStatusBar();
    Q_INVOKABLE void observe_statusBarTogglesWindow(const QVariantMap& change);
    // The cursor hot spot, rebuilt from "cursorHotSpotLocation" and the primary screen.
    void updateCursorHotSpot();
    void enableCursorHotSpot(qint64 location);
    void disableHotCorner();
    HVHotSpotWindow* hotSpotWindow() const { return m_hotSpotWin; }
    Q_INVOKABLE void observe_cursorHotSpotLocation(const QVariantMap& change);

signals:
    // An alert the user must read; emitted instead of showing a dialog when nobody can answer.
    void alertShown(const QString& message, const QString& informativeText);
    // The desktop turned out to bind no hot key for Nimbo (see desktopShortcutAdvice).
    void desktopShortcutNeeded();
    void quitRequested();

private:
    void showAlert(const QString& message, const QString& informativeText);
    void applicationStateChanged(Qt::ApplicationState state);
    void updateTaskbarPresence();
    void followPrimaryScreen();

    HVUserDefaults* m_defaults;
    std::unique_ptr<DesktopSession> m_session;
    std::unique_ptr<class HVListEditor> m_listEditor;
    HVAppManager* m_appManager;
    HVIconView* m_iconView;
    HVWindow* m_mainWindow;
    GlobalHotKey* m_hotKey;
    ModifierMonitor* m_modifierMonitor;
    NimboBusService* m_bus;
    HVStatusMenu* m_statusMenu;
    HVPreferences* m_preferences;
    class HVExclusionSheet* m_exclusionSheet = nullptr;
    HVStatusItem* m_statusItem = nullptr;
    std::unique_ptr<LauncherEntry> m_launcherEntry;
    bool m_saidNoTrayHost = false;
    HVHotSpotWindow* m_hotSpotWin = nullptr;
    QMetaObject::Connection m_primaryScreenGeometry;
    QVariant m_saidBadHotSpotLocation; // the last stored location that is no place, said once
    bool m_saidNoHotSpots = false;
    class HVAboutWindow* m_aboutWindow = nullptr;
    class HVFeedbackWindow* m_feedbackWindow = nullptr;
    bool m_welcomeAssistantWasOpen = false;
    class HVUpdatePrompt* m_updatePrompt = nullptr;
    QTimer* m_windowCloseTimer = nullptr;
    QDateTime m_didBecomeActiveDate;
    QElapsedTimer m_panelShownAt;
    bool m_finishedLaunching = false;
    bool m_showWhenLaunched = false;
    bool m_runningDockless = false;
    bool m_isActive = false;
    bool m_observing = false;
};
