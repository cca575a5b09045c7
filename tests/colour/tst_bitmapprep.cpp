// Bitmap preparation: the pixel layout record for every accepted layout, the bitmap read from an
// icon image, the icon drawn at a size, and whole-bitmap gamma. (Files read at a size are
// checked end to end by tst_colorsctl.)
#include "colourtesthelpers.h"

#include "colour/imageextras.h"
#include "colour/pixelmanipulationoffsets.h"

namespace {
PixelManipulationOffsets offsetsOf(const HVBitmapLayout& l, double gamma = 1.0)
{
    const QByteArray bytes(l.bytesPerRow * l.pixelsHigh * (l.isPlanar ? l.samplesPerPixel : 1), '\0');
    return HVBitmapRep::withLayout(l, bytes).pixelManipulationOffsetsWithImageGamma(gamma);
}

PixelManipulationOffsets offsetsOf(const QImage& image)
{
    return HVBitmapRep::fromImage(image).pixelManipulationOffsetsWithImageGamma(1.0);
}

// A layout record in a line: the model's sample offsets (red, green, blue or grey, then alpha),
// the alpha, bytes per pixel and size.
QString brief(const PixelManipulationOffsets& o)
{
    const bool grey = o.colorSpaceModel == HVColorSpaceModelGray;
    QStringList words{o.valid ? "" : "invalid", grey ? "grey" : "rgb"};
    for (qint64 at : grey ? QList{o.grayOffset} : QList{o.redOffset, o.greenOffset, o.blueOffset})
        words << QString::number(at);
    const char* alpha = o.alphaPremultiplied ? "premultiplied" : "straight";
    words << QString::number(o.alphaOffset) << (o.hasAlpha ? alpha : "opaque");
    words << QStringLiteral("%1 bytes %2x%3").arg(o.bytesPerPixel).arg(o.pixelsWide).arg(o.pixelsHigh);
    return words.join(' ').trimmed();
}
} // namespace

class TestBitmapPreparation : public QObject
{
    Q_OBJECT
private slots:
    void layouts()
    {
        HVBitmapLayout planar = layout(4, 8, true);
        planar.isPlanar = true, planar.bitsPerPixel = 8, planar.bytesPerRow = 2;
        const struct
        {
            PixelManipulationOffsets offsets;
            const char* brief;
        } cases[] = {
            {offsetsOf(filledBitmap(3, 2, 1, 2, 3, 4)), "rgb 0 1 2 3 premultiplied 4 bytes 3x2"},
            {offsetsOf(QImage(2, 2, QImage::Format_RGBA8888)), "rgb 0 1 2 3 straight 4 bytes 2x2"},
            {offsetsOf(QImage(2, 2, QImage::Format_RGBA64_Premultiplied)),
             "rgb 0 2 4 6 premultiplied 8 bytes 2x2"},
            {offsetsOf(layout(4, 8, true, HVBitmapFormatAlphaFirst)),
             "rgb 1 2 3 0 premultiplied 4 bytes 2x2"},
            {offsetsOf(QImage(2, 2, QImage::Format_RGB888)), "rgb 0 1 2 0 opaque 3 bytes 2x2"},
            {offsetsOf(QImage(2, 2, QImage::Format_RGBX8888)), "rgb 0 1 2 3 opaque 4 bytes 2x2"},
            {offsetsOf(QImage(2, 2, QImage::Format_Grayscale8)), "grey 0 0 opaque 1 bytes 2x2"},
            {offsetsOf(layout(2, 8, true, 0, HVColorSpaceModelGray)), "grey 0 1 premultiplied 2 bytes 2x2"},
            {offsetsOf(layout(2, 8, true, HVBitmapFormatAlphaFirst, HVColorSpaceModelGray)),
             "grey 1 0 premultiplied 2 bytes 2x2"},
            // Planar: the byte distance to each 2 x 2 plane.
            {offsetsOf(planar), "rgb 0 4 8 12 premultiplied 1 bytes 2x2"},
            // Five samples are not understood: the sizes are kept, every offset stays 0.
            {offsetsOf(layout(5, 8, true)), "invalid rgb 0 0 0 0 premultiplied 5 bytes 2x2"},
        };
        for (const auto& c : cases)
            QCOMPARE(brief(c.offsets), QString(c.brief));
        QCOMPARE(cases[9].offsets.numberOfPlanes, 4);
        QCOMPARE(cases[9].offsets.planes[3] - cases[9].offsets.planes[0], 12);

        // Neither grey nor RGB: the whole record is cleared.
        const PixelManipulationOffsets cmyk = offsetsOf(layout(4, 8, false, 0, HVColorSpaceModelCMYK));
        QVERIFY(!cmyk.valid);
        QCOMPARE(cmyk.pixelsWide, 0);
        QCOMPARE(cmyk.bytesPerRow, 0);
        QCOMPARE(cmyk.samplesPerPixel, 0);
        QVERIFY(cmyk.rep.isNull() && !cmyk.bitmapData);
    }

    void imageGammaIsClamped()
    {
        QCOMPARE_EXACT(offsetsOf(layout(4, 8, true), 2.2).imageGamma, 1.0);
        QCOMPARE_EXACT(offsetsOf(layout(4, 8, true), 0.2).imageGamma, 1.0 / 3.0);
        QCOMPARE_EXACT(offsetsOf(layout(4, 8, true), 1.0 / 2.2).imageGamma, 1.0 / 2.2);
    }

    void iconsBecomeBitmaps()
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
        QVERIFY(HVImageExtras::bitmapImageRep(QImage()).isNull());

        // Drawn at a size: premultiplied RGBA, whatever the source.
        QImage source(2, 2, QImage::Format_ARGB32);
        source.fill(QColor(200, 100, 0, 128));
        const QImage same = HVImageExtras::bitmapImageRepOfSize(source, QSize(2, 2));
        QCOMPARE(same.format(), QImage::Format_RGBA8888_Premultiplied);
        const uchar* p = same.constBits();
        QCOMPARE((QList<int>{p[0], p[1], p[2], p[3]}), (QList<int>{100, 50, 0, 128}));

        const QImage large = HVImageExtras::bitmapImageRepOfSize(source, QSize(128, 128));
        QCOMPARE(large.size(), QSize(128, 128));
        QCOMPARE(int(large.constScanLine(64)[4 * 64 + 3]), 128);

        QVERIFY(HVImageExtras::bitmapImageRepOfSize(source, QSize(0, 0)).isNull());
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
