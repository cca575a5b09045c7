// The welcome tour pages through the built-in PDF a step at a time, remembers the step, counts as
// done at its last page and then starts over.
#include "support/testenvironment.h"

#include "common/hvuserdefaults.h"
#include "shell/hvwelcomeassistant.h"

#include <QLabel>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QPushButton>
#include <QtTest>

class TestWelcomeAssistant : public QObject
{
    Q_OBJECT
    TestEnvironment env;
    std::unique_ptr<HVUserDefaults> defaults;

    HVWelcomeAssistant* open()
    {
        return HVWelcomeAssistant::sharedAssistantWithPDFName(QStringLiteral("Welcome to Nimbo"),
                                                              defaults.get());
    }

private slots:
    void init()
    {
        defaults = std::make_unique<HVUserDefaults>(env.configHome() + "/Nimbo/Nimbo.conf");
        HVWelcomeAssistant::registerDefaults(defaults.get());
    }
    void cleanup() { HVWelcomeAssistant::closeWindow(); }

    void theTourPagesAndIsDoneAtItsEnd()
    {
        HVWelcomeAssistant* tour = open();
        QVERIFY(tour && HVWelcomeAssistant::isWindowVisible());
        QCOMPARE(open(), tour); // one at a time
        const int last = tour->lastStep();
        QVERIFY(last >= 3);
        QCOMPARE(tour->stepLabel()->text(), QString("1 of %1").arg(last));
        QVERIFY(!tour->prevButton()->isEnabled());
        tour->nextButton()->click();
        QCOMPARE(defaults->integerForKey("lastShownWelcomeStep"), 2);
        QVERIFY(tour->prevButton()->isEnabled());
        while (tour->currentStep() < last)
            tour->nextButton()->click();
        QVERIFY(!defaults->boolForKey("showWelcomeWindow"));
        QPointer<HVWelcomeAssistant> closing(tour);
        tour->nextButton()->click();
        QTRY_VERIFY(!closing);
        QVERIFY(!HVWelcomeAssistant::isWindowVisible());

        // Done once, it starts over; a step left midway, or out of range, is taken up clamped.
        QCOMPARE(open()->currentStep(), 1);
        HVWelcomeAssistant::closeWindow();
        const std::tuple<int, bool, int> cases[] = {
            {3, true, 3}, {3, false, 3}, {999, false, last}, {999, true, 1}, {-4, true, 1}};
        for (const auto& [stored, done, shown] : cases) {
            defaults->setInteger(stored, "lastShownWelcomeStep");
            defaults->setBool(!done, "showWelcomeWindow");
            QCOMPARE(std::tuple(stored, done, open()->currentStep()), std::tuple(stored, done, shown));
            HVWelcomeAssistant::closeWindow();
            QTRY_VERIFY(!HVWelcomeAssistant::isWindowVisible());
        }
    }

    void theUserGuideIsBuiltIn()
    {
        QPdfDocument guide;
        QCOMPARE(guide.load(":/docs/Nimbo User Guide.pdf"), QPdfDocument::Error::None);
        QVERIFY(guide.pageCount() >= 2);
    }
};

QTEST_MAIN(TestWelcomeAssistant)
#include "tst_welcomeassistant.moc"
