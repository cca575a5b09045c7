// A screen reader's view of the panel: a list of the apps shown, each named, placed and marked
// selected as the selection moves.
#include "iconviewfixture.h"

#include <QAccessible>

class TestIconViewAccessible : public QObject
{
    Q_OBJECT
private slots:
    void theAppsShownAreAListOfNamedItems()
    {
        IconViewFixture f(QList<QStringList>{{"Safari", "Sane Scanner"}, {"Text Editor", "Terminal"}});
        f.showGroup(1);
        QAccessibleInterface* list = QAccessible::queryAccessibleInterface(f.view.get());
        QVERIFY(list);
        QCOMPARE(list->role(), QAccessible::List);
        QCOMPARE(list->text(QAccessible::Name), QStringLiteral("Applications"));
        QStringList names;
        for (int i = 0; i < list->childCount(); ++i) {
            QAccessibleInterface* item = list->child(i);
            QCOMPARE(item->role(), QAccessible::ListItem);
            QCOMPARE(list->indexOfChild(item), i);
            QCOMPARE(item->parent(), list);
            names.append(item->text(QAccessible::Name));
            const QRect cell = item->rect();
            QCOMPARE(list->childAt(cell.center().x(), cell.center().y()), item);
            QVERIFY(!item->state().selected);
        }
        QCOMPARE(names, (QStringList{"Safari", "Sane Scanner", "Text Editor", "Terminal"}));
        QCOMPARE(list->child(3), list->child(3)); // one object per item

        // The keyboard selection is the selected, focused item.
        for (int i = 0; i < 4; ++i)
            f.key(Qt::Key_Right);
        QAccessibleInterface* terminal = list->child(3);
        QVERIFY(terminal->state().selected && terminal->state().focused);
        QVERIFY(!list->child(0)->state().selected);
        QCOMPARE(list->focusChild(), terminal);

        // An item the typed text fades says so; the list follows the catalogue.
        f.type("sa");
        QVERIFY(!terminal->text(QAccessible::Description).isEmpty());
        QVERIFY(list->child(0)->text(QAccessible::Description).isEmpty());
        f.manager->excludeApp(f.app("Terminal"));
        QCOMPARE(list->childCount(), 3);
        QVERIFY(!list->child(2)->text(QAccessible::Name).contains("Terminal"));
    }
};

QTEST_MAIN(TestIconViewAccessible)
#include "moc_iconviewfixture.cpp"
#include "tst_iconviewaccessible.moc"
