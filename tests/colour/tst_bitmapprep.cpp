// Bitmap preparation: the pixel layout record for every image format an icon comes in, the
// bitmap read from an icon image, and the icon drawn at a size. (Files read at a size are checked
// end to end by tst_colorsctl.)
#include "colourtesthelpers.h"

#include "colour/imageextras.h"
#include "colour/pixelmanipulationoffsets.h"

namespace {
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
        // (Layouts no image format makes, such as planar or alpha-first bytes on this machine,
        // never reach the analysis.)
        const struct
        {
            PixelManipulationOffsets offsets;
            const char* brief;
        } cases[] = {
            {offsetsOf(filledBitmap(3, 2, 1, 2, 3, 4)), "rgb 0 1 2 3 premultiplied 4 bytes 3x2"},
            {offsetsOf(QImage(2, 2, QImage::Format_RGBA8888)), "rgb 0 1 2 3 straight 4 bytes 2x2"},
            {offsetsOf(QImage(2, 2, QImage::Format_RGBA64_Premultiplied)),
             "rgb 0 2 4 6 premultiplied 8 bytes 2x2"},
            {offsetsOf(QImage(2, 2, QImage::Format_RGB888)), "rgb 0 1 2 0 opaque 3 bytes 2x2"},
            {offsetsOf(QImage(2, 2, QImage::Format_RGBX8888)), "rgb 0 1 2 3 opaque 4 bytes 2x2"},
            {offsetsOf(QImage(2, 2, QImage::Format_Grayscale8)), "grey 0 0 opaque 1 bytes 2x2"},
            // Neither grey nor RGB: the whole record is cleared, down to the bitmap it shares.
            {offsetsOf(QImage(2, 2, QImage::Format_Indexed8)), "invalid grey 0 0 opaque 0 bytes 0x0"},
        };
        for (const auto& c : cases)
            QCOMPARE(brief(c.offsets), QString(c.brief));
        QVERIFY(cases[6].offsets.rep.isNull() && !cases[6].offsets.bitmapData);
    }

    void iconsBecomeBitmaps()
    {
        // Any byte-ordered layout is analysed through the very image, whatever its size.
        const QImage icon = filledBitmap(7, 5, 10, 20, 30, 255);
        QCOMPARE(HVImageExtras::bitmapImageRep(icon).bitmapData(), icon.constBits());
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
};

QTEST_MAIN(TestBitmapPreparation)
#include "tst_bitmapprep.moc"
