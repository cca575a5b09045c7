// Bad input under the scan folders: links that loop, pipes and devices named like entries,
// an application name that is not UTF-8, a sparse 1 GB "entry", a folder of 100,000 entries,
// unreadable folders and entries that vanish while the scan runs. The scan ends, finds exactly
// the real applications and reads nothing it should not. Garbage, 1 MB entries, dangling links,
// links to folders that loop and file names that are not UTF-8 are in the hostile tree the
// catalogue is compared with GIO on.
#include "entrytree.h"
#include "support/testenvironment.h"

#include "catalogue/hvappmanager.h"
#include "common/hvuserdefaults.h"
#include "platform/gioentryreader.h"

#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

namespace {
// Deletes every other file and folder of the tree the first time it is asked about an entry.
class VanishingReader : public GioEntryReader
{
public:
    explicit VanishingReader(const QString& root) : m_root(root) {}
    mutable QString first;

    bool showsApplication(const QString& path) const override
    {
        if (first.isEmpty()) {
            first = path;
            for (const QFileInfo& item : QDir(m_root).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot))
                QFile::remove(item.filePath()) || QDir(item.filePath()).removeRecursively();
            EntryTree::app(path); // back as it was, with its folder
        }
        return GioEntryReader::showsApplication(path);
    }

private:
    QString m_root;
};

QStringList sortedPaths(const HVAppBunch& apps)
{
    QStringList paths = HVAppManager::pathsFromApps(apps);
    paths.sort();
    return paths;
}
} // namespace

class TestScanBadInput : public QObject
{
    Q_OBJECT

private slots:
    void hostileEntriesAreSkippedOrReadSafely()
    {
        TestEnvironment env;
        HVUserDefaults defaults(env.configHome() + "/Nimbo/Nimbo.conf");
        HVAppManager manager(&defaults, std::make_shared<GioEntryReader>());
        const QString apps = env.dataHome() + "/applications";
        QStringList expected{EntryTree::app(apps + "/good.desktop")};
        EntryTree::link(apps + "/b.desktop", apps + "/a.desktop");
        EntryTree::link(apps + "/a.desktop", apps + "/b.desktop");
        QCOMPARE(::mkfifo(QFile::encodeName(apps + "/pipe.desktop").constData(), 0644), 0);
        EntryTree::link("/dev/zero", apps + "/zero.desktop");
        QFile huge(apps + "/huge.desktop"); // sparse: nothing is ever read from it
        QVERIFY(huge.open(QIODevice::WriteOnly) && huge.write(EntryTree::entry("Huge")) > 0 &&
                huge.resize(qint64(1) << 30)); // the resize flushes what was written
        expected << EntryTree::write(apps + "/badname.desktop", EntryTree::entry("\xff\xfe\xfd"));
        EntryTree::app(apps + "/locked/in.desktop");
        QFile::setPermissions(apps + "/locked", QFileDevice::Permissions());
        if (::geteuid() == 0) // the superuser reads every folder
            expected << apps + "/locked/in.desktop";
        EntryTree::write(env.root() + "/plainfile", "x");
        defaults.setObject(EntryTree::folderList({apps, env.root() + "/plainfile", env.root() + "/absent"}),
                           "searchDirectories");

        manager.scanSearchFoldersForAllApps();
        QFile::setPermissions(apps + "/locked",
                              QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        expected.sort();
        QCOMPARE(manager.allApps().size(), 1);
        QCOMPARE(sortedPaths(manager.allApps1D()), expected);
        // A name that is not valid UTF-8 falls back to the file name.
        QCOMPARE(manager.appForPath(apps + "/badname.desktop")->name(), QString("badname"));

        // Search words: keywords, generic name and the program past an env prefix, in lower
        // case; keywords that are not UTF-8 and an Exec line the shell cannot parse give nothing.
        const QByteArray head = "[Desktop Entry]\nType=Application\nName=W\n";
        EntryTree::write(apps + "/words.desktop", head +
                                                      "Keywords=Web;Browser;\nGenericName=Web Browser\n"
                                                      "Exec=env MOZ_X=1 A=b /usr/lib/firefox/firefox %u\n");
        EntryTree::write(apps + "/quote.desktop",
                         head + "Keywords=\xff;x;\nGenericName=Ok\nExec='unbalanced /bin/x\n");
        QCOMPARE(manager.appForPath(apps + "/words.desktop")->searchText(),
                 QString("web\nbrowser\nweb browser\nfirefox"));
        QCOMPARE(manager.appForPath(apps + "/quote.desktop")->searchText(), QString("ok"));
    }

    void largeFolderIsReadInFull()
    {
        TestEnvironment env;
        HVUserDefaults defaults(env.configHome() + "/Nimbo/Nimbo.conf");
        HVAppManager manager(&defaults, std::make_shared<GioEntryReader>());
        const QString apps = env.dataHome() + "/applications";
        QStringList expected;
        for (int i = 0; i < 100000; ++i) { // the first entry makes the folder
            if (i % 1000 == 0)
                expected << EntryTree::app(apps + QString("/app%1.desktop").arg(i));
            else // empty files, one in a hundred an entry file that says nothing
                QVERIFY(EntryTree::writeNamedBytes(
                    QFile::encodeName(apps + QString(i % 100 ? "/n%1" : "/empty%1.desktop").arg(i)), {}));
        }
        manager.scanSearchFoldersForAllApps();
        expected.sort();
        QCOMPARE(sortedPaths(manager.allApps1D()), expected);
    }

    void entriesVanishingMidScan()
    {
        TestEnvironment env;
        HVUserDefaults defaults(env.configHome() + "/Nimbo/Nimbo.conf");
        const QString apps = env.dataHome() + "/applications";
        for (int i = 0; i < 50; ++i) {
            EntryTree::app(apps + QString("/top%1.desktop").arg(i));
            EntryTree::app(apps + QString("/sub/inner%1.desktop").arg(i));
        }
        auto reader = std::make_shared<VanishingReader>(apps);
        HVAppManager manager(&defaults, reader);
        manager.scanSearchFoldersForAllApps();
        QCOMPARE(HVAppManager::pathsFromApps(manager.allApps1D()), QStringList{reader->first});
    }
};

QTEST_GUILESS_MAIN(TestScanBadInput)
#include "tst_scanbadinput.moc"
