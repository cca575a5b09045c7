// The preferences window and the sheets beside it as a user meets them on a real X server: the
// window opened from the menu, by `nimbo --preferences` and `nimboctl preferences` over the session
// bus, and its controls taking effect at once — the icon size re-lays out the panel, an added scan
// folder is kept and scanned once, a colour reset sorts once, a new hot key (with Alt, or with
// Alt and Shift) is grabbed (pressed through XTest with xdotool) while the old one lets go, and a hot key
// without modifiers is refused. The automatic exclusion sheet, opened from Nimbo's menu, excludes
// the applications named by the words typed into it and the desktop's favourites; the app remover
// chooser takes only an application that opens appstream:// links and refuses any other.
#include "desktopfixture.h"
#include "support/catalogueharness.h"

#include "catalogue/hvappmanager.h"
#include "catalogue/hvarraycontroller.h"
#include "shell/hvexclusionsheet.h"
#include "shell/hvpreferences.h"
#include "shell/hvpreferenceswindow.h"
#include "shell/hvremoverchooser.h"
#include "shell/hvstatusmenu.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QListView>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QtTest>

namespace {
const QString Bin = QStringLiteral(NIMBO_BINARY_DIR "/src/");
} // namespace

class TestPreferences : public QObject
{
    Q_OBJECT
    DesktopFixture desktop;
    HVUserDefaults* defaults = &desktop.defaults();
    HVController* controller = nullptr;

    HVPreferencesWindow* window() { return controller->preferences()->window(); }
    // A control of the window; a missing one is null, and the test crashes on it.
    template<typename T>
    T* control(const char* name)
    {
        return window()->findChild<T*>(QString::fromLatin1(name));
    }

private slots:
    void initTestCase()
    {
        // Icons of their own, each of one colour, so that the colour order has something to order.
        const QList<QPair<const char*, QColor>> apps = {{"Clock", Qt::red},     {"Eyes", Qt::blue},
                                                        {"Terminal", Qt::gray}, {"Editor", Qt::green},
                                                        {"Mail", Qt::yellow},   {"Music", Qt::magenta}};
        for (const auto& [name, colour] : apps) {
            QImage icon(48, 48, QImage::Format_ARGB32);
            icon.fill(colour);
            const QString iconPath = desktop.env().root() + QStringLiteral("/%1.png").arg(name);
            QVERIFY(icon.save(iconPath));
            desktop.writeEntry(name + QStringLiteral(".desktop"),
                               "Exec=true\nIcon=" + iconPath.toUtf8() + "\n");
        }
        desktop.writeEntry("MusicHelper.desktop", "Name=Music Helper\nExec=true\n");
        desktop.writeEntry("SoftwareCentre.desktop",
                           "Name=Software Centre\nExec=true\nMimeType=x-scheme-handler/appstream;\n");
        // The desktop's favourites: a Plank dock holding the terminal.
        desktop.env().writeFile("config/plank/dock1/launchers/terminal.dockitem",
                                "[PlankDockItemPreferences]\nLauncher=file://" +
                                    desktop.entryPath("Terminal").toUtf8() + "\n");
        // Not the first launch: nothing is excluded before the sheet is used.
        controller = desktop.startNimbo({{"applicationLaunchCount", 1}});
        QVERIFY(controller->registerBusService());
        QTRY_VERIFY(controller->mainWindowIsVisible());
    }

    void init() { controller->openPrefs(); } // each case starts with the window open

    // From the menu (no program), `nimbo --preferences` and `nimboctl preferences`.
    void opensFromTheMenuAndTheBusOnce()
    {
        for (const QStringList& way : {QStringList(), QStringList{Bin + "nimbo", "--preferences"},
                                       QStringList{Bin + "nimboctl", "preferences"}}) {
            const QByteArray name = way.join(' ').toUtf8();
            controller->explicitHideMainWindow(); // the window goes with the panel
            QVERIFY2(!controller->preferencesAreVisible(), name);
            // Asked for twice: still one window.
            for (int i = 0; i < 2; ++i) {
                if (way.isEmpty())
                    controller->statusItemMenu()->preferencesAction()->trigger();
                else
                    QVERIFY2(runToEnd(way.first(), way.mid(1)).exitCode == 0, name);
                QTRY_VERIFY2(controller->preferencesAreVisible(), name);
            }
            int shown = 0;
            for (QWidget* w : qApp->topLevelWidgets())
                shown += qobject_cast<HVPreferencesWindow*>(w) && w->isVisible();
            QVERIFY2(shown == 1, name);
            QVERIFY2(controller->mainWindowIsVisible(), name);
            emit controller->statusItemMenu()->aboutToShow();
            QVERIFY2(!controller->statusItemMenu()->preferencesAction()->isEnabled(), name);
        }
    }

    void iconSizeRelaysOutThePanel()
    {
        auto* slider = control<QSlider>("maximumIconSize");
        QCOMPARE(slider->value(), 64);
        slider->setValue(32); // the view lays out again as the icon view layout test shows
        QCOMPARE(defaults->integerForKey("maximumIconSize"), 32);
        // A hand-written absurd value is shown clamped.
        defaults->setInteger(100000, "maximumIconSize");
        QCOMPARE(slider->value(), 128);
        slider->setValue(64);
    }

    void anAddedScanFolderIsKeptAndScannedOnce()
    {
        const QString folder = desktop.env().root() + "/more apps";
        desktop.env().writeFile("more apps/Extra.desktop",
                                "[Desktop Entry]\nType=Application\nName=Extra\nExec=true\n");
        HVAppManager* catalogue = controller->appManager();
        QObject counting; // the scans begun while it lives
        int scans = 0;
        connect(catalogue, &HVAppManager::didChange, &counting, [&](const QStringList& keys) {
            scans += keys.contains(HVAppListKeys::IsBusyScanning) && catalogue->isBusyScanning();
        });
        window()->folders()->setSelectionIndexes({});
        window()->folders()->openPanelDidEnd({folder}, 1); // the folder dialog's answer
        QCOMPARE(defaults->arrayForKey("searchDirectories").first().toMap().value("path").toString(), folder);
        QTRY_VERIFY(HVAppManager::pathsFromApps(catalogue->allApps1D()).contains(folder + "/Extra.desktop"));
        QTest::qWait(500);
        QCOMPARE(scans, 1);
        // A folder that has gone is shown as such and skipped.
        QVERIFY(QDir(folder).removeRecursively());
        auto* view = control<QListView>("searchDirectories");
        QTRY_VERIFY(view->model()->index(0, 0).data().toString().contains("does not exist"));
        window()->folders()->setSelectionIndexes({0});
        control<QPushButton>("removeSearchDirectory")->click();
        QVERIFY(!defaults->arrayForKey("searchDirectories").contains(QVariantMap{{"path", folder}}));
    }

    void colourResetRestoresTheDefaultsAndSortsOnce()
    {
        HVAppManager* catalogue = controller->appManager();
        defaults->setInteger(HVAppManager::SortByColor, "groupContentsSortOrder");
        controller->openPrefs();
        control<QPushButton>("openColorSortingOptions")->click();
        QDialog* sheet = window()->colourSortingSheet();
        QVERIFY(sheet->isVisible());
        auto* hue = sheet->findChild<QSlider*>("colorSortWrapHue");
        hue->setValue(180);
        sheet->findChild<QCheckBox*>("colorSortGraysBySecondaryColor")->click();
        QCOMPARE(defaults->doubleForKey("colorSortWrapHue"), 180.0);
        QVERIFY(defaults->boolForKey("colorSortGraysBySecondaryColor"));
        QTRY_VERIFY(catalogue->hasPendingColorSort()); // the icons' colours, found again
        QTRY_VERIFY(!catalogue->hasPendingColorSort());

        QObject counting; // the sorts made while it lives
        int sorts = 0;
        connect(catalogue, &HVAppManager::didChange, &counting, [&sorts](const QStringList& keys) {
            sorts += keys == QStringList{HVAppListKeys::AllApps, HVAppListKeys::AllApps1D};
        });
        sheet->findChild<QPushButton*>("resetColorSortingOptions")->click();
        for (const char* key : {"colorSortGrayThreshold", "colorSortWrapHue", "colorSortMinSaturation",
                                "colorSortMinLuminosity", "colorSortGraysBySecondaryColor"})
            QVERIFY2(!defaults->hasUserValue(key), key);
        QCOMPARE(hue->value(), 0);
        QVERIFY(!sheet->findChild<QCheckBox*>("colorSortGraysBySecondaryColor")->isChecked());
        QTRY_COMPARE(sorts, 1);
        QTest::qWait(1500); // longer than the wait for more icons before a colour sort
        QCOMPARE(sorts, 1);
        // The sheet goes with the window.
        controller->closePrefs();
        QVERIFY(!sheet->isVisible());
        defaults->removeObjectForKey("groupContentsSortOrder");
    }

    void theExclusionSheetExcludesTheNamedApps()
    {
        controller->explicitHideMainWindow();
        controller->statusItemMenu()->automaticExclusionAction()->trigger();
        HVExclusionSheet* sheet = controller->exclusionSheet();
        QTRY_VERIFY(sheet->isVisible());
        QVERIFY(controller->mainWindowIsVisible());
        auto* words = sheet->findChild<QPlainTextEdit*>("nameSubstrings");
        QVERIFY(words->toPlainText().split('\n').contains("Helper"));

        words->clear();
        QTest::keyClicks(words, "  clock\r\rEYES  "); // \r is Return
        sheet->findChild<QCheckBox*>("excludeDockApps")->click();
        sheet->findChild<QPushButton*>("excludeApps")->click();
        const QStringList excluded{"Clock", "Eyes", "Terminal"};
        QCOMPARE(CatalogueHarness::names(controller->appManager()->excludedApps1D()), excluded);
        QVERIFY(!sheet->isVisible());

        // The words stay for the session; with none given nothing more is excluded by name.
        controller->autoExcludeApps();
        QCOMPARE(words->toPlainText(), "clock\nEYES");
        words->clear();
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("no words given"));
        sheet->findChild<QPushButton*>("excludeApps")->click();
        QCOMPARE(CatalogueHarness::names(controller->appManager()->excludedApps1D()), excluded);
        // The sheet goes with the panel.
        controller->autoExcludeApps();
        QVERIFY(sheet->isVisible());
        controller->explicitHideMainWindow();
        QVERIFY(!sheet->isVisible());
    }

    void theRemoverChooserTakesOnlyAnAppstreamHandler()
    {
        control<QPushButton>("setAppRemover")->click();
        HVRemoverChooser* chooser = window()->removerChooser();
        QTRY_VERIFY(chooser->isVisible());
        QListWidget* list = chooser->list();
        const auto choose = [&](const QString& name) {
            const QList<QListWidgetItem*> items = list->findItems(name, Qt::MatchExactly);
            QCOMPARE(items.size(), 1);
            list->setCurrentItem(items.first());
            chooser->findChild<QPushButton*>("chooseAppRemover")->click();
        };

        choose("Clock");
        auto* alert = chooser->findChild<QMessageBox*>("removerRefused");
        QVERIFY(alert && alert->isVisible());
        QVERIFY(
            !defaults->hasUserValue("appRemoverBundleIdentifier")); // stored with the name, after the refusal
        alert->buttons().first()->click();
        QVERIFY(chooser->isVisible());

        choose("Software Centre");
        QCOMPARE(defaults->stringForKey("appRemoverName"), "Software Centre");
        QCOMPARE(defaults->stringForKey("appRemoverBundleIdentifier"), "SoftwareCentre.desktop");
        QVERIFY(!chooser->isVisible());
        QCOMPARE(control<QLabel>("appRemoverName")->text(), "Software Centre");
    }

    void hotKeysWithoutModifiersOrThatSwitchConsolesAreRefused()
    {
        for (QCheckBox* box : window()->findChildren<QCheckBox*>(QRegularExpression("^hotKey")))
            if (box->isChecked())
                box->click();
        QCOMPARE(defaults->integerForKey("hotKeyModifiers"), 4096);
        QVERIFY(!control<QLabel>("hotKeyProblem")->text().isEmpty());
        QVERIFY(control<QCheckBox>("hotKeyControl")->isChecked());

        // Ctrl + Alt + F5 switches the console before anyone sees it; with Shift it is a hot key.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("kept by the X server"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("another console.*stays Ctrl \\+ Tab"));
        const QString problem = controller->preferences()->setHotKey(96, 4096 | 2048); // Ctrl + Alt + F5
        QVERIFY2(problem.contains("another console"), qPrintable(problem));
        QCOMPARE(defaults->integerForKey("hotKeyCode"), 48);
        QCOMPARE(defaults->integerForKey("hotKeyModifiers"), 4096);

        QVERIFY(controller->preferences()->setHotKey(96, 4096 | 2048 | 512).isEmpty());
        controller->showMainWindow();
        QVERIFY(xdotool({"key", "ctrl+alt+shift+F5"}));
        QTRY_VERIFY(!controller->mainWindowIsVisible());
    }

    // Ctrl + Alt + Space, chosen in the window; the console switch above grabs Shift.
    void aNewHotKeyIsGrabbedAndTheOldOneLetsGo()
    {
        QVERIFY(controller->preferences()->setHotKey(48, 4096).isEmpty()); // Ctrl + Tab
        controller->openPrefs();
        auto* keys = control<QComboBox>("hotKeyCode");
        keys->setCurrentIndex(keys->findText("Space"));
        emit keys->activated(keys->currentIndex());
        control<QCheckBox>("hotKeyAlt")->click();
        QCOMPARE(defaults->integerForKey("hotKeyModifiers"), 4096 | 2048);
        QVERIFY(control<QLabel>("hotKeyProblem")->text().isEmpty());

        QVERIFY(controller->mainWindowIsVisible());
        QVERIFY(xdotool({"key", "ctrl+alt+space"}));
        QTRY_VERIFY(!controller->mainWindowIsVisible());
        QVERIFY(xdotool({"key", "ctrl+Tab"}));
        QTest::qWait(500);
        QVERIFY(!controller->mainWindowIsVisible());
    }
};

QTEST_MAIN(TestPreferences)
#include "tst_preferences.moc"
