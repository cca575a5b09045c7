// A bitmap as the colour analysis sees it: a block of bytes plus its layout (size, samples per
// pixel, bits per sample and pixel, bytes per row, alpha first or last, premultiplied or not,
// grey or RGB). It describes a QImage's own bytes without copying them.
#pragma once

#include "dominantcolor.h"

#include <QByteArray>
#include <QImage>

#include <optional>
#include <vector>

struct PixelManipulationOffsets;

enum HVColorSpaceModel : qint64 {
    HVColorSpaceModelUnknown = -1,
    HVColorSpaceModelGray = 0,
    HVColorSpaceModelRGB = 1,
    HVColorSpaceModelCMYK = 2,
    HVColorSpaceModelLAB = 3,
    HVColorSpaceModelDeviceN = 4,
    HVColorSpaceModelIndexed = 5,
};

// Bits of `bitmapFormat`.
enum HVBitmapFormat : quint64 {
    HVBitmapFormatAlphaFirst = 1,
    HVBitmapFormatAlphaNonpremultiplied = 2,
    HVBitmapFormatFloatingPointSamples = 4,
};

struct HVBitmapLayout
{
    qint64 pixelsWide = 0;
    qint64 pixelsHigh = 0;
    qint64 bitsPerSample = 0;
    qint64 samplesPerPixel = 0;
    qint64 bytesPerRow = 0;
    qint64 bitsPerPixel = 0;
    bool hasAlpha = false;
    bool isOpaque = false;
    quint64 bitmapFormat = 0;
    qint64 colorSpaceModel = HVColorSpaceModelUnknown;
};

class HVBitmapRep
{
public:
    HVBitmapRep() = default;

    // Describes the image's bytes. Formats whose bytes are grey or R, G, B (and alpha) in this
    // order get a grey or RGB model; any other format's model is unknown.
    static HVBitmapRep fromImage(const QImage& image);

    bool isNull() const { return m_layout.pixelsWide <= 0 || m_layout.pixelsHigh <= 0 || dataSize() == 0; }
    const HVBitmapLayout& layout() const { return m_layout; }
    qint64 pixelsWide() const { return m_layout.pixelsWide; }
    qint64 pixelsHigh() const { return m_layout.pixelsHigh; }
    const uchar* bitmapData() const;
    qint64 dataSize() const;
    QImage image() const { return m_image; }

    // The layout record for reading pixels; imageGamma is clamped into [1/3, 1.0].
    bool initializePixelManipulationOffsets(PixelManipulationOffsets* offsets, double imageGamma) const;
    PixelManipulationOffsets pixelManipulationOffsetsWithImageGamma(double imageGamma) const;

    // Maps every red, green and blue byte through the 8-bit gamma table pair: remove decodes to
    // linear, add encodes. Alpha is untouched. False for a bitmap that is not 8-bit RGB.
    bool removeGammaRGB888(double gamma);
    bool addGammaRGB888(double gamma);

    // The 361-bin hue spectrum of the bitmap's colours; empty on failure (messages on standard error).
    std::vector<SpectrumColor> createColorSpectrum() const;
    // The strongest few merged spectrum bins, strongest first; no value on failure. minLuminosity
    // is accepted and has no effect.
    std::optional<std::vector<SpectrumColor>> createDominantColorsWithCount(quint64 count,
                                                                            double minSaturation,
                                                                            double minLuminosity,
                                                                            double deltaE) const;

private:
    bool mapRGB888(bool remove, double gamma);
    uchar* mutableBitmapData();

    HVBitmapLayout m_layout;
    QImage m_image; // the described image
};
