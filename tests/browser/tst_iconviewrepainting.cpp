// What a keystroke repaints: only the cells whose fading the filter changed, and what is on the
// screen afterwards is what a whole repaint would draw.
#include "iconviewfixture.h"

#include <QScreen>

namespace {
const QList<QStringList> Apps{{"Safari", "Sane Scanner", "System Monitor", "Safe Box"},
                              {"Text Editor", "Terminal", "Tetris", "Thunar"},
                              {"Mail", "Maps", "Music", "Notes"}};

// Every icon a colour of its own, so that a cell painted wrong shows.
void colourIcons(IconViewFixture& f)
{
    int n = 0;
    for (const HVAppRef& app : f.manager->allApps1D()) {
        QImage icon(48, 48, QImage::Format_ARGB32_Premultiplied);
        icon.fill(QColor::fromHsv((n++ * 37) % 360, 220, 230));
        app->setIcon(icon);
    }
}

// What is on the screen is what a whole repaint draws.
bool showsAWholeRepaint(QWidget& view)
{
    return view.screen()->grabWindow(view.winId()).toImage().convertToFormat(QImage::Format_RGB32) ==
           view.grab().toImage().convertToFormat(QImage::Format_RGB32);
}
} // namespace

class TestIconViewRepainting : public QObject
{
    Q_OBJECT

    static QRegion cellsOf(IconViewFixture& f, const QStringList& names)
    {
        QRegion region;
        for (const QString& name : names)
            region += f.view->rectOfApp(f.app(name)).toAlignedRect();
        return region;
    }

private slots:
    void aKeystrokeRepaintsOnlyTheCellsWhoseFadingChanged()
    {
        IconViewFixture f(Apps);
        colourIcons(f);
        f.showGroup(1);
        QCoreApplication::processEvents();
        PaintSpy paints(f.view.get());
        const auto keystroke = [&](const std::function<void()>& press, const QRegion& expected) {
            paints.painted = QRegion();
            press();
            QCoreApplication::processEvents(); // the repaint asked for, if any
            QTRY_COMPARE(paints.painted, expected);
        };
        // Most icons fade at the first letter: one rectangle beats a region of many.
        keystroke([&] { f.type("s"); }, QRegion(f.view->rect()));
        keystroke([&] { f.type("a"); }, cellsOf(f, {"System Monitor"}));
        keystroke([&] { f.type("f"); }, cellsOf(f, {"Sane Scanner"}));
        // No name holds "saf ": the two left fade, and come back with the space deleted.
        const QRegion two = cellsOf(f, {"Safari", "Safe Box"});
        keystroke([&] { f.key(Qt::Key_Space, " "); }, two);
        keystroke([&] { f.key(Qt::Key_Backspace, "\b"); }, two);
        keystroke([&] { f.key(Qt::Key_Escape, "\x1b"); }, QRegion(f.view->rect()));
        QCOMPARE(f.filtered().size(), 12);

        // The wheel steps one letter at a time: z keeps nothing here, y neither.
        keystroke([&] { f.wheel(QPointF(0, 1.5)); }, QRegion(f.view->rect()));
        keystroke([&] { f.wheel(QPointF(0, 1.5)); }, QRegion());
    }

    void afterRepaintingPiecesTheScreenShowsWhatAWholeRepaintDraws()
    {
        IconViewFixture f(Apps, {"Tetris"});
        colourIcons(f);
        f.showGroup(5); // all apps: the excluded one faded too
        QTRY_VERIFY(showsAWholeRepaint(*f.view));
        // Lines between bunches and the rounded corners come through pieces untouched.
        QTest::mouseMove(f.view.get(), f.centreOf("Maps"));
        QTest::mouseMove(f.view.get(), f.centreOf("Safari"));
        QCoreApplication::processEvents();
        QVERIFY(showsAWholeRepaint(*f.view));
        // Side by side, stacked and flat, the bunches place their cells otherwise: letters that
        // fade cells, and a Delete that brings them back.
        for (int orientation : {2, 1, 0}) {
            f.view->resetView();
            f.defaults->setInteger(orientation, "groupOrientation");
            for (const QString& typed : {QStringLiteral("s"), QStringLiteral("a"), QStringLiteral("\b")}) {
                f.key(typed == "\b" ? Qt::Key_Backspace : Qt::Key(typed.toUpper().at(0).unicode()), typed);
                QCoreApplication::processEvents();
                QVERIFY2(showsAWholeRepaint(*f.view), qPrintable(QString("orientation %1, filter '%2'")
                                                                     .arg(orientation)
                                                                     .arg(f.view->filterSubstring())));
            }
        }
    }
};

QTEST_MAIN(TestIconViewRepainting)
#include "moc_iconviewfixture.cpp"
#include "tst_iconviewrepainting.moc"
