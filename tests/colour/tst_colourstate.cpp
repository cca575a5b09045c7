// An application record's colour state: every branch of the colour sort value, the layout of
// the display list, re-analysis versus re-pick when parameters change, and the diagnostic images.
#include "colourtesthelpers.h"

#include "colour/colorconversions.h"
#include "colour/hvcolourstate.h"

namespace {
// A colour as the analysis stores it. Counts are unique so that entries can be told apart.
SpectrumColor colour(double hue, double saturation, double luminosity, quint64 count)
{
    SpectrumColor c;
    const double radians = hue * M_PI / 180.0;
    c.luv = {luminosity * 100.0, saturation * 100.0 * std::cos(radians),
             saturation * 100.0 * std::sin(radians), 1.0};
    c.count = count;
    c.hue = hue;
    c.saturation = saturation;
    c.luminosity = luminosity;
    return c;
}

HVColourState picked(std::vector<SpectrumColor> colours, IconParameters params = IconParameters())
{
    HVColourState state;
    state.storeColorSortParameters(params);
    state.setHclColors(std::move(colours));
    state.pickAndSortColors(QStringLiteral("Test"));
    return state;
}

QList<quint64> counts(const QList<SortedColor>& list)
{
    QList<quint64> result;
    for (const SortedColor& entry : list)
        result.append(entry.count);
    return result;
}

} // namespace

class TestColourState : public QObject
{
    Q_OBJECT
private slots:
    void colouredIconsByRotatedHue()
    {
        QCOMPARE_EXACT(picked({colour(10.0, 0.8, 0.5, 100)}).colorSortValue(), 10.0 / 360.0);
        const double wrapped = picked({colour(10.0, 0.8, 0.5, 100)}, {.wrapHue = 30.0f}).colorSortValue();
        QCOMPARE_EXACT(wrapped, 10.0 / 360.0 - 30.0 / 360.0 + 1.0);
        QVERIFY(std::fabs(wrapped - 0.94444) < 1e-5);
        QCOMPARE_EXACT(picked({colour(30.0, 0.8, 0.5, 100)}, {.wrapHue = 30.0f}).colorSortValue(), 0.0);
        // The strongest coloured colour is the primary; on equal weights the earlier one.
        QCOMPARE_EXACT(picked({colour(10.0, 0.2, 0.5, 100), colour(200.0, 0.9, 0.5, 100)}).colorSortValue(),
                       200.0 / 360.0);
        QCOMPARE_EXACT(picked({colour(40.0, 0.5, 0.5, 100), colour(80.0, 0.5, 0.5, 100)}).colorSortValue(),
                       40.0 / 360.0);
    }

    void greyIconsByLightness()
    {
        QCOMPARE_EXACT(picked({colour(0.0, 0.0, 1.0, 100)}).colorSortValue(), 1.0);
        QCOMPARE_EXACT(picked({colour(271.0, 0.0001, 1.02, 100)}).colorSortValue(), 1.0);
        // A black colour sorts last among the greys. (An icon of black alone never yields one:
        // its weightless colour ranks behind the empty hue bins and is not kept.)
        QCOMPARE_EXACT(picked({colour(0.0, 0.0, 0.0, 100)}).colorSortValue(), 1.5);
        QCOMPARE_EXACT(picked({colour(0.0, 0.0, -0.1, 100)}).colorSortValue(), 1.5);
        QCOMPARE_EXACT(picked({colour(0.0, 0.0, 0.4, 100)}).colorSortValue(), 1.3);
        // Coloured pixels exactly 5 % of all, threshold 0.05: not coloured (the test is strict).
        QCOMPARE_EXACT(picked({colour(0.0, 0.0, 0.6, 950), colour(120.0, 0.5, 0.5, 50)}).colorSortValue(),
                       1.2);
        QVERIFY(picked({colour(0.0, 0.0, 0.6, 949), colour(120.0, 0.5, 0.5, 51)}).colorSortValue() < 1.0);
    }

    void colouredFromTheStoredFloatOn()
    {
        // A colour is coloured from the minimum saturation as stored, a float: 0.14f is a little
        // more than 0.14.
        QVERIFY(picked({colour(100.0, double(0.14f), 0.5, 100)}).colorSortValue() < 1.0);
        QCOMPARE_EXACT(picked({colour(100.0, 0.14, 0.5, 100)}).colorSortValue(), 1.25);
    }

    void greyIconsBySecondaryColour()
    {
        QCOMPARE_EXACT(picked({colour(0.0, 0.0, 0.5, 100)}, {.sortGrayBySecColor = true}).colorSortValue(),
                       1.75);
        QCOMPARE_EXACT(picked({colour(0.0, 0.0, -0.5, 100)}, {.sortGrayBySecColor = true}).colorSortValue(),
                       2.0);
        QCOMPARE_EXACT(
            picked({colour(0.0, 0.0, 0.5, 1000), colour(180.0, 0.5, 0.5, 40)}, {.sortGrayBySecColor = true})
                .colorSortValue(),
            1.25);
    }

    void nothingToSortBy()
    {
        HVColourState none;
        QCOMPARE_EXACT(none.colorSortValue(), 10.0);
        QCOMPARE(none.hclColorCount(), quint64(6));

        QTest::ignoreMessage(QtWarningMsg, "No colors passed to pick & sort method for app: Test");
        QCOMPARE_EXACT(picked({}).colorSortValue(), 10.0);
        QTest::ignoreMessage(QtWarningMsg, "Zero pixel quantity for app: Test");
        const HVColourState zero = picked({colour(10.0, 0.5, 0.5, 0)});
        QCOMPARE_EXACT(zero.colorSortValue(), 10.0);
        QVERIFY(zero.sortedColors().isEmpty());
        // Coloured, but not enough of it, and no grey either: 10.0 without a message.
        const HVColourState notEnough = picked({colour(10.0, 0.5, 0.5, 100)}, {.colorFraction = 1.0f});
        QCOMPARE_EXACT(notEnough.colorSortValue(), 10.0);
        QVERIFY(notEnough.sortedColors().isEmpty());
    }

    void displayListLayouts()
    {
        const std::vector<SpectrumColor> colours{colour(10.0, 0.3, 0.5, 100), colour(0.0, 0.0, 0.5, 2000),
                                                 colour(200.0, 0.9, 0.5, 500), colour(90.0, 0.5, 0.5, 30),
                                                 colour(0.0, 0.05, 0.3, 20)};
        // Coloured: the primary twice, the others in reverse order, the first grey last.
        QCOMPARE(counts(picked(colours).sortedColors()), (QList<quint64>{500, 500, 20, 30, 100, 2000}));
        QCOMPARE(counts(picked({colour(10.0, 0.5, 0.5, 7)}).sortedColors()), (QList<quint64>{7, 7}));

        IconParameters grey{.colorFraction = 0.9f};
        // Grey by lightness: the grey twice, the others in reverse order.
        QCOMPARE(counts(picked(colours, grey).sortedColors()),
                 (QList<quint64>{2000, 2000, 20, 30, 500, 100}));
        // Grey by its secondary colour: grey, the colour, the others reversed, the grey again.
        grey.sortGrayBySecColor = true;
        const HVColourState bySecondary = picked(colours, grey);
        QCOMPARE(counts(bySecondary.sortedColors()), (QList<quint64>{2000, 500, 20, 30, 100, 2000}));
        QCOMPARE_EXACT(bySecondary.colorSortValue(), 1.0 + 0.5 * (200.0 / 360.0));

        QCOMPARE(picked({colour(0.0, 0.0, 1.0, 9)}).sortedColors().first().hexName(),
                 QStringLiteral("#ffffff"));
        QCOMPARE(picked({colour(0.0, 0.0, 0.0, 9)}).sortedColors().first().hexName(),
                 QStringLiteral("#000000"));
        SpectrumColor red;
        red.luv = Luv_From_XYZ(XYZ_From_LinearRGB({1.0, 0.0, 0.0, 1.0}));
        red.count = 3, red.saturation = 1.79, red.luminosity = 0.53, red.hue = 12.17;
        QCOMPARE(picked({red}).sortedColors().first().hexName(), QStringLiteral("#ff0000"));
        QTest::ignoreMessage(QtWarningMsg, "Colour list asked for colours 0 and 1 of 1");
        QCOMPARE(picked({red}).colorArrayForPrimaryIndex(0, 1, -1).size(), 0); // out of range
    }

    void reanalyseOrRepick()
    {
        QImage icon = filledBitmap(10, 10, 30, 120, 200);
        setPixelBytes(&icon, 0, 0, 250, 200, 10);
        HVColourState state;
        IconParameters p{.iconSize = 64};
        ColorSortWork work = state.setColorSortParameters(p, icon, "App");
        QVERIFY(work.analyse && work.pick);
        QCOMPARE(state.hclColorCount(), quint64(2));
        const double blue = state.colorSortValue();
        QVERIFY(blue > 0.5 && blue < 0.75);

        work = state.setColorSortParameters(p, icon, "App");
        QVERIFY(!work.analyse && !work.pick);
        QCOMPARE_EXACT(state.colorSortValue(), blue);

        p.iconSize = 32; // stored, nothing recomputed
        work = state.setColorSortParameters(p, icon, "App");
        QVERIFY(!work.analyse && !work.pick);
        QCOMPARE(state.colorSortParameters().iconSize, quint64(32));

        p.wrapHue = 180.0f;
        work = state.setColorSortParameters(p, QImage(filledBitmap(1, 1, 255, 0, 0)), "App");
        QVERIFY(!work.analyse && work.pick); // the stored colours are picked again, not the new icon
        QCOMPARE_EXACT(state.colorSortValue(), blue - 0.5);
        p.colorFraction = 0.5f;
        QVERIFY(!state.setColorSortParameters(p, icon, "App").analyse);
        p.sortGrayBySecColor = true;
        QVERIFY(!state.setColorSortParameters(p, icon, "App").analyse);

        p.lightness = 0.5f; // a full analysis that yields the same colours
        work = state.setColorSortParameters(p, icon, "App");
        QVERIFY(work.analyse && work.pick);
        QCOMPARE_EXACT(state.colorSortValue(), blue - 0.5);
        p.colorfulness = 0.9f;
        QVERIFY(state.setColorSortParameters(p, icon, "App").analyse);
        QCOMPARE_EXACT(state.colorSortParameters().colorfulness, 0.9f);

        // No icon: the colour data goes, whatever changed.
        state.setColorSortParameters(p, QImage(), "App");
        QCOMPARE_EXACT(state.colorSortValue(), 10.0);
        QVERIFY(!state.hclColors() && state.sortedColors().isEmpty());
        QCOMPARE(state.hclColorCount(), quint64(6));
    }

    void coloursFoundOnALoadingThread()
    {
        QImage icon = filledBitmap(10, 10, 200, 40, 90);
        setPixelBytes(&icon, 3, 3, 20, 20, 20);
        IconParameters p;
        HVColourState here, there;
        here.setColorSortParameters(p, icon, "App");
        const auto colours = HVColourState::dominantColorsOfIcon(icon, p.colorfulness, p.lightness);
        QVERIFY(there.setColorSortParameters(p, icon, "App", colours).analyse);
        QCOMPARE_EXACT(there.colorSortValue(), here.colorSortValue());
        QCOMPARE(there.sortedColors(), here.sortedColors());
        // Only an analysis that is due takes them: a new wrap hue re-sorts the colours it has.
        const quint64 found = there.hclColorCount();
        QVERIFY(found > 0);
        p.wrapHue = 90.0f;
        QVERIFY(!there.setColorSortParameters(p, icon, "App", std::vector<SpectrumColor>()).analyse);
        QCOMPARE(there.hclColorCount(), found);
    }

    void failedAndEmptyAnalyses()
    {
        HVColourState state;
        IconParameters p;
        StderrCapture quiet;
        QTest::ignoreMessage(QtWarningMsg, "No colors passed to pick & sort method for app: Clear");
        QVERIFY(state.setColorSortParameters(p, filledBitmap(3, 3, 0, 0, 0, 0), "Clear").analyse);
        QVERIFY(!state.hclColors()); // failed: analysed again next time
        QTest::ignoreMessage(QtWarningMsg, "No colors passed to pick & sort method for app: Clear");
        QVERIFY(state.setColorSortParameters(p, filledBitmap(3, 3, 0, 0, 0, 0), "Clear").analyse);
        QCOMPARE(quiet.text(),
                 QByteArray("\nzero colors specified for histogram\nzero colors specified for histogram"));

        // Two pixels of alpha 100 count 0 pixels: an analysis that finds no colours.
        HVColourState faint;
        QTest::ignoreMessage(QtWarningMsg, "No colors passed to pick & sort method for app: Faint");
        faint.setColorSortParameters(p, filledBitmap(2, 1, 50, 0, 0, 100), "Faint");
        QVERIFY(faint.hclColors() && faint.hclColors()->empty());
        p.wrapHue = 10.0f;
        QTest::ignoreMessage(QtWarningMsg, "No colors passed to pick & sort method for app: Faint");
        QVERIFY(!faint.setColorSortParameters(p, filledBitmap(2, 1, 50, 0, 0, 100), "Faint").analyse);
    }

    void diagnosticImages()
    {
        IconParameters p{.iconSize = 100};
        HVColourState state = picked({colour(120.0, 0.6, 0.5, 300), colour(0.0, 0.0, 0.9, 100)}, p);
        const QList<SortedColor> list = state.sortedColors();
        QCOMPARE(counts(list), (QList<quint64>{300, 300, 100}));

        const QImage pie = state.spectrumIcon(QImage());
        QCOMPARE(pie.size(), QSize(100, 100));
        QCOMPARE(pie.pixelColor(50, 3).rgb(), list.at(0).color().rgb());  // the ring
        QCOMPARE(pie.pixelColor(50, 20).rgb(), list.at(1).color().rgb()); // the first wedge, on top
        QCOMPARE(pie.pixelColor(50, 80).rgb(), list.at(2).color().rgb()); // the rest of the pie
        QCOMPARE(pie.pixelColor(1, 1).alpha(), 0);

        const QImage bars = state.spectrumIconSquare(QImage());
        QCOMPARE(bars.pixelColor(10, 1).rgb(), list.at(0).color().rgb()); // tallest bar: full height
        QCOMPARE(bars.pixelColor(80, 10).rgb(), QColor(Qt::black).rgb()); // a third as tall
        QCOMPARE(bars.pixelColor(80, 90).rgb(), list.at(2).color().rgb());

        const QImage grid = state.spectrumTestIcon(QImage());
        QCOMPARE(grid.pixelColor(0, 99).rgb(), QColor(Qt::black).rgb()); // L* 0 at the bottom
        QVERIFY(grid.pixelColor(0, 0).lightness() > 240);                // L* 99, no chroma, on top

        const QImage icon = filledBitmap(4, 4, 1, 2, 3);
        p.iconSize = 0;
        state.storeColorSortParameters(p);
        QCOMPARE(state.spectrumIcon(icon), icon);
        QCOMPARE(state.spectrumIconSquare(icon), icon);
        QCOMPARE(HVColourState().spectrumIcon(icon), icon); // no display list
    }
};

QTEST_MAIN(TestColourState)
#include "tst_colourstate.moc"
