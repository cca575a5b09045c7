// Bitmap preparation: the pixel layout record of the bitmaps the analysis reads, the bitmap
// read from an icon image, and the icon drawn at a size. (Files read at a size are checked
// end to end by tst_colorsctl.)
#include "colourtesthelpers.h"

#include "colour/imageextras.h"
#include "colour/pixelmanipulationoffsets.h"

class TestBitmapPreparation : public QObject
{
    Q_OBJECT
private slots:
    void layoutOfAnalysedBitmaps()
    {
        // Icons reach the analysis drawn into premultiplied RGBA bytes, whatever their file or
        // window gave: no other layout is ever read.
        const PixelManipulationOffsets o = HVBitmapRep::fromImage(filledBitmap(3, 2, 1, 2, 3, 4))
                                               .pixelManipulationOffsetsWithImageGamma(1.0);
        QCOMPARE((QList<qint64>{o.valid, o.colorSpaceModel, o.redOffset, o.greenOffset, o.blueOffset,
                                o.alphaOffset, o.hasAlpha, o.alphaPremultiplied, o.bytesPerPixel,
                                o.pixelsWide, o.pixelsHigh}),
                 (QList<qint64>{true, HVColorSpaceModelRGB, 0, 1, 2, 3, true, true, 4, 3, 2}));
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
    }
};

QTEST_MAIN(TestBitmapPreparation)
#include "tst_bitmapprep.moc"
