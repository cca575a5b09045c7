// Helpers of the colour tests: exact comparison of doubles, small bitmaps made pixel by pixel or
// laid out by hand, and capturing what the colour library writes to standard error.
#pragma once

#include "colour/hvbitmaprep.h"

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QTemporaryFile>
#include <QtTest>

#include <cstdio>
#include <unistd.h>

// Compares two doubles bit for bit, showing all 17 digits on failure.
#define QCOMPARE_EXACT(actual, expected)                                                                     \
    QCOMPARE(QByteArray::number(double(actual), 'g', 17), QByteArray::number(double(expected), 'g', 17))

// A premultiplied RGBA bitmap filled with one colour (premultiplied bytes given as they are stored).
inline QImage filledBitmap(int width, int height, uchar r, uchar g, uchar b, uchar a = 255)
{
    QImage image(width, height, QImage::Format_RGBA8888_Premultiplied);
    for (int y = 0; y < height; ++y) {
        uchar* line = image.scanLine(y);
        for (int x = 0; x < width; ++x) {
            line[4 * x] = r, line[4 * x + 1] = g, line[4 * x + 2] = b, line[4 * x + 3] = a;
        }
    }
    return image;
}

// Sets the bytes of one pixel of an 8-bit RGBA bitmap.
inline void setPixelBytes(QImage* image, int x, int y, uchar r, uchar g, uchar b, uchar a = 255)
{
    uchar* p = image->scanLine(y) + 4 * x;
    p[0] = r, p[1] = g, p[2] = b, p[3] = a;
}

// An interleaved layout of `spp` samples of `bps` bits, rows without padding.
inline HVBitmapLayout layout(qint64 spp, qint64 bps, bool alpha, quint64 format = 0,
                             qint64 model = HVColorSpaceModelRGB, qint64 wide = 2, qint64 high = 2)
{
    HVBitmapLayout l;
    l.pixelsWide = wide, l.pixelsHigh = high, l.samplesPerPixel = spp, l.bitsPerSample = bps;
    l.bitsPerPixel = spp * bps, l.bytesPerRow = wide * spp * bps / 8, l.hasAlpha = alpha;
    l.bitmapFormat = format, l.colorSpaceModel = model;
    return l;
}

// Collects what is written to standard error while it lives.
class StderrCapture
{
public:
    StderrCapture()
    {
        m_file.open();
        std::fflush(stderr);
        m_saved = dup(STDERR_FILENO);
        dup2(m_file.handle(), STDERR_FILENO);
    }
    ~StderrCapture() { restore(); }
    QByteArray text()
    {
        restore();
        m_file.seek(0);
        return m_file.readAll();
    }

private:
    void restore()
    {
        if (m_saved < 0)
            return;
        std::fflush(stderr);
        dup2(m_saved, STDERR_FILENO);
        close(m_saved);
        m_saved = -1;
    }
    QTemporaryFile m_file;
    int m_saved = -1;
};
