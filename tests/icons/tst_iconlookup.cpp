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
    void realThemes()
    {
        // Each: the theme, the icon name and size, then the file found ("" for none).
        const QList<QStringList> cases{
            // Papirus keeps its 128-pixel applications as SVG meant for 128 to 512 pixels; its own
            // logo comes before the pixmap.
            {"Papirus", "firefox", "128", SystemIcons + "/Papirus/128x128/apps/firefox.svg"},
            {"Papirus", "debian-logo", "48", SystemIcons + "/Papirus/48x48/apps/debian-logo.svg"},
            {"Adwaita", "accessories-calculator", "48",
             SystemIcons + "/Adwaita/48x48/legacy/accessories-calculator.png"},
            // Adwaita has no xterm; it inherits hicolor. The pixmaps come last.
            {"Adwaita", "xterm", "48", SystemIcons + "/hicolor/48x48/apps/xterm.png"},
            {"Adwaita", "debian-logo", "128", "/usr/share/pixmaps/debian-logo.png"},
            {"Papirus", "no-such-icon-anywhere", "128", ""}};
        for (const QStringList& c : cases)
            QCOMPARE(c.mid(0, 3) << IconThemeLookup(system(c[0])).findIcon(c[1], c[2].toInt()), c);
    }

    void sizeRules()
    {
        // Each: the size asked for, the file found, then the files the theme has.
        const QList<QStringList> cases{
            // The plain freedesktop distance would take the 16-pixel bitmap (112 away against 128).
            {"128", "256/i.png", "16/i.png", "256/i.png"},
            {"128", "scalable/i.svg", "32/i.png", "scalable/i.svg"}, // svg over a small bitmap
            {"128", "16/i.png", "16/i.png"},                         // only a small bitmap
            {"32", "32/i.png", "32/i.png", "256/i.png"},             // the exact size
            {"48", "scalable/i.svg", "256/i.png", "scalable/i.svg"}, // within the scalable range
            {"48", "64/i.png", "256/i.png", "64/i.png"},             // the closest larger
            {"32", "32/i.png", "32/i.svg", "32/i.png"},              // png before svg
            {"32", "32/i.xpm", "32/i.xpm"}};                         // xpm last
        for (const QStringList& c : cases) {
            TestEnvironment env;
            env.writeFile("icons/Rules/index.theme",
                          indexTheme("Rules", "",
                                     {"16:Fixed:16", "32:Fixed:32", "64:Fixed:64", "256:Fixed:256",
                                      "scalable:Scalable:16:8:64"}));
            for (const QString& file : c.mid(2))
                env.writeFile("icons/Rules/" + file, "x");
            const QString found = IconThemeLookup(themes(env, "Rules")).findIcon("i", c[0].toInt());
            QCOMPARE(QStringList({c[0], found}) + c.mid(2),
                     QStringList({c[0], env.root() + "/icons/Rules/" + c[1]}) + c.mid(2));
        }
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
        QVERIFY(QFile::link(env.root() + "/nowhere.png", folder + "both.png"));
        const QString both = env.writeFile("icons/Mine/48/both.svg", svg());
        QVERIFY(QFile::link(real, folder + "linked.png"));
        const IconThemeLookup lookup(themes(env, "Mine"));
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

    void iconValues()
    {
        // Each: the Icon value, the file it names ("" for none), then the names to look up.
        const QList<QStringList> cases{{"org.gnome.Calculator", "", "org.gnome.Calculator"},
                                       {"gvim.png", "", "gvim"}, // a stray extension
                                       {"tool.SVGZ", "", "tool"},
                                       {" /opt/app/icon.png ", "/opt/app/icon.png"},
                                       {"icons/app.png", ""}, // a relative path names nothing
                                       {".png", ""}};
        for (const QStringList& c : cases) {
            const EntryIcon icon = EntryIconName::fromIconValue(c[0]);
            QCOMPARE(QStringList({c[0], icon.filePath}) + icon.names, c);
        }
    }

    void iconsOfFiles()
    {
        TestEnvironment env;
        QString error;
        const QString localised =
            env.writeFile("apps/localised.desktop", desktopEntry("firefox") + "Icon[xx_YY]=other\n");
        QCOMPARE(EntryIconName::iconForFile(localised, &error).names, QStringList{"firefox"});
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
