// Helpers of the colour tests: exact comparison of doubles, and small bitmaps made pixel by pixel.
#pragma once

#include "colour/hvbitmaprep.h"

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QtTest>

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
