// Bitmap preparation: the pixel layout record for every accepted layout, the bitmap read from an
// icon image, the icon drawn at a size, image files that are odd or broken, and whole-bitmap gamma.
#include "colourtesthelpers.h"

#include "colour/imageextras.h"
#include "colour/pixelmanipulationoffsets.h"

#include <QBuffer>
#include <QTemporaryDir>

namespace {
HVBitmapLayout layout(qint64 spp, qint64 bps, bool alpha, quint64 format = 0,
                      qint64 model = HVColorSpaceModelRGB)
{
    HVBitmapLayout l;
    l.pixelsWide = 2, l.pixelsHigh = 2, l.samplesPerPixel = spp, l.bitsPerSample = bps;
    l.bitsPerPixel = spp * bps, l.bytesPerRow = 2 * spp * bps / 8, l.hasAlpha = alpha,
    l.bitmapFormat = format;
    l.colorSpaceModel = model;
    return l;
}

PixelManipulationOffsets offsetsOf(const HVBitmapLayout& l, double gamma = 1.0)
{
    const QByteArray bytes(l.bytesPerRow * l.pixelsHigh * (l.isPlanar ? l.samplesPerPixel : 1), '\0');
    return HVBitmapRep::withLayout(l, bytes).pixelManipulationOffsetsWithImageGamma(gamma);
}

QList<qint64> rgbaOffsets(const PixelManipulationOffsets& o)
{
    return {o.redOffset, o.greenOffset, o.blueOffset, o.alphaOffset};
}
} // namespace

class TestBitmapPreparation : public QObject
{
    Q_OBJECT
private slots:
    void rgbLayouts()
    {
        const PixelManipulationOffsets rgba = HVBitmapRep::fromImage(filledBitmap(3, 2, 1, 2, 3, 4))
                                                  .pixelManipulationOffsetsWithImageGamma(0.5);
        QVERIFY(rgba.valid);
        QCOMPARE(rgbaOffsets(rgba), (QList<qint64>{0, 1, 2, 3}));
        QVERIFY(rgba.alphaPremultiplied && rgba.hasAlpha);
        QCOMPARE(rgba.bytesPerPixel, 4);
        QCOMPARE(rgba.pixelsWide, 3);
        QCOMPARE(rgba.colorSpaceModel, HVColorSpaceModelRGB);

        QImage straight(2, 2, QImage::Format_RGBA8888);
        QVERIFY(
            !HVBitmapRep::fromImage(straight).pixelManipulationOffsetsWithImageGamma(1).alphaPremultiplied);

        QImage deep(2, 2, QImage::Format_RGBA64_Premultiplied);
        const PixelManipulationOffsets o16 =
            HVBitmapRep::fromImage(deep).pixelManipulationOffsetsWithImageGamma(1);
        QCOMPARE(rgbaOffsets(o16), (QList<qint64>{0, 2, 4, 6}));
        QCOMPARE(o16.bytesPerPixel, 8);

        const PixelManipulationOffsets argb = offsetsOf(layout(4, 8, true, HVBitmapFormatAlphaFirst));
        QCOMPARE(rgbaOffsets(argb), (QList<qint64>{1, 2, 3, 0}));

        const PixelManipulationOffsets rgb = HVBitmapRep::fromImage(QImage(2, 2, QImage::Format_RGB888))
                                                 .pixelManipulationOffsetsWithImageGamma(1);
        QCOMPARE(rgbaOffsets(rgb), (QList<qint64>{0, 1, 2, 0}));
        QVERIFY(!rgb.hasAlpha);
        const PixelManipulationOffsets rgbx = HVBitmapRep::fromImage(QImage(2, 2, QImage::Format_RGBX8888))
                                                  .pixelManipulationOffsetsWithImageGamma(1);
        QCOMPARE(rgbaOffsets(rgbx), (QList<qint64>{0, 1, 2, 3}));
    }

    void greyAndPlanarLayouts()
    {
        const PixelManipulationOffsets grey = HVBitmapRep::fromImage(QImage(2, 2, QImage::Format_Grayscale8))
                                                  .pixelManipulationOffsetsWithImageGamma(1);
        QVERIFY(grey.valid);
        QCOMPARE(grey.colorSpaceModel, HVColorSpaceModelGray);
        QCOMPARE(grey.grayOffset, 0);
        const PixelManipulationOffsets alphaLast = offsetsOf(layout(2, 8, true, 0, HVColorSpaceModelGray));
        QCOMPARE(alphaLast.grayOffset, 0);
        QCOMPARE(alphaLast.alphaOffset, 1);
        const PixelManipulationOffsets alphaFirst =
            offsetsOf(layout(2, 8, true, HVBitmapFormatAlphaFirst, HVColorSpaceModelGray));
        QCOMPARE(alphaFirst.grayOffset, 1);
        QCOMPARE(alphaFirst.alphaOffset, 0);

        HVBitmapLayout planar = layout(4, 8, true);
        planar.isPlanar = true, planar.bitsPerPixel = 8, planar.bytesPerRow = 2;
        const PixelManipulationOffsets p = offsetsOf(planar);
        QCOMPARE(rgbaOffsets(p), (QList<qint64>{0, 4, 8, 12})); // byte distance to each 2 x 2 plane
        QCOMPARE(p.numberOfPlanes, 4);
        QCOMPARE(p.planes[3] - p.planes[0], 12);
    }

    void unsupportedLayouts()
    {
        const PixelManipulationOffsets cmyk = offsetsOf(layout(4, 8, false, 0, HVColorSpaceModelCMYK));
        QVERIFY(!cmyk.valid);
        QCOMPARE(cmyk.pixelsWide, 0);
        QCOMPARE(cmyk.bytesPerRow, 0);
        QCOMPARE(cmyk.samplesPerPixel, 0);
        QVERIFY(cmyk.rep.isNull() && !cmyk.bitmapData);

        const PixelManipulationOffsets five = offsetsOf(layout(5, 8, true));
        QVERIFY(!five.valid);
        QCOMPARE(five.pixelsWide, 2); // sizes are kept, offsets stay 0
        QCOMPARE(rgbaOffsets(five), (QList<qint64>{0, 0, 0, 0}));
    }

    void imageGammaIsClamped()
    {
        QCOMPARE_EXACT(offsetsOf(layout(4, 8, true), 2.2).imageGamma, 1.0);
        QCOMPARE_EXACT(offsetsOf(layout(4, 8, true), 0.2).imageGamma, 1.0 / 3.0);
        QCOMPARE_EXACT(offsetsOf(layout(4, 8, true), 1.0 / 2.2).imageGamma, 1.0 / 2.2);
    }

    void iconBitmapIsTheImageItself()
    {
        // Any byte-ordered layout is analysed through the very image, whatever its size.
        const QImage icon = filledBitmap(7, 5, 10, 20, 30, 255);
        const HVBitmapRep rep = HVImageExtras::bitmapImageRep(icon);
        QCOMPARE(rep.bitmapData(), icon.constBits());
        QCOMPARE(rep.pixelsWide(), 7);
        // Native-endian 32-bit images are drawn into an RGBA bitmap of their own size.
        QImage argb(3, 3, QImage::Format_ARGB32_Premultiplied);
        argb.fill(QColor(255, 0, 0, 128));
        const HVBitmapRep drawn = HVImageExtras::bitmapImageRep(argb);
        QCOMPARE(drawn.image().format(), QImage::Format_RGBA8888_Premultiplied);
        QCOMPARE(int(drawn.bitmapData()[0]), int(argb.constBits()[2])); // red byte, premultiplied as stored
        QCOMPARE(int(drawn.bitmapData()[3]), 128);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Invalid image size"));
        QVERIFY(HVImageExtras::bitmapImageRep(QImage()).isNull());
    }

    void iconIsDrawnPremultipliedAtTheSize()
    {
        QImage source(2, 2, QImage::Format_ARGB32);
        source.fill(QColor(200, 100, 0, 128));
        const QImage same = HVImageExtras::bitmapImageRepOfSize(source, QSize(2, 2));
        QCOMPARE(same.format(), QImage::Format_RGBA8888_Premultiplied);
        const uchar* p = same.constBits();
        QCOMPARE((QList<int>{p[0], p[1], p[2], p[3]}), (QList<int>{100, 50, 0, 128}));

        const QImage large = HVImageExtras::bitmapImageRepOfSize(source, QSize(128, 128));
        QCOMPARE(large.size(), QSize(128, 128));
        QCOMPARE(int(large.constScanLine(64)[4 * 64 + 3]), 128);

        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("couldn't create a new bitmap image"));
        QVERIFY(HVImageExtras::bitmapImageRepOfSize(source, QSize(0, 0)).isNull());
    }

    void oddAndBrokenFiles()
    {
        QTemporaryDir dir;
        const QString huge = dir.filePath("huge.svg");
        QFile svg(huge);
        QVERIFY(svg.open(QIODevice::WriteOnly));
        svg.write(
            "<svg xmlns='http://www.w3.org/2000/svg' width='100000' height='100000' viewBox='0 0 10 10'>"
            "<rect width='10' height='10' fill='#00f'/></svg>");
        svg.close();
        QString error;
        const QImage rendered = HVImageExtras::readImage(huge, QSize(64, 64), &error);
        QCOMPARE(rendered.size(), QSize(64, 64));

        QImage grey16(4, 4, QImage::Format_Grayscale16);
        grey16.fill(QColor(90, 90, 90));
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        QVERIFY(grey16.save(&buffer, "PNG"));
        const QString truncatedPath = dir.filePath("truncated.png");
        QFile truncated(truncatedPath);
        QVERIFY(truncated.open(QIODevice::WriteOnly));
        truncated.write(png.left(png.size() / 2));
        truncated.close();
        error.clear();
        const QImage broken = HVImageExtras::readImage(truncatedPath, QSize(64, 64), &error);
        QVERIFY(broken.isNull() == !error.isEmpty());

        error.clear();
        QVERIFY(HVImageExtras::readImage(dir.filePath("missing.png"), QSize(64, 64), &error).isNull());
        QVERIFY(!error.isEmpty());
    }

    void wholeBitmapGamma()
    {
        HVBitmapRep rep = HVBitmapRep::fromImage(filledBitmap(2, 2, 128, 255, 0, 77));
        QVERIFY(rep.removeGammaRGB888(2.2));
        const uchar* p = rep.image().constBits();
        QCOMPARE((QList<int>{p[0], p[1], p[2], p[3]}), (QList<int>{56, 255, 0, 77}));
        QVERIFY(rep.addGammaRGB888(2.2));
        p = rep.image().constBits();
        QCOMPARE((QList<int>{p[12], p[13], p[14], p[15]}), (QList<int>{128, 255, 0, 77}));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("8-bit RGB"));
        HVBitmapRep grey = HVBitmapRep::fromImage(QImage(2, 2, QImage::Format_Grayscale8));
        QVERIFY(!grey.removeGammaRGB888(2.2));
    }
};

QTEST_MAIN(TestBitmapPreparation)
#include "tst_bitmapprep.moc"
