// Where icons come from. The platform finds the icon of a file (a desktop entry names it) and
// renders it at a size; it may also hand back the icon's dominant colours when it already knows
// them (from its cache), so that the main thread only has to pick the sort value. Headless tests
// give their own source.
#pragma once

#include "colour/dominantcolor.h"

#include <QImage>
#include <QString>

#include <optional>
#include <vector>

// What one icon load asks for: the file, the edge in pixels, and the two colour parameters that
// decide an icon's dominant colours.
struct IconRequest
{
    QString path;
    int size = 0;
    float colorfulness = 0.0f;
    float lightness = 0.0f;
};

// The dominant colours of an icon as the colour analysis finds them for the two parameters it
// was made with; no colours when the analysis failed (an empty or fully transparent icon).
struct IconAnalysis
{
    float colorfulness = 0.0f;
    float lightness = 0.0f;
    std::optional<std::vector<SpectrumColor>> colors;
};

// A loaded icon: size x size pixels, premultiplied RGBA bytes; a null image means no icon.
struct LoadedIcon
{
    QImage image;
    std::optional<IconAnalysis> analysis;
};

class IconSource
{
public:
    virtual ~IconSource() = default;

    // Runs on the loading threads, up to eight at once, so it must be safe to call concurrently.
    // A null image means the file has no icon that can be shown; `error` then says why.
    virtual LoadedIcon loadIcon(const IconRequest& request, QString* error) = 0;
};
