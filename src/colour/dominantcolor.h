// One bin of the hue spectrum, and one dominant colour of an icon: the mean L*u*v* of the
// pixels it holds, their count (in units of fully opaque pixels), and its hue, saturation and
// luminosity.
#pragma once

#include "colorquad.h"

#include <QtGlobal>

struct SpectrumColor
{
    ColorQuad luv;           // mean L*, u*, v*; alpha 1.0 (0.0 in an empty bin)
    quint64 count = 0;       // pixels in the bin
    double hue = 0.0;        // degrees in [0, 360)
    double saturation = 0.0; // C* / 100 of the mean colour; may exceed 1.0
    double luminosity = 0.0; // L* / 100
};

// count x (saturation + 0.5 x luminosity): the strength by which bins and colours are ranked.
inline double SpectrumColorWeight(const SpectrumColor& color)
{
    return double(color.count) * (color.saturation + 0.5 * color.luminosity);
}
