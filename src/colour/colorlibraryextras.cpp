#include "colorlibraryextras.h"

#include "colorconversions.h"

#include <cmath>
#include <numbers>

double LinearRGB_From_sRGB_Component(double c)
{
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double sRGB_From_LinearRGB_Component(double c)
{
    return c <= 0.0031308 ? 12.92 * c : 1.055 * std::pow(c, 1.0 / 2.4) - 0.055;
}

namespace {
double labF(double t)
{
    return t > kCIE_Epsilon ? std::cbrt(t) : (kCIE_Kappa * t + 16.0) / 116.0;
}

double degrees(double radians)
{
    return radians * 180.0 / std::numbers::pi;
}

double radians(double degrees)
{
    return degrees * std::numbers::pi / 180.0;
}

double hueDegrees(double b, double a)
{
    if (a == 0.0 && b == 0.0)
        return 0.0;
    return WrapValue(degrees(std::atan2(b, a)), 0.0, 360.0);
}
} // namespace

ColorQuad Lab_From_XYZ(ColorQuad xyz)
{
    const double fx = labF(xyz.c1 / 0.95047), fy = labF(xyz.c2 / 1.0), fz = labF(xyz.c3 / 1.08883);
    return {116.0 * fy - 16.0, 500.0 * (fx - fy), 200.0 * (fy - fz), xyz.alpha};
}

double DeltaE_2000(const ColorQuad& lab1, const ColorQuad& lab2)
{
    const double pow25to7 = std::pow(25.0, 7.0);
    const double c1 = std::hypot(lab1.c2, lab1.c3), c2 = std::hypot(lab2.c2, lab2.c3);
    const double cBar7 = std::pow((c1 + c2) / 2.0, 7.0);
    const double g = 0.5 * (1.0 - std::sqrt(cBar7 / (cBar7 + pow25to7)));
    const double a1 = (1.0 + g) * lab1.c2, a2 = (1.0 + g) * lab2.c2;
    const double cp1 = std::hypot(a1, lab1.c3), cp2 = std::hypot(a2, lab2.c3);
    const double hp1 = hueDegrees(lab1.c3, a1), hp2 = hueDegrees(lab2.c3, a2);

    double dhp = 0.0;
    if (cp1 * cp2 != 0.0) {
        dhp = hp2 - hp1;
        if (dhp > 180.0)
            dhp -= 360.0;
        else if (dhp < -180.0)
            dhp += 360.0;
    }
    const double dLp = lab2.c1 - lab1.c1, dCp = cp2 - cp1;
    const double dHp = 2.0 * std::sqrt(cp1 * cp2) * std::sin(radians(dhp / 2.0));

    const double lBar = (lab1.c1 + lab2.c1) / 2.0, cpBar = (cp1 + cp2) / 2.0;
    double hpBar = hp1 + hp2;
    if (cp1 * cp2 != 0.0) {
        if (std::fabs(hp1 - hp2) <= 180.0)
            hpBar = (hp1 + hp2) / 2.0;
        else
            hpBar = hp1 + hp2 < 360.0 ? (hp1 + hp2 + 360.0) / 2.0 : (hp1 + hp2 - 360.0) / 2.0;
    }
    const double t = 1.0 - 0.17 * std::cos(radians(hpBar - 30.0)) + 0.24 * std::cos(radians(2.0 * hpBar)) +
                     0.32 * std::cos(radians(3.0 * hpBar + 6.0)) -
                     0.20 * std::cos(radians(4.0 * hpBar - 63.0));
    const double dTheta = 30.0 * std::exp(-std::pow((hpBar - 275.0) / 25.0, 2.0));
    const double cpBar7 = std::pow(cpBar, 7.0);
    const double rc = 2.0 * std::sqrt(cpBar7 / (cpBar7 + pow25to7));
    const double l50 = (lBar - 50.0) * (lBar - 50.0);
    const double sl = 1.0 + 0.015 * l50 / std::sqrt(20.0 + l50);
    const double sc = 1.0 + 0.045 * cpBar;
    const double sh = 1.0 + 0.015 * cpBar * t;
    const double rt = -std::sin(radians(2.0 * dTheta)) * rc;
    const double l = dLp / sl, c = dCp / sc, h = dHp / sh;
    return std::sqrt(l * l + c * c + h * h + rt * c * h);
}

ColorQuad XYZ_From_Chromaticity(Chromaticity xy)
{
    if (xy.y == 0.0)
        return {0.0, 0.0, 0.0, 1.0};
    return {xy.x / xy.y, 1.0, (1.0 - xy.x - xy.y) / xy.y, 1.0};
}

double CCT_McCamy(Chromaticity xy)
{
    const double n = (xy.x - 0.3320) / (0.1858 - xy.y);
    return 449.0 * n * n * n + 3525.0 * n * n + 6823.3 * n + 5520.33;
}

double CCT_HernandezAndres(Chromaticity xy)
{
    const double n = (xy.x - 0.3366) / (xy.y - 0.1735);
    return -949.86315 + 6253.80338 * std::exp(-n / 0.92159) + 28.70599 * std::exp(-n / 0.20039) +
           0.00004 * std::exp(-n / 0.07125);
}
