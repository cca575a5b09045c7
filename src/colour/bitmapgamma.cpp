// Whole-bitmap gamma removal and re-application through the 8-bit table pair.
#include "gammatables.h"
#include "hvbitmaprep.h"
#include "pixelmanipulationoffsets.h"

#include <QtDebug>

bool HVBitmapRep::removeGammaRGB888(double gamma)
{
    return mapRGB888(true, gamma);
}

bool HVBitmapRep::addGammaRGB888(double gamma)
{
    return mapRGB888(false, gamma);
}

bool HVBitmapRep::mapRGB888(bool remove, double gamma)
{
    const PixelManipulationOffsets o = pixelManipulationOffsetsWithImageGamma(1.0);
    if (!o.valid || o.colorSpaceModel != HVColorSpaceModelRGB || o.bitsPerSample != 8) {
        qWarning("Gamma mapping needs an 8-bit RGB bitmap");
        return false;
    }
    const auto tables = GammaRGB_UInt8_Tables(gamma);
    if (!tables)
        return false;
    const std::array<std::uint8_t, 256>& table = remove ? tables->remove : tables->add;
    const qint64 needed = (o.pixelsHigh - 1) * o.bytesPerRow + o.pixelsWide * o.bytesPerPixel;
    uchar* data = mutableBitmapData();
    if (!data || needed > dataSize())
        return false;
    for (qint64 y = 0; y < o.pixelsHigh; ++y) {
        uchar* pixel = data + y * o.bytesPerRow;
        for (qint64 x = 0; x < o.pixelsWide; ++x, pixel += o.bytesPerPixel) {
            pixel[o.redOffset] = table[pixel[o.redOffset]];
            pixel[o.greenOffset] = table[pixel[o.greenOffset]];
            pixel[o.blueOffset] = table[pixel[o.blueOffset]];
        }
    }
    return true;
}
