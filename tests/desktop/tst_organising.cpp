// Organising from the panel with real input on a real X server: the contextual menu a right
// click opens, per group, and what its items do.
#include "support/testenvironment.h"

#include "browser/hviconview.h"
#include "browser/hvpoofeffect.h"
#include "catalogue/hvappgroup.h"
#include "catalogue/hvappmanager.h"
#include "common/hvuserdefaults.h"
#include "shell/hvcontroller.h"
#include "shell/hvwindow.h"
#include "support/startnimbo.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QSignalSpy>
#include <QtTest>

namespace {
bool xdotool(const QStringList& args)
{
    return QProcess::execute(QStringLiteral("xdotool"), args) == 0;
}
} // namespace

class TestOrganising : public QObject
{
    Q_OBJECT
    TestEnvironment env;
    std::unique_ptr<HVUserDefaults> defaults;
    std::unique_ptr<HVController> controller;

    HVIconView* view() { return controller->iconView(); }
    HVAppManager* manager() { return view()->manager(); }
    HVAppRef app(const QString& id)
    {
        return manager()->appForPath(env.dataHome() + "/applications/" + id + ".desktop");
    }

    void writeEntry(const QString& id, const QString& name, const QByteArray& more = {})
    {
        env.writeFile("data/applications/" + id + ".desktop",
                      "[Desktop Entry]\nType=Application\nName=" + name.toUtf8() + "\nExec=true\n" + more);
    }

    // Right-clicks the point of the view with the real pointer (holding `key` if given); the menu
    // that opens, as its item texts ("-" for a separator).
    QStringList rightClick(const QPointF& point, QMenu** opened = nullptr, const QString& key = {})
    {
        const QPoint at = view()->mapToGlobal(point.toPoint());
        QMenu* menu = nullptr;
        // The first click after a menu closed by the program may only end that menu's grab.
        for (int attempt = 0; attempt < 3 && !menu; ++attempt) {
            QStringList args{"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "3"};
            if (!key.isEmpty())
                args = QStringList{"keydown", key} + args + QStringList{"keyup", key};
            if (!xdotool(args))
                return {"xdotool failed"};
            const bool opened = QTest::qWaitFor(
                [&menu] { return (menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())); }, 5000);
            Q_UNUSED(opened);
        }
        if (!menu)
            return {"no menu opened"};
        QStringList items;
        for (QAction* action : menu->actions())
            items.append(action->isSeparator() ? QStringLiteral("-") : action->text());
        if (opened)
            *opened = menu;
        else
            menu->close();
        return items;
    }
    QStringList rightClick(const HVAppRef& target, QMenu** opened = nullptr, const QString& key = {})
    {
        return rightClick(view()->rectOfApp(target).center(), opened, key);
    }
    void choose(const HVAppRef& target, const QString& item)
    {
        QMenu* menu = nullptr;
        const QStringList items = rightClick(target, &menu);
        QVERIFY2(items.contains(item), qPrintable(items.join(',')));
        menu->actions().at(int(items.indexOf(item)))->trigger();
        menu->close();
    }

    struct Run
    {
        int exitCode = -1;
        QByteArray out, err;
    };
    // nimboctl run while the panel keeps answering the bus.
    Run nimboctl(const QStringList& args)
    {
        QProcess process;
        process.start(QStringLiteral(NIMBO_BINARY_DIR "/src/nimboctl"), args);
        if (!QTest::qWaitFor([&process] { return process.state() == QProcess::NotRunning; }, 20000))
            process.kill();
        return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
    }

private slots:
    void initTestCase()
    {
        writeEntry("clock", "Clock");
        writeEntry("eyes", "Eyes");
        writeEntry("term", "Term",
                   "Actions=new-window;\n[Desktop Action new-window]\nName=New Window\nExec=true\n");
        env.writeFile("data/applications/xlogo.desktop",
                      "[Desktop Entry]\nType=Application\nName=Logo\nExec=xlogo\n");
        writeEntry("notes", "Notes");              // five apps included: the grid has an empty cell
        writeEntry("fakeremover", "Fake Remover"); // installed, but opens no appstream: links
        defaults = std::make_unique<HVUserDefaults>(env.configHome() + "/Nimbo/Nimbo.conf");
        defaults->setBool(false, "showNoUIAccessWarning");
        defaults->setBool(false, "showNoMouseAccessWarning");
        controller = startNimbo(defaults.get());
        QTRY_VERIFY(controller->mainWindowIsVisible());
        manager()->moveApp(app("eyes"), HVAppGroupUser, 0, HVIndexPastEnd);
        manager()->excludeApp(app("term"));
    }

    void theMenuHoldsWhatAppliesInTheGroupShown()
    {
        const QStringList reveal{"-", "Show in File Manager", "-", "Send to Software"};
        const QStringList favour{"-", "Add Favorite", "Add Favorite in New Group"};
        const struct
        {
            int group;
            QString app;
            QStringList expected;
        } cases[] = {
            {HVAppGroupIncluded, "clock", QStringList{"Exclude"} + favour + reveal},
            {HVAppGroupIncluded, "eyes", QStringList{"Exclude"} + reveal}, // a favourite already
            {HVAppGroupUser, "eyes", QStringList{"Move to New Group", "Remove Favorite"} + reveal},
            {HVAppGroupExcluded, "term",
             QStringList{"Include"} + favour + reveal + QStringList{"-", "New Window"}},
            {HVAppGroupAll1D, "term",
             QStringList{"Include"} + favour + reveal + QStringList{"-", "New Window"}},
        };
        for (const auto& c : cases) {
            view()->setGroupToShow(c.group);
            QCOMPARE(rightClick(app(c.app)), c.expected);
        }
        // Without a remover there is no item for it; an empty cell has only the inert one.
        defaults->setString("", "appRemoverName");
        view()->setGroupToShow(HVAppGroupIncluded);
        QCOMPARE(rightClick(app("clock")),
                 QStringList({"Exclude", "-", "Add Favorite", "Add Favorite in New Group", "-",
                              "Show in File Manager"}));
        defaults->removeObjectForKey("appRemoverName");
        QPointF empty;
        for (int row = 0; row < view()->iconLayout().rowCount() && empty.isNull(); ++row) {
            for (int col = 0; col < view()->iconLayout().colCount() && empty.isNull(); ++col) {
                if (!view()->appAtCell(row, col))
                    empty = view()->iconLayout().rectOfCellForRow(row, col).center();
            }
        }
        QVERIFY(!empty.isNull());
        QCOMPARE(rightClick(empty), QStringList{"Hide Group"});
        // Control with the right button opens the same menu.
        view()->setGroupToShow(HVAppGroupUser);
        QCOMPARE(rightClick(app("eyes"), nullptr, "ctrl"),
                 QStringList({"Move to New Group", "Remove Favorite"}) + reveal);
    }

    void itemsActOnTheCatalogue()
    {
        controller->showMainWindow(); // a released Control may have put the panel away
        QTRY_VERIFY(controller->mainWindowIsVisible());
        view()->setGroupToShow(HVAppGroupIncluded);
        choose(app("clock"), "Add Favorite in New Group");
        QCOMPARE(manager()->userApps().size(), 2);
        QCOMPARE(manager()->userApps().at(1).first(), app("clock"));

        // Excluding from the included group: the icon leaves, in a puff.
        choose(app("clock"), "Exclude");
        QVERIFY(manager()->excludedApps1D().contains(app("clock")));
        bool puffed = false;
        for (QWidget* widget : QApplication::topLevelWidgets())
            puffed = puffed || qobject_cast<HVPoofEffect*>(widget);
        QVERIFY(puffed);

        view()->setGroupToShow(HVAppGroupUser);
        choose(app("clock"), "Remove Favorite");
        QCOMPARE(HVAppManager::pathsFromApps(manager()->userApps1D()), QStringList{app("eyes")->path()});
    }

    void aRunningAppIsHiddenShownAndQuit()
    {
        QVERIFY(app("xlogo")->launchWithItems(std::nullopt));
        QTRY_VERIFY_WITH_TIMEOUT(manager()->isAppRunning(app("xlogo")), 10000);
        // The app's window may take the focus back when a menu closes, and the panel go.
        const auto showRunning = [this] {
            controller->showMainWindow();
            QTRY_VERIFY(controller->mainWindowIsVisible());
            view()->setGroupToShow(HVAppGroupRunning);
        };
        showRunning();
        // No remover in the running group; what a running app can be asked comes last.
        QCOMPARE(rightClick(app("xlogo")),
                 QStringList({"Exclude", "-", "Add Favorite", "Add Favorite in New Group", "-",
                              "Show in File Manager", "-", "Hide", "Quit"}));
        showRunning();
        choose(app("xlogo"), "Hide");
        QTRY_VERIFY(!app("xlogo")->isVisible());
        showRunning();
        QCOMPARE(rightClick(app("xlogo")).mid(6), QStringList({"-", "Show", "Quit"}));
        showRunning();
        choose(app("xlogo"), "Show");
        QTRY_VERIFY(app("xlogo")->isVisible());
        showRunning();
        choose(app("xlogo"), "Quit");
        QTRY_VERIFY_WITH_TIMEOUT(!manager()->isAppRunning(app("xlogo")), 10000);
    }

    void nimboctlOrganisesTheRunningPanel()
    {
        QVERIFY(controller->registerBusService());
        const QString clock = app("clock")->path();
        Run run = nimboctl({"favourites", "add", clock, "--new-bunch"});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(manager()->userApps().last(), HVAppBunch{app("clock")}); // live, no restart
        run = nimboctl({"favourites"});
        QCOMPARE(QJsonDocument::fromJson(run.out).object().value("userApps1D").toArray().last().toString(),
                 clock);
        // A path that is no application entry changes nothing and says why.
        QVERIFY(manager()->excludedApps1D().contains(app("clock")));
        const QStringList excluded = HVAppManager::pathsFromApps(manager()->excludedApps1D());
        run = nimboctl({"include", clock, env.root() + "/no/such.desktop"});
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.err.contains("not an application entry"), run.err.constData());
        QCOMPARE(HVAppManager::pathsFromApps(manager()->excludedApps1D()), excluded);
        QCOMPARE(nimboctl({"include", clock}).exitCode, 0);
        QVERIFY(!manager()->excludedApps1D().contains(app("clock")));
        QCOMPARE(nimboctl({"exclude", clock}).exitCode, 0);
        QVERIFY(manager()->excludedApps1D().contains(app("clock")));
        QCOMPARE(nimboctl({"favourites", "remove", clock}).exitCode, 0);
        QVERIFY(!manager()->userApps1D().contains(app("clock")));
    }

    void theRemoversTwoFailuresAreToldApart()
    {
        controller->showMainWindow();
        QTRY_VERIFY(controller->mainWindowIsVisible());
        QSignalSpy alerts(controller.get(), &HVController::alertShown);
        view()->setGroupToShow(HVAppGroupUser);
        const QString removers[] = {"no.such.remover.desktop", "fakeremover.desktop"};
        for (const QString& remover : removers) {
            defaults->setString(remover, "appRemoverBundleIdentifier");
            QMenu* menu = nullptr;
            const QStringList items = rightClick(app("eyes"), &menu);
            QVERIFY2(menu, qPrintable(items.join(',')));
            menu->actions().at(int(items.indexOf("Send to Software")))->trigger();
            menu->close();
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                if (qobject_cast<QMessageBox*>(widget))
                    widget->close(); // the alert, acknowledged
            }
        }
        QCOMPARE(alerts.count(), 2);
        QCOMPARE(alerts.at(0).at(0).toString(),
                 QStringLiteral("Cannot locate the app remover called \"Software\"."));
        QCOMPARE(alerts.at(0).at(1).toString(),
                 QStringLiteral("Please open Nimbo's preferences and choose a different app remover."));
        QCOMPARE(alerts.at(1).at(0).toString(),
                 QStringLiteral("Sending \"Eyes\" to the app remover \"Software\" was not successful."));
    }
};

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Nimbo"));
    TestOrganising test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_organising.moc"
