// The defaults store and the key-path observer table, including changes written by another
// process (nimboctl) reaching a live store.
#include "support/testenvironment.h"

#include "common/hvkeypathobservers.h"
#include "common/hvuserdefaults.h"

#include <QColor>
#include <QDir>
#include <QProcess>
#include <QSignalSpy>
#include <QtTest>

class Observer : public QObject
{
    Q_OBJECT
public:
    QList<QVariantMap> sortOrderChanges;
    QList<qint64> actedOn;
    HVLastValue<qint64> last;

    Q_INVOKABLE void observe_groupContentsSortOrder(const QVariantMap& change)
    {
        sortOrderChanges.append(change);
        if (last.changeTo(change.value(HVKeyValueChange::NewKey).toLongLong()))
            actedOn.append(change.value(HVKeyValueChange::NewKey).toLongLong());
    }
};

class TestUserDefaults : public QObject
{
    Q_OBJECT
    TestEnvironment env;

    HVKeyPathObserverTable table(HVUserDefaults* defaults)
    {
        return {{QStringLiteral("groupContentsSortOrder"), 1, "observe_groupContentsSortOrder", defaults},
                {QStringLiteral("notHandled"), 7, "observe_notHandled", defaults}};
    }

    QString confPath(const char* name) { return env.configHome() + "/" + name + "/Nimbo.conf"; }

private slots:
    void registeredDefaultsNeverOverwriteUserValues()
    {
        HVUserDefaults defaults(confPath("register"));
        defaults.setInteger(2, "groupContentsSortOrder");
        defaults.registerDefaults({{"groupContentsSortOrder", 1}, {"maximumIconSize", 128}});
        QCOMPARE(defaults.integerForKey("groupContentsSortOrder"), 2);
        QCOMPARE(defaults.integerForKey("maximumIconSize"), 128);

        // Setting nil removes the user's value and the default applies again.
        QSignalSpy spy(&defaults, &HVUserDefaults::valueChanged);
        defaults.setObject(QVariant(), "groupContentsSortOrder");
        QCOMPARE(defaults.integerForKey("groupContentsSortOrder"), 1); // a stored null would read as 0
        QCOMPARE(QList<QVariantList>(spy), (QList<QVariantList>{{"groupContentsSortOrder", 2, 1}}));

        // Writing the value it already has announces nothing.
        defaults.setInteger(1, "groupContentsSortOrder");
        QCOMPARE(spy.count(), 1);
    }

    void valuesKeepTheirTypesAcrossProcessesAndWrongTypesReadAsZero()
    {
        const QString path = confPath("types");
        {
            HVUserDefaults defaults(path);
            defaults.setObject(QVariantList{1, "two", QVariantMap{{"x", 0.25}}}, "list");
            defaults.setObject(QColor(255, 0, 0, 128), "colour");
            defaults.setDouble(0.14, "float");
            defaults.setString("hello", "string");
            defaults.setBool(true, "flag");
        }
        // A second store reads the file fresh, as another process would.
        HVUserDefaults reread(path);
        QCOMPARE(reread.arrayForKey("list"), (QVariantList{1, "two", QVariantMap{{"x", 0.25}}}));
        QCOMPARE(reread.colorForKey("colour"), QColor(255, 0, 0, 128));
        QCOMPARE(reread.doubleForKey("float"), 0.14);
        QCOMPARE(reread.stringForKey("string"), QStringLiteral("hello"));
        QVERIFY(reread.boolForKey("flag"));

        // Typed getters never convert nonsense: another type reads as 0, NO or empty.
        for (const char* key : {"string", "list", "float", "missing"})
            QVERIFY2(reread.integerForKey(key) == 0, key);
        QCOMPARE(std::tuple(reread.boolForKey("string"), reread.arrayForKey("string"),
                            reread.stringForKey("list"), reread.colorForKey("float")),
                 std::tuple(false, QVariantList(), QString(), QColor()));
    }

    void anUnreadableFileIsKeptAside()
    {
        const QString path = env.writeFile("config/corrupt/Nimbo.conf", "{ this is not json");
        HVUserDefaults defaults(path);
        defaults.setInteger(3, "x");
        const QStringList aside = QDir(QFileInfo(path).absolutePath()).entryList({"Nimbo.conf.corrupt-*"});
        QCOMPARE(aside.size(), 1);
        QFile kept(QFileInfo(path).absolutePath() + "/" + aside.first());
        QVERIFY(kept.open(QIODevice::ReadOnly));
        QCOMPARE(kept.readAll(), QByteArray("{ this is not json"));
    }

    void observerTableRegistersDispatchesAndFilters()
    {
        HVUserDefaults defaults(confPath("observers"));
        HVKeyPathObserving::registerUserDefaultsFromHalvornKeyPathObservers(table(&defaults));
        QCOMPARE(defaults.integerForKey("groupContentsSortOrder"), 1);
        QCOMPARE(defaults.integerForKey("notHandled"), 7);

        Observer observer;
        HVKeyPathObserving::registerHalvornKeyPathObservers(&observer, table(&defaults)); // no call now

        defaults.setInteger(2, "groupContentsSortOrder");
        defaults.setInteger(5, "notHandled");
        QCOMPARE(observer.sortOrderChanges, (QList<QVariantMap>{{{"kind", 1}, {"old", 1}, {"new", 2}}}));

        // The handler acts on the first value and then on different ones (that it passes over the
        // same value written as another type, the catalogue's sort order shows).
        defaults.setInteger(0, "groupContentsSortOrder");
        QCOMPARE(observer.actedOn, (QList<qint64>{2, 0}));
    }

    void changesWrittenByAnotherProcessReachObservers()
    {
        const QString nimboctl = QStringLiteral(NIMBO_BINARY_DIR "/src/nimboctl");
        HVUserDefaults* defaults = HVUserDefaults::standardUserDefaults();
        HVKeyPathObserving::registerUserDefaultsFromHalvornKeyPathObservers(table(defaults));
        Observer observer;
        HVKeyPathObserving::registerHalvornKeyPathObservers(&observer, table(defaults));

        QCOMPARE(QProcess::execute(nimboctl, {"defaults", "write", "groupContentsSortOrder", "2"}), 0);
        QTRY_COMPARE(observer.actedOn, QList<qint64>{2}); // the value the store read back

        QCOMPARE(QProcess::execute(nimboctl, {"defaults", "delete", "groupContentsSortOrder"}), 0);
        QTRY_COMPARE(observer.actedOn, (QList<qint64>{2, 1}));

        // And the other way round: what this process writes, nimboctl reads.
        defaults->setObject(QVariantList{"~/Apps"}, "searchDirectories");
        QProcess read;
        read.start(nimboctl, {"defaults", "read", "searchDirectories"});
        QVERIFY(read.waitForFinished());
        QCOMPARE(read.readAllStandardOutput().trimmed(), QByteArray("[\"~/Apps\"]"));
    }
};

QTEST_GUILESS_MAIN(TestUserDefaults)
#include "tst_userdefaults.moc"
