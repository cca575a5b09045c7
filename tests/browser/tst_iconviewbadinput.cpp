// The icon view given lists and preferences far outside the usual: no apps, one app, 5,000 in
// one bunch, 300 bunches of one, a panel smaller than a cell and preference values that make no
// sense. The view still paints, takes clicks, keys and the wheel, and the pointer reaches the
// apps. (The grid's own numbers for such input are checked in tst_layoutbadinput.)
#include "iconviewfixture.h"

namespace {
QStringList numbered(const QString& stem, int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names.append(QString("%1 %2").arg(stem).arg(i));
    return names;
}

QList<QStringList> oneEach(const QStringList& names)
{
    QList<QStringList> bunches;
    for (const QString& name : names)
        bunches.append({name});
    return bunches;
}
} // namespace

class TestIconViewBadInput : public QObject
{
    Q_OBJECT

    // The view paints, and every kind of input reaches it without harm.
    static void checkSaneAndUsable(IconViewFixture& f)
    {
        QVERIFY(!f.view->grab().isNull());
        f.type("ab");
        f.key(Qt::Key_Backspace, "\b");
        f.key(Qt::Key_Equal, "=", Qt::ControlModifier);
        f.key(Qt::Key_Minus, "-", Qt::ControlModifier);
        f.key(Qt::Key_Escape, "\x1b");
        f.wheel(QPointF(0, 3));
        f.wheel(QPointF(-30, 0));
        QTest::mouseMove(f.view.get(), QPoint(f.view->width() / 2, f.view->height() / 2));
        QVERIFY(!f.view->grab().isNull());
    }

private slots:
    void emptyAndSingleLists()
    {
        IconViewFixture f({{"Only"}});
        f.showGroup(8); // no favourites at all
        QCOMPARE(f.view->iconLayout().bunchCount(), 0);
        QVERIFY(f.view->keyFilteredApps1D().isEmpty());
        QVERIFY(f.view->coordsOfPoint(QPointF(20, 20)).isEmpty());
        QVERIFY(f.view->viewSize() == QSizeF(f.view->size())); // keeps the size it has
        checkSaneAndUsable(f);
        QTest::mouseClick(f.view.get(), Qt::LeftButton, {}, QPoint(20, 20));
        f.key(Qt::Key_Return, "\r");
        QVERIFY(f.actions->launches().isEmpty());

        f.view->setGroupToShow(1);
        checkSaneAndUsable(f);
        QSignalSpy launches(f.view.get(), &HVIconView::appLaunchRequested);
        QTest::mouseClick(f.view.get(), Qt::LeftButton, {}, f.centreOf("Only"));
        QCOMPARE(launches.count(), 1);
        f.type("o");
        QVERIFY(f.key(Qt::Key_Return, "\r")); // the single match
        QCOMPARE(launches.count(), 2);
        f.view->setMaxIconViewSize(QSizeF(-5, 1e12));
        checkSaneAndUsable(f);
        f.view->setGroupToShow(42); // no such group
        checkSaneAndUsable(f);
    }

    void fiveThousandAppsInOneBunch()
    {
        const QStringList names = numbered("App", 5000);
        IconViewFixture f({names});
        f.showGroup(1);
        QVERIFY(f.view->width() <= 800 && f.view->height() <= 600);
        checkSaneAndUsable(f);
        // The first and the last app both have a cell the pointer reaches.
        for (const QString& name : {names.first(), names.last()}) {
            const QPoint centre = f.centreOf(name);
            QVERIFY(f.view->rect().contains(centre));
            QCOMPARE(f.view->appAtPoint(centre), f.app(name));
        }
        f.type("a");
        QCOMPARE(f.filtered().size(), 5000);

        f.view->setMaxIconViewSize(QSizeF(30, 30)); // not even one cell of one point fits
        checkSaneAndUsable(f);
    }

    void threeHundredBunchesOfOne()
    {
        const QStringList names = numbered("Solo", 300);
        IconViewFixture f(oneEach(names));
        f.view->setMaxIconViewSize(QSizeF(1900, 1000));
        f.showGroup(1);
        // Side by side each bunch wants a column of its own, more than the table holds.
        checkSaneAndUsable(f);
        QCOMPARE(f.view->appAtPoint(f.centreOf(names.first())), f.app(names.first()));

        for (int orientation : {1, 0}) { // stacked: a row each; unbunched: one flat run
            f.defaults->setInteger(orientation, "groupOrientation");
            checkSaneAndUsable(f);
        }
    }

    void preferencesBeyondReason()
    {
        IconViewFixture f({{"Alpha", "Beta", "Gamma"}, {"Delta"}});
        f.showGroup(1);
        const QList<QPair<QString, QVariantList>> settings = {
            {"maximumIconSize", {1000000000, -5, "big"}},
            {"iconPadding", {-100, 1000}},
            {"iconSpacing", {1e9, -3}},
            {"groupOrientation", {7, -1}},
            {"iconReadingOrder", {0, 99}},
            {"minimizeEmptyCells", {"yes"}},
            {"excludedIconAlpha", {-3, 40}},
            {"windowAlpha", {1e300}},
            {"iconHighlightColor", {"none"}},
            {"drawFilledIconHighlight", {5}},
            {"reverseScrollWheel", {"x"}},
        };
        for (const auto& [key, values] : settings) {
            for (const QVariant& value : values) {
                f.defaults->setObject(value, key);
                const HVIconLayoutPreferences& used = f.view->iconLayout().preferences();
                QVERIFY2(used.iconPadding >= 2 && used.iconPadding <= 8, qPrintable(key));
                QVERIFY2(used.iconSpacing >= 0 && used.iconSpacing <= 8, qPrintable(key));
                QVERIFY2(used.maximumIconSize >= 1 && used.maximumIconSize <= 128, qPrintable(key));
                const double excluded = f.view->appearance().excludedOpacity;
                QVERIFY2(excluded >= 0 && excluded <= 1, qPrintable(key));
                checkSaneAndUsable(f);
            }
        }
    }
};

QTEST_MAIN(TestIconViewBadInput)
#include "moc_iconviewfixture.cpp"
#include "tst_iconviewbadinput.moc"
