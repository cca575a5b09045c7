#include "colorhistogram.h"

#include "pixelmanipulationoffsets.h"

#include <algorithm>
#include <cstdio>
#include <new>

namespace {
// Whether every sample the analysis reads lies inside the bitmap's bytes.
bool samplesInside(const PixelManipulationOffsets& o, bool gray)
{
    if (o.pixelsWide <= 0 || o.pixelsHigh <= 0)
        return true; // nothing is read
    if (o.bytesPerRow < 0 || o.bytesPerPixel < 0 || !o.bitmapData)
        return false;
    qint64 lastOffset = gray ? o.grayOffset : std::max({o.redOffset, o.greenOffset, o.blueOffset});
    if (o.hasAlpha)
        lastOffset = std::max(lastOffset, o.alphaOffset);
    const qint64 lastByte =
        (o.pixelsHigh - 1) * o.bytesPerRow + (o.pixelsWide - 1) * o.bytesPerPixel + lastOffset;
    return lastByte < o.rep.dataSize();
}
} // namespace

void ColorHashTable::addPixel(int bucket, std::uint8_t r, std::uint8_t g, std::uint8_t b, quint64 weight)
{
    for (std::uint32_t i = m_heads[bucket]; i != 0;) {
        Row& row = m_rows[i - 1];
        if (row.red == r && row.green == g && row.blue == b) {
            row.count += weight;
            return;
        }
        i = row.next;
    }
    m_rows.push_back(Row{r, g, b, 255, m_heads[bucket], weight});
    m_heads[bucket] = std::uint32_t(m_rows.size());
    ++m_distinctColors;
}

template<bool Gray, bool HasAlpha>
void ColorHashTable::countPixels(const PixelManipulationOffsets& o)
{
    for (qint64 x = 0; x < o.pixelsWide; ++x) {
        const uchar* column = o.bitmapData + x * o.bytesPerPixel;
        for (qint64 y = 0; y < o.pixelsHigh; ++y) {
            const uchar* pixel = column + y * o.bytesPerRow;
            quint64 weight = 1;
            if constexpr (HasAlpha) {
                weight = pixel[o.alphaOffset];
                if (weight == 0)
                    continue;
            }
            if constexpr (Gray) {
                const std::uint8_t gray = pixel[o.grayOffset];
                addPixel(gray, gray, gray, gray, weight);
            } else {
                const std::uint8_t r = pixel[o.redOffset], g = pixel[o.greenOffset], b = pixel[o.blueOffset];
                addPixel(bucketOf(r, g, b), r, g, b, weight);
            }
        }
    }
}

bool ColorHashTable::build(const HVBitmapRep& bitmap)
{
    m_rows.clear();
    m_distinctColors = 0;
    try {
        m_heads.assign(BucketCount, 0);
    } catch (const std::bad_alloc&) {
        std::fputs("\nout of memory allocating hash table", stderr);
        return false;
    }
    const PixelManipulationOffsets o = bitmap.pixelManipulationOffsetsWithImageGamma(1.0 / 2.2);
    const bool gray = o.samplesPerPixel != 3 && o.samplesPerPixel != 4;
    if (!o.valid || !samplesInside(o, gray)) {
        m_heads = {};
        return false;
    }
    try {
        m_rows.reserve(size_t(std::min<qint64>(o.pixelsWide * o.pixelsHigh, 1 << 16)));
        if (gray)
            o.hasAlpha ? countPixels<true, true>(o) : countPixels<true, false>(o);
        else
            o.hasAlpha ? countPixels<false, true>(o) : countPixels<false, false>(o);
    } catch (const std::bad_alloc&) {
        std::fputs("\nout of memory computing hash table", stderr);
        m_heads = {};
        m_rows = {};
        m_distinctColors = 0;
        return false;
    }
    if (o.hasAlpha) {
        // Counts in units of fully opaque pixels; a colour whose alpha adds up to less than 255 counts 0.
        for (Row& row : m_rows)
            row.count /= 255;
    }
    return true;
}

std::optional<std::vector<ColorCount>> ColorHashTable::flatten()
{
    if (m_distinctColors < 1) {
        std::fputs("\nzero colors specified for histogram", stderr);
        m_heads = {};
        return std::nullopt;
    }
    std::vector<ColorCount> histogram;
    try {
        histogram.reserve(size_t(m_distinctColors));
    } catch (const std::bad_alloc&) {
        std::fputs("\nout of memory generating histogram", stderr);
        return std::nullopt;
    }
    for (std::uint32_t head : m_heads) {
        for (std::uint32_t i = head; i != 0; i = m_rows[i - 1].next) {
            const Row& row = m_rows[i - 1];
            histogram.push_back(ColorCount{row.red, row.green, row.blue, row.alpha, row.count});
        }
    }
    m_heads = {};
    m_rows = {};
    m_distinctColors = 0;
    return histogram;
}

std::optional<std::vector<ColorCount>> ColorHistogramFromBitmap(const HVBitmapRep& bitmap)
{
    ColorHashTable table;
    if (!table.build(bitmap))
        return std::nullopt;
    return table.flatten();
}
