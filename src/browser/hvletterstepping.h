// The scroll wheel steps the one-letter filter through the alphabet.
#pragma once

#include <QString>

namespace HVLetterStepping {
// With no filter a step up gives "z" and a step down "a"; one letter moves back in the alphabet
// by the step (up turns c into b). Leaving a to z, or any other filter, gives an empty filter.
QString steppedFilter(const QString& filter, int step);
} // namespace HVLetterStepping
