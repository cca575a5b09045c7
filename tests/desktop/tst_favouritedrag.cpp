// Favourites moved by real mouse drags on a real X server: where the icon is let go (a cell, a
// bunch's top margin, a gap between bunches, nowhere) decides what the list files then hold.
#include "support/testenvironment.h"

#include "browser/hviconview.h"
#include "catalogue/hvappgroup.h"
#include "catalogue/hvappmanager.h"
#include "catalogue/listfilestore.h"
#include "common/hvuserdefaults.h"
#include "shell/hvcontroller.h"
#include "support/startnimbo.h"

#include <QApplication>
#include <QProcess>
#include <QtTest>

#include <functional>

class TestFavouriteDrag : public QObject
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
    QString idOf(const QVariant& path) { return QFileInfo(path.toString()).completeBaseName(); }

    // The list files as ids: bunches joined by "|", e.g. "a b|c d".
    QString bunchesOnDisk()
    {
        QStringList bunches;
        for (const QVariant& bunch :
             ListFileStore::readArray(ListFileStore::userFolder() + "/UserApplications.plist")
                 .value_or(QVariantList())) {
            QStringList ids;
            for (const QVariant& path : bunch.toList())
                ids.append(idOf(path));
            bunches.append(ids.join(' '));
        }
        return bunches.join('|');
    }
    QString flatOnDisk()
    {
        QStringList ids;
        for (const QVariant& path :
             ListFileStore::readArray(ListFileStore::userFolder() + "/UserApplications1D.plist")
                 .value_or(QVariantList()))
            ids.append(idOf(path));
        return ids.join(' ');
    }

    // Favourites "a b|c d", flat "a b c d".
    void arrange()
    {
        manager()->removeAppsFromUserApps(manager()->userApps1D());
        manager()->moveApp(app("a"), HVAppGroupUser, HVIndexPastEnd, 0);
        manager()->moveApp(app("b"), HVAppGroupUser, 0, HVIndexPastEnd);
        manager()->moveAppToNewBunch(app("c"), HVAppGroupUser, 1);
        manager()->moveApp(app("d"), HVAppGroupUser, 1, HVIndexPastEnd);
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
        const auto n = [](int v) { return QString::number(v); };
        QProcess xdotool;
        xdotool.start("xdotool",
                      {"mousemove", n(a.x()),    n(a.y()),    "sleep",      "0.2",        "mousedown",
                       "1",         "sleep",     "0.2",       "mousemove",  n(a.x() + 8), n(a.y() + 8),
                       "sleep",     "0.3",       "mousemove", n(b.x() + 3), n(b.y()),     "sleep",
                       "0.3",       "mousemove", n(b.x()),    n(b.y()),     "sleep",      "0.3",
                       "mouseup",   "1"});
        QTRY_VERIFY_WITH_TIMEOUT(xdotool.state() == QProcess::NotRunning, 10000);
        QCOMPARE(xdotool.exitCode(), 0);
        QTest::qWait(300);
    }

private slots:
    void initTestCase()
    {
        for (const char* id : {"a", "b", "c", "d"})
            env.writeFile(QString("data/applications/%1.desktop").arg(id),
                          QByteArray("[Desktop Entry]\nType=Application\nName=App ") + id + "\nExec=true\n");
        defaults = std::make_unique<HVUserDefaults>(env.configHome() + "/Nimbo/Nimbo.conf");
        defaults->setBool(false, "showNoUIAccessWarning");
        defaults->setBool(false, "showNoMouseAccessWarning");
        controller = startNimbo(defaults.get());
        QTRY_VERIFY(controller->mainWindowIsVisible());
        QTRY_VERIFY(app("d"));
    }

    void whereTheIconIsLetGoDecides()
    {
        const auto cellOf = [this](const char* id) { return view()->rectOfApp(app(id)).center(); };
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
        const struct
        {
            const char* name;
            int group;
            const char* moved;
            std::function<QPointF()> target;
            QString bunches;
            QString flat;
        } cases[] = {
            {"onto another cell", HVAppGroupUser, "a", [&] { return cellOf("d"); }, "b|c a d", "a b c d"},
            {"a bunch's top margin", HVAppGroupUser, "d", [&] { return topMarginOf(0); }, "d a b|c",
             "a b c d"},
            {"the gap between bunches", HVAppGroupUser, "b", [&] { return gap(1); }, "a|b|c d", "a b c d"},
            {"nowhere: nothing changes", HVAppGroupUser, "a", nowhere, "a b|c d", "a b c d"},
            {"onto a cell of the flat list", HVAppGroupUser1D, "a", [&] { return cellOf("d"); }, "a b|c d",
             "b c a d"},
        };
        for (const auto& c : cases) {
            arrange();
            view()->setGroupToShow(c.group);
            QTRY_COMPARE(view()->groupShown(), c.group);
            const QPointF to = c.target();
            QVERIFY2(!to.isNull(), c.name);
            drag(cellOf(c.moved), to);
            QVERIFY2(!view()->dragState().dragMoveInProgress, c.name);
            QCOMPARE(bunchesOnDisk() + " / " + flatOnDisk(), c.bunches + " / " + c.flat);
        }
    }
};

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Nimbo"));
    TestFavouriteDrag test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_favouritedrag.moc"
