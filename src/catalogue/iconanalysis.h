// The colour analysis of a freshly loaded icon, done on the loading thread so that handing the
// icon to its record costs the main thread no analysis. It is the very analysis a record makes
// when it is given a new icon, so the record ends up with the same colours either way.
#pragma once

#include "iconsource.h"

namespace IconAnalysisWork {

// The dominant colours of `icon` for these parameters (six asked for, merged within delta E 50).
IconAnalysis analyse(const QImage& icon, float colorfulness, float lightness);

// Whether `analysis` was made with these parameters, so that a record may take it as it is.
bool matches(const IconAnalysis& analysis, float colorfulness, float lightness);

} // namespace IconAnalysisWork
