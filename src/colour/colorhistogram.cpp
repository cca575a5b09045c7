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

namespace {
// Zeroed bucket heads left by the thread's last table, if any.
thread_local std::vector<std::uint32_t> spareHeads;
} // namespace

ColorHashTable::~ColorHashTable()
{
    release();
}

void ColorHashTable::release()
{
    if (m_heads.size() == size_t(BucketCount)) {
        for (std::uint16_t bucket : m_usedBuckets)
            m_heads[bucket] = 0;
        if (spareHeads.empty())
            spareHeads = std::move(m_heads);
    }
    m_heads = {};
    m_usedBuckets = {};
    m_rows = {};
    m_distinctColors = 0;
}

std::uint32_t ColorHashTable::addPixel(int bucket, std::uint8_t r, std::uint8_t g, std::uint8_t b,
                                       quint64 weight)
{
    for (std::uint32_t i = m_heads[bucket]; i != 0;) {
        Row& row = m_rows[i - 1];
        if (row.red == r && row.green == g && row.blue == b) {
            row.count += weight;
            return i;
        }
        i = row.next;
    }
    if (m_heads[bucket] == 0)
        m_usedBuckets.push_back(std::uint16_t(bucket));
    m_rows.push_back(Row{r, g, b, 255, m_heads[bucket], weight});
    m_heads[bucket] = std::uint32_t(m_rows.size());
    ++m_distinctColors;
    return m_heads[bucket];
}

template<bool Gray, bool HasAlpha>
void ColorHashTable::countPixels(const PixelManipulationOffsets& o)
{
    // Neighbouring pixels mostly share their colour: the row of the last counted pixel is
    // taken again without a look-up.
    std::uint32_t lastColor = 0xFFFFFFFF, lastRow = 0;
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
                if (gray == lastColor) {
                    m_rows[lastRow - 1].count += weight;
                    continue;
                }
                lastRow = addPixel(gray, gray, gray, gray, weight);
                lastColor = gray;
            } else {
                const std::uint8_t r = pixel[o.redOffset], g = pixel[o.greenOffset], b = pixel[o.blueOffset];
                const std::uint32_t color = std::uint32_t(r) | std::uint32_t(g) << 8 | std::uint32_t(b) << 16;
                if (color == lastColor) {
                    m_rows[lastRow - 1].count += weight;
                    continue;
                }
                lastRow = addPixel(bucketOf(r, g, b), r, g, b, weight);
                lastColor = color;
            }
        }
    }
}

bool ColorHashTable::build(const HVBitmapRep& bitmap)
{
    release();
    try {
        if (!spareHeads.empty())
            m_heads = std::move(spareHeads);
        else
            m_heads.assign(BucketCount, 0);
    } catch (const std::bad_alloc&) {
        std::fputs("\nout of memory allocating hash table", stderr);
        return false;
    }
    const PixelManipulationOffsets o = bitmap.pixelManipulationOffsetsWithImageGamma(1.0 / 2.2);
    const bool gray = o.samplesPerPixel != 3 && o.samplesPerPixel != 4;
    if (!o.valid || !samplesInside(o, gray)) {
        release();
        return false;
    }
    try {
        const size_t expected = size_t(std::min<qint64>(o.pixelsWide * o.pixelsHigh, 1 << 16));
        m_rows.reserve(expected);
        m_usedBuckets.reserve(expected);
        if (gray)
            o.hasAlpha ? countPixels<true, true>(o) : countPixels<true, false>(o);
        else
            o.hasAlpha ? countPixels<false, true>(o) : countPixels<false, false>(o);
    } catch (const std::bad_alloc&) {
        std::fputs("\nout of memory computing hash table", stderr);
        release();
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
        release();
        return std::nullopt;
    }
    std::vector<ColorCount> histogram;
    try {
        histogram.reserve(size_t(m_distinctColors));
    } catch (const std::bad_alloc&) {
        std::fputs("\nout of memory generating histogram", stderr);
        release();
        return std::nullopt;
    }
    // Bucket 0 first: the used buckets in order, the empty ones in between hold nothing.
    std::sort(m_usedBuckets.begin(), m_usedBuckets.end());
    for (std::uint16_t bucket : m_usedBuckets) {
        for (std::uint32_t i = m_heads[bucket]; i != 0; i = m_rows[i - 1].next) {
            const Row& row = m_rows[i - 1];
            histogram.push_back(ColorCount{row.red, row.green, row.blue, row.alpha, row.count});
        }
    }
    release();
    return histogram;
}

std::optional<std::vector<ColorCount>> ColorHistogramFromBitmap(const HVBitmapRep& bitmap)
{
    ColorHashTable table;
    if (!table.build(bitmap))
        return std::nullopt;
    return table.flatten();
}
