// Icons loading into the catalogue's records over the real Papirus theme: the shown group is
// queued first, the refetch rules (size capped at 128, the entry's inode, colour-only changes),
// clearing back to the dot, missing files and icons, and the colour sort values the records end
// up with, each change announced with "N_AppIconChanged".
#include "iconloadingfixture.h"

#include <QtTest>

#include <cmath>
#include <cstdio>

using namespace IconLoadingFixture;

namespace {
QVariantList variants(const QStringList& paths)
{
    return QVariantList(paths.begin(), paths.end());
}
} // namespace

class TestIconLoading : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        // Nothing of one test may arrive in the next.
        QVERIFY(waitForIcons());
    }

    void shownGroupQueuedFirst()
    {
        // Each: the group shown, grouped and flat, then the records whose icons load first. Any
        // other group, the running apps or one out of range, stands for the included apps.
        const QList<int> excluded{15, 16, 17, 18, 19}, favourites{12, 3, 19},
            included{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14};
        const QList<std::pair<int, QList<int>>> cases{
            {3, excluded}, {4, excluded}, {8, favourites}, {9, favourites}, {42, included}};
        for (const auto& [group, shown] : cases) {
            const QString name = QStringLiteral("group %1: ").arg(group);
            CatalogueHarness h;
            const auto source = install(h.env());
            QStringList paths;
            for (int i = 0; i < 20; ++i)
                paths.append(entry(h.env(), QStringLiteral("app%1").arg(i, 2, 10, QChar('0')), "firefox"));
            QVariantList bunches;
            for (int b = 0; b < 4; ++b)
                bunches.append(QVariant(variants(paths.mid(b * 5, 5))));
            h.writeUserFile(HVListFileNames::AllApplications, bunches);
            h.writeUserFile(HVListFileNames::ExcludedApplications, variants(paths.mid(15)));
            const QVariantList favourites = {QVariant(variants({paths[12], paths[3]})),
                                             QVariant(variants({paths[19]}))};
            h.writeUserFile(HVListFileNames::UserApplications, favourites);

            // Held shut, the eight loaders take the first eight of the queue and the rest wait.
            source->setShut(true);
            const auto reopen = qScopeGuard([&source] { source->setShut(false); }); // also when a check fails
            h.manager().rescanAllAppsPrioritizingGroup(group);
            QVERIFY2(source->waitForStarted(IconLoader::MaxConcurrentLoads), qPrintable(name));
            QTest::qWait(50); // nothing beyond the eight may start
            const QStringList first = source->startedPaths();
            QVERIFY2(first.size() == IconLoader::MaxConcurrentLoads, qPrintable(name + first.join(", ")));
            QSet<QString> expected;
            for (int i : shown)
                expected.insert(paths[i]);
            const QSet<QString> firstSet(first.begin(), first.end());
            if (shown.size() <= first.size())
                QVERIFY2(firstSet.contains(expected), qPrintable(name + first.join(", ")));
            else
                QVERIFY2(expected.contains(firstSet), qPrintable(name + first.join(", ")));

            source->setShut(false);
            QVERIFY2(waitForIcons(), qPrintable(name));
            // Every record once.
            const QStringList all = source->startedPaths();
            QVERIFY2(all.size() == 20 && QSet<QString>(all.begin(), all.end()).size() == 20,
                     qPrintable(name + all.join(", ")));
        }
    }

    void refetchRules()
    {
        CatalogueHarness h;
        const auto source = install(h.env());
        IconChangeRecorder changes;
        h.manager().awakeFromNib();
        const QStringList paths = {entry(h.env(), "a", "firefox"), entry(h.env(), "b", "gimp"),
                                   entry(h.env(), "c", "libreoffice-writer")};
        h.writeUserFile(HVListFileNames::AllApplications, {QVariant(variants(paths))});

        // Sizes above 128 load at 128; the records keep the size asked for.
        h.defaults().setInteger(512, "maximumIconSize");
        h.manager().rescanAllAppsPrioritizingGroup(5);
        QVERIFY(waitForIcons());
        const HVAppBunch apps = h.apps(paths);
        QCOMPARE(source->startedPaths().size(), 3);
        for (const HVAppRef& app : apps) {
            QCOMPARE(app->icon().size(), QSize(128, 128));
            QCOMPARE(app->colorSortParameters().iconSize, quint64(512));
        }

        // A colour preference: no fetch, new values (the wrap hue rotates coloured icons).
        source->forget();
        QList<double> before;
        for (const HVAppRef& app : apps) {
            QVERIFY(app->colorSortValue() < 1.0);
            before.append(app->colorSortValue());
        }
        h.defaults().setDouble(30.0, "colorSortWrapHue");
        QVERIFY(waitForIcons());
        QCOMPARE(source->startedPaths().size(), 0);
        for (int i = 0; i < apps.size(); ++i) {
            QCOMPARE(changes.countFor(apps[i]), 2); // each change announced once
            QVERIFY(std::abs(apps[i]->colorSortValue() - std::fmod(before[i] - 30.0 / 360.0 + 1.0, 1.0)) <
                    1e-6);
        }

        // Another size fetches every icon again.
        h.defaults().setInteger(48, "maximumIconSize");
        h.manager().loadIconsForApps(apps);
        QVERIFY(waitForIcons());
        QCOMPARE(source->startedPaths().size(), 3);
        QCOMPARE(apps[2]->icon().size(), QSize(48, 48));

        // An entry replaced by a new file (a new inode) at the same path is fetched again, even
        // with unchanged parameters; the others, unchanged, are not.
        source->forget();
        const QString replacement = h.env().writeFile("apps/b.new", IconTestFiles::desktopEntry("inkscape"));
        QVERIFY(::rename(QFile::encodeName(replacement), QFile::encodeName(apps[1]->path())) == 0);
        h.manager().loadIconsForApps(apps);
        QVERIFY(waitForIcons());
        QCOMPARE(source->startedPaths(), QStringList{apps[1]->path()});
    }

    void clearingShowsTheDotUntilIconsArrive()
    {
        CatalogueHarness h;
        const auto source = install(h.env());
        const QStringList paths = {entry(h.env(), "a", "vlc"), entry(h.env(), "b", "steam")};
        h.writeUserFile(HVListFileNames::AllApplications, {QVariant(variants(paths))});
        h.manager().rescanAllAppsPrioritizingGroup(5);
        QVERIFY(waitForIcons());
        source->forget();

        source->setShut(true);
        const auto reopen = qScopeGuard([&source] { source->setShut(false); });
        h.manager().clearIconsForAllApps();
        for (const HVAppRef& app : h.manager().allApps1D()) {
            QVERIFY(!app->hasIcon());
            QCOMPARE(app->icon().cacheKey(), HVApp::dotImage().cacheKey());
        }
        QVERIFY(source->waitForStarted(2));
        source->setShut(false);
        QVERIFY(waitForIcons());
        for (const HVAppRef& app : h.manager().allApps1D())
            QVERIFY(app->hasIcon());
    }

    void missingFilesAndHostileIcons()
    {
        CatalogueHarness h;
        const auto source = install(h.env());
        IconChangeRecorder changes;
        const QString gone = h.env().root() + "/apps/gone.desktop";
        const QString nameless = entry(h.env(), "nameless", "no-such-icon-anywhere");
        const QString zeroByte = entry(h.env(), "zero", h.env().writeFile("pixmaps/empty.png", QByteArray()));
        const QString truncated = entry(
            h.env(), "truncated", h.env().writeFile("pixmaps/cut.png", IconTestFiles::pngHeader(64, 64)));
        const QString huge = entry(
            h.env(), "huge", h.env().writeFile("pixmaps/huge.png", IconTestFiles::pngHeader(20000, 20000)));
        const QString absurd = entry(
            h.env(), "absurd", h.env().writeFile("pixmaps/absurd.svg", IconTestFiles::svg("1e9", "1e9")));
        const HVAppBunch apps = h.apps({gone, nameless, zeroByte, truncated, huge, absurd});

        h.manager().loadIconsForApps(apps);
        QVERIFY(waitForIcons());
        // A missing entry loads nothing and shows "notfound"; so do entries without a usable icon.
        QVERIFY(!apps[0]->isPathValid());
        QVERIFY(!source->startedPaths().contains(gone));
        for (const HVAppRef& app : apps.mid(0, 5)) {
            QCOMPARE(app->icon().cacheKey(), HVApp::notFoundImage().cacheKey());
            QCOMPARE(app->colorSortValue(), 10.0);
            QCOMPARE(changes.countFor(app), 1);
        }
        QVERIFY(apps[1]->isPathValid());
        // An SVG that declares an absurd size is drawn at the icon size all the same.
        QVERIFY(apps[5]->hasIcon());
        QCOMPARE(apps[5]->icon().size(), QSize(128, 128));
        QVERIFY(apps[5]->colorSortValue() < 1.0);
    }

    void colourValuesOfLoadedIcons()
    {
        CatalogueHarness h;
        install(h.env());
        auto withImage = [&h](const QString& name, const QByteArray& bytes, const char* extension) {
            return entry(h.env(), name,
                         h.env().writeFile(QStringLiteral("pixmaps/%1.%2").arg(name, extension), bytes));
        };
        const QStringList paths = {withImage("white", IconTestFiles::png(64, Qt::white), "png"),
                                   withImage("blue", IconTestFiles::png(64, Qt::blue), "png"),
                                   withImage("green", IconTestFiles::svg("16", "16", "#00c000"), "svg"),
                                   withImage("red", IconTestFiles::png(64, QColor(220, 20, 20)), "png")};
        h.writeUserFile(HVListFileNames::AllApplications, {QVariant(variants(paths))});
        h.manager().rescanAllAppsPrioritizingGroup(5);
        QVERIFY(waitForIcons());
        const HVAppBunch apps = h.apps(paths);
        const double white = apps[0]->colorSortValue(), blue = apps[1]->colorSortValue(),
                     green = apps[2]->colorSortValue(), red = apps[3]->colorSortValue();
        QVERIFY2(
            red < green && green < blue && blue < 1.0 && white >= 1.0 && white < 1.01,
            qPrintable(
                QString("red %1, green %2, blue %3, white %4").arg(red).arg(green).arg(blue).arg(white)));
        // (That each arrival is announced is the refetch test's; that announcements re-sort the
        // catalogue by these values a second after the last, tst_ordering's.)
    }
};

QTEST_MAIN(TestIconLoading)
#include "moc_iconloadingfixture.cpp"
#include "tst_iconloading.moc"
