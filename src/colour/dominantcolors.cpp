// The dominant colours of a bitmap: its spectrum's bins ranked by weight, close coloured bins and
// all grey bins merged, bins under half a percent of the pixels dropped, the strongest kept.
#include "colorconversions.h"
#include "huebins.h"
#include "hvbitmaprep.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <new>

namespace {
int compareWeightsDescending(const void* a, const void* b)
{
    const double difference = SpectrumColorWeight(*static_cast<const SpectrumColor*>(b)) -
                              SpectrumColorWeight(*static_cast<const SpectrumColor*>(a));
    if (std::isnan(difference))
        return 0;
    if (difference >= double(INT_MAX))
        return INT_MAX;
    if (difference <= double(INT_MIN))
        return INT_MIN;
    return int(difference);
}

void mergeGray(SpectrumColor& into, const SpectrumColor& from)
{
    into.luv.c1 = CountWeightedMean(into.luv.c1, into.count, from.luv.c1, from.count);
    into.luv.c2 = 0.0;
    into.luv.c3 = 0.0;
    into.luv.alpha = 1.0;
    into.count += from.count;
    into.hue = 0.0;
    into.saturation = 0.0;
    into.luminosity = into.luv.c1 / 100.0;
}

void mergeColored(SpectrumColor& into, const SpectrumColor& from)
{
    into.luv.c1 = CountWeightedMean(into.luv.c1, into.count, from.luv.c1, from.count);
    into.luv.c2 = CountWeightedMean(into.luv.c2, into.count, from.luv.c2, from.count);
    into.luv.c3 = CountWeightedMean(into.luv.c3, into.count, from.luv.c3, from.count);
    into.luv.alpha = 1.0;
    into.count += from.count;
    SetSpectrumColorPolarValues(&into);
}
} // namespace

void SortSpectrumColorsByWeight(std::vector<SpectrumColor>& bins)
{
    std::qsort(bins.data(), bins.size(), sizeof(SpectrumColor), compareWeightsDescending);
}

quint32 MergeSpectrumBins(std::vector<SpectrumColor>& bins, double minSaturation, double deltaE)
{
    quint32 total = 0;
    for (size_t i = 0; i < bins.size(); ++i) {
        SpectrumColor& bin = bins[i];
        if (bin.count == 0)
            continue;
        const bool binIsGray = minSaturation > bin.saturation;
        for (size_t j = i + 1; j < bins.size(); ++j) {
            SpectrumColor& other = bins[j];
            if (other.count == 0)
                continue;
            const bool otherIsGray = minSaturation > other.saturation;
            if (binIsGray && otherIsGray) {
                mergeGray(bin, other);
                other = SpectrumColor();
            } else if (binIsGray == otherIsGray && DeltaE_uv(bin.luv, other.luv) < deltaE) {
                mergeColored(bin, other);
                other = SpectrumColor();
            }
        }
        total += quint32(bin.count);
    }
    return total;
}

void DropSmallSpectrumBins(std::vector<SpectrumColor>& bins, quint32 total)
{
    for (SpectrumColor& bin : bins) {
        if (float(bin.count) / float(total) < 0.005)
            bin = SpectrumColor();
    }
}

std::optional<std::vector<SpectrumColor>> DominantColorsFromSpectrum(std::vector<SpectrumColor> spectrum,
                                                                     quint64 count, double minSaturation,
                                                                     double deltaE)
{
    SortSpectrumColorsByWeight(spectrum);
    DropSmallSpectrumBins(spectrum, MergeSpectrumBins(spectrum, minSaturation, deltaE));
    SortSpectrumColorsByWeight(spectrum);

    const size_t n = size_t(std::min<quint64>(spectrum.size(), count));
    std::vector<SpectrumColor> colors;
    try {
        colors.reserve(n);
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
    for (size_t i = 0; i < n && spectrum[i].count != 0; ++i)
        colors.push_back(spectrum[i]);
    return colors;
}

std::optional<std::vector<SpectrumColor>> HVBitmapRep::createDominantColorsWithCount(quint64 count,
                                                                                     double minSaturation,
                                                                                     double /*minLuminosity*/,
                                                                                     double deltaE) const
{
    std::vector<SpectrumColor> spectrum = createColorSpectrum();
    if (spectrum.empty())
        return std::nullopt;
    return DominantColorsFromSpectrum(std::move(spectrum), count, minSaturation, deltaE);
}
