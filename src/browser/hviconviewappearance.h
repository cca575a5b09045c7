// How the icon view looks: the panel's colour and opacity, the faded icon's opacity, the
// highlight style and colour for running applications, and the text colour that contrasts with
// the panel. Read from the preferences.
#pragma once

#include <QColor>

class HVUserDefaults;

struct HVIconViewAppearance
{
    double excludedOpacity = 0.15;
    bool drawFilledIconHighlight = true;
    bool drawStrokedIconHighlight = false;
    double winAlpha = 0.85;
    QColor iconHighlightColor = Qt::red;
    QColor winColor = Qt::black;
    QColor textColor = Qt::white;

    // Opacities outside 0...1 are clamped; a missing colour keeps the default.
    static HVIconViewAppearance fromUserDefaults(const HVUserDefaults& defaults);

    // Opaque black on a panel that is nearly transparent, otherwise black or white, whichever
    // stands out on the panel's colour.
    static QColor contrastingTextColor(const QColor& windowColor, double windowAlpha);
    // The colour of the lines between bunches.
    QColor separatorColor() const;
};
