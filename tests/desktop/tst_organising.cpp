// Organising from the panel with real input on a real X server: the contextual menu a right
// click opens, per group, and what its items do; nimboctl organising the running panel; and
// favourites moved by real mouse drags, where the icon is let go (a cell, a bunch's top margin, a
// gap between bunches, nowhere) deciding what the list files then hold.
#include "desktopfixture.h"

#include "browser/hviconview.h"
#include "catalogue/hvappgroup.h"
#include "catalogue/hvappmanager.h"
#include "catalogue/listfilestore.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMenu>
#include <QMessageBox>
#include <QtTest>

#include <functional>

class TestOrganising : public QObject
{
    Q_OBJECT
    DesktopFixture desktop;
    HVUserDefaults* defaults = &desktop.defaults();
    HVController* controller = nullptr;

    HVIconView* view() { return controller->iconView(); }
    HVAppManager* manager() { return view()->manager(); }
    HVAppRef app(const QString& id) { return manager()->appForPath(desktop.entryPath(id)); }
    QPointF at(const QString& id) { return view()->rectOfApp(app(id)).center(); } // the app's cell

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
            static_cast<void>(QTest::qWaitFor(
                [&menu] { return (menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())); }, 5000));
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
    void choose(const QString& id, const QString& item)
    {
        QMenu* menu = nullptr;
        const QStringList items = rightClick(at(id), &menu);
        QVERIFY2(items.contains(item), qPrintable(items.join(',')));
        menu->actions().at(int(items.indexOf(item)))->trigger();
        menu->close();
    }

    // The list files as ids: bunches joined by "|", then " / " and the flat list.
    static QString favouritesOnDisk()
    {
        const auto read = [](const char* name) {
            return ListFileStore::readArray(ListFileStore::userFolder() + name).value_or(QVariantList());
        };
        const auto idsOf = [](const QVariantList& paths) {
            QStringList ids;
            for (const QVariant& path : paths)
                ids.append(QFileInfo(path.toString()).completeBaseName());
            return ids.join(' ');
        };
        QStringList bunches;
        for (const QVariant& bunch : read("/UserApplications.plist"))
            bunches.append(idsOf(bunch.toList()));
        return bunches.join('|') + " / " + idsOf(read("/UserApplications1D.plist"));
    }

    // A point of the view whose coordinates pass the test, scanning every 2 points; null if none.
    QPointF pointWhere(const std::function<bool(const Coords&)>& test)
    {
        const QSizeF size = view()->size();
        for (double y = 1; y < size.height(); y += 2) {
            for (double x = 1; x < size.width(); x += 2) {
                if (test(view()->coordsOfPoint({x, y})))
                    return {x, y};
            }
        }
        return {};
    }

    // Presses on `from`, moves past the threshold and on to `to`, and lets go, with the real pointer.
    void drag(const QPointF& from, const QPointF& to)
    {
        const QPoint a = view()->mapToGlobal(from.toPoint());
        const QPoint b = view()->mapToGlobal(to.toPoint());
        QVERIFY(xdotool(
            QString::asprintf("mousemove %d %d sleep 0.2 mousedown 1 sleep 0.2 mousemove %d %d "
                              "sleep 0.3 mousemove %d %d sleep 0.3 mousemove %d %d sleep 0.3 mouseup 1",
                              a.x(), a.y(), a.x() + 8, a.y() + 8, b.x() + 3, b.y(), b.x(), b.y())
                .split(' ')));
        QTest::qWait(300);
    }

private slots:
    void initTestCase()
    {
        desktop.writeEntry("clock.desktop", "Name=Clock\nExec=true\n");
        desktop.writeEntry("eyes.desktop", "Name=Eyes\nExec=true\n");
        desktop.writeEntry("term.desktop", "Name=Term\nExec=true\nActions=new-window;\n"
                                           "[Desktop Action new-window]\nName=New Window\nExec=true\n");
        desktop.writeEntry("xlogo.desktop", "Name=Logo\nExec=xlogo\n");
        // Five apps included: the grid has an empty cell. The remover opens no appstream: links.
        desktop.writeEntry("notes.desktop", "Name=Notes\nExec=true\n");
        desktop.writeEntry("fakeremover.desktop", "Name=Fake Remover\nExec=true\n");
        controller = desktop.startNimbo();
        QTRY_VERIFY(controller->mainWindowIsVisible());
        manager()->moveApp(app("eyes"), HVAppGroupUser, 0, HVIndexPastEnd);
        manager()->excludeApp(app("term"));
    }

    // A released Control, or a launched app's window taking the focus, may have put the panel away.
    void init()
    {
        controller->showMainWindow();
        QTRY_VERIFY(controller->mainWindowIsVisible());
    }

    void theMenuHoldsWhatAppliesInTheGroupShown()
    {
        const QStringList reveal{"-", "Show in File Manager", "-", "Send to Software"};
        const QStringList favour{"-", "Add Favorite", "Add Favorite in New Group"};
        const std::tuple<int, QString, QStringList> cases[] = {
            {HVAppGroupIncluded, "clock", QStringList{"Exclude"} + favour + reveal},
            {HVAppGroupIncluded, "eyes", QStringList{"Exclude"} + reveal}, // a favourite already
            {HVAppGroupUser, "eyes", QStringList{"Move to New Group", "Remove Favorite"} + reveal},
            {HVAppGroupExcluded, "term",
             QStringList{"Include"} + favour + reveal + QStringList{"-", "New Window"}},
        };
        for (const auto& [group, id, expected] : cases) {
            view()->setGroupToShow(group);
            QCOMPARE(rightClick(at(id)), expected);
        }
        // Without a remover there is no item for it; an empty cell has only the inert one.
        defaults->setString("", "appRemoverName");
        view()->setGroupToShow(HVAppGroupIncluded);
        QCOMPARE(rightClick(at("clock")),
                 (QStringList{"Exclude"} + favour + QStringList{"-", "Show in File Manager"}));
        defaults->removeObjectForKey("appRemoverName");
        const QPointF empty = pointWhere(
            [this](const Coords& c) { return c.hasCell() && !view()->appAtCell(int(c.row), int(c.col)); });
        QVERIFY(!empty.isNull());
        QCOMPARE(rightClick(empty), QStringList{"Hide Group"});
        // Control with the right button opens the same menu.
        view()->setGroupToShow(HVAppGroupUser);
        QCOMPARE(rightClick(at("eyes"), nullptr, "ctrl"),
                 QStringList({"Move to New Group", "Remove Favorite"}) + reveal);
    }

    void itemsActOnTheCatalogue()
    {
        view()->setGroupToShow(HVAppGroupIncluded);
        choose("clock", "Add Favorite in New Group");
        QCOMPARE(manager()->userApps(), HVAppBunches({{app("eyes")}, {app("clock")}}));

        choose("clock", "Exclude");
        QVERIFY(manager()->excludedApps1D().contains(app("clock")));

        view()->setGroupToShow(HVAppGroupUser);
        choose("clock", "Remove Favorite");
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
        QCOMPARE(rightClick(at("xlogo")),
                 QStringList({"Exclude", "-", "Add Favorite", "Add Favorite in New Group", "-",
                              "Show in File Manager", "-", "Hide", "Quit"}));
        for (const auto& [item, visible] : {std::pair{"Hide", false}, {"Show", true}}) {
            showRunning();
            choose("xlogo", item);
            QTRY_COMPARE(app("xlogo")->isVisible(), visible);
        }
        showRunning();
        choose("xlogo", "Quit");
        QTRY_VERIFY_WITH_TIMEOUT(!manager()->isAppRunning(app("xlogo")), 10000);
    }

    void nimboctlOrganisesTheRunningPanel()
    {
        QVERIFY(controller->registerBusService());
        const QString clock = app("clock")->path();
        ProgramRun run = nimboctl({"favourites", "add", clock, "--new-bunch"});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(manager()->userApps().last(), HVAppBunch{app("clock")}); // live, no restart
        run = nimboctl({"favourites"});
        QCOMPARE(QJsonDocument::fromJson(run.out).object().value("userApps1D").toArray().last().toString(),
                 clock);
        // A path that is no application entry changes nothing and says why.
        QVERIFY(manager()->excludedApps1D().contains(app("clock")));
        const QStringList excluded = HVAppManager::pathsFromApps(manager()->excludedApps1D());
        run = nimboctl({"include", clock, desktop.env().root() + "/no/such.desktop"});
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
        QSignalSpy alerts(controller, &HVController::alertShown);
        view()->setGroupToShow(HVAppGroupUser);
        const QString removers[] = {"no.such.remover.desktop", "fakeremover.desktop"};
        for (const QString& remover : removers) {
            defaults->setString(remover, "appRemoverBundleIdentifier");
            choose("eyes", "Send to Software");
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                if (qobject_cast<QMessageBox*>(widget))
                    widget->close(); // the alert, acknowledged
            }
        }
        QCOMPARE(alerts.count(), 2);
        // Apart without pinning the wording: only the failed hand-over names the app.
        QVERIFY(!alerts.at(0).at(0).toString().contains("Eyes") &&
                alerts.at(1).at(0).toString().contains("Eyes"));
    }

    void whereTheIconIsLetGoDecides()
    {
        const auto topMarginOf = [this](quint64 bunch) {
            return pointWhere(
                [bunch](const Coords& c) { return !c.hasCell() && c.bunch == bunch && c.margin == 0; });
        };
        const auto gap = [this](quint64 spacer) {
            return pointWhere([spacer](const Coords& c) { return !c.hasCell() && c.spacer == spacer; });
        };
        // Outside every cell, bunch and gap: inside the view where the layout leaves such a spot,
        // else the panel's own edge beside the view.
        const auto nowhere = [this] {
            const QPointF inside = pointWhere([](const Coords& c) { return c.isEmpty(); });
            return inside.isNull() ? QPointF(-4, -4) : inside;
        };
        // Favourites "eyes notes|xlogo fakeremover" to start with, flat in the same order.
        const std::tuple<const char*, int, const char*, std::function<QPointF()>, QString> cases[] = {
            {"onto another cell", HVAppGroupUser, "eyes", [&] { return at("fakeremover"); },
             "notes|xlogo eyes fakeremover / eyes notes xlogo fakeremover"},
            {"a bunch's top margin", HVAppGroupUser, "fakeremover", [&] { return topMarginOf(0); },
             "fakeremover eyes notes|xlogo / eyes notes xlogo fakeremover"},
            {"the gap between bunches", HVAppGroupUser, "notes", [&] { return gap(1); },
             "eyes|notes|xlogo fakeremover / eyes notes xlogo fakeremover"},
            {"nowhere: nothing changes", HVAppGroupUser, "eyes", nowhere,
             "eyes notes|xlogo fakeremover / eyes notes xlogo fakeremover"},
            {"onto a cell of the flat list", HVAppGroupUser1D, "eyes", [&] { return at("fakeremover"); },
             "eyes notes|xlogo fakeremover / notes xlogo eyes fakeremover"},
        };
        for (const auto& [name, group, moved, target, expected] : cases) {
            manager()->removeAppsFromUserApps(manager()->userApps1D());
            manager()->moveApp(app("eyes"), HVAppGroupUser, HVIndexPastEnd, 0);
            manager()->moveApp(app("notes"), HVAppGroupUser, 0, HVIndexPastEnd);
            manager()->moveAppToNewBunch(app("xlogo"), HVAppGroupUser, 1);
            manager()->moveApp(app("fakeremover"), HVAppGroupUser, 1, HVIndexPastEnd);
            view()->setGroupToShow(group);
            QTRY_COMPARE(view()->groupShown(), group);
            const QPointF to = target();
            QVERIFY2(!to.isNull(), name);
            drag(at(moved), to);
            QVERIFY2(!view()->dragState().dragMoveInProgress, name);
            QCOMPARE(favouritesOnDisk(), expected);
        }
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
