// The icon and colour parameters of one application record, filled from the preferences at
// each icon load.
#pragma once

#include <QtGlobal>

struct IconParameters
{
    quint64 iconSize = 0; // "maximumIconSize": icon edge, also the diagnostic images' size
    float colorFraction =
        0.05f; // "colorSortGrayThreshold": share of coloured pixels above which an icon is coloured
    bool sortGrayBySecColor =
        false;            // "colorSortGraysBySecondaryColor": order grey icons by their strongest colour
    float wrapHue = 0.0f; // "colorSortWrapHue": the hue in degrees at which the colour order starts
    float colorfulness = 0.14f; // "colorSortMinSaturation": minimum C*/100 of a coloured colour
    float lightness = 0.02f;    // "colorSortMinLuminosity": handed to the analysis, without effect there
};
