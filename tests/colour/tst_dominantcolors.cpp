// The colour table, spectrum and dominant colours: alpha weighting and its truncation, the
// order of the histogram, grey versus coloured at the threshold, and the merge and drop rules.
#include "colourtesthelpers.h"

#include "colour/colorconversions.h"
#include "colour/colorhistogram.h"
#include "colour/gammatables.h"
#include "colour/huebins.h"

#include <atomic>
#include <cmath>
#include <cstring>
#include <thread>

namespace {
SpectrumColor bin(double l, double u, double v, quint64 count)
{
    SpectrumColor c;
    c.luv = {l, u, v, 1.0};
    c.count = count;
    SetSpectrumColorPolarValues(&c);
    return c;
}

// The dominant colours of hand-made bins, each as "count L* u*" with every digit.
QStringList found(const std::vector<SpectrumColor>& bins, quint64 count = 6, double minSaturation = 0.14)
{
    QStringList colours;
    const auto dominant = DominantColorsFromSpectrum(bins, count, minSaturation, 50.0);
    for (const SpectrumColor& c : *dominant)
        colours
            << QStringLiteral("%1 %2 %3").arg(c.count).arg(c.luv.c1, 0, 'g', 17).arg(c.luv.c2, 0, 'g', 17);
    return colours;
}
} // namespace

class TestDominantColors : public QObject
{
    Q_OBJECT
private slots:
    void alphaWeightsAndTruncates()
    {
        // Each pixel weighs its alpha byte; the sums are divided by 255: 300 / 255 counts 1. (That
        // 200 / 255 counts 0 and transparent pixels are skipped, the colour state test's faint and
        // clear icons show.)
        const QImage faint = filledBitmap(3, 1, 40, 20, 10, 100);
        QCOMPARE(ColorHistogramFromBitmap(HVBitmapRep::fromImage(faint))->at(0).count, quint64(1));
        // Without alpha every pixel counts 1.
        QImage opaque(3, 2, QImage::Format_RGB888);
        opaque.fill(QColor(1, 2, 3));
        QCOMPARE(ColorHistogramFromBitmap(HVBitmapRep::fromImage(opaque))->at(0).count, quint64(6));
    }

    void histogramFollowsBucketsAndChains()
    {
        // (10, 20, 30) and (0, 174, 138) share bucket 36884; (1, 0, 0) hashes lower.
        QCOMPARE(ColorHashTable::bucketOf(10, 20, 30), 36884);
        QCOMPARE(ColorHashTable::bucketOf(0, 174, 138), 36884);
        QVERIFY(ColorHashTable::bucketOf(1, 0, 0) < 36884);
        QImage image = filledBitmap(2, 2, 10, 20, 30);
        setPixelBytes(&image, 0, 1, 0, 174, 138); // visited second: columns outer, rows inner
        setPixelBytes(&image, 1, 0, 1, 0, 0);
        setPixelBytes(&image, 1, 1, 10, 20, 30);
        const auto rows = ColorHistogramFromBitmap(HVBitmapRep::fromImage(image));
        QStringList order;
        for (const ColorCount& r : *rows)
            order << QString::asprintf("%d %d %d x%llu", r.red, r.green, r.blue, qulonglong(r.count));
        QCOMPARE(order, (QStringList{"1 0 0 x1", "0 174 138 x1", "10 20 30 x2"})); // the newer colour first
    }

    void greyAndDeepBitmaps()
    {
        QImage grey(3, 1, QImage::Format_Grayscale8);
        grey.scanLine(0)[0] = 90, grey.scanLine(0)[1] = 7, grey.scanLine(0)[2] = 90;
        const auto rows = ColorHistogramFromBitmap(HVBitmapRep::fromImage(grey));
        QCOMPARE(rows->size(), size_t(2));
        QCOMPARE((QList<int>{rows->at(0).red, rows->at(0).green, rows->at(0).blue}), (QList<int>{7, 7, 7}));
        QCOMPARE(rows->at(1).count, quint64(2));

        // 16-bit samples are read by their first byte, the low byte on this machine.
        QImage deep(1, 1, QImage::Format_RGBA64);
        quint16* p = reinterpret_cast<quint16*>(deep.scanLine(0));
        p[0] = 0x1234, p[1] = 0x5678, p[2] = 0x9abc, p[3] = 0xffff;
        const auto deepRows = ColorHistogramFromBitmap(HVBitmapRep::fromImage(deep));
        const int firstByte = reinterpret_cast<const uchar*>(p)[0];
        QCOMPARE(int(deepRows->at(0).red), firstByte);
        QCOMPARE(deepRows->at(0).count, quint64(1)); // alpha byte 0xff
    }

    void greyTestAtTheThreshold()
    {
        // Just below the grey limit: grey; just above it: coloured, even for a colour that
        // looks grey. Dark colours need far more chroma than light ones.
        const struct
        {
            uchar r, g, b;
            int bin;
        } cases[] = {{129, 129, 128, 360},
                     {148, 147, 147, 12},
                     {248, 248, 248, 22},
                     {40, 0, 0, 360},
                     // Hues round to the nearest degree, and 359.62 wraps round to bin 0 with 0.26;
                     // 0.65 goes to bin 1.
                     {150, 12, 66, 0},
                     {150, 21, 66, 0},
                     {150, 0, 63, 1}};
        for (const auto& c : cases) {
            const auto spectrum =
                HVBitmapRep::fromImage(filledBitmap(2, 2, c.r, c.g, c.b)).createColorSpectrum();
            QList<int> filled;
            for (size_t i = 0; i < spectrum.size(); ++i)
                if (spectrum[i].count != 0)
                    filled << int(i);
            QCOMPARE(filled, QList<int>{c.bin});
        }
    }

    void weightlessColoursRankWithTheEmptyBins()
    {
        // Bins are ranked by the difference of their weights truncated to an integer, and equal
        // bins keep their places. Black weighs 0, so the grey bin stays behind all the empty
        // bins, and the copy of the strongest bins stops at the first empty one: an icon of
        // black alone has no colours at all (although a black colour would sort as the darkest
        // grey), and black beside a colour is lost however much of the icon it covers.
        const auto black = HVBitmapRep::fromImage(filledBitmap(8, 8, 0, 0, 0))
                               .createDominantColorsWithCount(6, 0.14, 0.02, 50.0);
        QVERIFY(black && black->empty());
        QImage half = filledBitmap(8, 8, 0, 0, 0);
        for (int y = 0; y < 4; ++y)
            for (int x = 0; x < 8; ++x)
                setPixelBytes(&half, x, y, 230, 20, 20);
        const auto red = HVBitmapRep::fromImage(half).createDominantColorsWithCount(6, 0.14, 0.02, 50.0);
        QCOMPARE(red->size(), size_t(1));
        QCOMPARE(red->at(0).count, quint64(32));
    }

    void spectrumMeansWeighByCount()
    {
        // Samples decode by the pure 2.2 power law, not the piecewise sRGB curve.
        QImage image = filledBitmap(4, 1, 200, 0, 0);
        setPixelBytes(&image, 3, 0, 190, 0, 0);
        const SpectrumColor red = HVBitmapRep::fromImage(image).createColorSpectrum()[12];
        const auto lightness = [](int r) {
            return Luv_From_XYZ(XYZ_From_LinearRGB({std::pow(r / 255.0, 2.2), 0.0, 0.0, 1.0})).c1;
        };
        QCOMPARE(red.count, quint64(4));
        QCOMPARE_EXACT(red.luv.c1, (lightness(190) + 3.0 * lightness(200)) / 4.0);
    }

    void mergeDropAndCount()
    {
        // Equal hue and chroma, different lightness: the same colour to the merge.
        QCOMPARE(found({bin(20.0, 60.0, 10.0, 300), bin(80.0, 60.0, 10.0, 100)}), QStringList{"400 35 60"});
        // A grey bin and a coloured bin never merge, however close.
        QCOMPARE(found({bin(50.0, 14.5, 0.0, 100), bin(50.0, 13.5, 0.0, 100)}),
                 (QStringList{"100 50 14.5", "100 50 13.5"}));
        // Greys merge whatever their hue and become hue 0, saturation 0.
        const auto grey = DominantColorsFromSpectrum(
            {bin(90.0, 5.0, 5.0, 100), bin(10.0, -5.0, 0.0, 300), bin(50.0, 0.0, 0.0, 100)}, 6, 0.14, 50.0);
        QCOMPARE(grey->size(), size_t(1));
        QCOMPARE(grey->at(0).count, quint64(500));
        QCOMPARE_EXACT(grey->at(0).saturation + grey->at(0).hue + grey->at(0).luv.c2, 0.0);
        QCOMPARE_EXACT(grey->at(0).luminosity, 0.34);

        // Exactly 0.5 % in single precision is 0.004999999888, below 0.005: the colour is dropped,
        // though it is the only one.
        QCOMPARE(found({bin(50.0, 0.0, 0.0, 995), bin(50.0, 80.0, 0.0, 5)}), QStringList{"995 50 0"});
        QCOMPARE(found({bin(50.0, 0.0, 0.0, 994), bin(50.0, 80.0, 0.0, 6)}),
                 (QStringList{"994 50 0", "6 50 80"}));

        // The minimum saturation is a float: 0.14f is 0.14000000059604645, so a saturation of 0.14
        // is below it and both bins merge as greys, whatever their hues; at exactly 0.14 both are
        // coloured, and being close they merge as colours.
        const std::vector<SpectrumColor> bins{bin(50.0, 14.0, 0.0, 100), bin(50.0, 0.0, 14.0, 100)};
        QCOMPARE(found(bins, 6, double(0.14f)), QStringList{"200 50 0"});
        QCOMPARE(found(bins, 6, 0.14), QStringList{"200 50 7"});

        // (The minimum luminosity changes nothing found, as the colour state test shows.)
        const std::vector<SpectrumColor> three{bin(50.0, 80.0, 0.0, 100), bin(50.0, -80.0, 0.0, 100),
                                               bin(50.0, 0.0, 80.0, 100), SpectrumColor(), SpectrumColor()};
        QCOMPARE(found(three).size(), 3); // Nimbo always asks for 6
    }

    void greyOrNotIsDecidedWhenATurnBegins()
    {
        // The first bin is coloured when its turn begins; merging a close colour brings its
        // saturation below the minimum, yet it still does not merge with the grey that follows.
        std::vector<SpectrumColor> bins{bin(50.0, 20.0, 0.0, 1000), bin(50.0, -15.0, 0.0, 1000),
                                        bin(50.0, 5.0, 0.0, 10)};
        QCOMPARE(MergeSpectrumBins(bins, 0.14, 50.0), quint32(2010));
        QCOMPARE(bins[0].count, quint64(2000));
        QVERIFY(bins[0].saturation < 0.14);
        QCOMPARE(bins[1].count, quint64(0));
        QCOMPARE(bins[2].count, quint64(10));
    }

    void analysesOnSeveralThreadsAgree()
    {
        // Loading threads analyse icons while the main thread does too, and the gamma table is
        // rebuilt meanwhile for another gamma: each analysis must still decode through a whole
        // table of its own gamma, and each thread's reused colour table must keep analyses apart
        // and leave no colour behind.
        const auto analyse = [](const QImage& icon) {
            return *HVBitmapRep::fromImage(icon).createDominantColorsWithCount(6, 0.14, 0.02, 50.0);
        };
        // Compared whole, bit for bit (a SpectrumColor is eight 8-byte fields, without padding).
        static_assert(sizeof(SpectrumColor) == 8 * sizeof(double));
        const auto same = [](const std::vector<SpectrumColor>& a, const std::vector<SpectrumColor>& b) {
            return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(a[0])) == 0;
        };
        std::vector<QImage> icons;
        std::vector<std::vector<SpectrumColor>> expected;
        for (int k = 0; k < 4; ++k) {
            QImage icon = filledBitmap(32, 32, uchar(40 * k), 120, uchar(200 - 40 * k), 255);
            for (int y = 0; y < 32; ++y)
                for (int x = 0; x < 32; x += 3 + k)
                    setPixelBytes(&icon, x, y, uchar(x * 8), uchar(255 - y * 8), uchar(k * 60),
                                  uchar(64 + y));
            icons.push_back(icon);
            expected.push_back(analyse(icon));
        }
        std::atomic<int> mismatches = 0;
        std::vector<std::thread> threads;
        for (int t = 0; t < 4; ++t) {
            threads.emplace_back([&, t] {
                for (size_t i = 0; i < 2000; ++i) {
                    mismatches += !same(analyse(icons[(t + i) % 4]), expected[(t + i) % 4]);
                    const auto other = LinearRGB_Float_From_GammaRGB_UInt8(1.8);
                    mismatches += other->gamma != 1.8 || other->values[200] != std::pow(200 / 255.0, 1.8);
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        QCOMPARE(mismatches.load(), 0);
    }
};

QTEST_GUILESS_MAIN(TestDominantColors)
#include "tst_dominantcolors.moc"
