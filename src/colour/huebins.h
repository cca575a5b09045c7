// The arithmetic of the spectrum's bins: means, ranking, merging and dropping. The dominant
// colours of a bitmap are DominantColorsFromSpectrum of its spectrum.
#pragma once

#include "dominantcolor.h"

#include <cstddef>
#include <optional>
#include <vector>

inline constexpr size_t SpectrumBinCount = 361; // one bin per degree of hue, then the grey bin
inline constexpr size_t SpectrumGrayBin = 360;

// An angle in radians as degrees wrapped into [0, 360).
double SpectrumHueDegrees(double radians);
// (m x old + n x new) / (m + n), with the counts as single-precision weights.
double CountWeightedMean(double oldValue, quint64 oldCount, double newValue, quint64 newCount);
// Hue, saturation (C*/100) and luminosity (L*/100) of the bin's mean colour.
void SetSpectrumColorPolarValues(SpectrumColor* bin);

// Descending weight with qsort, comparing the difference of the weights truncated to an integer:
// bins whose weights differ by less than 1 compare equal and keep no particular order.
void SortSpectrumColorsByWeight(std::vector<SpectrumColor>& bins);
// In ranked order, merges into each bin every later bin that is grey along with it (both below
// minSaturation; the merged bin becomes a grey of hue 0) or coloured along with it and closer
// than deltaE in the u*v* plane; a grey and a coloured bin never merge. Whether a bin is grey is
// decided by its saturation when its turn began. Returns the total count (a 32-bit counter).
quint32 MergeSpectrumBins(std::vector<SpectrumColor>& bins, double minSaturation, double deltaE);
// Clears every bin whose count / total, in single precision, is below 0.005.
void DropSmallSpectrumBins(std::vector<SpectrumColor>& bins, quint32 total);
// Rank, merge, drop, rank again and keep the first bins with pixels, at most `count` of them.
std::optional<std::vector<SpectrumColor>> DominantColorsFromSpectrum(std::vector<SpectrumColor> spectrum,
                                                                     quint64 count, double minSaturation,
                                                                     double deltaE);
