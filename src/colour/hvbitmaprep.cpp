#include "hvbitmaprep.h"

#include "pixelmanipulationoffsets.h"

#include <QSysInfo>

namespace {
HVBitmapLayout layoutOf(qint64 samplesPerPixel, qint64 bitsPerSample, bool hasAlpha, quint64 format,
                        qint64 model)
{
    HVBitmapLayout layout;
    layout.samplesPerPixel = samplesPerPixel;
    layout.bitsPerSample = bitsPerSample;
    layout.hasAlpha = hasAlpha;
    layout.isOpaque = !hasAlpha;
    layout.bitmapFormat = format;
    layout.colorSpaceModel = model;
    return layout;
}

// The layout of a QImage format, as far as its bytes are grey or R, G, B in this order.
HVBitmapLayout layoutOfFormat(QImage::Format format)
{
    constexpr quint64 NonPremultiplied = HVBitmapFormatAlphaNonpremultiplied;
    constexpr bool bigEndian = QSysInfo::ByteOrder == QSysInfo::BigEndian;
    switch (format) {
    case QImage::Format_Grayscale8:
        return layoutOf(1, 8, false, 0, HVColorSpaceModelGray);
    case QImage::Format_Grayscale16:
        return layoutOf(1, 16, false, 0, HVColorSpaceModelGray);
    case QImage::Format_RGB888:
    case QImage::Format_RGBX8888: // R, G, B and a padding byte: three samples in 32 bits
        return layoutOf(3, 8, false, 0, HVColorSpaceModelRGB);
    case QImage::Format_RGBA8888:
        return layoutOf(4, 8, true, NonPremultiplied, HVColorSpaceModelRGB);
    case QImage::Format_RGBA8888_Premultiplied:
        return layoutOf(4, 8, true, 0, HVColorSpaceModelRGB);
    case QImage::Format_RGBX64:
        return layoutOf(3, 16, false, 0, HVColorSpaceModelRGB);
    case QImage::Format_RGBA64:
        return layoutOf(4, 16, true, NonPremultiplied, HVColorSpaceModelRGB);
    case QImage::Format_RGBA64_Premultiplied:
        return layoutOf(4, 16, true, 0, HVColorSpaceModelRGB);
    case QImage::Format_ARGB32: // A, R, G, B in memory only on a big-endian machine
        if (bigEndian)
            return layoutOf(4, 8, true, HVBitmapFormatAlphaFirst | NonPremultiplied, HVColorSpaceModelRGB);
        break;
    case QImage::Format_ARGB32_Premultiplied:
        if (bigEndian)
            return layoutOf(4, 8, true, HVBitmapFormatAlphaFirst, HVColorSpaceModelRGB);
        break;
    case QImage::Format_Indexed8:
    case QImage::Format_Mono:
    case QImage::Format_MonoLSB:
        return layoutOf(1, 8, false, 0, HVColorSpaceModelIndexed);
    default:
        break;
    }
    return layoutOf(0, 0, false, 0, HVColorSpaceModelUnknown);
}
} // namespace

HVBitmapRep HVBitmapRep::fromImage(const QImage& image)
{
    HVBitmapRep rep;
    if (image.isNull())
        return rep;
    rep.m_image = image;
    rep.m_layout = layoutOfFormat(image.format());
    rep.m_layout.pixelsWide = image.width();
    rep.m_layout.pixelsHigh = image.height();
    rep.m_layout.bytesPerRow = image.bytesPerLine();
    rep.m_layout.bitsPerPixel = image.depth();
    return rep;
}

const uchar* HVBitmapRep::bitmapData() const
{
    return m_image.isNull() ? nullptr : m_image.constBits();
}

uchar* HVBitmapRep::mutableBitmapData()
{
    return m_image.isNull() ? nullptr : m_image.bits();
}

qint64 HVBitmapRep::dataSize() const
{
    return m_image.isNull() ? 0 : m_image.sizeInBytes();
}

PixelManipulationOffsets HVBitmapRep::pixelManipulationOffsetsWithImageGamma(double imageGamma) const
{
    PixelManipulationOffsets offsets;
    initializePixelManipulationOffsets(&offsets, imageGamma);
    return offsets;
}
