// The colour library: fixed points of the conversions, the gamma tables, wrapping, the
// reference tables and the members the icon analysis does not use.
#include "colourtesthelpers.h"

#include "colour/colorconversions.h"
#include "colour/colorlibraryextras.h"
#include "colour/colortables.h"
#include "colour/gammatables.h"

#include <array>
#include <cmath>

class TestColorConversions : public QObject
{
    Q_OBJECT
private slots:
    void blackAndWhiteAreFixedPoints()
    {
        const ColorQuad black = Luv_From_XYZ({0.0, 0.0, 0.0, 0.25});
        QCOMPARE_EXACT(black.c1, 0.0);
        QCOMPARE_EXACT(black.c2, 0.0);
        QCOMPARE_EXACT(black.c3, 0.0);
        QCOMPARE_EXACT(black.alpha, 0.25);
        const ColorQuad back = XYZ_From_Luv({0.0, 12.0, -7.0, 1.0});
        QCOMPARE_EXACT(back.c1 + back.c2 + back.c3, 0.0);

        // The white point the u'n, v'n constants stand for gives u* = v* = 0 up to rounding.
        const ColorQuad d65 = XYZ_From_Chromaticity(kStandardIlluminants[IlluminantD65].observer2);
        const ColorQuad exactWhite = Luv_From_XYZ(d65);
        QVERIFY(std::fabs(exactWhite.c2) < 1e-9 && std::fabs(exactWhite.c3) < 1e-9);
        // Yet white as the icons have it is not exactly there: u* and v* are measured against
        // the white of x 0.31271, y 0.32902, so sRGB white lies 0.0145 from black in the u*v*
        // plane rather than at 0.
        const ColorQuad srgbWhite = Luv_From_XYZ(XYZ_From_LinearRGB({1.0, 1.0, 1.0, 1.0}));
        QVERIFY(std::fabs(DeltaE_uv(srgbWhite, {0.0, 0.0, 0.0, 1.0}) - 0.0145) < 1e-4);
    }

    void sRGBRedThroughTheWholeChain()
    {
        // Values worked out independently with the same operations in the same order. (The way
        // back to RGB is checked by the colour state test: this red's display colour is #ff0000.)
        const ColorQuad xyz = XYZ_From_LinearRGB({1.0, 0.0, 0.0, 1.0});
        QCOMPARE_EXACT(xyz.c2, 0.2126729);
        const ColorQuad luv = Luv_From_XYZ(xyz);
        QCOMPARE_EXACT(luv.c1, 53.24079414130719);
        QCOMPARE_EXACT(luv.c2, 175.02221100918774);
        QCOMPARE_EXACT(luv.c3, 37.75929076540291);
        const ColorQuad lch = LChuv_From_Luv(luv);
        QCOMPARE_EXACT(lch.c2, 179.04898320194638);
        QCOMPARE_EXACT(WrapValue(lch.c3 * 180.0 / M_PI, 0.0, 360.0), 12.17439925928581);
    }

    void outOfGamutColoursAreClamped()
    {
        const ColorQuad rgb = LinearRGB_From_XYZ(XYZ_From_Luv({50.0, 200.0, -150.0, 1.0}));
        for (double c : {rgb.c1, rgb.c2, rgb.c3})
            QVERIFY(c >= 0.0 && c <= 1.0);
        // Negative X and Z are raised to 0 before the matrix.
        const ColorQuad xyz = XYZ_From_Luv({5.0, -300.0, 300.0, 1.0});
        QVERIFY(xyz.c1 >= 0.0 && xyz.c3 >= 0.0);
    }

    void wrappingWalksWholeSpans()
    {
        QCOMPARE_EXACT(WrapValue(360.0, 0.0, 360.0), 0.0);
        QCOMPARE_EXACT(WrapValue(725.0, 0.0, 360.0), 5.0);
        QCOMPARE_EXACT(WrapValue(725.0, 360.0, 0.0), 5.0);
        QCOMPARE_EXACT(WrapValue(42.0, 7.0, 7.0), 7.0);
        // A value just below low lands on high itself when the span is added, and is kept there.
        QCOMPARE_EXACT(WrapValue(-1e-15, 0.0, 360.0), 360.0);
        QCOMPARE_EXACT(WrapValue(INFINITY, 0.0, 360.0), 0.0);
        QCOMPARE_EXACT(WrapValue(1e300, 0.0, 360.0) < 360.0, 1.0);
    }

    void gammaTablesClampAndRound()
    {
        QCOMPARE_EXACT(LinearRGB_Float_From_GammaRGB_UInt8(0.5)->gamma, 1.0);
        QCOMPARE_EXACT(LinearRGB_Float_From_GammaRGB_UInt8(4.0)->gamma, 3.0);
        const auto table = LinearRGB_Float_From_GammaRGB_UInt8(2.2);
        QCOMPARE(LinearRGB_Float_From_GammaRGB_UInt8(2.2).get(), table.get()); // same gamma: no rebuild
        QCOMPARE_EXACT(table->values[255], 1.0);
        QCOMPARE_EXACT(table->values[128], std::pow(128 / 255.0, 2.2));

        // (Nothing in Nimbo maps a bitmap through the 8-bit pair: only its clamp is checked.)
        QCOMPARE_EXACT(GammaRGB_UInt8_Tables(9.0)->gamma, 3.0);
    }

    void illuminantTable()
    {
        QCOMPARE(kStandardIlluminants.size(), size_t(20));
        // The one name beyond ASCII.
        QCOMPARE(
            QString::fromUtf8(kStandardIlluminants[IlluminantD65].name),
            QString::fromUtf8("Illuminant D65 - 2° Observer, Noon Daylight, Television, sRGB Color Space"));
        const StandardIlluminant& d50 = kStandardIlluminants[IlluminantD50];
        QCOMPARE_EXACT(d50.observer2.x, 0.34567);
        QCOMPARE_EXACT(d50.observer10.y, 0.35952);
        const StandardIlluminant& d65 = kStandardIlluminants[IlluminantD65];
        QCOMPARE_EXACT(d65.observer2.y, 0.32902);
        QCOMPARE_EXACT(d65.observer10.x, 0.31382);
        const StandardIlluminant& e = kStandardIlluminants[IlluminantE];
        for (double v : {e.observer2.x, e.observer2.y, e.observer10.x, e.observer10.y})
            QCOMPARE_EXACT(v, 1.0 / 3.0);
        // Every illuminant is a plausible white: McCamy's temperature agrees with the name's CCT.
        QVERIFY(std::fabs(CCT_McCamy(kStandardIlluminants[IlluminantF11].observer2) - 4000.0) < 60.0);
        QVERIFY(std::fabs(CCT_McCamy(d65.observer2) - 6504.0) < 5.0);
        QVERIFY(std::fabs(CCT_HernandezAndres(d65.observer2) - 6504.0) < 15.0);
    }

    void workingSpacesAgreeWithTheirPrimaries()
    {
        QCOMPARE(kRGBWorkingSpaces.size(), size_t(16));
        const RGBWorkingSpace& srgb = kRGBWorkingSpaces[SRGB];
        QCOMPARE(QByteArray(srgb.name), QByteArray("sRGB"));
        QCOMPARE_EXACT(srgb.green.Y, 0.715158);
        QCOMPARE_EXACT(kRGBWorkingSpaces[ProPhotoRGB].gamma, 1.8);
        QCOMPARE_EXACT(kRGBWorkingSpaces[ECIRGBv2].gamma, 1.0);
        QCOMPARE_EXACT(kRGBWorkingSpaces[NTSCRGB].white.x, 0.31006);
        for (const RGBWorkingSpace& space : kRGBWorkingSpaces) {
            // The luminance shares sum to 1 and are what the primaries and white imply.
            QVERIFY2(std::fabs(space.red.Y + space.green.Y + space.blue.Y - 1.0) < 2e-6, space.name);
            // x/y, 1, z/y of a chromaticity: the primaries' columns weighted by their shares give the white.
            const auto column = [](double x, double y) { return std::array{x / y, 1.0, (1.0 - x - y) / y}; };
            const auto white = column(space.white.x, space.white.y);
            for (int k = 0; k < 3; ++k) {
                double residual = -white[k], scale = 0.0;
                for (const RGBPrimary& p : {space.red, space.green, space.blue}) {
                    residual += column(p.x, p.y)[k] * p.Y;
                    scale += std::fabs(column(p.x, p.y)[k]);
                }
                // The published shares have 6 decimals; a primary of tiny y magnifies that rounding.
                QVERIFY2(std::fabs(residual) < 2e-3 + 1e-6 * scale, space.name);
            }
        }
    }

    void unusedLibraryMembers()
    {
        QCOMPARE_EXACT(LinearRGB_From_sRGB_Component(0.04045), 0.04045 / 12.92);
        QVERIFY(std::fabs(sRGB_From_LinearRGB_Component(LinearRGB_From_sRGB_Component(0.5)) - 0.5) < 1e-12);
        const ColorQuad labWhite = Lab_From_XYZ({0.95047, 1.0, 1.08883, 1.0});
        QCOMPARE_EXACT(labWhite.c1, 100.0);
        QVERIFY(std::fabs(labWhite.c2) < 1e-12 && std::fabs(labWhite.c3) < 1e-12);
        // Published CIEDE2000 test pairs.
        QVERIFY(std::fabs(DeltaE_2000({50.0, 2.6772, -79.7751, 1}, {50.0, 0.0, -82.7485, 1}) - 2.0425) <
                1e-4);
        QVERIFY(std::fabs(DeltaE_2000({50.0, 0.0, 0.0, 1}, {50.0, -1.0, 2.0, 1}) - 2.3669) < 1e-4);
        QVERIFY(std::fabs(DeltaE_2000({50.0, 2.5, 0.0, 1}, {73.0, 25.0, -18.0, 1}) - 27.1492) < 1e-4);
        QCOMPARE_EXACT(DeltaE_Luv({10.0, 0.0, 0.0, 1}, {13.0, 4.0, 0.0, 1}), 5.0);
    }
};

QTEST_GUILESS_MAIN(TestColorConversions)
#include "tst_colorconversions.moc"
