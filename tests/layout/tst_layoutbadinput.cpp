// The icon grid under lists, panels and preferences it was never meant for, and nimboctl layout
// end to end: every layout stays within the 256 x 256 table, no icon drops below one point, and
// every app shown has exactly one cell.
#include "browser/layout/hviconlayout.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSet>
#include <QtTest>

#include <numeric>

namespace {
// The grid is within the table, icons are at least a point, and each app of the laid-out list
// sits in exactly one cell.
void verifySane(const HVIconLayout& layout)
{
    QVERIFY(layout.rowCount() >= 0 && layout.rowCount() <= 256);
    QVERIFY(layout.colCount() >= 0 && layout.colCount() <= 256);
    QVERIFY(layout.iconWidth() >= 1);
    QList<QPair<quint64, quint64>> apps;
    for (const appInfo& cell : layout.lookupTable().cells()) {
        if (cell.filled)
            apps.append({cell.bunch, cell.index});
    }
    QCOMPARE(QSet(apps.begin(), apps.end()).size(), apps.size()); // no app in two cells
    const QList<int> sizes = layout.bunchSizes();
    QCOMPARE(apps.size(), std::accumulate(sizes.begin(), sizes.end(), qsizetype(0)));
}
} // namespace

class TestLayoutBadInput : public QObject
{
    Q_OBJECT
private slots:
    void emptyListsShowNothingAndPanelsTooSmallShrinkToOnePoint()
    {
        for (const QList<qint64>& bunches : {QList<qint64>{}, QList<qint64>{0, 0}}) {
            const HVIconLayout layout = HVIconLayout::forGroup(1, false, bunches, {}, QSizeF(1200, 800));
            QCOMPARE(std::tuple(layout.rowCount(), layout.colCount(), layout.bunchCount()),
                     std::tuple(0, 0, 0));
            QVERIFY(layout.lookupTable().cells().empty());
            QVERIFY(layout.coordsOfPoint(QPointF(0, 0)).isEmpty());
        }
        QCOMPARE(HVIconLayout::forGroup(42, false, {5}, {}, QSizeF(1200, 800)).bunchCount(), 0);
        // An empty bunch among others keeps one column of empty cells, as the row search counted it.
        const HVIconLayout gap = HVIconLayout::forGroup(8, false, {0, 3}, {}, QSizeF(1200, 800));
        QCOMPARE(gap.rowCount(), 2);
        QCOMPARE(gap.colCount(), 3);
        QCOMPARE(gap.bunchRects(), (QList<QRectF>{{12, 0, 68, 160}, {114, 0, 136, 160}}));
        QVERIFY(!gap.lookupTable().at(0, 0).filled && gap.lookupTable().at(0, 1).bunch == 1);
        // (One app at full size, a view of 92 x 92, is seen in tst_iconviewlayout.)
        QCOMPARE(HVIconLayout::forGroup(2, false, {1}, {}, QSizeF(50, 50)).iconWidth(), 22);
        // Smaller than any cell: the icon stops at one point.
        const HVIconLayout tiny = HVIconLayout::forGroup(1, false, {3, 5}, {}, QSizeF(3, 3));
        QCOMPARE(tiny.iconWidth(), 1);
        QCOMPARE(tiny.cellWidth(), 5);
        verifySane(tiny);
        // No positive panel size: nothing to shrink for.
        QCOMPARE(HVIconLayout::forGroup(2, false, {7}, {}, QSizeF(-5, 100)).iconWidth(), 64);
    }

    void hugeListsStayWithinTheTable()
    {
        for (int o : {0, 1, 2}) {
            for (const QSizeF& panel : {QSizeF(1872, 1032), QSizeF(100, 4000), QSizeF(4000, 60)}) {
                const HVIconLayout big =
                    HVIconLayout::forGroup(1, false, {5000}, {.groupOrientation = o}, panel);
                verifySane(big);
                QCOMPARE(big.bunchSizes(), QList<int>{5000});
                verifySane(HVIconLayout::forGroup(0, false, {5000}, {.groupOrientation = o}, panel));
            }
        }
        const HVIconLayout sideBySide =
            HVIconLayout::forGroup(1, false, QList<qint64>(300, 1), {}, QSizeF(1872, 1032));
        QCOMPARE(sideBySide.bunchCount(), 256); // a column each at least, so all 256 of the table
        verifySane(sideBySide);
        const HVIconLayout stacked = HVIconLayout::forGroup(1, false, QList<qint64>(300, 1),
                                                            {.groupOrientation = 1}, QSizeF(1872, 1032));
        QCOMPARE(stacked.bunchRects().size(), 256);
        QCOMPARE(stacked.bunchSpacingRects().size(), 257);
        verifySane(stacked);
        const HVIconLayout flat = HVIconLayout::forGroup(6, false, {70000, -4}, {}, QSizeF(1872, 1032));
        QCOMPARE(flat.bunchSizes(), QList<int>{65536});
        verifySane(flat);
        const HVIconLayout halves =
            HVIconLayout::forGroup(5, false, {40000, 40000, 7}, {}, QSizeF(1872, 1032));
        QCOMPARE(halves.bunchSizes(), (QList<int>{40000, 25088, 7}));
        verifySane(halves);
    }

    void absurdPreferencesStillGiveEveryAppOneCell()
    {
        for (int o : {-1, 0, 1, 2, 9}) {
            for (int readingOrder : {0, 1, 2, 77}) {
                const HVIconLayoutPreferences p{.groupOrientation = o,
                                                .iconReadingOrder = readingOrder,
                                                .maximumIconSize = o < 0 ? -50 : 1000000,
                                                .iconPadding = 1000,
                                                .iconSpacing = -1000,
                                                .minimizeEmptyCells = readingOrder == 2};
                const HVIconLayout layout = HVIconLayout::forGroup(8, false, {3, 0, 17, 1}, p, {900, 700});
                verifySane(layout);
                QVERIFY(layout.iconWidth() <= 128);
            }
        }
        HVIconLayout layout = HVIconLayout::forGroup(1, false, {3, 5}, {}, QSizeF(1200, 800));
        QVERIFY(layout.forceRowColCountForRows(100000, 0));
        QCOMPARE(layout.rowCount(), 256);
        verifySane(layout);
    }

    void commandPrintsTheGridAsJson()
    {
        QProcess ctl;
        const auto run = [&ctl](const QByteArray& input) {
            ctl.start(QStringLiteral(NIMBO_BINARY_DIR "/src/nimboctl"), {QStringLiteral("layout")});
            ctl.write(input);
            ctl.closeWriteChannel();
            return ctl.waitForFinished(10000);
        };
        QVERIFY(run(R"({"group": 1, "bunches": [3, 5], "groupOrientation": 2, "iconReadingOrder": 1,
                      "maximumIconSize": 64, "iconPadding": 2, "iconSpacing": 0, "minimizeEmptyCells": false,
                      "maxViewSize": [1200, 800], "optionKey": false, "points": [[200, 160], [-1, 0]]})"));
        QCOMPARE(ctl.exitCode(), 0);
        const QJsonObject out = QJsonDocument::fromJson(ctl.readAllStandardOutput()).object();
        QCOMPARE(out.value("viewSize").toArray(), (QJsonArray{262, 228}));
        QCOMPARE(out.value("cells").toArray().size(), 9);
        const auto json = [](const char* text) { return QJsonDocument::fromJson(text); };
        QCOMPARE(
            out.value("cells").toArray().at(1).toObject(),
            json(R"({"row": 0, "col": 1, "bunch": 1, "index": 0, "filled": true, "rect": [114, 12, 68, 68]})")
                .object());
        // The second point lies outside the grid: every field of its hit is null.
        QCOMPARE(out.value("hits").toArray(),
                 json(R"([{"row": 2, "col": 2, "bunch": 1, "spacer": null, "margin": null},
            {"row": null, "col": null, "bunch": null, "spacer": null, "margin": null}])")
                     .array());

        for (const QByteArray& bad :
             {QByteArray("[1, 2]"), QByteArray("{\"bunches\": [-1]}"), QByteArray("{\"maxViewSize\": 5}"),
              QByteArray("{\"iconSpacing\": \"x\"}"), QByteArray("{\"points\": [[1]]}")}) {
            QVERIFY(run(bad));
            QCOMPARE(ctl.exitCode(), 1);
            QVERIFY(ctl.readAllStandardOutput().isEmpty());
        }
    }
};

QTEST_GUILESS_MAIN(TestLayoutBadInput)
#include "tst_layoutbadinput.moc"
