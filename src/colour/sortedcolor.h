// One entry of an icon's display list of colours: the colour (gamma-encoded sRGB components,
// 0 to 1, alpha 1) and its pixel count.
#pragma once

#include <QColor>
#include <QString>

struct SortedColor
{
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    quint64 count = 0;

    QColor color() const { return QColor::fromRgbF(float(red), float(green), float(blue), 1.0f); }
    // "#rrggbb", each component x 255 rounded to nearest.
    QString hexName() const;

    bool operator==(const SortedColor&) const = default;
};
