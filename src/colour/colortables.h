// Reference tables of the colour library: the CIE standard illuminants' white points and the
// common RGB working spaces (primaries, white point, gamma).
#pragma once

#include <array>

struct Chromaticity
{
    double x = 0.0;
    double y = 0.0;
};

struct StandardIlluminant
{
    const char* name;
    Chromaticity observer2;  // CIE 1931 2° observer
    Chromaticity observer10; // CIE 1964 10° observer
};

struct RGBPrimary
{
    double x = 0.0;
    double y = 0.0;
    double Y = 0.0; // share of the white's luminance; the three sum to 1
};

struct RGBWorkingSpace
{
    const char* name;
    RGBPrimary red;
    RGBPrimary green;
    RGBPrimary blue;
    Chromaticity white;
    double gamma; // 1.0 for ECI RGB v2, which stands for its L*-based curve
};

enum StandardIlluminantIndex {
    IlluminantA = 0,
    IlluminantB,
    IlluminantC,
    IlluminantD50,
    IlluminantD55,
    IlluminantD65,
    IlluminantD75,
    IlluminantE,
    IlluminantF1,
    IlluminantF2,
    IlluminantF3,
    IlluminantF4,
    IlluminantF5,
    IlluminantF6,
    IlluminantF7,
    IlluminantF8,
    IlluminantF9,
    IlluminantF10,
    IlluminantF11,
    IlluminantF12,
    StandardIlluminantCount
};

enum RGBWorkingSpaceIndex {
    AdobeRGB1998 = 0,
    AppleRGB,
    BestRGB,
    BetaRGB,
    BruceRGB,
    CIERGB,
    ColorMatchRGB,
    DonRGB4,
    ECIRGBv2,
    EktaSpacePS5,
    NTSCRGB,
    PALSECAMRGB,
    ProPhotoRGB,
    SMPTECRGB,
    SRGB,
    WideGamutRGB,
    RGBWorkingSpaceCount
};

extern const std::array<StandardIlluminant, StandardIlluminantCount> kStandardIlluminants;
extern const std::array<RGBWorkingSpace, RGBWorkingSpaceCount> kRGBWorkingSpaces;
