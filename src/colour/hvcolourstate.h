// The colour state of one application record: the icon's dominant colours, their display list
// and the colour sort value by which icons are ordered. The record holds one, hands it its icon
// and its name (for log lines), and posts "N_AppIconChanged" after every setColorSortParameters.
//
// colorSortValue: coloured icons 0 to below 1 (hue of the primary colour, rotated by wrapHue);
// grey icons 1.0 to 1.5 by lightness (white 1.0, black 1.5) or, ordered by their secondary
// colour, 1.0 to 1.5 by its rotated hue and 1.5 to 2.0 by lightness when they have none;
// 10.0 for no icon, no colours or no pixels.
#pragma once

#include "dominantcolor.h"
#include "iconparameters.h"
#include "sortedcolor.h"

#include <QImage>
#include <QList>
#include <QString>

#include <optional>
#include <vector>

// What applying parameters did: a full analysis of the icon, and/or picking the sort value again.
struct ColorSortWork
{
    bool analyse = false;
    bool pick = false;
};

class HVColourState
{
public:
    static constexpr quint64 RequestedColorCount = 6;
    static constexpr double MergeDeltaE = 50.0;
    static constexpr double NotAnalysedValue = 10.0;

    // The parameters, as the record stores them (also when it sets no icon).
    const IconParameters& colorSortParameters() const { return m_params; }
    void storeColorSortParameters(const IconParameters& params) { m_params = params; }

    // Stores the icon size, then re-analyses the icon when there are no colours yet or the
    // minimum saturation or luminosity changed, or only re-picks the sort value when the
    // coloured fraction, wrap hue or grey order changed (floats compare exactly). No icon (a
    // null image) clears the colour data. `appName` names the record in log lines.
    ColorSortWork setColorSortParameters(const IconParameters& params, const QImage& icon,
                                         const QString& appName);
    // The same, with the icon's dominant colours already found (on a loading thread) for params.colorfulness
    // and params.lightness: when an analysis is due they are taken instead of analysing the icon here.
    ColorSortWork setColorSortParameters(const IconParameters& params, const QImage& icon,
                                         const QString& appName,
                                         const std::optional<std::vector<SpectrumColor>>& analysedColors);
    // Drops the colours: none, 6 to ask for, no display list, value 10.0.
    void freeColorSortData();
    // The sort value and display list from the stored colours.
    void pickAndSortColors(const QString& appName);
    // The display list: the primary entry, the secondary entry, then every other colour inserted
    // at position 2 (so in reverse order), except the grey one, which goes to the end. Empty when
    // there are no colours or an index is out of range.
    QList<SortedColor> colorArrayForPrimaryIndex(qint64 primaryIndex, qint64 secondaryIndex,
                                                 qint64 grayIndex) const;

    // The analysed colours, strongest first. No value before an analysis or after one that failed.
    const std::optional<std::vector<SpectrumColor>>& hclColors() const { return m_hclColors; }
    // Before an analysis, the number of colours to ask for; after it, the number found.
    quint64 hclColorCount() const { return m_hclColorCount; }
    void setHclColors(std::optional<std::vector<SpectrumColor>> colors);

    const QList<SortedColor>& sortedColors() const { return m_sortedColors; }
    void setSortedColors(const QList<SortedColor>& colors) { m_sortedColors = colors; }
    double colorSortValue() const { return m_colorSortValue; }
    // A value given from outside the analysis (a record ordered by a value of its own).
    void setColorSortValue(double value) { m_colorSortValue = value; }

    // Diagnostic images of iconSize x iconSize (the icon itself when iconSize is 0): a pie of the
    // display list's colours inside a ring of the first; bars of the colours by count; an
    // L* x C* grid of LCh(uv) colours at hue 160°.
    QImage spectrumIcon(const QImage& icon) const;
    QImage spectrumIconSquare(const QImage& icon) const;
    QImage spectrumTestIcon(const QImage& icon) const;

private:
    void setNoSortValue();
    ColorSortWork applyParameters(const IconParameters& params, const QImage& icon, const QString& appName,
                                  const std::optional<std::vector<SpectrumColor>>* analysedColors);

    IconParameters m_params;
    std::optional<std::vector<SpectrumColor>> m_hclColors;
    quint64 m_hclColorCount = RequestedColorCount;
    QList<SortedColor> m_sortedColors;
    double m_colorSortValue = NotAnalysedValue;
};
