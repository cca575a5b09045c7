// The six preferences that shape the icon grid, and the ranges the grid accepts them in.
#pragma once

#include <QString>

class HVUserDefaults;

struct HVIconLayoutPreferences
{
    // 0: no bunching (flat lists), 1: bunches stacked (each a band of rows), 2: bunches side by
    // side (each a band of columns).
    int groupOrientation = 2;
    // 1: across then down, 2: down then across.
    int iconReadingOrder = 1;
    int maximumIconSize = 64;
    int iconPadding = 2;
    int iconSpacing = 0;
    bool minimizeEmptyCells = false;

    // The largest icon is 1 to 128 points, padding 2 to 8, spacing 0 to 8; an orientation other
    // than 0, 1 or 2 is taken as the default 2 (bunches side by side).
    HVIconLayoutPreferences clamped() const;

    // Reads the preferences "groupOrientation", "iconReadingOrder", "maximumIconSize",
    // "iconPadding", "iconSpacing" and "minimizeEmptyCells" (not clamped).
    static HVIconLayoutPreferences fromUserDefaults(const HVUserDefaults& defaults);

    friend bool operator==(const HVIconLayoutPreferences&, const HVIconLayoutPreferences&) = default;
};
