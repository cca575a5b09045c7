// Moving favourites within and between bunches and in the flat list: index shifts, emptied
// bunches, new favourites, and both files written after every move that changes something.
#include "support/catalogueharness.h"

#include <QSignalSpy>
#include <QtTest>

using Bunches = QList<QStringList>;

class TestMoves : public QObject
{
    Q_OBJECT

    static QString path(const QString& name) { return "/apps/" + name + ".desktop"; }

    // The favourites' file as it holds these bunches.
    static QVariantList userFile(const Bunches& bunches)
    {
        QVariantList arrays;
        for (const QStringList& bunch : bunches) {
            QVariantList paths;
            for (const QString& name : bunch)
                paths.append(path(name));
            arrays.append(QVariant(paths));
        }
        return arrays;
    }

    // The flat list, left empty, takes the order of the bunches.
    void arrange(CatalogueHarness& h, const Bunches& bunches)
    {
        h.writeUserFile(HVListFileNames::UserApplications, userFile(bunches));
        h.writeUserFile(HVListFileNames::UserApplications1D, {});
        h.manager().readUserAppsFromDisk();
    }

private slots:
    void movesWithinABunchAccountForTheRemoval()
    {
        CatalogueHarness h;
        arrange(h, {{"A", "B", "C", "D", "E", "F"}});
        // Dragged from position 2 to position 5, it ends at position 4.
        h.manager().moveApp(h.app(path("C")), HVAppGroupUser, 0, 5);
        QCOMPARE(h.names(h.manager().userApps()), (Bunches{{"A", "B", "D", "E", "C", "F"}}));
        // Moving backwards needs no adjustment.
        h.manager().moveApp(h.app(path("E")), HVAppGroupUser, 0, 0);
        QCOMPARE(h.names(h.manager().userApps()), (Bunches{{"E", "A", "B", "D", "C", "F"}}));
        // The flat list keeps its own order through all of this.
        QCOMPARE(h.names(h.manager().userApps1D()), (QStringList{"A", "B", "C", "D", "E", "F"}));
    }

    void movingTheOnlyMemberOfABunchDeletesTheBunch()
    {
        CatalogueHarness h;
        arrange(h, {{"A"}, {"B", "C"}, {"D"}});
        // Bunch 0 empties and goes; the target bunch 2 is now bunch 1.
        h.manager().moveApp(h.app(path("A")), HVAppGroupUser, 2, 0);
        QCOMPARE(h.names(h.manager().userApps()), (Bunches{{"B", "C"}, {"A", "D"}}));
        // To another place in its own bunch, a lone member keeps its bunch.
        arrange(h, {{"A"}, {"B"}});
        h.manager().moveApp(h.app(path("A")), HVAppGroupUser, 0, 1);
        QCOMPARE(h.names(h.manager().userApps()), (Bunches{{"A"}, {"B"}}));
        // A bunch number past the last bunch makes a new bunch at the end.
        h.manager().moveApp(h.app(path("A")), HVAppGroupUser, 9, 0);
        QCOMPARE(h.names(h.manager().userApps()), (Bunches{{"B"}, {"A"}}));
        QCOMPARE(h.readUserFile(HVListFileNames::UserApplications), userFile({{"B"}, {"A"}}));
    }

    void newFavouritesJoinBothLists()
    {
        CatalogueHarness h;
        arrange(h, {{"A", "B"}});
        // Into the flat list at 0: first there, and alone in a new bunch at the end.
        h.manager().moveApp(h.app(path("N")), HVAppGroupUser1D, 0, 0);
        QCOMPARE(h.names(h.manager().userApps1D()), (QStringList{"N", "A", "B"}));
        QCOMPARE(h.names(h.manager().userApps()), (Bunches{{"A", "B"}, {"N"}}));
        // Into a bunch: the flat list gets it at its end.
        h.manager().moveApp(h.app(path("M")), HVAppGroupUser, 0, 1);
        QCOMPARE(h.names(h.manager().userApps()), (Bunches{{"A", "M", "B"}, {"N"}}));
        QCOMPARE(h.names(h.manager().userApps1D()), (QStringList{"N", "A", "B", "M"}));
    }

    void newBunchMoves()
    {
        CatalogueHarness h;
        arrange(h, {{"A"}, {"B", "C"}, {"D"}});
        // Out of an emptied bunch before the target: the target shifts down.
        h.manager().moveAppToNewBunch(h.app(path("A")), HVAppGroupUser, 2);
        QCOMPARE(h.names(h.manager().userApps()), (Bunches{{"B", "C"}, {"A"}, {"D"}}));
        // A new favourite past the last bunch: a bunch at the end, and the flat list's end.
        h.manager().moveAppToNewBunch(h.app(path("E")), HVAppGroupUser, 99);
        QCOMPARE(h.names(h.manager().userApps()), (Bunches{{"B", "C"}, {"A"}, {"D"}, {"E"}}));
        QCOMPARE(h.names(h.manager().userApps1D()), (QStringList{"A", "B", "C", "D", "E"}));
        // Only the arranged list takes new bunches.
        h.manager().moveAppToNewBunch(h.app(path("F")), HVAppGroupUser1D, 0);
        QCOMPARE(h.manager().userApps().size(), 4);
    }

    // (No record, or a list that is no favourites list, the view's drop never passes on.)
    void movesThatChangeNothingAnnounceAndWriteNothing()
    {
        CatalogueHarness h;
        arrange(h, {{"A", "B"}});
        QSignalSpy spy(&h.manager(), &HVAppManager::didChange);
        h.manager().moveApp(h.app(path("B")), HVAppGroupUser, 0, 1);
        h.manager().moveApp(h.app(path("A")), HVAppGroupUser1D, 0, 0);
        QCOMPARE(spy.count(), 0);

        h.manager().moveApp(h.app(path("A")), HVAppGroupUser, 0, 2);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.first().first().toStringList(), (QStringList{"userApps", "userApps1D"}));
    }
};

QTEST_GUILESS_MAIN(TestMoves)
#include "tst_moves.moc"
