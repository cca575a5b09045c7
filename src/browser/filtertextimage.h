// The typed filter text in large letters over its shadow, drawn once into an image and kept
// until the text, font, colour, size or pixel density changes. Large glyphs are filled as paths
// on every draw, and the shadow is three offset copies of the text, so drawing them afresh for
// every repaint under a fade frame would be costly; a keystroke renders the text once.
#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QString>

class FilterTextImage
{
public:
    // How far the shadow reaches past the text's box, to the right and down.
    static constexpr int ShadowReach = 3;

    struct Look
    {
        QFont font;
        QColor foreground;
        QColor shadow;
        bool operator==(const Look&) const = default;
    };

    // The text centred in a box of `boxSize`, with its shadow, for a painter whose device has
    // `pixelRatio` pixels per point. The image is `boxSize` plus the shadow's reach.
    const QImage& image(const QString& text, const Look& look, const QSizeF& boxSize, qreal pixelRatio);

private:
    void render();

    QString m_text;
    Look m_look;
    QSizeF m_boxSize;
    qreal m_pixelRatio = 0;
    QImage m_image;
};
