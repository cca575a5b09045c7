#include "hvcolourstate.h"

#include "colorconversions.h"
#include "imageextras.h"

#include <QtDebug>

ColorSortWork HVColourState::setColorSortParameters(const IconParameters& params, const QImage& icon,
                                                    const QString& appName)
{
    return applyParameters(params, icon, appName, nullptr);
}

ColorSortWork
HVColourState::setColorSortParameters(const IconParameters& params, const QImage& icon,
                                      const QString& appName,
                                      const std::optional<std::vector<SpectrumColor>>& analysedColors)
{
    return applyParameters(params, icon, appName, &analysedColors);
}

ColorSortWork HVColourState::applyParameters(const IconParameters& params, const QImage& icon,
                                             const QString& appName,
                                             const std::optional<std::vector<SpectrumColor>>* analysedColors)
{
    m_params.iconSize = params.iconSize;
    ColorSortWork work;
    if (!m_hclColors || params.colorfulness != m_params.colorfulness ||
        params.lightness != m_params.lightness) {
        m_params = params;
        work.analyse = work.pick = true;
    } else if (params.colorFraction != m_params.colorFraction || params.wrapHue != m_params.wrapHue ||
               params.sortGrayBySecColor != m_params.sortGrayBySecColor) {
        m_params.colorFraction = params.colorFraction;
        m_params.wrapHue = params.wrapHue;
        m_params.sortGrayBySecColor = params.sortGrayBySecColor;
        work.pick = true;
    }
    if (work.analyse || icon.isNull())
        freeColorSortData();
    if (!icon.isNull()) {
        if (work.analyse && analysedColors) {
            setHclColors(*analysedColors);
        } else if (work.analyse) {
            const HVBitmapRep bitmap = HVImageExtras::bitmapImageRep(icon);
            setHclColors(bitmap.createDominantColorsWithCount(m_hclColorCount, m_params.colorfulness,
                                                              m_params.lightness, MergeDeltaE));
        }
        if (work.pick)
            pickAndSortColors(appName);
    }
    return work;
}

void HVColourState::setHclColors(std::optional<std::vector<SpectrumColor>> colors)
{
    m_hclColors = std::move(colors);
    m_hclColorCount = m_hclColors ? m_hclColors->size() : 0;
}

void HVColourState::freeColorSortData()
{
    m_hclColors.reset();
    m_hclColorCount = RequestedColorCount;
    m_sortedColors.clear();
    m_colorSortValue = NotAnalysedValue;
}

void HVColourState::setNoSortValue()
{
    m_colorSortValue = NotAnalysedValue;
    m_sortedColors.clear();
}

QList<SortedColor> HVColourState::colorArrayForPrimaryIndex(qint64 primaryIndex, qint64 secondaryIndex,
                                                            qint64 grayIndex) const
{
    if (!m_hclColors || m_hclColors->empty())
        return {};
    const std::vector<SpectrumColor>& colors = *m_hclColors;
    const qint64 count = qint64(colors.size());
    if (primaryIndex < 0 || primaryIndex >= count || secondaryIndex < 0 || secondaryIndex >= count) {
        qWarning("Colour list asked for colours %lld and %lld of %lld", primaryIndex, secondaryIndex, count);
        return {};
    }
    auto entry = [&colors](qint64 i) {
        const SpectrumColor& c = colors[size_t(i)];
        ColorQuad rgb = LinearRGB_From_XYZ(XYZ_From_Luv(c.luv));
        GammaRGB_From_LinearRGB(&rgb, 2.2);
        return SortedColor{rgb.c1, rgb.c2, rgb.c3, c.count};
    };
    QList<SortedColor> list;
    list.reserve(count + 1);
    list.append(entry(primaryIndex));
    list.append(entry(secondaryIndex));
    for (qint64 i = 0; i < count; ++i) {
        if (i == secondaryIndex)
            continue;
        if (i == grayIndex)
            list.append(entry(i));
        else
            list.insert(2, entry(i));
    }
    return list;
}
