// The distinct colours of a bitmap and how many pixels have each. Pixels are counted in a hash
// table of 65,536 buckets (columns outer, rows inner; each new colour pushed at the head of its
// bucket's chain), weighted by their alpha byte when the bitmap has alpha, and then flattened
// bucket by bucket into the histogram. The bucket heads are reused from one table to the next on
// a thread, and only the buckets a bitmap used are visited and cleared again.
#pragma once

#include "hvbitmaprep.h"

#include <QtGlobal>

#include <cstdint>
#include <optional>
#include <vector>

// One histogram row: a colour's bytes as stored (alpha always 255) and its pixel count.
struct ColorCount
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;
    quint64 count = 0;
};

class ColorHashTable
{
public:
    static constexpr int BucketCount = 65536;

    ColorHashTable() = default;
    ColorHashTable(const ColorHashTable&) = delete;
    ColorHashTable& operator=(const ColorHashTable&) = delete;
    ~ColorHashTable();

    // The bucket of an RGB colour.
    static int bucketOf(int r, int g, int b) { return (r * 33023 + g * 30013 + b * 27011) & 0xFFFF; }

    // Counts the bitmap's pixels. False (with a message on standard error for a lack of memory)
    // when the bitmap is not usable.
    bool build(const HVBitmapRep& bitmap);
    quint64 distinctColorCount() const { return m_distinctColors; }
    // The rows, bucket 0 first, each chain from its head; the table is empty afterwards.
    std::optional<std::vector<ColorCount>> flatten();

private:
    struct Row
    {
        std::uint8_t red, green, blue, alpha;
        std::uint32_t next; // index + 1 of the next row in the chain, 0 at its end
        quint64 count;
    };
    template<bool Gray, bool HasAlpha>
    void countPixels(const struct PixelManipulationOffsets& o);
    // Counts a pixel of this colour; returns the index + 1 of its row.
    std::uint32_t addPixel(int bucket, std::uint8_t r, std::uint8_t g, std::uint8_t b, quint64 weight);
    // Empties the used buckets and hands the heads back for the thread's next table.
    void release();

    std::vector<std::uint32_t> m_heads; // index + 1 of each bucket's newest row, 0 when empty
    std::vector<std::uint16_t> m_usedBuckets;
    std::vector<Row> m_rows;
    quint64 m_distinctColors = 0;
};

// The histogram of the bitmap's distinct colours; no value on failure (messages on standard error).
std::optional<std::vector<ColorCount>> ColorHistogramFromBitmap(const HVBitmapRep& bitmap);
