// Members of the colour library that the icon analysis does not use: the piecewise sRGB curve,
// L*a*b*, the CIEDE2000 difference and correlated colour temperature estimates.
#pragma once

#include "colorquad.h"
#include "colortables.h"

// The piecewise sRGB transfer of one component (0 to 1).
double LinearRGB_From_sRGB_Component(double c);
double sRGB_From_LinearRGB_Component(double c);

// XYZ (white Y = 1) to L*a*b* against the D65 white (0.95047, 1.0, 1.08883).
ColorQuad Lab_From_XYZ(ColorQuad xyz);

// The CIEDE2000 colour difference of two L*a*b* colours (kL = kC = kH = 1).
double DeltaE_2000(const ColorQuad& lab1, const ColorQuad& lab2);

// A white point of chromaticity (x, y) as XYZ with Y = 1.
ColorQuad XYZ_From_Chromaticity(Chromaticity xy);

// Correlated colour temperature in kelvin from (x, y): McCamy's cubic and the
// Hernández-Andrés exponential (meant for 3000 K to 50000 K).
double CCT_McCamy(Chromaticity xy);
double CCT_HernandezAndres(Chromaticity xy);
