#include "sortedcolor.h"

#include <cmath>

namespace {
int byteOf(double component)
{
    const long value = std::lround(component * 255.0);
    return int(value < 0 ? 0 : value > 255 ? 255 : value);
}
} // namespace

QString SortedColor::hexName() const
{
    return QStringLiteral("#%1%2%3")
        .arg(byteOf(red), 2, 16, QLatin1Char('0'))
        .arg(byteOf(green), 2, 16, QLatin1Char('0'))
        .arg(byteOf(blue), 2, 16, QLatin1Char('0'));
}
