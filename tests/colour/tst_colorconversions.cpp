// The colour library as the icon analysis uses it: fixed points of the conversions, the gamma
// tables and wrapping. (Its members no path of Nimbo calls, the reference tables, L*a*b*,
// CIEDE2000 and colour temperatures, are left untested.)
#include "colourtesthelpers.h"

#include "colour/colorconversions.h"
#include "colour/colorlibraryextras.h"
#include "colour/colortables.h"
#include "colour/gammatables.h"

#include <atomic>
#include <cmath>
#include <thread>
#include <vector>

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

        const ColorQuad white = Luv_From_XYZ({0.95047, 1.0, 1.08883, 1.0});
        QCOMPARE_EXACT(white.c1, 100.0);
        // The white point the u'n, v'n constants stand for gives u* = v* = 0 up to rounding.
        const ColorQuad d65 = XYZ_From_Chromaticity(kStandardIlluminants[IlluminantD65].observer2);
        const ColorQuad exactWhite = Luv_From_XYZ(d65);
        QVERIFY(std::fabs(exactWhite.c2) < 1e-9 && std::fabs(exactWhite.c3) < 1e-9);
        QCOMPARE_EXACT(DeltaE_uv({100.0, 0.0, 0.0, 1.0}, {0.0, 0.0, 0.0, 1.0}), 0.0);
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
    }

    void gammaTablesSurviveConcurrentRebuilds()
    {
        // Threads asking for different gammas each get a whole table for their own gamma.
        std::atomic<int> failures = 0;
        std::vector<std::thread> threads;
        for (int t = 0; t < 8; ++t) {
            threads.emplace_back([t, &failures] {
                for (int i = 0; i < 2000; ++i) {
                    const double gamma = (t + i) % 2 ? 2.2 : 1.8;
                    const auto table = LinearRGB_Float_From_GammaRGB_UInt8(gamma);
                    if (table->gamma != gamma || table->values[200] != std::pow(200 / 255.0, gamma))
                        ++failures;
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        QCOMPARE(failures.load(), 0);
    }
};

QTEST_GUILESS_MAIN(TestColorConversions)
#include "tst_colorconversions.moc"
