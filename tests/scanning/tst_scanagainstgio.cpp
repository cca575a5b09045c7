// The catalogue against GIO on a hostile tree of more than 2,000 entries in three application
// folders (the user's and two system ones): entries that do and do not show, garbage, invalid
// UTF-8, 1 MB entries, links that dangle or loop, desktop IDs repeated across and within the
// folders. With the default scan folders the catalogue must be exactly what g_app_info_get_all()
// reports with g_app_info_should_show(), the same file for every desktop ID, apart from what the
// scan leaves alone on purpose (named below).
// GIO's headers name a field "signals", which Qt defines as a keyword: they come first.
#include <gio/gdesktopappinfo.h>

#include "entrytree.h"
#include "support/catalogueharness.h"

#include "platform/gioentryreader.h"

#include <QtTest>

class TestScanAgainstGio : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestEnvironment> m_env;
    QStringList m_folders; // the three application folders, in scan order

    static void put(const QString& path, const QByteArray& contents) { EntryTree::write(path, contents); }

    // The variety, chosen per folder so that one desktop ID shows in one folder and not in another.
    void writeVariant(const QString& path, int kind, int i)
    {
        const QByteArray name =
            "App " + QByteArray::number(i) + " " + QFileInfo(path).path().right(12).toUtf8();
        // Kinds 0 to 8: a plain entry, or one with a rule for whether it shows.
        static const char* const showRules[] = {
            "Comment=plain\n",       "NoDisplay=true\n",  "Hidden=true\n",
            "OnlyShowIn=GNOME;\n",   "OnlyShowIn=KDE;\n", "NotShowIn=GNOME;\n",
            "NotShowIn=KDE;XFCE;\n", "TryExec=sh\n",      "TryExec=/nonexistent/nimbo-test-program\n"};
        if (kind < int(std::size(showRules)))
            return put(path, EntryTree::entry(name, showRules[kind]));
        switch (kind) {
        case 9:
            return put(path, "[Desktop Entry]\nType=Application\nName=" + name +
                                 "\nExec=nimbo-missing-program %U\n");
        case 10:
            return put(path, "[Desktop Entry]\nType=Link\nName=" + name + "\nURL=https://example.org/\n");
        case 11: {
            QByteArray garbage(3000, '\0');
            for (int b = 0; b < garbage.size(); ++b)
                garbage[b] = char((b * 131 + i * 7) & 0xff);
            return put(path, garbage);
        }
        case 12:
            return put(path, EntryTree::entry("\xff\xfe broken " + name));
        case 13:
            return put(path, "Type=Application\nName=" + name + "\nExec=sh\n");
        case 14:
            return put(path, EntryTree::entry(name, "Name[de]=Anwendung\nName[fr]=Application\nComment=x\n"));
        case 15:
            return put(path, QByteArray());
        case 16:
            if (i < 60) // a few of 1 MB
                return put(path, EntryTree::entry(name, "Comment=" + QByteArray(1024 * 1024, 'x') + "\n"));
            return put(path, "[Desktop Entry]\r\nType=Application\r\nName=" + name + "\r\nExec=sh\r\n");
        case 17:
            return put(path, EntryTree::entry(name, "Exec=\"sh\" -c 'echo %U'\nTerminal=false\n"));
        case 18:
            EntryTree::link(
                EntryTree::app(m_env->root() + "/outside/target" + QString::number(i) + ".desktop"), path);
            return;
        default:
            EntryTree::link(m_env->root() + "/nowhere/" + QString::number(i) + ".desktop", path);
        }
    }

    void buildTree()
    {
        static const char* const places[] = {"", "vendor%1/", "vendor%1/sub/", "vendor%1/sub/deeper/", ""};
        for (int f = 0; f < 3; ++f) {
            const QString base = m_folders.at(f) + "/";
            for (int i = 0; i < 700; ++i) {
                QString place = QString::fromLatin1(places[(i / 20) % 5]);
                place.replace("%1", QString::number(i % 3));
                writeVariant(base + place + "app" + QString::number(i) + ".desktop", (i + 7 * f) % 20, i);
            }
            for (int i = 0; i < 40; ++i) // IDs only this folder has
                put(base + "only" + QString::number(f) + "-" + QString::number(i) + ".desktop",
                    EntryTree::entry("Only " + QByteArray::number(i)));
            // Within one folder, the entry met last in the walk holds a repeated ID.
            put(base + "coll-x.desktop", EntryTree::entry("Top"));
            put(base + "coll/x.desktop", EntryTree::entry("Sub", f == 1 ? "Hidden=true\n" : ""));
            // A name with spaces and beyond ASCII; entries whose file names are not an entry's.
            put(base + "Ünïcødé ✓ app.desktop", EntryTree::entry("Ünïcødé"));
            put(base + "app1.desktop~", EntryTree::entry("Backup"));
            put(base + "UPPER.DESKTOP", EntryTree::entry("Upper"));
            // What the scan leaves alone on purpose, although GIO shows it: hidden names,
            // ".framework" folders, entries more than three folders down, folders reached
            // through links (one of them looping back on itself), names that are not UTF-8.
            put(base + ".dot" + QString::number(f) + ".desktop", EntryTree::entry("Dot"));
            put(base + ".hiddendir/in.desktop", EntryTree::entry("In hidden"));
            put(base + "Thing.framework/fw.desktop", EntryTree::entry("Framework"));
            put(base + "a/b/c/d/toodeep.desktop", EntryTree::entry("Too deep"));
            put(m_env->root() + "/linked" + QString::number(f) + "/l.desktop", EntryTree::entry("Linked"));
            EntryTree::link(m_env->root() + "/linked" + QString::number(f), base + "linkeddir");
            put(base + "loopy/x.desktop", EntryTree::entry("Loopy"));
            EntryTree::link(".", base + "loopy/up");
            QDir().mkpath(m_env->root() + "/emptydir");
            EntryTree::link(m_env->root() + "/emptydir", base + "dirlink.desktop");
            QVERIFY(EntryTree::writeNamedBytes(QFile::encodeName(base) + "bad\xffname.desktop",
                                               EntryTree::entry("Bad")));
        }
    }

    // Where the scan deliberately differs from GIO's own walk, in the tree above: hidden names,
    // ".framework" folders, more than three folders down, folders reached through links, names
    // that are not UTF-8.
    bool scanLeavesAlone(const QString& path) const
    {
        static const QRegularExpression leftAlone(
            QStringLiteral("/\\.|\\.framework/|/a/b/c/d/|/linkeddir/|/loopy/up/|\uFFFD"));
        return path.mid(m_env->root().size()).contains(leftAlone);
    }

    static QStringList gioShownEntries()
    {
        QStringList shown;
        GList* infos = g_app_info_get_all();
        for (GList* item = infos; item; item = item->next) {
            if (g_app_info_should_show(G_APP_INFO(item->data)))
                shown.append(
                    QFile::decodeName(g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(item->data))));
        }
        g_list_free_full(infos, g_object_unref);
        shown.sort();
        return shown;
    }

private slots:
    void initTestCase()
    {
        // GLib reads these once, at its first use: set them before anything asks.
        qputenv("XDG_CURRENT_DESKTOP", "GNOME");
        m_env = std::make_unique<TestEnvironment>();
        const QString sys1 = m_env->root() + "/sys1";
        const QString sys2 = m_env->root() + "/sys2";
        qputenv("XDG_DATA_DIRS", (sys1 + ":" + sys2).toLocal8Bit());
        m_folders = {m_env->dataHome() + "/applications", sys1 + "/applications", sys2 + "/applications"};
        buildTree();
    }

    // The temporary folder cannot remove a name that is not UTF-8 by itself.
    void cleanupTestCase()
    {
        for (const QString& folder : m_folders)
            ::unlink(QFile::encodeName(folder + "/").append("bad\xffname.desktop").constData());
    }

    void catalogueIsWhatGioShows()
    {
        HVUserDefaults defaults(m_env->configHome() + "/Nimbo/Nimbo.conf");
        HVAppManager manager(&defaults, std::make_shared<GioEntryReader>());
        manager.scanSearchFoldersForAllApps();
        QCOMPARE(manager.allApps().size(), 3);
        QStringList catalogue = HVAppManager::pathsFromApps(manager.allApps1D());
        catalogue.sort();

        QStringList expected = gioShownEntries();
        const qsizetype leftAlone =
            expected.removeIf([this](const QString& path) { return scanLeavesAlone(path); });
        QVERIFY2(expected.size() > 400, qPrintable(QString::number(expected.size())));
        QVERIFY(leftAlone > 40); // GIO did walk into the loop, the links, the hidden folders
        QCOMPARE(catalogue, expected);
    }
};

QTEST_GUILESS_MAIN(TestScanAgainstGio)
#include "tst_scanagainstgio.moc"
