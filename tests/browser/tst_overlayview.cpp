// The layer over the icon view: the name of the app under the pointer beside its cell, the
// longer label once the pointer rests, and the typed filter that fades after the pause.
#include "iconviewfixture.h"

#include "browser/filtertextimage.h"
#include "browser/hviconoverlayview.h"

#include <QPainter>

class OverlayFixture : public IconViewFixture
{
public:
    OverlayFixture()
    {
        panel.resize(900, 700);
        view->setParent(&panel);
        view->move(20, 26);
        overlay = new HVIconOverlayView(view.get(), defaults.get(), &panel);
        overlay->setGeometry(panel.rect());
        view->setGroupToShow(5);
        view->resize(view->viewSize().toSize());
        panel.show();
        view->setFocus();
        panel.activateWindow();
    }
    ~OverlayFixture() { view.release()->setParent(nullptr), delete overlay; }

    QWidget panel;
    HVIconOverlayView* overlay;
};

class TestOverlayView : public QObject
{
    Q_OBJECT

private slots:
    void theTypedFilterFadesAfterThePauseTheNameShowsAtOnceTheLongLabelAfterARest()
    {
        OverlayFixture f;
        QVERIFY(QTest::qWaitForWindowExposed(&f.panel));
        QSignalSpy faded(f.overlay, &HVIconOverlayView::filterFaded);
        const QImage clear = f.overlay->grab().toImage();
        f.type("al");
        QVERIFY(f.overlay->grab().toImage() != clear); // drawn over the panel, and gone with the fade
        QTRY_VERIFY_WITH_TIMEOUT(f.overlay->isFading(), 3000);
        // A key during the fade starts a new word, shown whole.
        f.type("e");
        QVERIFY(!f.overlay->isFading());
        QCOMPARE(f.overlay->filterOpacity(), 1.0);
        QCOMPARE(f.overlay->filterString(), QString("e"));
        QVERIFY(faded.wait(4000));
        QCOMPARE(f.overlay->filterString(), QString());
        QCOMPARE(f.overlay->grab().toImage(), clear);
        // The name under the pointer shows at once, the long label after a rest.
        QSignalSpy longLabel(f.overlay, &HVIconOverlayView::longLabelShown);
        QTest::mouseMove(f.view.get(), f.centreOf("Alpha"));
        QCOMPARE(f.overlay->labelText(), QString("Alpha"));
        QVERIFY(!f.overlay->showsLongLabel());
        // Moving on restarts the wait.
        QTest::mouseMove(f.view.get(), f.centreOf("Beta"));
        QVERIFY(longLabel.wait(4000));
        QCOMPARE(longLabel.count(), 1);
        QCOMPARE(f.overlay->labelText(), QString("Beta\n/apps"));
        // Off every app the label goes.
        QTest::mouseMove(f.view.get(), QPoint(f.centreOf("Beta").x(), 3));
        QCOMPARE(f.overlay->labelText(), QString());
        f.overlay->grab(); // draws with nothing selected
        // An app that disappears under the pointer is drawn safely, at any panel alpha.
        QTest::mouseMove(f.view.get(), f.centreOf("Gamma"));
        f.write(HVListFileNames::AllApplications, {{"Alpha"}});
        f.manager->readAllAppsFromDisk();
        f.manager->rebuildDependentApps();
        QVERIFY(!f.overlay->grab().isNull());
        f.defaults->setDouble(7, "windowAlpha");
        f.defaults->setDouble(0, "windowAlpha");
        QVERIFY(!f.overlay->grab().isNull());
    }

    void theLabelSitsBesideTheCellInsideThePanel()
    {
        // Orientation, tablet mode and hand, and the side the label takes.
        const std::tuple<int, bool, int, QString> cases[] = {
            {0, false, 0, "below"}, {2, false, 0, "right"}, {0, true, 1, "right"}, {0, true, 0, "left"}};
        for (const auto& [orientation, tablet, hand, side] : cases) {
            OverlayFixture f;
            f.defaults->setInteger(orientation, "groupOrientation");
            f.defaults->setBool(tablet, "tabletMode");
            f.defaults->setInteger(hand, "tabletHandedness");
            QTest::mouseMove(f.view.get(), QPoint(1, 1));
            QTest::mouseMove(f.view.get(), f.centreOf("Epsilon"));
            const QRectF cell =
                f.view->rectOfApp(f.app("Epsilon")).translated(f.view->mapTo(&f.panel, QPoint()));
            const QRectF label = f.overlay->labelRect(QSizeF(60, 18));
            const QString actual = f.overlay->selectedApp() != f.app("Epsilon")  ? "no app"
                                   : !f.overlay->rect().contains(label.toRect()) ? "outside"
                                   : label.intersects(cell)                      ? "over the cell"
                                   : label.top() >= cell.bottom()                ? "below"
                                   : label.bottom() <= cell.top()                ? "above"
                                   : label.left() >= cell.right()                ? "right"
                                                                                 : "left";
            QCOMPARE(std::tuple(orientation, tablet, hand, actual),
                     std::tuple(orientation, tablet, hand, side));
        }
    }

    // The typed text is composed pixel by pixel; it must look as the text drawn over three shadow
    // copies offset right and down, at any pixel density and in either colour.
    void theFilterTextLooksAsDrawnOverItsShadowCopies()
    {
        QFont font;
        font.setPixelSize(72);
        const QSizeF box(150, 96);
        for (const qreal ratio : {1.0, 2.0}) {
            for (const QColor& colour : {QColor(Qt::white), QColor(Qt::black)}) {
                const QColor shadow(colour == Qt::white ? QColor(0, 0, 0, 90) : QColor(255, 255, 255, 90));
                FilterTextImage composed;
                const QImage image = composed.image("Wq", {font, colour, shadow}, box, ratio);
                QImage expected(image.size(), QImage::Format_ARGB32_Premultiplied);
                expected.setDevicePixelRatio(ratio);
                expected.fill(Qt::transparent);
                QPainter painter(&expected);
                painter.setFont(font);
                for (const auto& [offset, pen] : {std::pair{QPointF(2, 2), shadow},
                                                  {QPointF(3, 3), shadow},
                                                  {QPointF(1, 3), shadow},
                                                  {QPointF(0, 0), colour}}) {
                    painter.setPen(pen);
                    painter.drawText(QRectF(offset, box), Qt::AlignCenter, "Wq");
                }
                painter.end();
                int worst = 0;
                for (int y = 0; y < image.height(); ++y)
                    for (int x = 0; x < image.width(); ++x)
                        for (const int shift : {0, 8, 16, 24})
                            worst = std::max(worst, std::abs(int(image.pixel(x, y) >> shift & 0xff) -
                                                             int(expected.pixel(x, y) >> shift & 0xff)));
                QVERIFY2(
                    worst <= 2,
                    qPrintable(QString("ratio %1 %2: off by %3").arg(ratio).arg(colour.name()).arg(worst)));
            }
        }
    }
};

QTEST_MAIN(TestOverlayView)
#include "tst_overlayview.moc"
