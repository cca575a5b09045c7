// The 361-bin hue spectrum: every distinct colour of the bitmap, decoded with gamma 2.2 and
// converted to L*u*v*, goes into the bin of its hue (one per degree) or into the grey bin 360.
#include "colorconversions.h"
#include "colorhistogram.h"
#include "gammatables.h"
#include "huebins.h"
#include "hvbitmaprep.h"

#include <cmath>
#include <cstdio>
#include <new>
#include <numbers>

namespace {
// Dark colours need much more chroma than light ones to count as coloured: the limit is 0.99
// for black, about 0.0096 at luminosity 0.5 and slightly below 0 for white.
bool isGray(double luminosity, double saturation)
{
    const double limit = luminosity < 0.0 ? 1.0 : 0.01 / (luminosity + 0.01) - 0.01;
    return limit > saturation;
}
} // namespace

double SpectrumHueDegrees(double radians)
{
    return WrapValue(radians * 180.0 / std::numbers::pi, 0.0, 360.0);
}

double CountWeightedMean(double oldValue, quint64 oldCount, double newValue, quint64 newCount)
{
    // The weights are the counts in single precision.
    const float m = float(oldCount), n = float(newCount);
    return (m * oldValue + n * newValue) / (m + n);
}

void SetSpectrumColorPolarValues(SpectrumColor* bin)
{
    const ColorQuad lch = LChuv_From_Luv(bin->luv);
    bin->hue = SpectrumHueDegrees(lch.c3);
    bin->saturation = lch.c2 / 100.0;
    bin->luminosity = lch.c1 / 100.0;
}

std::vector<SpectrumColor> HVBitmapRep::createColorSpectrum() const
{
    const auto decode = LinearRGB_Float_From_GammaRGB_UInt8(2.2);
    if (!decode)
        return {};
    const std::optional<std::vector<ColorCount>> histogram = ColorHistogramFromBitmap(*this);
    if (!histogram)
        return {};
    if (histogram->empty()) {
        std::fputs("\nbad color spectrum parameter", stderr);
        return {};
    }
    std::vector<SpectrumColor> spectrum;
    try {
        spectrum.resize(SpectrumBinCount);
    } catch (const std::bad_alloc&) {
        std::fputs("\nout of memory making color spectrum", stderr);
        return {};
    }
    const std::array<double, 256>& linear = decode->values;
    for (const ColorCount& row : *histogram) {
        const quint64 n = row.count;
        if (n == 0)
            continue;
        const ColorQuad rgb{linear[row.red], linear[row.green], linear[row.blue], row.alpha / 255.0};
        const ColorQuad luv = Luv_From_XYZ(XYZ_From_LinearRGB(rgb));
        const ColorQuad lch = LChuv_From_Luv(luv);
        const double luminosity = lch.c1 / 100.0;
        const double saturation = lch.c2 / 100.0;
        SpectrumColor* bin = nullptr;
        if (isGray(luminosity, saturation)) {
            bin = &spectrum[SpectrumGrayBin];
            bin->luv.c1 = CountWeightedMean(bin->luv.c1, bin->count, luv.c1, n);
            bin->luv.c2 = 0.0;
            bin->luv.c3 = 0.0;
        } else {
            int k = int(std::floor(SpectrumHueDegrees(lch.c3) + 0.5));
            if (k == 360)
                k = 0;
            bin = &spectrum[size_t(k)];
            bin->luv.c1 = CountWeightedMean(bin->luv.c1, bin->count, luv.c1, n);
            bin->luv.c2 = CountWeightedMean(bin->luv.c2, bin->count, luv.c2, n);
            bin->luv.c3 = CountWeightedMean(bin->luv.c3, bin->count, luv.c3, n);
        }
        bin->luv.alpha = 1.0;
        bin->count += n;
    }
    for (SpectrumColor& bin : spectrum)
        SetSpectrumColorPolarValues(&bin);
    return spectrum;
}
