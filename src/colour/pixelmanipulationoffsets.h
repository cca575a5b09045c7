// Where each pixel's red, green, blue, grey and alpha bytes lie in a bitmap, for every layout
// the colour analysis accepts. A pixel at (x, y) starts at bitmapData + y * bytesPerRow +
// x * bytesPerPixel; its samples lie at the offsets from there. 16-bit samples are read by their
// first byte.
#pragma once

#include "hvbitmaprep.h"

#include <QColorSpace>

struct PixelManipulationOffsets
{
    HVBitmapRep rep; // a shared copy of the bitmap
    bool valid = false;
    qint64 pixelsWide = 0;
    qint64 pixelsHigh = 0;
    qint64 bitsPerSample = 0;
    qint64 samplesPerPixel = 0;
    qint64 bytesPerRow = 0;
    qint64 bitsPerPixel = 0;
    qint64 bytesPerPixel = 0;
    bool isOpaque = false;
    bool hasAlpha = false;
    quint64 bitmapFormat = 0;
    bool alphaPremultiplied = false;
    QColorSpace colorSpace;
    qint64 colorSpaceModel = 0;
    double imageGamma = 0.0;
    qint64 redOffset = 0;
    qint64 greenOffset = 0;
    qint64 blueOffset = 0;
    qint64 grayOffset = 0;
    qint64 alphaOffset = 0;
    const uchar* bitmapData = nullptr;
};
