// What the icon view paints: faded and opaque icons, the drop highlight, the scanning text in
// place of icons, the colour spectrums, the lines and marks between bunches, and the mark where a
// moved favourite would go.
#include "iconviewfixture.h"

#include "browser/hvbunchseparators.h"

#include <QPainter>

namespace {
// The view as it shows over a backdrop (the panel itself is translucent).
QImage rendered(HVIconView& view, const QColor& backdrop)
{
    QImage image(view.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(backdrop);
    QPainter painter(&image);
    view.render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

bool near(const QColor& actual, double red, double green, double blue)
{
    return std::abs(actual.red() - red) <= 2 && std::abs(actual.green() - green) <= 2 &&
           std::abs(actual.blue() - blue) <= 2;
}
} // namespace

class TestIconViewDrawing : public QObject
{
    Q_OBJECT

    static void showAllWithRedIcons(IconViewFixture& f)
    {
        QImage red(64, 64, QImage::Format_ARGB32_Premultiplied);
        red.fill(Qt::red);
        for (const HVAppRef& app : f.manager->allApps1D())
            app->setIcon(red);
        f.showGroup(5);
    }

private slots:
    void scanningShowsOnlyTheProgressTextExcludedAppsFadeAndAFileDropLightsTheAppThatCanOpenIt()
    {
        IconViewFixture f(IconViewFixture::FiveApps, {"Epsilon"});
        showAllWithRedIcons(f);
        HVNotificationCenter* center = HVNotificationCenter::defaultCenter();
        center->postNotificationName("N_ShowProgressStep", {}, {{"step", 2}, {"count", 5}, {"label", "~/x"}});
        QVERIFY(f.view->isBusyScanning());
        QVERIFY(near(rendered(*f.view, Qt::white).pixelColor(f.centreOf("Alpha")), 190, 190, 190));
        center->postNotificationName("N_ShowProgressStep", {}, {{"step", 0}, {"count", 0}, {"label", ""}});
        QVERIFY(!f.view->isBusyScanning());
        QImage image = rendered(*f.view, Qt::white);
        QVERIFY(near(image.pixelColor(f.centreOf("Alpha")), 255, 0, 0));
        // Epsilon at 0.15 over the panel, black at 0.85 x 0.3 over white: 190.
        QVERIFY(
            near(image.pixelColor(f.centreOf("Epsilon")), 190 * 0.85 + 255 * 0.15, 190 * 0.85, 190 * 0.85));
        // A drop lights the app under the pointer that opens the files and fades the rest.
        f.view->setDragState({.dragDropInProgress = true, .movedApp = {}, .droppableApps = {f.app("Beta")}});
        f.view->selectCoords(f.view->coordsOfApp(f.app("Beta")));
        image = rendered(*f.view, Qt::white);
        const QRectF beta = f.view->rectOfApp(f.app("Beta"));
        // White (the text colour on a black panel) in the padding around the icon.
        QVERIFY(near(image.pixelColor(int(beta.left()) + 1, int(beta.center().y())), 255, 255, 255));
        QVERIFY(near(image.pixelColor(f.centreOf("Beta")), 255, 0, 0));
        QVERIFY(near(image.pixelColor(f.centreOf("Alpha")), 190 * 0.85 + 255 * 0.15, 190 * 0.85, 190 * 0.85));
    }

    void colourSpectrumsReplaceTheIconsOnRequest()
    {
        // A square red icon becomes a red disc: its corners show the panel. Only in colour order.
        IconViewFixture f;
        f.defaults->setInteger(2, "groupContentsSortOrder");
        showAllWithRedIcons(f);
        f.app("Alpha")->setColorSortParameters({.iconSize = 64}); // the spectrum's size
        // Four points into the icon's corner: red on the square icon, the panel beside the disc.
        const QPoint corner = f.view->rectOfApp(f.app("Alpha")).topLeft().toPoint() + QPoint(4, 4);
        QVERIFY(near(rendered(*f.view, Qt::white).pixelColor(corner), 255, 0, 0));
        QVERIFY(f.key(Qt::Key_QuoteLeft, "`", Qt::ControlModifier));
        QVERIFY(!near(rendered(*f.view, Qt::white).pixelColor(corner), 255, 0, 0));
        f.view->resetView();
        QVERIFY(!f.view->showsIconSpectrums());
        f.defaults->removeObjectForKey("groupContentsSortOrder");
        QVERIFY(f.key(Qt::Key_QuoteLeft, "`", Qt::ControlModifier));
        QVERIFY(!f.view->showsIconSpectrums());
    }

    void linesRunThroughTheGapsBetweenBunches()
    {
        // Three bunches of one side by side: cells of 68 at x = 12, 114 and 216, gaps of 34.
        const HVIconLayout layout(1, false, {1, 1, 1}, {}, QSizeF(1200, 800));
        QCOMPARE(HVBunchSeparators::linesForLayout(layout, Coords::None),
                 QList<QLineF>({QLineF(97.5, 12, 97.5, 80), QLineF(199.5, 12, 199.5, 80)}));
        // While a favourite is moved the gap under the pointer gets lines along its edges.
        QCOMPARE(HVBunchSeparators::linesForLayout(layout, 1),
                 QList<QLineF>({QLineF(80.5, 12, 80.5, 80), QLineF(113.5, 12, 113.5, 80),
                                QLineF(199.5, 12, 199.5, 80)}));
        Coords besideBunch1{.bunch = 1, .margin = 0}; // the top margin
        QCOMPARE(HVBunchSeparators::marginMark(layout, besideBunch1),
                 QPolygonF({QPointF(114, 0), QPointF(182, 0), QPointF(148, 12)}));
        besideBunch1.margin = 3; // the left margin is not across bunches side by side
        QVERIFY(HVBunchSeparators::marginMark(layout, besideBunch1).isEmpty());
    }

    void aMovedFavouriteMarksTheCellItWouldGoTo()
    {
        IconViewFixture f(IconViewFixture::FiveApps, {}, IconViewFixture::FiveApps);
        f.showGroup(8);
        f.view->setDragState({.dragMoveInProgress = true, .movedApp = f.app("Epsilon"), .droppableApps = {}});
        const auto markedWhenSelected = [&f](const QString& name) {
            const Coords cell = f.view->coordsOfApp(f.app(name));
            f.view->selectCoords(cell);
            return f.view->isDecoratedRow(int(cell.row), int(cell.col));
        };
        QVERIFY(markedWhenSelected("Beta"));
        QVERIFY(!markedWhenSelected("Epsilon")); // its own cell is no new place
    }
};

QTEST_MAIN(TestIconViewDrawing)
#include "moc_iconviewfixture.cpp"
#include "tst_iconviewdrawing.moc"
