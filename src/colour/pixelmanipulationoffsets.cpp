#include "pixelmanipulationoffsets.h"

namespace {
// Offsets as sample indexes, before scaling to bytes.
struct SampleOffsets
{
    qint64 red = 0, green = 0, blue = 0, gray = 0, alpha = 0;
};

bool sampleOffsets(qint64 samplesPerPixel, bool alphaFirst, qint64 bytesPerPixel, SampleOffsets* o)
{
    switch (samplesPerPixel) {
    case 1:
        o->gray = 0;
        return true;
    case 2:
        o->gray = alphaFirst ? 1 : 0;
        o->alpha = alphaFirst ? 0 : 1;
        return true;
    case 3:
        o->red = 0, o->green = 1, o->blue = 2;
        o->alpha = bytesPerPixel == 4 ? 3 : 0; // never read: such bitmaps have no alpha
        return true;
    case 4:
        if (alphaFirst)
            o->alpha = 0, o->red = 1, o->green = 2, o->blue = 3;
        else
            o->red = 0, o->green = 1, o->blue = 2, o->alpha = 3;
        return true;
    default:
        return false;
    }
}
} // namespace

bool HVBitmapRep::initializePixelManipulationOffsets(PixelManipulationOffsets* offsets,
                                                     double imageGamma) const
{
    if (!offsets)
        return false;
    PixelManipulationOffsets& o = *offsets;
    o.valid = false;
    if (m_layout.colorSpaceModel != HVColorSpaceModelGray &&
        m_layout.colorSpaceModel != HVColorSpaceModelRGB) {
        o = PixelManipulationOffsets();
        return false;
    }
    o.rep = *this;
    o.colorSpace = m_image.colorSpace();
    o.colorSpaceModel = m_layout.colorSpaceModel;

    o.pixelsWide = m_layout.pixelsWide;
    o.pixelsHigh = m_layout.pixelsHigh;
    o.bitsPerSample = m_layout.bitsPerSample;
    o.samplesPerPixel = m_layout.samplesPerPixel;
    o.bytesPerRow = m_layout.bytesPerRow;
    o.bitsPerPixel = m_layout.bitsPerPixel;
    o.bytesPerPixel = m_layout.bitsPerPixel / 8;
    o.isOpaque = m_layout.isOpaque;
    o.hasAlpha = m_layout.hasAlpha;
    o.bitmapFormat = m_layout.bitmapFormat;
    o.alphaPremultiplied =
        m_layout.hasAlpha && !(m_layout.bitmapFormat & HVBitmapFormatAlphaNonpremultiplied);
    o.imageGamma = imageGamma;
    if (!(o.imageGamma >= 1.0 / 3.0))
        o.imageGamma = 1.0 / 3.0;
    if (o.imageGamma > 1.0)
        o.imageGamma = 1.0;
    o.bitmapData = bitmapData();

    SampleOffsets s;
    const bool alphaFirst = m_layout.bitmapFormat & HVBitmapFormatAlphaFirst;
    if (!sampleOffsets(m_layout.samplesPerPixel, alphaFirst, o.bytesPerPixel, &s))
        return false; // valid stays false, every offset 0
    if (m_layout.bitsPerSample > 8) {
        const qint64 bytesPerSample = (m_layout.bitsPerSample + 7) / 8;
        s.red *= bytesPerSample, s.green *= bytesPerSample, s.blue *= bytesPerSample;
        s.gray *= bytesPerSample, s.alpha *= bytesPerSample;
    }
    o.redOffset = s.red;
    o.greenOffset = s.green;
    o.blueOffset = s.blue;
    o.grayOffset = s.gray;
    o.alphaOffset = s.alpha;
    o.valid = true;
    return true;
}
