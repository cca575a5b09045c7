// The panel's placement rules, the hot key's description read from the built-in key table, and
// the handlers the preference observer tables name.
#include "catalogue/hvappmanager.h"
#include "shell/hvcontroller.h"
#include "shell/hvgeometry.h"
#include "shell/hvkeytable.h"

#include <QtTest>

class TestShellParts : public QObject
{
    Q_OBJECT
private slots:
    void everyObservedPreferenceHasItsHandler()
    {
        // A handler the class lacks is skipped without a word when its preference changes: only
        // this check notices a name in a table that went out of step with the code.
        const auto check = [](const QMetaObject& meta, const HVKeyPathObserverTable& table) {
            for (const HVKeyPathObserver& entry : table) {
                const QByteArray signature =
                    QMetaObject::normalizedSignature(entry.selector + "(QVariantMap)");
                QVERIFY2(entry.selector.isEmpty() || meta.indexOfMethod(signature) >= 0,
                         signature.constData());
            }
        };
        check(HVController::staticMetaObject, HVController::halvornKeyPathObservers(nullptr));
        check(HVAppManager::staticMetaObject, HVAppManager::halvornKeyPathObservers(nullptr));
    }

    void centringRoundsToWholePointsAndConstrainingMovesButNeverResizes()
    {
        using namespace HVGeometry;
        // Rounding happens on the bottom-up origin: 374.5 points above the floor becomes 375, so
        // the top edge lands 374 points below the ceiling.
        QCOMPARE(centerRectInRect({0, 0, 100.4, 50.6}, {0, 0, 1000, 800}, true), QRectF(450, 374, 100, 51));
        const QRectF screen(0, 30, 1000, 770);
        // Bigger in both directions: not placed at all.
        QVERIFY(constrainRectInRect({0, 0, 1200, 900}, screen, true).isNull());
        // Bigger in one direction only: moved, not shrunk; the bottom edge stays on screen.
        QCOMPARE(constrainRectInRect({-50, 0, 1200, 300}, screen, true), QRectF(0, 30, 1200, 300));
        QCOMPARE(constrainRectInRect({100, 0, 300, 900}, screen, true), QRectF(100, -100, 300, 900));
        // Off the right and bottom edges.
        QCOMPARE(constrainRectInRect({900, 700, 200, 200}, screen, true), QRectF(800, 600, 200, 200));
        // Already inside: untouched.
        QCOMPARE(constrainRectInRect({10, 40, 20, 20}, screen, true), QRectF(10, 40, 20, 20));
    }

    void hotKeyDescriptions()
    {
        // (The keysyms of Tab and Space are grabbed on a real X server in tst_shell and
        // tst_preferences, whose warning also spells "Ctrl + Tab".)
        const auto rows = HVKeyTable::rows();
        // The modifiers always read control, option, command, shift.
        QCOMPARE(HVKeyTable::hotKeyString(rows, 48, 512 | 256 | 2048 | 4096),
                 QStringLiteral("Ctrl + Alt + Super + Shift + Tab"));
        QCOMPARE(HVKeyTable::hotKeyString(rows, -1, 4096), QStringLiteral("None"));
        QCOMPARE(HVKeyTable::hotKeyString(rows, 9999, 0), QStringLiteral("missing resource"));
        // Every key offered can be grabbed: it names an X keysym (all but "no hot key").
        for (const HVKeyTableRow& row : rows)
            QVERIFY2(row.tag < 0 || !row.keysym.isEmpty(), qPrintable(row.title));
    }
};

QTEST_GUILESS_MAIN(TestShellParts)
#include "tst_shellparts.moc"
