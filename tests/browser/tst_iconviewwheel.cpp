// The scroll wheel over the icon view: letter stepping up and down the alphabet, and the
// sideways swipe that switches groups once per swipe.
#include "iconviewfixture.h"

class TestIconViewWheel : public QObject
{
    Q_OBJECT

private slots:
    void theWheelStepsOneLetterThroughTheAlphabetAfterATypedWordAndASwipeSwitchesOneGroup()
    {
        IconViewFixture f(QList<QStringList>{{"Alpha", "Zulu"}});
        f.showGroup(1);
        f.wheel(QPointF(0, 1)); // one line is not yet past one line
        QCOMPARE(f.view->filterSubstring(), QString());
        f.wheel(QPointF(0, 0.5));
        QCOMPARE(f.view->filterSubstring(), QStringLiteral("z")); // up from nothing: z
        f.wheel(QPointF(0, 2.5));
        QCOMPARE(f.view->filterSubstring(), QStringLiteral("y")); // up moves back in the alphabet
        // Against the sum: only starts it again (a swipe that turns back starts its distance
        // again by the same rule).
        f.wheel(QPointF(0, -0.5));
        QCOMPARE(f.view->filterSubstring(), QStringLiteral("y"));
        f.wheel(QPointF(0, -1.5));
        QCOMPARE(f.view->filterSubstring(), QStringLiteral("z"));
        f.wheel(QPointF(0, -1.5)); // past z: no filter
        QCOMPARE(f.view->filterSubstring(), QString());
        f.wheel(QPointF(0, -1.5));
        QCOMPARE(f.view->filterSubstring(), QStringLiteral("a"));
        QVERIFY(!f.view->isFilterSubstringTimerRunning());

        f.defaults->setBool(true, "reverseScrollWheel");
        f.wheel(QPointF(0, -1.5));
        QCOMPARE(f.view->filterSubstring(), QString()); // reversed: down steps back past a
        // A typed word holds the wheel off until the pause, when the wheel (reversed) takes over.
        f.type("zu");
        f.wheel(QPointF(0, 3));
        QCOMPARE(f.view->filterSubstring(), QStringLiteral("zu"));
        f.view->filterSubstringTimerFired();
        f.wheel(QPointF(0, 3));
        QCOMPARE(f.view->filterSubstring(), QStringLiteral("a"));
        NotificationSpy next("N_SelectNextIconGroup");
        NotificationSpy previous("N_SelectPrevIconGroup");
        for (int i = 0; i < 6; ++i) // +5 lines every 10 ms: +25 after the first event
            f.wheel(QPointF(5, 0), 1000 + 10 * i);
        QCOMPARE(next.count, 1);
        QCOMPARE(next.last.object.value<QObject*>(), f.view.get());
        QCOMPARE(previous.count, 0);
        // A second swipe, after a pause, the other way.
        for (int i = 0; i < 6; ++i)
            f.wheel(QPointF(-5, 0), 2000 + 10 * i);
        QCOMPARE(next.count, 1);
        QCOMPARE(previous.count, 1);
        QCOMPARE(f.view->filterSubstring(), QStringLiteral("a")); // the stepped letter stays
    }
};

QTEST_MAIN(TestIconViewWheel)
#include "moc_iconviewfixture.cpp"
#include "tst_iconviewwheel.moc"
