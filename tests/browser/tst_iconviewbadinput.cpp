// The icon view given lists and preferences far outside the usual: no apps, one app, 5,000 in
// one bunch, 300 bunches of one, a panel smaller than a cell and preference values that make no
// sense. The view still paints, takes clicks, keys and the wheel, and the pointer reaches the
// apps. (The grid's own numbers for such input are checked in tst_layoutbadinput.)
#include "iconviewfixture.h"

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
        QVERIFY(f.view->keyFilteredApps1D().isEmpty());
        QVERIFY(f.view->viewSize() == QSizeF(f.view->size())); // keeps the size it has
        checkSaneAndUsable(f);
        QTest::mouseClick(f.view.get(), Qt::LeftButton, {}, QPoint(20, 20));
        f.key(Qt::Key_Return, "\r");
        QVERIFY(f.actions->launches().isEmpty());

        f.view->setGroupToShow(1);
        checkSaneAndUsable(f);
        f.view->setMaxIconViewSize(QSizeF(-5, 1e12));
        checkSaneAndUsable(f);
        f.view->setGroupToShow(42); // no such group
        checkSaneAndUsable(f);
    }

    void fiveThousandAppsInOneBunch()
    {
        QStringList names;
        for (int i = 0; i < 5000; ++i)
            names.append(QString("App %1").arg(i));
        IconViewFixture f({names});
        f.showGroup(1);
        QVERIFY(f.view->width() <= 800 && f.view->height() <= 600);
        checkSaneAndUsable(f);
        // The last app has a cell the pointer reaches.
        const QPoint last = f.centreOf(names.last());
        QVERIFY(f.view->rect().contains(last));
        QCOMPARE(f.view->appAtPoint(last), f.app(names.last()));
        f.type("a");
        QCOMPARE(f.filtered().size(), 5000);

        f.view->setMaxIconViewSize(QSizeF(30, 30)); // not even one cell of one point fits
        checkSaneAndUsable(f);
    }

    void threeHundredBunchesOfOne()
    {
        QList<QStringList> solos;
        for (int i = 0; i < 300; ++i)
            solos.append({QString("Solo %1").arg(i)});
        IconViewFixture f(solos);
        f.view->setMaxIconViewSize(QSizeF(1900, 1000));
        f.showGroup(1);
        // Side by side each bunch wants a column of its own, more than the table holds; stacked a
        // row each; unbunched one flat run.
        for (int orientation : {2, 1, 0}) {
            f.defaults->setInteger(orientation, "groupOrientation");
            checkSaneAndUsable(f);
        }
    }

    void preferencesBeyondReason()
    {
        // (The grid's own preferences beyond reason are laid out in tst_layoutbadinput, and held to
        // their ranges in tst_iconlayout; a value of another type reads as 0 in tst_userdefaults.
        // Orientation and reading order also steer each other, in the view.)
        IconViewFixture f({{"Alpha", "Beta", "Gamma"}, {"Delta"}});
        f.showGroup(1);
        const QList<QPair<QString, QVariantList>> settings = {
            {"groupOrientation", {7, -1}}, {"iconReadingOrder", {0, 99}},    {"excludedIconAlpha", {-3, 40}},
            {"windowAlpha", {1e300}},      {"iconHighlightColor", {"none"}}, {"drawFilledIconHighlight", {5}},
            {"reverseScrollWheel", {"x"}},
        };
        for (const auto& [key, values] : settings) {
            for (const QVariant& value : values) {
                f.defaults->setObject(value, key);
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
