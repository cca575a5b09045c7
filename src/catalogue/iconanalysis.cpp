#include "iconanalysis.h"

#include "colour/hvcolourstate.h"
#include "colour/imageextras.h"

namespace IconAnalysisWork {

IconAnalysis analyse(const QImage& icon, float colorfulness, float lightness)
{
    IconAnalysis analysis;
    analysis.colorfulness = colorfulness;
    analysis.lightness = lightness;
    if (icon.isNull())
        return analysis;
    const HVBitmapRep bitmap = HVImageExtras::bitmapImageRep(icon);
    analysis.colors = bitmap.createDominantColorsWithCount(HVColourState::RequestedColorCount, colorfulness,
                                                           lightness, HVColourState::MergeDeltaE);
    return analysis;
}

bool matches(const IconAnalysis& analysis, float colorfulness, float lightness)
{
    // The record compares its parameters exactly, so the analysis must have used the same floats.
    return analysis.colorfulness == colorfulness && analysis.lightness == lightness;
}

} // namespace IconAnalysisWork
