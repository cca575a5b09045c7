// The icon grid's shapes, sizes, cell order, strips and hit testing, pinned to hand-worked numbers.
#include "browser/layout/groupshown.h"
#include "browser/layout/hviconlayout.h"

#include <QtTest>

// A hit reads in a failure message as its fields, "-" for none.
char* toString(const Coords& c)
{
    const auto f = [](quint64 v) { return Coords::isNone(v) ? QString("-") : QString::number(v); };
    return qstrdup(qPrintable(QString("row %1 col %2 bunch %3 spacer %4 margin %5")
                                  .arg(f(c.row), f(c.col), f(c.bunch), f(c.spacer), f(c.margin))));
}

namespace {
// Bunches of 3 and 5 apps side by side on a 1200 x 800 panel: 3 rows, 3 columns.
HVIconLayout threeAndFive(const HVIconLayoutPreferences& p = {})
{
    return HVIconLayout::forGroup(1, false, {3, 5}, p, QSizeF(1200, 800));
}

// The favourites as a flat list of ten.
HVIconLayout tenApps(const QSizeF& panel, const HVIconLayoutPreferences& p = {})
{
    return HVIconLayout::forGroup(2, false, {10}, p, panel);
}

QList<quint64> indexes(const HVIconLayout& layout, int row)
{
    QList<quint64> result;
    for (int col = 0; col < layout.colCount(); ++col) {
        const appInfo& cell = layout.lookupTable().at(row, col);
        result.append(cell.filled ? cell.index : 99);
    }
    return result;
}
} // namespace

class TestIconLayout : public QObject
{
    Q_OBJECT
private slots:
    void theGridTakesTheShapeClosestToThePanel()
    {
        const auto running = [](int apps, double width) {
            return HVIconLayout::forGroup(0, false, {apps}, {}, QSizeF(width, 800));
        };
        const std::tuple<const char*, HVIconLayout, int, int> shapes[] = {
            // 1, 2 and 3 rows are all too wide (10, 2.5, 1.33); 4 x 3 (0.75) lies closer to 1.
            {"ten on a square", tenApps({524, 524}), 4, 3},
            // 3 rows (1.33) stop the search, but 2 rows (2.5) lay closer to 2.
            {"ten twice as wide as tall", tenApps({424, 224}), 2, 5},
            {"running apps: a strip", running(10, 1200), 1, 10},
            {"running apps: strips as long as the width allows", running(20, 1200), 2, 10},
            {"running apps: 276 points across, 5 columns of 68 overflow", running(10, 300), 3, 4},
            {"bunches side by side", threeAndFive(), 3, 3},
            {"bunches stacked", threeAndFive({.groupOrientation = 1}), 2, 5},
            // One empty cell instead of two, though the shape lies further from the panel's aspect.
            {"stacked, fewer empty cells", threeAndFive({.groupOrientation = 1, .minimizeEmptyCells = true}),
             3, 3},
        };
        for (const auto& [name, layout, rows, cols] : shapes)
            QCOMPARE(std::tuple(QString(name), layout.rowCount(), layout.colCount()),
                     std::tuple(QString(name), rows, cols));
        // The flat list of ten, across then down, or down then across.
        const HVIconLayout layout = tenApps({524, 524});
        QCOMPARE(layout.viewSize(), QSizeF(228, 296));
        QCOMPARE(indexes(layout, 3), (QList<quint64>{9, 99, 99}));
        const HVIconLayout downward = tenApps({524, 524}, {.iconReadingOrder = 2});
        QCOMPARE(indexes(downward, 1), (QList<quint64>{1, 5, 9}));
        QCOMPARE(indexes(downward, 2), (QList<quint64>{2, 6, 99}));
    }

    void iconsShrinkOnePointAtATimeUntilTheGridFitsItsView()
    {
        // 4 rows of cells plus margins within 200 points: cells of 44, icons of 40.
        const HVIconLayout layout = tenApps({200, 200});
        QCOMPARE(std::tuple(layout.iconWidth(), layout.cellWidth(), layout.viewSize()),
                 std::tuple(40, 44, QSizeF(156, 200)));
        // With 3 points between cells: 4 c + 24 + 9 <= 200 leaves c = 41.
        const HVIconLayout spaced = tenApps({200, 200}, {.iconSpacing = 3});
        QCOMPARE(spaced.iconWidth(), 37);
        QCOMPARE(spaced.viewSize(), QSizeF(153, 197));
        QCOMPARE(spaced.rectOfCellForRow(3, 2), QRectF(100, 144, 41, 41));
        // The gap between bunches is half a cell, rounded down for a cell of odd width.
        QCOMPARE(threeAndFive().bunchSpacingForCellWidth(67), 33);
    }

    void bunchesSideBySideAlsoWithForcedRows()
    {
        // (Its view size and the cell at row 0, column 1 are pinned by nimboctl's JSON, in
        // tst_layoutbadinput.)
        const HVIconLayout layout = threeAndFive();
        QCOMPARE(layout.bunchRects(), (QList<QRectF>{{12, 0, 68, 228}, {114, 0, 136, 228}}));
        QCOMPARE(layout.bunchSpacingRects(),
                 (QList<QRectF>{{0, 0, 12, 228}, {80, 0, 34, 228}, {250, 0, 12, 228}}));
        QCOMPARE(layout.marginRects(),
                 (QList<QRectF>{{0, 0, 262, 12}, {250, 0, 12, 228}, {0, 216, 262, 12}, {0, 0, 12, 228}}));
        // Across then down within the bunch of five, which takes two columns.
        QCOMPARE(indexes(layout, 0), (QList<quint64>{0, 0, 1}));
        QCOMPARE(indexes(layout, 2), (QList<quint64>{2, 4, 99}));
        QCOMPARE(indexes(threeAndFive({.iconReadingOrder = 2}), 0), (QList<quint64>{0, 0, 3}));
        // Forced rows keep half a cell between the bunches.
        HVIconLayout forced = threeAndFive({.iconSpacing = 4});
        QVERIFY(forced.forceRowColCountForRows(2, 0));
        QCOMPARE(forced.colCount(), 5); // 2 columns for three apps, 3 for five
        QCOMPARE(forced.viewSize(), QSizeF(5 * 68 + 24 + 3 * 4 + 34, 2 * 68 + 24 + 4));
        QCOMPARE(forced.rectOfCellForRow(0, 1), QRectF(84, 12, 68, 68));
        QCOMPARE(forced.rectOfCellForRow(0, 2).x(), 84 + 68 + 34.0);
    }

    void bunchesStackedAndTheEmptyCellTradeOff()
    {
        const HVIconLayout layout = threeAndFive({.groupOrientation = 1});
        QCOMPARE(layout.viewSize(), QSizeF(364, 194));
        QCOMPARE(layout.rectOfCellForRow(1, 4), QRectF(12 + 4 * 68, 114, 68, 68));
        QCOMPARE(layout.bunchRects(), (QList<QRectF>{{0, 12, 364, 68}, {0, 114, 364, 68}}));
        QCOMPARE(layout.bunchSpacingRects(),
                 (QList<QRectF>{{0, 0, 364, 12}, {0, 80, 364, 34}, {0, 182, 364, 12}}));
        QCOMPARE(indexes(layout, 0), (QList<quint64>{0, 1, 2, 99, 99}));
        // Keeping empty cells few goes on to 3 x 3.
        HVIconLayoutPreferences fewerEmpty{.groupOrientation = 1, .minimizeEmptyCells = true};
        QCOMPARE(threeAndFive(fewerEmpty).lookupTable().at(1, 0).bunch, quint64(1));
        fewerEmpty.iconReadingOrder = 2;
        QCOMPARE(indexes(threeAndFive(fewerEmpty), 1), (QList<quint64>{0, 2, 4}));
    }

    void optionKeyAndOrientationPickTheGroupShown()
    {
        using HVGroupShown::groupToShowConsideringModifiers;
        // (Option over the included apps, bunched or not, is seen in tst_iconviewpointer.)
        QCOMPARE(groupToShowConsideringModifiers(2, true, 2), 6);
        QCOMPARE(groupToShowConsideringModifiers(8, false, 0), 9);
        QCOMPARE(groupToShowConsideringModifiers(3, true, 0), 4);
        QCOMPARE(groupToShowConsideringModifiers(3, true, 1), 3);
        QCOMPARE(groupToShowConsideringModifiers(0, true, 0), 0);
        // A flat group shows the bunches' apps as one run.
        QCOMPARE(threeAndFive({.groupOrientation = 0}).bunchSizes(), QList<int>{8});
    }

    void preferencesAreClampedToTheirRanges()
    {
        // An unknown orientation is side by side; the rest are held to their ranges.
        const HVIconLayoutPreferences low{
            .groupOrientation = 7, .maximumIconSize = 200, .iconPadding = 0, .iconSpacing = -3};
        QVERIFY(low.clamped() == (HVIconLayoutPreferences{.maximumIconSize = 128, .iconPadding = 2}));
        const HVIconLayoutPreferences high{.iconPadding = 20, .iconSpacing = 12};
        QVERIFY(high.clamped() == (HVIconLayoutPreferences{.iconPadding = 8, .iconSpacing = 8}));
    }

    void pointsMapToCellsGapsAndMarginsAndAppsBackToCells()
    {
        const HVIconLayout layout = threeAndFive();
        const std::pair<QPointF, Coords> hits[] = {
            // Top and left edges belong to a cell, bottom and right ones to the next.
            {{79.9, 79.9}, {.row = 0, .col = 0, .bunch = 0}},
            {{12, 80}, {.row = 1, .col = 0, .bunch = 0}},
            {{80, 12}, {.spacer = 1}},
            {{50, 5}, {.bunch = 0, .margin = 0}}, // above a bunch, for the margin mark
            {{5, 5}, {.spacer = 0, .margin = 0}}, // the corner reads as the top margin first
            {{5, 100}, {.spacer = 0, .margin = 3}},
            {{255, 100}, {.spacer = 2, .margin = 1}},
            {{262, 100}, {}}, // (and left of the view in nimboctl's JSON)
        };
        for (const auto& [point, expected] : hits)
            QCOMPARE(std::pair(point, layout.coordsOfPoint(point)), std::pair(point, expected));
        QVERIFY(!layout.lookupTable().at(2, 2).filled);
        // A flat list is one bunch: its margins still report the bunch.
        const HVIconLayout flat = tenApps({524, 524});
        QCOMPARE(flat.coordsOfPoint(QPointF(100, 290)), (Coords{.bunch = 0, .margin = 2}));
        QCOMPARE(flat.bunchSpacingRects(), (QList<QRectF>{QRectF(), QRectF()}));
        // And back: an app to its cell and rectangle.
        const Coords fifth = layout.coordsOfApp(1, 4);
        QCOMPARE(fifth, (Coords{.row = 2, .col = 1, .bunch = 1}));
        QCOMPARE(layout.rectOfCoords(fifth), QRectF(114, 148, 68, 68));
        QVERIFY(layout.coordsOfApp(1, 5).isEmpty());
        QVERIFY(layout.rectOfCoords(Coords()).isNull());
        QVERIFY(layout.rectOfCellForRow(3, 0).isNull());
    }
};

QTEST_GUILESS_MAIN(TestIconLayout)
#include "tst_iconlayout.moc"
