// Organising the lists by path, as nimboctl does on the list files when no Nimbo runs, and a
// favourite found again after its entry moved.
#include "scanning/entrytree.h"
#include "support/testenvironment.h"

#include "catalogue/hvappmanager.h"
#include "catalogue/listfilestore.h"
#include "common/hvuserdefaults.h"
#include "platform/gioentryreader.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

class TestListCommands : public QObject
{
    Q_OBJECT
    TestEnvironment env;
    QString apps;

    QString entry(const QString& id, const QString& name)
    {
        return env.writeFile("data/applications/" + id + ".desktop", EntryTree::entry(name.toUtf8()));
    }

    struct Run
    {
        int exitCode;
        QByteArray out, err;
    };
    Run nimboctl(const QStringList& args)
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent"); // no Nimbo to ask
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(NIMBO_BINARY_DIR "/src/nimboctl"), args);
        process.waitForFinished();
        return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
    }
    QJsonObject favourites() { return QJsonDocument::fromJson(nimboctl({"favourites"}).out).object(); }
    static QStringList strings(const QJsonValue& array)
    {
        QStringList list;
        for (const QJsonValue& value : array.toArray())
            list.append(value.toString().section('/', -1).section('.', 0, 0));
        return list;
    }
    QByteArray listFiles()
    {
        QByteArray all;
        for (const QFileInfo& info : QDir(ListFileStore::userFolder()).entryInfoList(QDir::Files, QDir::Name))
            if (QFile file(info.filePath()); file.open(QIODevice::ReadOnly))
                all += info.fileName().toUtf8() + ":" + file.readAll();
        return all;
    }

private slots:
    void initTestCase()
    {
        for (const char* id : {"a", "b", "c", "d"})
            entry(id, QString(id).toUpper());
        apps = env.dataHome() + "/applications/";
    }

    void favouritesAddedMovedAndRemoved()
    {
        QCOMPARE(favourites(), (QJsonObject{{"userApps", QJsonArray()}, {"userApps1D", QJsonArray()}}));
        const std::pair<QStringList, QList<QStringList>> steps[] = {
            {{"add", apps + "a.desktop"}, {{"a"}}},
            {{"add", apps + "b.desktop"}, {{"a", "b"}}},
            {{"add", apps + "c.desktop", "--new-bunch"}, {{"a", "b"}, {"c"}}},
            {{"add", apps + "d.desktop", "--bunch", "1", "--index", "0"}, {{"a", "b"}, {"d", "c"}}},
            {{"add", apps + "c.desktop", "--bunch", "0", "--index", "-5"}, {{"c", "a", "b"}, {"d"}}},
            {{"remove", apps + "a.desktop"}, {{"c", "b"}, {"d"}}},
        };
        for (const auto& [args, expected] : steps) {
            const Run run = nimboctl(QStringList{"favourites"} + args);
            QVERIFY2(run.exitCode == 0, run.err.constData());
            QList<QStringList> bunches;
            for (const QJsonValue& bunch : favourites().value("userApps").toArray())
                bunches.append(strings(bunch));
            QCOMPARE(std::pair(args, bunches), std::pair(args, expected));
        }
        // The flat order keeps its own: new favourites at its end.
        QCOMPARE(strings(favourites().value("userApps1D")), (QStringList{"b", "c", "d"}));
    }

    void excludeAndIncludeAndPathsThatAreNoEntries()
    {
        QCOMPARE(nimboctl({"exclude", apps + "b.desktop", apps + "c.desktop"}).exitCode, 0);
        QCOMPARE(nimboctl({"include", apps + "b.desktop"}).exitCode, 0);
        HVUserDefaults defaults(env.configHome() + "/Nimbo/Nimbo.conf");
        HVAppManager manager(&defaults);
        manager.readExcludedApps1DFromDisk();
        QCOMPARE(HVAppManager::pathsFromApps(manager.excludedApps1D()), QStringList{apps + "c.desktop"});

        // Not an entry, gone (the hostile name), hostile: exit 1, a message naming it, every list
        // file as it was.
        env.writeFile("notes.txt", "not an entry");
        const QByteArray before = listFiles();
        const QStringList bad[] = {{"favourites", "add", env.root() + "/notes.txt"},
                                   {"exclude", apps + "a.desktop", apps + "$(touch x)\n.desktop"},
                                   {"favourites", "remove", apps + "a.desktop/.."}};
        for (const QStringList& args : bad) {
            const Run run = nimboctl(args);
            QCOMPARE(run.exitCode, 1);
            QVERIFY2(run.err.contains("not an application entry"), run.err.constData());
        }
        QCOMPARE(nimboctl({"favourites", "add"}).exitCode, 2);
        QCOMPARE(nimboctl({"favourites", "add", apps + "a.desktop", "--index", "x"}).exitCode, 2);
        QCOMPARE(listFiles(), before);
    }

    void aFavouriteWhoseEntryMovedIsFoundByItsFileName()
    {
        // The favourite's old folder is gone; its record cannot read a name any more.
        const QString moved =
            env.writeFile("data/elsewhere/org.example.Calc.desktop", EntryTree::entry("Calculator"));
        HVUserDefaults defaults(env.configHome() + "/Nimbo/Nimbo.conf");
        defaults.setObject(EntryTree::folderList({QFileInfo(moved).absolutePath()}), "searchDirectories");
        ListFileStore::writeArray(
            QVariantList{QVariant(QVariantList{env.root() + "/old/org.example.Calc.desktop"})},
            ListFileStore::userFolder() + "/UserApplications.plist");
        HVAppManager manager(&defaults, std::make_shared<GioEntryReader>());
        manager.scanSearchFoldersForAllApps();
        manager.readUserAppsFromDisk();
        manager.locateUserApps();
        QCOMPARE(HVAppManager::pathsFromApps(manager.userApps1D()), QStringList{moved});
        QCOMPARE(manager.userApps1D().first()->name(), QStringLiteral("Calculator"));
    }

    void aRenamedEntryIsRenamedAtTheNextScan()
    {
        const QString path = entry("renamed", "Text Editor");
        HVUserDefaults defaults(env.configHome() + "/Nimbo/Nimbo.conf");
        defaults.setObject(EntryTree::folderList({QFileInfo(path).absolutePath()}), "searchDirectories");
        HVAppManager manager(&defaults, std::make_shared<GioEntryReader>());
        manager.scanSearchFoldersForAllApps();
        const HVAppRef app = manager.appForPath(path);
        app->findLetters(); // "te"
        entry("renamed", "Writer");
        manager.scanSearchFoldersForAllApps();
        QCOMPARE(app->name(), QStringLiteral("Writer"));
        QCOMPARE(app->letters(), QByteArray("w"));
    }
};

QTEST_GUILESS_MAIN(TestListCommands)
#include "tst_listcommands.moc"
