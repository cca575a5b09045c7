// The colour arithmetic of the icon analysis: sRGB primaries with the D65 white, decoded and
// encoded with a pure power-law gamma, and CIE 1976 L*u*v* with its polar form LCh(uv).
// Plain functions named Target_From_Source; alpha passes through unchanged.
#pragma once

#include "colorquad.h"

// u'n and v'n of the D65 white (x = 0.31271, y = 0.32902).
inline constexpr double kD65_uPrime = 0.1978294495177785;
inline constexpr double kD65_vPrime = 0.468332168241386;
inline constexpr double kCIE_Epsilon = 216.0 / 24389.0; // 0.008856451679035631
inline constexpr double kCIE_Kappa = 24389.0 / 27.0;    // 903.2962962962963

// Linear RGB (0 to 1) to XYZ with white Y = 1.
ColorQuad XYZ_From_LinearRGB(ColorQuad rgb);
// XYZ to L*u*v* against the D65 white; black gives (0, 0, 0).
ColorQuad Luv_From_XYZ(ColorQuad xyz);
// L*u*v* to (L*, C*, h) with h in radians from atan2.
ColorQuad LChuv_From_Luv(ColorQuad luv);
// (L*, C*, h in radians) to L*u*v*.
ColorQuad Luv_From_LChuv(ColorQuad lch);
// L*u*v* back to XYZ; L* <= 0 gives black; negative X and Z are raised to 0.
ColorQuad XYZ_From_Luv(ColorQuad luv);
// XYZ to linear RGB, each component clamped into [0, 1].
ColorQuad LinearRGB_From_XYZ(ColorQuad xyz);
// Encodes R, G and B in place with c^(1/gamma); alpha untouched.
void GammaRGB_From_LinearRGB(ColorQuad* rgb, double gamma);

// Distance in the u*v* plane only: two colours differing only in lightness are identical.
double DeltaE_uv(const ColorQuad& luv1, const ColorQuad& luv2);
// Full Euclidean distance in L*u*v*.
double DeltaE_Luv(const ColorQuad& luv1, const ColorQuad& luv2);

// Wraps value into [low, high) by whole spans, walking up from below low or down from high;
// low == high gives low, a value that is not finite gives low.
double WrapValue(double value, double low, double high);
