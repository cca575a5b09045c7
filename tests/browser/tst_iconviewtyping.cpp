// Typing in the icon view: the filter by letters and names, Return on the single match, Escape,
// and the Command chords. (The pause that starts a new word is seen through the overlay, in
// tst_overlayview; the spectrums' chord is drawn, and checked, in tst_iconviewdrawing.)
#include "iconviewfixture.h"

class TestIconViewTyping : public QObject
{
    Q_OBJECT

    static inline const QList<QStringList> Apps{{"Safari", "Sane Scanner", "System Monitor"},
                                                {"Text Editor", "Terminal", "Safe Box"}};

private slots:
    void oneLetterMatchesInitialsLongerTextNamesAndSearchWords()
    {
        IconViewFixture f(Apps);
        f.app("Terminal")->setSearchText("shell\ncommand line\nxterm");
        f.app("Safe Box")->setSearchText("vault");
        f.showGroup(1);
        f.type("s");
        // Initials: Safari, Sane Scanner, System Monitor, Safe Box; not Text Editor.
        QCOMPARE(f.filtered(), QStringList({"Safari", "Sane Scanner", "System Monitor", "Safe Box"}));
        f.type("AF"); // typed upper case, kept lower case
        QCOMPARE(f.view->filterSubstring(), QStringLiteral("saf"));
        QCOMPARE(f.filtered(), QStringList({"Safari", "Safe Box"}));

        f.view->resetFilterSubstring();
        f.type("x"); // one letter stays with the initials
        QCOMPARE(f.filtered(), QStringList());
        f.view->resetFilterSubstring();
        f.type("she");
        QCOMPARE(f.filtered(), QStringList{"Terminal"});
        f.defaults->setBool(false, "matchKeywords");
        QCOMPARE(f.filtered(), QStringList());
        f.defaults->setBool(true, "matchKeywords");
        f.view->resetFilterSubstring();
        f.type("sa"); // names first: both Safari and Sane Scanner, and Safe Box by its name
        QCOMPARE(f.filtered(), QStringList({"Safari", "Sane Scanner", "Safe Box"}));
    }

    void arrowsMoveASelectionThatReturnLaunches()
    {
        // The bunches stand side by side, each a column: Safari, Sane Scanner, System Monitor |
        // Text Editor, Terminal, Safe Box.
        IconViewFixture f(Apps);
        f.showGroup(1);
        const QList<QPair<Qt::Key, QString>> steps{
            {Qt::Key_Right, "Safari"},        {Qt::Key_Right, "Sane Scanner"},
            {Qt::Key_Down, "System Monitor"}, {Qt::Key_Down, "System Monitor"},
            {Qt::Key_Up, "Sane Scanner"},     {Qt::Key_End, "Safe Box"},
            {Qt::Key_PageUp, "Safari"},       {Qt::Key_PageDown, "Text Editor"},
            {Qt::Key_Left, "System Monitor"}, {Qt::Key_Home, "Safari"}};
        for (const auto& [key, name] : steps) {
            QVERIFY(f.key(key));
            QCOMPARE(f.view->keyboardSelectedApp()->name(), name); // only while it is the one selected
        }
        // The selection follows the filter and skips what it fades; Return launches it even
        // when more than one app matches.
        f.type("t");
        QCOMPARE(f.view->keyboardSelectedApp()->name(), QStringLiteral("Text Editor"));
        f.key(Qt::Key_Down);
        QCOMPARE(f.view->keyboardSelectedApp()->name(), QStringLiteral("Terminal"));
        f.key(Qt::Key_Return, "\r");
        QTRY_COMPARE(f.actions->launches(), QStringList{"Terminal"});
    }

    void heldKeysSpacesDeleteAndTheCommandChords()
    {
        IconViewFixture f(Apps);
        f.showGroup(1);
        QVERIFY(f.key(Qt::Key_Space, " ")); // consumed, but no word to follow
        QCOMPARE(f.view->filterSubstring(), QString());
        f.type("sa");
        QVERIFY(!f.key(Qt::Key_A, "a", {}, true)); // a held key types once
        QVERIFY(f.key(Qt::Key_Space, " "));
        QVERIFY(f.key(Qt::Key_Space, " "));
        QCOMPARE(f.view->filterSubstring(), QStringLiteral("sa "));
        QVERIFY(f.key(Qt::Key_Backspace, "\b", {}, true)); // a held Delete keeps deleting
        QVERIFY(f.key(Qt::Key_Backspace, "\b", {}, true));
        QCOMPARE(f.view->filterSubstring(), QStringLiteral("s"));
        QVERIFY(!f.key(Qt::Key_Exclam, "!"));
        QCOMPARE(f.view->filterSubstring(), QStringLiteral("s"));

        // Command-period clears the filter as Escape does (tst_iconviewrepainting; an Escape with no
        // filter hides the panel in tst_shell).
        QVERIFY(f.key(Qt::Key_Period, ".", Qt::ControlModifier));
        QCOMPARE(f.view->filterSubstring(), QString());
        QVERIFY(!f.key(Qt::Key_S, "\x13", Qt::ControlModifier)); // chords never type
        QCOMPARE(f.view->filterSubstring(), QString());

        // Command-equals and -minus change the rows of bunches.
        const int rows = f.view->iconLayout().rowCount();
        QVERIFY(f.key(Qt::Key_Equal, "=", Qt::ControlModifier));
        QCOMPARE(f.view->iconLayout().rowCount(), rows + 1);
        for (int i = 0; i < 3; ++i)
            QVERIFY(f.key(Qt::Key_Minus, "-", Qt::ControlModifier));
        QCOMPARE(f.view->iconLayout().rowCount(), 1); // never fewer than one
        f.view->setGroupToShow(2);                    // a flat list has no rows to force
        QVERIFY(!f.key(Qt::Key_Equal, "=", Qt::ControlModifier));
    }

    void returnLaunchesOnlyASingleMatchOnAnotherThread()
    {
        IconViewFixture f(Apps);
        f.showGroup(1);
        QSignalSpy launches(f.view.get(), &HVIconView::appLaunchRequested);
        f.type("saf");
        QVERIFY(f.key(Qt::Key_Return, "\r")); // Safari and Safe Box
        QCOMPARE(launches.count(), 0);
        QCOMPARE(f.view->filterSubstring(), QStringLiteral("saf"));
        f.type("a");
        QVERIFY(f.key(Qt::Key_Enter, "\r"));
        QCOMPARE(launches.count(), 1);
        QCOMPARE(f.view->filterSubstring(), QString());
        QTRY_COMPARE(f.actions->launches(), QStringList({"Safari"}));
        QVERIFY(!f.actions->launchedOnMainThread);

        // After the pause the match shown still launches; not once its entry is gone.
        f.type("term");
        f.view->filterSubstringTimerFired();
        QVERIFY(f.key(Qt::Key_Return, "\r"));
        QCOMPARE(launches.count(), 2);
        f.app("Terminal")->setPathIsValid(false);
        f.type("term");
        QTest::ignoreMessage(QtWarningMsg, "Invalid application path: /apps/Terminal.desktop");
        QVERIFY(f.key(Qt::Key_Return, "\r"));
        QCOMPARE(launches.count(), 2);
    }
};

QTEST_MAIN(TestIconViewTyping)
#include "moc_iconviewfixture.cpp"
#include "tst_iconviewtyping.moc"
