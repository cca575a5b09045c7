#include "colorconversions.h"

#include <cmath>
#include <utility>

ColorQuad XYZ_From_LinearRGB(ColorQuad rgb)
{
    const double r = rgb.c1, g = rgb.c2, b = rgb.c3;
    return {0.4124564 * r + 0.3575761 * g + 0.1804375 * b, 0.2126729 * r + 0.7151522 * g + 0.0721750 * b,
            0.0193339 * r + 0.1191920 * g + 0.9503041 * b, rgb.alpha};
}

ColorQuad Luv_From_XYZ(ColorQuad xyz)
{
    const double x = xyz.c1, y = xyz.c2, z = xyz.c3;
    if (x == 0.0 && y == 0.0 && z == 0.0)
        return {0.0, 0.0, 0.0, xyz.alpha};
    const double d = x + 15.0 * y + 3.0 * z;
    const double uPrime = 4.0 * x / d;
    const double vPrime = 9.0 * y / d;
    const double l = y > kCIE_Epsilon ? 116.0 * std::cbrt(y) - 16.0 : kCIE_Kappa * y;
    return {l, 13.0 * l * (uPrime - kD65_uPrime), 13.0 * l * (vPrime - kD65_vPrime), xyz.alpha};
}

ColorQuad LChuv_From_Luv(ColorQuad luv)
{
    return {luv.c1, std::hypot(luv.c2, luv.c3), std::atan2(luv.c3, luv.c2), luv.alpha};
}

ColorQuad Luv_From_LChuv(ColorQuad lch)
{
    return {lch.c1, lch.c2 * std::cos(lch.c3), lch.c2 * std::sin(lch.c3), lch.alpha};
}

ColorQuad XYZ_From_Luv(ColorQuad luv)
{
    const double l = luv.c1;
    if (!(l > 0.0))
        return {0.0, 0.0, 0.0, luv.alpha};
    const double uPrime = luv.c2 / (13.0 * l) + kD65_uPrime;
    const double vPrime = luv.c3 / (13.0 * l) + kD65_vPrime;
    const double y = l > 8.0 ? std::pow((l + 16.0) / 116.0, 3.0) : l / kCIE_Kappa;
    double x = y * 9.0 * uPrime / (4.0 * vPrime);
    double z = y * (12.0 - 3.0 * uPrime - 20.0 * vPrime) / (4.0 * vPrime);
    if (x < 0.0)
        x = 0.0;
    if (z < 0.0)
        z = 0.0;
    return {x, y, z, luv.alpha};
}

namespace {
double clampUnit(double c)
{
    if (c > 1.0)
        return 1.0;
    if (c < 0.0)
        return 0.0;
    return c;
}
} // namespace

ColorQuad LinearRGB_From_XYZ(ColorQuad xyz)
{
    const double x = xyz.c1, y = xyz.c2, z = xyz.c3;
    return {clampUnit(3.2404542 * x - 1.5371385 * y - 0.4985314 * z),
            clampUnit(-0.9692660 * x + 1.8760108 * y + 0.0415560 * z),
            clampUnit(0.0556434 * x - 0.2040259 * y + 1.0572252 * z), xyz.alpha};
}

void GammaRGB_From_LinearRGB(ColorQuad* rgb, double gamma)
{
    if (!rgb)
        return;
    const double exponent = 1.0 / gamma;
    rgb->c1 = std::pow(rgb->c1, exponent);
    rgb->c2 = std::pow(rgb->c2, exponent);
    rgb->c3 = std::pow(rgb->c3, exponent);
}

double DeltaE_uv(const ColorQuad& luv1, const ColorQuad& luv2)
{
    return std::hypot(luv2.c2 - luv1.c2, luv2.c3 - luv1.c3);
}

double DeltaE_Luv(const ColorQuad& luv1, const ColorQuad& luv2)
{
    const double dl = luv2.c1 - luv1.c1, du = luv2.c2 - luv1.c2, dv = luv2.c3 - luv1.c3;
    return std::sqrt(dl * dl + du * du + dv * dv);
}

double WrapValue(double value, double low, double high)
{
    if (low == high)
        return low;
    if (low > high)
        std::swap(low, high);
    if (!std::isfinite(value) || !std::isfinite(low) || !std::isfinite(high))
        return low;
    const double span = high - low;
    // Far out of range, jump close first so that the loops below stay short.
    if (std::fabs(value - low) > 1.0e6 * span)
        value = low + std::fmod(value - low, span);
    // Only one direction is walked: a value just below low can land exactly on high when the
    // span is added, and stays there.
    if (value < low) {
        while (value < low)
            value += span;
    } else {
        while (value >= high)
            value -= span;
    }
    return value;
}
