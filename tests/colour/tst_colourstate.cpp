// An application record's colour state: every branch of the colour sort value, the layout of
// the display list, re-analysis versus re-pick when parameters change, and the spectrum drawn in
// place of the icon.
#include "colourtesthelpers.h"

#include "colour/colorconversions.h"
#include "colour/hvcolourstate.h"

namespace {
// A colour as the analysis stores it. Counts are unique so that entries can be told apart.
SpectrumColor colour(double hue, double saturation, double luminosity, quint64 count)
{
    const double radians = hue * M_PI / 180.0, chroma = saturation * 100.0;
    const ColorQuad luv{luminosity * 100.0, chroma * std::cos(radians), chroma * std::sin(radians), 1.0};
    return {luv, count, hue, saturation, luminosity};
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
    void colorSortValue()
    {
        // Each case: its name, the colours and parameters, the value; a display list exists
        // exactly when the value is not 10.0.
        const auto check = [](const char* tag, std::vector<SpectrumColor> colours, IconParameters params,
                              double value) {
            const HVColourState state = picked(std::move(colours), params);
            const auto named = [tag](double v, bool listed) {
                return QString(tag) + ": " + QString::number(v, 'g', 17) + (listed ? ", listed" : "");
            };
            QCOMPARE(named(state.colorSortValue(), !state.sortedColors().isEmpty()),
                     named(value, value != 10.0));
        };
        // Coloured icons by their primary's hue, turned by the wrap hue. The primary is the
        // strongest coloured colour; on equal weights the earlier one.
        check("wrapped", {colour(10.0, 0.8, 0.5, 100)}, {.wrapHue = 30.0f},
              10.0 / 360.0 - 30.0 / 360.0 + 1.0);
        check("at the wrap", {colour(30.0, 0.8, 0.5, 100)}, {.wrapHue = 30.0f}, 0.0);
        check("strongest", {colour(10.0, 0.2, 0.5, 100), colour(200.0, 0.9, 0.5, 100)}, {}, 200.0 / 360.0);
        check("earlier", {colour(40.0, 0.5, 0.5, 100), colour(80.0, 0.5, 0.5, 100)}, {}, 40.0 / 360.0);
        // Grey icons by lightness (white at 1 however light: the display list test's white). A
        // black colour sorts last among the greys. (An icon of black alone never yields one: its
        // weightless colour ranks behind the empty hue bins.)
        check("below black", {colour(0.0, 0.0, -0.1, 100)}, {}, 1.5);
        // Coloured pixels exactly 5 % of all, threshold 0.05: not coloured (the test is strict).
        check("5 % coloured", {colour(0.0, 0.0, 0.6, 950), colour(120.0, 0.5, 0.5, 50)}, {}, 1.2);
        check("5.1 % coloured", {colour(0.0, 0.0, 0.6, 949), colour(120.0, 0.5, 0.5, 51)}, {}, 120.0 / 360.0);
        // A colour is coloured from the minimum saturation as stored, a float: 0.14f is a little
        // more than 0.14.
        check("saturation 0.14f", {colour(100.0, double(0.14f), 0.5, 100)}, {}, 100.0 / 360.0);
        check("saturation 0.14", {colour(100.0, 0.14, 0.5, 100)}, {}, 1.25);
        // Grey icons by their secondary colour, 1 + half its hue; without one 1.75, black 2.0.
        const IconParameters bySecondary{.sortGrayBySecColor = true};
        check("no secondary", {colour(0.0, 0.0, 0.5, 100)}, bySecondary, 1.75);
        check("black, no secondary", {colour(0.0, 0.0, -0.5, 100)}, bySecondary, 2.0);
        check("secondary", {colour(0.0, 0.0, 0.5, 1000), colour(180.0, 0.5, 0.5, 40)}, bySecondary, 1.25);
        // Coloured, but not enough of it, and no grey either: 10.0 without a message.
        check("nothing", {colour(10.0, 0.5, 0.5, 100)}, {.colorFraction = 1.0f}, 10.0);
        check("no colours", {}, {}, 10.0);
        check("colours of no pixels", {colour(10.0, 0.5, 0.5, 0)}, {}, 10.0);
    }

    void nothingToSortBy()
    {
        // (A record never given an icon keeps the 10.0 it starts with: tst_iconloading's missing
        // entry.) A clear icon: the analysis fails, and is made again next time.
        HVColourState state;
        IconParameters p;
        QVERIFY(state.setColorSortParameters(p, filledBitmap(3, 3, 0, 0, 0, 0), "Clear").analyse);
        QVERIFY(!state.hclColors());
        QCOMPARE_EXACT(state.colorSortValue(), 10.0);
        QVERIFY(state.setColorSortParameters(p, filledBitmap(3, 3, 0, 0, 0, 0), "Clear").analyse);
        // Two pixels of alpha 100 count 0 pixels: an analysis that finds no colours, and is kept.
        HVColourState faint;
        faint.setColorSortParameters(p, filledBitmap(2, 1, 50, 0, 0, 100), "Faint");
        QVERIFY(faint.hclColors() && faint.hclColors()->empty());
        QCOMPARE_EXACT(faint.colorSortValue(), 10.0);
        p.wrapHue = 10.0f;
        QVERIFY(!faint.setColorSortParameters(p, filledBitmap(2, 1, 50, 0, 0, 100), "Faint").analyse);
    }

    void displayListLayouts()
    {
        const std::vector<SpectrumColor> colours{colour(10.0, 0.3, 0.5, 100), colour(0.0, 0.0, 0.5, 2000),
                                                 colour(200.0, 0.9, 0.5, 500), colour(90.0, 0.5, 0.5, 30),
                                                 colour(0.0, 0.05, 0.3, 20)};
        // Coloured: the primary twice, the others in reverse order, the first grey last.
        QCOMPARE(counts(picked(colours).sortedColors()), (QList<quint64>{500, 500, 20, 30, 100, 2000}));

        IconParameters grey{.colorFraction = 0.9f};
        // Grey by lightness: the grey twice, the others in reverse order.
        QCOMPARE(counts(picked(colours, grey).sortedColors()),
                 (QList<quint64>{2000, 2000, 20, 30, 500, 100}));
        // Grey by its secondary colour: grey, the colour, the others reversed, the grey again.
        grey.sortGrayBySecColor = true;
        const HVColourState bySecondary = picked(colours, grey);
        QCOMPARE(counts(bySecondary.sortedColors()), (QList<quint64>{2000, 500, 20, 30, 100, 2000}));
        QCOMPARE_EXACT(bySecondary.colorSortValue(), 1.0 + 0.5 * (200.0 / 360.0));

        HVColourState white; // as analysed: L* a little above 100, u* and v* not quite 0
        white.setColorSortParameters({}, filledBitmap(16, 16, 255, 255, 255), "White");
        QCOMPARE(white.sortedColors().first().hexName(), QStringLiteral("#ffffff"));
        QCOMPARE_EXACT(white.colorSortValue(), 1.0);
        const SpectrumColor red{Luv_From_XYZ(XYZ_From_LinearRGB({1.0, 0.0, 0.0, 1.0})), 3, 12.17, 1.79, 0.53};
        QCOMPARE(picked({red}).sortedColors().first().hexName(), QStringLiteral("#ff0000"));
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

        p.iconSize = 32; // stored, nothing recomputed (as when nothing changed)
        work = state.setColorSortParameters(p, icon, "App");
        QVERIFY(!work.analyse && !work.pick);
        QCOMPARE(state.colorSortParameters().iconSize, quint64(32));

        p.wrapHue = 180.0f;
        work = state.setColorSortParameters(p, QImage(filledBitmap(1, 1, 255, 0, 0)), "App");
        QVERIFY(!work.analyse && work.pick); // the stored colours are picked again, not the new icon
        QCOMPARE_EXACT(state.colorSortValue(), blue - 0.5);

        p.lightness = 0.5f; // a full analysis that yields the same colours
        work = state.setColorSortParameters(p, icon, "App");
        QVERIFY(work.analyse && work.pick);
        QCOMPARE_EXACT(state.colorSortValue(), blue - 0.5);

        // No icon: the colour data goes, whatever changed.
        state.setColorSortParameters(p, QImage(), "App");
        QCOMPARE_EXACT(state.colorSortValue(), 10.0);
        QVERIFY(!state.hclColors() && state.sortedColors().isEmpty());
        QCOMPARE(state.hclColorCount(), quint64(6));
    }

    void spectrumInPlaceOfTheIcon()
    {
        // Drawn at the icon size (what it looks like is seen in tst_iconviewdrawing); without a
        // display list the icon itself.
        const HVColourState state = picked({colour(120.0, 0.6, 0.5, 300)}, {.iconSize = 100});
        QCOMPARE(state.spectrumIcon(QImage()).size(), QSize(100, 100));
        const QImage icon = filledBitmap(4, 4, 1, 2, 3);
        QCOMPARE(HVColourState().spectrumIcon(icon), icon);
    }
};

QTEST_MAIN(TestColourState)
#include "tst_colourstate.moc"
