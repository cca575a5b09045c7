// Finding an icon's file: the real Debian themes (Papirus, Adwaita, hicolor, the pixmaps), the
// size rules on a theme of our own, inheritance with loops and broken themes, which theme is
// the user's, and what a desktop entry's Icon key asks for.
#include "icontestfiles.h"

#include "platform/entryiconname.h"
#include "platform/iconthemechoice.h"

#include <QtTest>

using namespace IconTestFiles;

class TestIconLookup : public QObject
{
    Q_OBJECT

    static IconThemeLookup::Settings system(const QString& theme)
    {
        return {theme, {SystemIcons}, {QStringLiteral("/usr/share/pixmaps")}};
    }

private slots:
    void realThemes_data()
    {
        QTest::addColumn<QString>("theme");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("size");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* tag, const char* theme, const char* name, int size,
                            const char* expected) {
            QTest::newRow(tag) << QString(theme) << QString(name) << size << QString(expected);
        };
        // Papirus keeps its 128-pixel applications as SVG meant for 128 to 512 pixels.
        row("papirus 128", "Papirus", "firefox", 128, "Papirus/128x128/apps/firefox.svg");
        row("papirus 48", "Papirus", "firefox", 48, "Papirus/48x48/apps/firefox.svg");
        row("papirus own logo", "Papirus", "debian-logo", 48, "Papirus/48x48/apps/debian-logo.svg");
        row("adwaita 48", "Adwaita", "accessories-calculator", 48,
            "Adwaita/48x48/legacy/accessories-calculator.png");
        // Adwaita has no xterm; it inherits hicolor, whose own folders decide by size.
        row("inherited 48", "Adwaita", "xterm", 48, "hicolor/48x48/apps/xterm.png");
        row("inherited 96", "Adwaita", "xterm", 96, "hicolor/scalable/apps/xterm.svg");
        row("pixmaps last", "Adwaita", "debian-logo", 128, "/usr/share/pixmaps/debian-logo.png");
        row("nowhere", "Papirus", "no-such-icon-anywhere", 128, "");
    }

    void realThemes()
    {
        QFETCH(QString, theme);
        QFETCH(QString, name);
        QFETCH(int, size);
        QFETCH(QString, expected);
        const IconThemeLookup lookup(system(theme));
        const QString full = expected.isEmpty() || expected.startsWith(QLatin1Char('/'))
                                 ? expected
                                 : SystemIcons + QLatin1Char('/') + expected;
        QCOMPARE(lookup.findIcon(name, size), full);
    }

    void sizeRules_data()
    {
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<int>("size");
        QTest::addColumn<QString>("expected");
        // The plain freedesktop distance would take the 16-pixel bitmap (112 away against 128).
        QTest::newRow("larger bitmap over smaller")
            << QStringList{"16/i.png", "256/i.png"} << 128 << "256/i.png";
        QTest::newRow("svg over small bitmap")
            << QStringList{"32/i.png", "scalable/i.svg"} << 128 << "scalable/i.svg";
        QTest::newRow("only a small bitmap") << QStringList{"16/i.png"} << 128 << "16/i.png";
        QTest::newRow("exact size") << QStringList{"32/i.png", "256/i.png"} << 32 << "32/i.png";
        QTest::newRow("scalable range")
            << QStringList{"256/i.png", "scalable/i.svg"} << 48 << "scalable/i.svg";
        QTest::newRow("closest larger") << QStringList{"256/i.png", "64/i.png"} << 48 << "64/i.png";
        QTest::newRow("png before svg") << QStringList{"32/i.svg", "32/i.png"} << 32 << "32/i.png";
        QTest::newRow("xpm last") << QStringList{"32/i.xpm"} << 32 << "32/i.xpm";
    }

    void sizeRules()
    {
        QFETCH(QStringList, files);
        QFETCH(int, size);
        QFETCH(QString, expected);
        TestEnvironment env;
        env.writeFile("icons/Rules/index.theme", indexTheme("Rules", "",
                                                            {"16:Fixed:16", "32:Fixed:32", "64:Fixed:64",
                                                             "256:Fixed:256", "scalable:Scalable:16:8:64"}));
        for (const QString& file : files)
            env.writeFile("icons/Rules/" + file, "x");
        const IconThemeLookup lookup(themes(env, "Rules"));
        QCOMPARE(lookup.findIcon("i", size), env.root() + "/icons/Rules/" + expected);
    }

    void inheritanceAndTheUsersFolder()
    {
        // Papirus names breeze, which Debian does not install: left out without a word.
        QCOMPARE(IconThemeLookup(system("Papirus")).themeNames(), QStringList({"Papirus", "hicolor"}));
        TestEnvironment env;
        env.writeFile("icons/Child/index.theme", indexTheme("Child", "Parent", {"48:Fixed:48"}));
        env.writeFile("icons/Parent/index.theme", indexTheme("Parent", "Child,hicolor", {"16:Fixed:16"}));
        const QString parentOnly = env.writeFile("icons/Parent/16/xterm.png", png(16));
        const QString childOwn = env.writeFile("icons/Child/48/mine.png", png(48));
        const IconThemeLookup lookup(themes(env, "Child"));
        // The loop back to Child ends; hicolor comes once.
        QCOMPARE(lookup.themeNames(), QStringList({"Child", "Parent", "hicolor"}));
        QCOMPARE(lookup.findIcon("mine", 48), childOwn);
        // The first theme that has the icon wins at any size, before hicolor's exact 48.
        QCOMPARE(lookup.findIcon("xterm", 48), parentOnly);
        // The user's hicolor folder has no index.theme of its own; the system's describes both,
        // and the user's comes first.
        const QString mine = env.writeFile("icons/hicolor/48x48/apps/xterm.png", png(48));
        QCOMPARE(IconThemeLookup(themes(env, "hicolor")).findIcon("xterm", 48), mine);
    }

    void brokenThemes()
    {
        TestEnvironment env;
        env.writeFile("icons/Garbled/index.theme", QByteArray("\x01\x02[[[\xff\xfe=\n=\n", 12));
        env.writeFile("icons/Garbled/48/xterm.png", png(48));
        env.writeFile("icons/NoGroup/index.theme", "[Something Else]\nName=x\n");
        env.writeFile("icons/Wild/index.theme",
                      "[Icon Theme]\nInherits=../../etc,Wild,Wild\n"
                      "Directories=48,../up,-1,huge\n[48]\nSize=-5\n[huge]\nSize=99999999\n"
                      "Type=Fixed\n[-1]\nSize=abc\n");
        QCOMPARE(IconThemeLookup(themes(env, "Garbled")).themeNames(), QStringList({"hicolor"}));
        QCOMPARE(IconThemeLookup(themes(env, "NoGroup")).themeNames(), QStringList({"hicolor"}));
        QCOMPARE(IconThemeLookup(themes(env, "Absent")).findIcon("xterm", 48),
                 SystemIcons + "/hicolor/48x48/apps/xterm.png");
        // Nonsense values are clamped or dropped; the theme still works and stays bounded.
        const IconThemeLookup wild(themes(env, "Wild"));
        QCOMPARE(wild.themeNames(), QStringList({"Wild", "hicolor"}));
        const QString huge = env.writeFile("icons/Wild/huge/i.png", "x");
        QCOMPARE(wild.findIcon("i", 128), huge);
        QCOMPARE(wild.findIcon("../Garbled/48/xterm", 48), QString());
    }

    void listedFoldersStillCheckThePickedFile()
    {
        // Folders are read once; what a lookup picks from the listing must still be a file.
        TestEnvironment env;
        env.writeFile("icons/Mine/index.theme", indexTheme("Mine", "", {"48:Fixed:48", "64:Fixed:64"}));
        const QString real = env.writeFile("icons/Mine/64/real.png", png(64));
        const QString folder = env.root() + "/icons/Mine/48/";
        QDir().mkpath(folder + "folder.png");
        QVERIFY(QFile::link(env.root() + "/nowhere.png", folder + "ghost.png"));
        QVERIFY(QFile::link(env.root() + "/nowhere.png", folder + "both.png"));
        const QString both = env.writeFile("icons/Mine/48/both.svg", svg());
        QVERIFY(QFile::link(real, folder + "linked.png"));
        const IconThemeLookup lookup(themes(env, "Mine"));
        QCOMPARE(lookup.findIcon("ghost", 48), QString());
        QCOMPARE(lookup.findIcon("folder", 48), QString());
        QCOMPARE(lookup.findIcon("both", 48), both);
        QCOMPARE(lookup.findIcon("linked", 48), folder + "linked.png");
    }

    void themeChoice()
    {
        TestEnvironment env;
        qputenv("GSETTINGS_BACKEND", "memory"); // no user value of the desktop's own
        qputenv("NIMBO_ICON_THEME", "Papirus");
        QCOMPARE(IconThemeChoice::currentThemeName(), QString("Papirus"));
        qunsetenv("NIMBO_ICON_THEME");
        env.writeFile("config/gtk-3.0/settings.ini", "[Settings]\ngtk-icon-theme-name = ePapirus\n");
        env.writeFile("config/kdeglobals", "[General]\nx=1\n[Icons]\nTheme=breeze-dark\n");
        QCOMPARE(IconThemeChoice::currentThemeName(), QString("ePapirus"));
        qputenv("XDG_CURRENT_DESKTOP", "KDE");
        QCOMPARE(IconThemeChoice::currentThemeName(), QString("breeze-dark"));
        qunsetenv("XDG_CURRENT_DESKTOP");
    }

    void iconValues_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QStringList>("names");
        const auto row = [](const char* tag, const char* value, const char* file, const QStringList& names) {
            QTest::newRow(tag) << QString(value) << QString(file) << names;
        };
        row("reverse dns", "org.gnome.Calculator", "", {"org.gnome.Calculator"});
        row("stray extension", "gvim.png", "", {"gvim"});
        row("svgz", "tool.SVGZ", "", {"tool"});
        row("absolute", " /opt/app/icon.png ", "/opt/app/icon.png", {});
        row("relative path", "icons/app.png", "", {});
        row("only extension", ".png", "", {});
    }

    void iconValues()
    {
        QFETCH(QString, value);
        QFETCH(QString, file);
        QFETCH(QStringList, names);
        const EntryIcon icon = EntryIconName::fromIconValue(value);
        QCOMPARE(icon.filePath, file);
        QCOMPARE(icon.names, names);
    }

    void iconsOfFiles()
    {
        TestEnvironment env;
        QString error;
        const QString named = env.writeFile("apps/named.desktop", desktopEntry("firefox"));
        QCOMPARE(EntryIconName::iconForFile(named, &error).names, QStringList{"firefox"});
        const QString localised =
            env.writeFile("apps/localised.desktop", desktopEntry("firefox") + "Icon[xx_YY]=other\n");
        qputenv("LANGUAGE", "xx_YY");
        QCOMPARE(EntryIconName::iconForFile(localised, &error).names, QStringList{"other"});
        qunsetenv("LANGUAGE");
        const QString bare = env.writeFile("apps/bare.desktop", desktopEntry(QString()));
        QCOMPARE(EntryIconName::iconForFile(bare, &error).names, QStringList{"application-x-executable"});
        // Other files are known by their content type, from the shared MIME database.
        QVERIFY(QFile::link("/usr/share/mime", env.systemDataDir() + "/mime"));
        const QString text = env.writeFile("notes.txt", "hello");
        QVERIFY(EntryIconName::iconForFile(text, &error).names.contains("text-plain"));
        for (const QByteArray& bad :
             {QByteArray(), QByteArray("not an entry"), QByteArray("[Other]\nIcon=x\n")}) {
            error.clear();
            QVERIFY(EntryIconName::iconForFile(env.writeFile("apps/bad.desktop", bad), &error).isEmpty());
            QVERIFY(!error.isEmpty());
        }
        QVERIFY(EntryIconName::iconForFile(env.root() + "/apps/gone.desktop", &error).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestIconLookup)
#include "tst_iconlookup.moc"
