// The sheets beside the preferences, used as a user would on a real X server: the automatic
// exclusion sheet, opened from Nimbo's menu, excludes the applications named by the words typed
// into it and the desktop's favourites from the live catalogue; the app remover chooser takes
// only an application that opens appstream:// links and refuses any other with an alert.
#include "support/testenvironment.h"

#include "catalogue/hvapp.h"
#include "catalogue/hvappmanager.h"
#include "common/hvuserdefaults.h"
#include "shell/hvcontroller.h"
#include "shell/hvexclusionsheet.h"
#include "shell/hvpreferences.h"
#include "shell/hvpreferenceswindow.h"
#include "shell/hvremoverchooser.h"
#include "shell/hvstatusmenu.h"
#include "support/startnimbo.h"

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>

class TestPreferenceSheets : public QObject
{
    Q_OBJECT
    TestEnvironment env;
    std::unique_ptr<HVUserDefaults> defaults;
    std::unique_ptr<HVController> controller;

    QString entry(const QString& name, const QString& extra = {})
    {
        return env.writeFile(QStringLiteral("data/applications/%1.desktop").arg(QString(name).remove(' ')),
                             QStringLiteral("[Desktop Entry]\nType=Application\nName=%1\nExec=true\n%2")
                                 .arg(name, extra)
                                 .toUtf8());
    }
    QStringList excludedNames() const
    {
        QStringList names;
        for (const HVAppRef& app : controller->appManager()->excludedApps1D())
            names.append(app->name());
        names.sort();
        return names;
    }
    static void click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }

private slots:
    void initTestCase()
    {
        for (const char* name : {"Clock", "Eyes", "Mail", "Music Helper"})
            entry(name);
        // The desktop's favourites: a Plank dock holding the terminal.
        const QString terminal = entry("Terminal");
        env.writeFile("config/plank/dock1/launchers/terminal.dockitem",
                      "[PlankDockItemPreferences]\nLauncher=file://" + terminal.toUtf8() + "\n");
        entry("Software Centre", "MimeType=x-scheme-handler/appstream;\n");
        defaults = std::make_unique<HVUserDefaults>(env.configHome() + "/Nimbo/Nimbo.conf");
        defaults->setInteger(1, "applicationLaunchCount"); // not the first launch: nothing excluded yet
        controller = startNimbo(defaults.get());
        QTRY_VERIFY(controller->mainWindowIsVisible());
    }

    void theExclusionSheetExcludesTheNamedApps()
    {
        controller->explicitHideMainWindow();
        QCOMPARE(controller->statusItemMenu()->automaticExclusionAction()->text(), "Automatic Exclusion…");
        controller->statusItemMenu()->automaticExclusionAction()->trigger();
        HVExclusionSheet* sheet = controller->exclusionSheet();
        QTRY_VERIFY(sheet->isVisible());
        QVERIFY(controller->mainWindowIsVisible());
        auto* words = sheet->findChild<QPlainTextEdit*>("nameSubstrings");
        QVERIFY(words->toPlainText().split('\n').contains("Helper"));

        words->clear();
        QTest::keyClicks(words, "  clock");
        QTest::keyClick(words, Qt::Key_Return);
        QTest::keyClick(words, Qt::Key_Return);
        QTest::keyClicks(words, "EYES  ");
        click(sheet->findChild<QCheckBox*>("excludeDockApps"));
        click(sheet->findChild<QPushButton*>("excludeApps"));
        QCOMPARE(excludedNames(), QStringList({"Clock", "Eyes", "Terminal"}));
        QVERIFY(!sheet->isVisible());
        const auto onDisk = controller->appManager()->readPathArraysFromAppSupportFileNamed(
            HVListFileNames::ExcludedApplications);
        QVERIFY(onDisk && onDisk->size() == 3);

        // The words stay for the session; with none given nothing more is excluded by name.
        controller->autoExcludeApps();
        QCOMPARE(words->toPlainText(), "clock\nEYES");
        words->clear();
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("no words given"));
        click(sheet->findChild<QPushButton*>("excludeApps"));
        QCOMPARE(excludedNames(), QStringList({"Clock", "Eyes", "Terminal"}));
        // The sheet goes with the panel.
        controller->autoExcludeApps();
        QVERIFY(sheet->isVisible());
        controller->explicitHideMainWindow();
        QVERIFY(!sheet->isVisible());
    }

    void theRemoverChooserTakesOnlyAnAppstreamHandler()
    {
        controller->openPrefs();
        HVPreferencesWindow* window = controller->preferences()->window();
        click(window->findChild<QPushButton*>("setAppRemover"));
        HVRemoverChooser* chooser = window->removerChooser();
        QTRY_VERIFY(chooser->isVisible());
        QListWidget* list = chooser->list();
        const auto choose = [&](const QString& name) {
            const QList<QListWidgetItem*> items = list->findItems(name, Qt::MatchExactly);
            QCOMPARE(items.size(), 1);
            list->setCurrentItem(items.first());
            click(chooser->findChild<QPushButton*>("chooseAppRemover"));
        };

        choose("Clock");
        auto* alert = chooser->findChild<QMessageBox*>("removerRefused");
        QVERIFY(alert && alert->isVisible());
        QCOMPARE(alert->text(),
                 "\"Clock\" cannot accept an application file, so it probably can't delete one "
                 "either.");
        QCOMPARE(alert->informativeText(), "Please choose a different app for removing application files.");
        QVERIFY(!defaults->hasUserValue("appRemoverName"));
        QVERIFY(!defaults->hasUserValue("appRemoverBundleIdentifier"));
        QCOMPARE(defaults->stringForKey("appRemoverBundleIdentifier"), "org.gnome.Software.desktop");
        alert->buttons().first()->click();
        QVERIFY(chooser->isVisible());

        choose("Software Centre");
        QCOMPARE(defaults->stringForKey("appRemoverName"), "Software Centre");
        QCOMPARE(defaults->stringForKey("appRemoverBundleIdentifier"), "SoftwareCentre.desktop");
        QVERIFY(!chooser->isVisible());
        QCOMPARE(window->findChild<QLabel*>("appRemoverName")->text(), "Software Centre");
    }
};

QTEST_MAIN(TestPreferenceSheets)
#include "tst_preferencesheets.moc"
