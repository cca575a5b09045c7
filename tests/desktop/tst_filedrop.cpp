// Files dropped on the panel from another program over XDND, with the real pointer: only the
// apps that open them light up (with Ctrl, every app that can), and the one they are dropped on
// gets each name intact as an argument of its own. Files handed over by `nimbo FILE...` are
// offered the same way, a click opening them.
#include "desktopfixture.h"

#include "browser/dropstack.h"
#include "browser/hviconview.h"
#include "catalogue/hvappmanager.h"

#include <QtTest>

#include <fstream>

class TestFileDrop : public QObject
{
    Q_OBJECT
    DesktopFixture m_fixture;
    HVController* m_controller = nullptr;
    QString m_record;
    QString m_files;

    HVIconView* view() const { return m_controller->iconView(); }
    HVAppRef app(const QString& id) const { return view()->manager()->appForPath(m_fixture.entryPath(id)); }
    QStringList droppable() const
    {
        QStringList ids;
        for (const HVAppRef& app : view()->dragState().droppableApps)
            ids.append(QFileInfo(app->path()).completeBaseName());
        ids.sort();
        return ids;
    }
    QPoint centreOf(const QString& id) const
    {
        return view()->mapToGlobal(view()->rectOfApp(app(id)).center().toPoint());
    }

    static bool moveTo(const QPoint& at) { return ::moveTo(at, 0.3); }

    // A file of `content` whose name is the bytes given, in the files folder; its URL encoded.
    QString createFile(const QByteArray& name, const QByteArray& content) const
    {
        const QByteArray path = QFile::encodeName(m_files) + "/" + name;
        if (!std::ofstream(path.constData(), std::ios::binary).write(content.constData(), content.size()))
            qFatal("cannot write a test file");
        return "file://" + QString::fromLatin1(path.toPercentEncoding("/"));
    }

private slots:
    void initTestCase()
    {
        m_record = m_fixture.recordFile("viewer");
        m_fixture.writeEntry("viewer.desktop", "Exec=\"" NIMBO_ARGV_RECORDER "\" --no-window " +
                                                   QFile::encodeName(m_record) +
                                                   " %F\nMimeType=text/plain;\n");
        m_fixture.writeEntry("anyfile.desktop", "Exec=true %F\nMimeType=application/octet-stream;\n");
        m_fixture.writeEntry("pictures.desktop", "Exec=true %F\nMimeType=image/png;\n");
        // The apps that prefer a type come from the MIME cache a desktop keeps beside its entries.
        QCOMPARE(QProcess::execute("update-desktop-database", {m_fixture.applicationsDir()}), 0);
        m_files = m_fixture.env().root() + "/files";
        QDir().mkpath(m_files);

        m_controller = m_fixture.startNimbo();
        QTRY_VERIFY(app("pictures"));
    }

    void droppedFilesReachTheAppIntact()
    {
        // (A Qt drag source sends every name as UTF-8 whatever it was; names that are not are
        // handed over below, where the bytes are Nimbo's to keep.)
        const QList<QByteArray> names{"plain.txt", "two words.txt", "quotes \"'`.txt", "$(touch pwned).txt",
                                      "new\nline; rm -rf ~.txt"};
        QStringList uris;
        for (const QByteArray& name : names)
            uris.append(createFile(name, "some text\n"));

        QProcess source;
        source.start(QStringLiteral(NIMBO_DRAG_SOURCE), uris);
        QVERIFY(QTest::qWaitFor([&source] { return source.canReadLine(); }, 10000));
        const QList<QByteArray> ready = source.readLine().trimmed().split(' ');
        const QPoint from(ready.value(1).toInt(), ready.value(2).toInt());

        // The drag starts in the other program; the panel is summoned while it goes on.
        QVERIFY(moveTo(from));
        QVERIFY(xdotool({"mousedown", "1", "sleep", "0.2"}));
        QVERIFY(moveTo(from + QPoint(20, 20)));
        m_controller->showMainWindow();
        QTRY_VERIFY(m_controller->mainWindowIsVisible());
        QTest::qWait(500);
        const QPoint viewer = centreOf("viewer");
        QVERIFY(moveTo(viewer + QPoint(4, 0)));
        QVERIFY(moveTo(viewer));
        QTRY_VERIFY(view()->dragState().dragDropInProgress);
        QCOMPARE(droppable(), QStringList{"viewer"});

        // Ctrl held: every app that can open them; let go: the preferred ones again.
        QVERIFY(xdotool({"keydown", "ctrl"}));
        QVERIFY(moveTo(viewer + QPoint(2, 0)));
        QTRY_COMPARE(droppable(), (QStringList{"anyfile", "viewer"}));
        QVERIFY(xdotool({"keyup", "ctrl"}));
        QVERIFY(moveTo(viewer));
        QTRY_COMPARE(droppable(), QStringList{"viewer"});

        QVERIFY(xdotool({"mouseup", "1"}));
        QList<QByteArray> expected;
        for (const QByteArray& name : names)
            expected.append(QFile::encodeName(m_files) + "/" + name);
        QCOMPARE(DesktopFixture::recordedArguments(m_record), expected); // a shell would have split them
        QTRY_VERIFY(!view()->dragState().dragDropInProgress);
        QCOMPARE(DropStack::sharedDropStack().count(), 0);
        QTRY_COMPARE(source.state(), QProcess::NotRunning);
    }

    void filesHandedOverAreOpenedByAClick()
    {
        QFile::remove(m_record);
        QVERIFY(m_controller->registerBusService());
        createFile("notes.txt", "text\n");
        createFile("bad \xff\xfe utf8.txt", "text\n");
        createFile("photo.png", QByteArray::fromHex("89504e470d0a1a0a"));
        // A second nimbo, given names relative to its folder (one of them not UTF-8), hands them over.
        const QString handOver =
            R"sh(cd "$1" && exec "$0" notes.txt "$(printf 'bad \377\376 utf8.txt')" photo.png)sh";
        QCOMPARE(runToEnd("sh", {"-c", handOver, NIMBO_BINARY_DIR "/src/nimbo", m_files}).exitCode, 0);
        QTRY_VERIFY(m_controller->mainWindowIsVisible());
        QTRY_COMPARE(droppable(), QStringList{"viewer"});
        QCOMPARE(DropStack::sharedDropStack().count(), 3);

        // A click on an app that cannot open them beeps, launches nothing and keeps the offer.
        QVERIFY(moveTo(centreOf("pictures")));
        QVERIFY(xdotool({"click", "1"}));
        QTest::qWait(300);
        QCOMPARE(droppable(), QStringList{"viewer"});

        QVERIFY(moveTo(centreOf("viewer")));
        QVERIFY(xdotool({"click", "1"}));
        const QByteArray folder = QFile::encodeName(m_files);
        QCOMPARE(DesktopFixture::recordedArguments(m_record),
                 (QList<QByteArray>{folder + "/notes.txt", folder + "/bad \xff\xfe utf8.txt",
                                    folder + "/photo.png"}));
        QTRY_VERIFY(!m_controller->mainWindowIsVisible());
        QVERIFY(!view()->dragState().dragDropInProgress);
        QCOMPARE(DropStack::sharedDropStack().count(), 0);
    }
};

QTEST_MAIN(TestFileDrop)

#include "tst_filedrop.moc"
