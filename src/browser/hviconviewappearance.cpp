#include "hviconviewappearance.h"

#include "common/hvuserdefaults.h"

#include <algorithm>
#include <cmath>

namespace {
double clampedOpacity(const QVariant& value, double fallback)
{
    bool ok = false;
    const double number = value.toDouble(&ok);
    return ok && std::isfinite(number) ? std::clamp(number, 0.0, 1.0) : fallback;
}

QColor colorOr(const HVUserDefaults& defaults, const QString& key, const QColor& fallback)
{
    const QColor color = defaults.colorForKey(key);
    return color.isValid() ? color : fallback;
}
} // namespace

HVIconViewAppearance HVIconViewAppearance::fromUserDefaults(const HVUserDefaults& defaults)
{
    HVIconViewAppearance look;
    look.excludedOpacity =
        clampedOpacity(defaults.objectForKey(QStringLiteral("excludedIconAlpha")), look.excludedOpacity);
    look.drawFilledIconHighlight = defaults.boolForKey(QStringLiteral("drawFilledIconHighlight"));
    look.drawStrokedIconHighlight = defaults.boolForKey(QStringLiteral("drawStrokedIconHighlight"));
    look.winAlpha = clampedOpacity(defaults.objectForKey(QStringLiteral("windowAlpha")), look.winAlpha);
    look.iconHighlightColor =
        colorOr(defaults, QStringLiteral("iconHighlightColor"), look.iconHighlightColor);
    look.winColor = colorOr(defaults, QStringLiteral("windowColor"), look.winColor);
    look.textColor = contrastingTextColor(look.winColor, look.winAlpha);
    return look;
}

QColor HVIconViewAppearance::contrastingTextColor(const QColor& windowColor, double windowAlpha)
{
    if (windowAlpha < 0.01)
        return Qt::black;
    const QColor rgb = windowColor.toRgb();
    const double luminance = 0.299 * rgb.redF() + 0.587 * rgb.greenF() + 0.114 * rgb.blueF();
    return luminance > 0.5 ? Qt::black : Qt::white;
}

QColor HVIconViewAppearance::separatorColor() const
{
    QColor color = textColor;
    color.setAlphaF(float(winAlpha < 0.01 ? 0.5 : winAlpha * 0.5));
    return color;
}
