// Picking the colour sort value from the analysed colours.
#include "hvcolourstate.h"

#include <QtDebug>

#include <algorithm>

namespace {
// The hue rotated so that wrapHue maps to 0: in [0, 1).
double rotatedHue(double hue, double wrap)
{
    double rotated = hue / 360.0 - wrap;
    if (hue / 360.0 < wrap)
        rotated += 1.0;
    return rotated;
}

qint32 addCount(qint32 total, quint64 count)
{
    return qint32(quint32(total) + quint32(count)); // a 32-bit total, wrapping as such
}
} // namespace

void HVColourState::pickAndSortColors(const QString& appName)
{
    if (m_hclColorCount < 1 || !m_hclColors) {
        qWarning("No colors passed to pick & sort method for app: %s", qPrintable(appName));
        setNoSortValue();
        return;
    }
    const std::vector<SpectrumColor>& colors = *m_hclColors;
    const qint64 count = qint64(std::min<quint64>(m_hclColorCount, colors.size()));
    qint64 primary = -1, gray = -1;
    qint32 coloredTotal = 0, pixelTotal = 0;
    double bestWeight = 0.0;
    for (qint64 i = 0; i < count; ++i) {
        const SpectrumColor& c = colors[size_t(i)];
        if (m_params.colorfulness <= c.saturation) {
            coloredTotal = addCount(coloredTotal, c.count);
            const double weight = SpectrumColorWeight(c);
            if (weight > bestWeight) {
                bestWeight = weight;
                primary = i;
            }
        } else if (gray < 0) {
            gray = i;
        }
        pixelTotal = addCount(pixelTotal, c.count);
    }
    if (pixelTotal <= 0) {
        qWarning("Zero pixel quantity for app: %s", qPrintable(appName));
        setNoSortValue();
        return;
    }
    const double wrap = double(m_params.wrapHue) / 360.0;
    qint64 primaryIndex = -1, secondaryIndex = -1, grayIndex = gray;
    if (primary >= 0 && double(m_params.colorFraction) < double(coloredTotal) / double(pixelTotal)) {
        m_colorSortValue = rotatedHue(colors[size_t(primary)].hue, wrap);
        primaryIndex = secondaryIndex = primary;
    } else if (gray < 0) {
        setNoSortValue();
        return;
    } else {
        const double lum = colors[size_t(gray)].luminosity;
        primaryIndex = secondaryIndex = gray;
        if (!m_params.sortGrayBySecColor) {
            m_colorSortValue = lum < 0.0 ? 1.5 : 1.0 + 0.5 * (1.0 - std::min(lum, 1.0));
        } else if (primary < 0) {
            m_colorSortValue = lum < 0.0 ? 2.0 : 1.5 + 0.5 * (1.0 - std::min(lum, 1.0));
        } else {
            m_colorSortValue = 1.0 + 0.5 * rotatedHue(colors[size_t(primary)].hue, wrap);
            secondaryIndex = primary;
        }
    }
    m_sortedColors = colorArrayForPrimaryIndex(primaryIndex, secondaryIndex, grayIndex);
}
