#include "hviconlayoutpreferences.h"

#include "common/hvuserdefaults.h"

#include <algorithm>
#include <limits>

namespace {
int toInt(qint64 value)
{
    return int(std::clamp<qint64>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}
} // namespace

HVIconLayoutPreferences HVIconLayoutPreferences::clamped() const
{
    HVIconLayoutPreferences result = *this;
    if (groupOrientation < 0 || groupOrientation > 2)
        result.groupOrientation = 2;
    result.maximumIconSize = std::clamp(maximumIconSize, 1, 128);
    result.iconPadding = std::clamp(iconPadding, 2, 8);
    result.iconSpacing = std::clamp(iconSpacing, 0, 8);
    return result;
}

HVIconLayoutPreferences HVIconLayoutPreferences::fromUserDefaults(const HVUserDefaults& defaults)
{
    HVIconLayoutPreferences result;
    result.groupOrientation = toInt(defaults.integerForKey(QStringLiteral("groupOrientation")));
    result.iconReadingOrder = toInt(defaults.integerForKey(QStringLiteral("iconReadingOrder")));
    result.maximumIconSize = toInt(defaults.integerForKey(QStringLiteral("maximumIconSize")));
    result.iconPadding = toInt(defaults.integerForKey(QStringLiteral("iconPadding")));
    result.iconSpacing = toInt(defaults.integerForKey(QStringLiteral("iconSpacing")));
    result.minimizeEmptyCells = defaults.boolForKey(QStringLiteral("minimizeEmptyCells"));
    return result;
}
