// The persistent icon cache as the next start meets it: used when nothing changed, rebuilt when
// the entry, the icon file or the themes changed (a cached icon is never shown stale), and a
// damaged cache file logged, removed and written anew.
#include "iconloadingfixture.h"

#include <QtTest>

using namespace IconLoadingFixture;

namespace {
// One start's load of an entry's icon at 48 pixels, with a fresh source as a new process has.
struct Start
{
    LoadedIcon icon;
    DesktopIconSource::Counts counts;
};

Start start(const TestEnvironment& env, const QString& entryPath, const QString& theme = "Papirus")
{
    DesktopIconSource source(settings(env, theme));
    QString error;
    return {source.loadIcon({entryPath, 48, 0.14f, 0.02f}, &error), source.counts()}; // loaded, then counted
}

QRgb centre(const LoadedIcon& icon)
{
    return icon.image.pixel(icon.image.width() / 2, icon.image.height() / 2);
}

// A theme of the test's own: 32- and 48-pixel application folders, inheriting hicolor, with a
// green 32-pixel icon `name`.
void writeOwnTheme(const TestEnvironment& env, const QString& name)
{
    env.writeFile(
        "icons/Mine/index.theme",
        IconTestFiles::indexTheme("Mine", "hicolor", {"32x32/apps:Fixed:32", "48x48/apps:Fixed:48"}));
    env.writeFile("icons/Mine/32x32/apps/" + name + ".png", IconTestFiles::png(32, Qt::green));
}

// Moves a file's modification time to `seconds` from now: later, as a change would have it
// (timestamps are coarse), or earlier, as a file left for that long.
bool setModified(const QString& path, qint64 seconds)
{
    QFile file(path);
    return file.open(QIODevice::ReadWrite) &&
           file.setFileTime(QDateTime::currentDateTime().addSecs(seconds), QFileDevice::FileModificationTime);
}
} // namespace

class TestIconCache : public QObject
{
    Q_OBJECT

private slots:
    void nextStartUsesTheCache()
    {
        TestEnvironment env;
        const QString firefox = entry(env, "firefox", "firefox");
        const Start first = start(env, firefox);
        QCOMPARE(first.counts.renders, 1);

        const Start second = start(env, firefox);
        QCOMPARE(second.counts.renders, 0);
        QCOMPARE(second.counts.cacheHits, 1);
        QCOMPARE(second.icon.image, first.icon.image);
        QVERIFY(second.icon.analysis && first.icon.analysis);
        QCOMPARE(second.icon.analysis->colors->size(), first.icon.analysis->colors->size());
        QCOMPARE(second.icon.analysis->colors->front().count, first.icon.analysis->colors->front().count);

        // Other colour parameters keep the rendered icon and find the colours again.
        DesktopIconSource source(settings(env));
        QString error;
        const LoadedIcon other = source.loadIcon({firefox, 48, 0.3f, 0.02f}, &error);
        QCOMPARE(source.counts().colourUpdates, 1);
        QCOMPARE(source.counts().renders, 0);
        QCOMPARE(other.image, first.icon.image);
        QCOMPARE(other.analysis->colorfulness, 0.3f);
    }

    void anUnwritableCacheIsSaidOnceAndIconsStillCome()
    {
        TestEnvironment env;
        env.writeFile("cache/Nimbo", "a file where the cache folder should be");
        const QRegularExpression said("Icon cache folder .* cannot be written");
        QTest::ignoreMessage(QtWarningMsg, said);
        QTest::failOnWarning(said);
        DesktopIconSource source(settings(env)); // its cache folder lies under that file
        QString error;
        for (const char* name : {"firefox", "gimp", "inkscape"})
            QVERIFY(!source.loadIcon({entry(env, name, name), 48, 0.14f, 0.02f}, &error).image.isNull());
        source.waitForCacheWrites();
        QCOMPARE(source.counts().renders, 3);
    }

    void changedEntryIsRenderedAgain()
    {
        TestEnvironment env;
        const QString path = entry(env, "app", "firefox");
        const Start firefox = start(env, path);
        entry(env, "app", "vlc");
        const Start vlc = start(env, path);
        QCOMPARE(vlc.counts.renders, 1);
        QCOMPARE(vlc.counts.rejectedEntries, 1);
        QVERIFY(vlc.icon.image != firefox.icon.image);
    }

    void changedIconFileIsRenderedAgain()
    {
        TestEnvironment env;
        writeOwnTheme(env, "mine-app");
        env.writeFile("icons/Mine/48x48/apps/mine-app.png", IconTestFiles::png(48, Qt::red));
        const QString path = entry(env, "mine", "mine-app");
        QCOMPARE(centre(start(env, path, "Mine").icon), qRgb(255, 0, 0));
        // The same name and size of file, other pixels.
        QVERIFY(setModified(
            env.writeFile("icons/Mine/48x48/apps/mine-app.png", IconTestFiles::png(48, Qt::blue)), 5));
        const Start again = start(env, path, "Mine");
        QCOMPARE(again.counts.renders, 1);
        QCOMPARE(centre(again.icon), qRgb(0, 0, 255));
    }

    void changedThemesAreSeen()
    {
        TestEnvironment env;
        writeOwnTheme(env, "firefox");
        env.writeFile("icons/Mine/48x48/apps/other.png", IconTestFiles::png(48));
        const QString path = entry(env, "firefox", "firefox");
        // Only a 32-pixel file: it is scaled up for 48.
        QCOMPARE(centre(start(env, path, "Mine").icon), qRgb(0, 255, 0));
        // A file meant for 48 pixels arrives, beside another, while Nimbo runs: it wins at the
        // next load, and is cached for the next start.
        DesktopIconSource running(settings(env, "Mine"));
        QString error;
        QCOMPARE(centre(running.loadIcon({path, 48, 0.14f, 0.02f}, &error)), qRgb(0, 255, 0));
        QTest::qWait(20); // a later time stamp for the folder
        env.writeFile("icons/Mine/48x48/apps/firefox.png", IconTestFiles::png(48, Qt::blue));
        QCOMPARE(centre(running.loadIcon({path, 48, 0.14f, 0.02f}, &error)), qRgb(0, 0, 255));
        QCOMPARE(running.counts().cacheHits, 1);
        QCOMPARE(running.counts().renders, 1);
        running.waitForCacheWrites();

        // Another theme chosen: its own icon; the first theme's stays cached for a switch back.
        const Start papirus = start(env, path, "Papirus");
        QCOMPARE(papirus.counts.renders, 1);
        QVERIFY(centre(papirus.icon) != qRgb(0, 0, 255));
        const Start back = start(env, path, "Mine");
        QCOMPARE(back.counts.cacheHits, 1);
        QCOMPARE(centre(back.icon), qRgb(0, 0, 255));
    }

    void startCleansUpHalfWrittenAndLongUnusedFiles()
    {
        TestEnvironment env;
        const QString firefox = entry(env, "firefox", "firefox");
        start(env, firefox);
        DesktopIconSource(settings(env)).waitForCacheWrites();
        const QString folder = env.cacheHome() + "/Nimbo/icons/";
        const QStringList files = QDir(folder).entryList({"*.icon"});
        QCOMPARE(files.size(), 1);
        // Used today after 59 idle days: marked used, so it outlives the next clean-up.
        const qint64 day = 24 * 3600;
        QVERIFY(setModified(folder + files[0], -day * (IconDiskCache::UnusedDays - 1)));
        QCOMPARE(start(env, firefox).counts.cacheHits, 1);
        QVERIFY(QFileInfo(folder + files[0]).lastModified().daysTo(QDateTime::currentDateTime()) < 1);
        // An icon nobody asked for in 61 days (an app removed long ago) goes at the next start, and
        // so does a file half written by a process killed an hour ago.
        const QString gone = env.writeFile("cache/Nimbo/icons/0ld.icon", "an icon of an app gone");
        QVERIFY(setModified(gone, -day * (IconDiskCache::UnusedDays + 1)));
        const QString leftover = env.writeFile("cache/Nimbo/icons/0a1b.icon.4242.7f00", "half");
        const QString whole = env.writeFile("cache/Nimbo/icons/0e3f.icon", "whole");
        QVERIFY(setModified(leftover, -3600) && setModified(whole, -3600));
        const QString writing = env.writeFile("cache/Nimbo/icons/0c2d.icon.4243.7f00", "now");
        DesktopIconSource(settings(env)).waitForCacheWrites();
        QVERIFY(!QFile::exists(gone) && !QFile::exists(leftover));
        QVERIFY(QFile::exists(folder + files[0]) && QFile::exists(whole));
        QVERIFY(QFile::exists(writing)); // perhaps another Nimbo's, still writing
    }

    void damagedCacheFileIsRebuilt()
    {
        for (const QString damage : {"flip", "truncate", "empty", "garbage"}) {
            TestEnvironment env;
            const QString path = entry(env, "gimp", "gimp");
            const Start first = start(env, path);
            const QString file = IconDiskCache(settings(env).cacheFolder).fileForKey({path, 48, "Papirus"});
            QFile cache(file);
            QVERIFY(cache.open(QIODevice::ReadWrite));
            QByteArray bytes = cache.readAll();
            if (damage == "flip")
                bytes[bytes.size() / 2] = char(bytes[bytes.size() / 2] ^ 0x40);
            else if (damage == "truncate")
                bytes.truncate(bytes.size() * 2 / 3);
            else if (damage == "empty")
                bytes.clear();
            else
                bytes = QByteArray(bytes.size(), 'x');
            QVERIFY(cache.resize(0) && cache.seek(0) && cache.write(bytes) == bytes.size());
            cache.close();

            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression("^Icon cache file " + QRegularExpression::escape(file) +
                                                    " for .* is unusable .*: removed"));
            // Rendered again, once, as before; written anew: the start after that takes it as it is.
            const Start repaired = start(env, path);
            QVERIFY2(repaired.counts.renders == 1 && repaired.counts.rejectedEntries == 1 &&
                         repaired.icon.image == first.icon.image,
                     qPrintable(damage));
            QVERIFY2(start(env, path).counts.cacheHits == 1, qPrintable(damage));
        }
    }
};

QTEST_MAIN(TestIconCache)
#include "moc_iconloadingfixture.cpp"
#include "tst_iconcache.moc"
