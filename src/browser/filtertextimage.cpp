#include "filtertextimage.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {
// The offsets, in points, of the three copies of the text that stand in for a blurred shadow (a
// blur would cost more than a keystroke may).
constexpr QPointF ShadowOffsets[] = {{2, 2}, {3, 3}, {1, 3}};

inline int times(int a, int b)
{
    return (a * b + 127) / 255;
}

// The shadow copies and the text over them, composed pixel by pixel in one pass: drawn as
// images one over another, each draw of a hundred rows went to the raster engine's threads
// and cost more in waiting than in drawing. The coverage is read from a copy with a clear
// margin above and to the left as wide as the farthest copy reaches.
QImage composedOverShadow(const QImage& glyphs, const QColor& textColour, const QColor& shadowColour,
                          qreal ratio)
{
    const int width = glyphs.width();
    const int height = glyphs.height();
    int offsets[std::size(ShadowOffsets)];
    int margin = 0;
    for (const QPointF& offset : ShadowOffsets)
        margin =
            std::max({margin, int(std::lround(offset.x() * ratio)), int(std::lround(offset.y() * ratio))});
    const int stride = width + margin;
    for (std::size_t i = 0; i < std::size(ShadowOffsets); ++i)
        offsets[i] = int(std::lround(ShadowOffsets[i].y() * ratio)) * stride +
                     int(std::lround(ShadowOffsets[i].x() * ratio));
    std::vector<uchar> cover(std::size_t(stride) * std::size_t(height + margin), 0);
    for (int y = 0; y < height; ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(glyphs.constScanLine(y));
        uchar* to = cover.data() + (y + margin) * stride + margin;
        for (int x = 0; x < width; ++x)
            to[x] = uchar(qAlpha(line[x]));
    }
    const QRgb shadow = shadowColour.rgba();
    const QRgb text = textColour.rgba();
    int shadowLeft[256]; // how much of what lies under a shadow copy of this coverage shows
    for (int c = 0; c < 256; ++c)
        shadowLeft[c] = 255 - times(qAlpha(shadow), c);
    QImage image(glyphs.size(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    for (int y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        const uchar* at = cover.data() + (y + margin) * stride + margin;
        for (int x = 0; x < width; ++x) {
            const int c0 = at[x], c1 = at[x - offsets[0]], c2 = at[x - offsets[1]], c3 = at[x - offsets[2]];
            if ((c0 | c1 | c2 | c3) == 0) { // most of the box: clear
                line[x] = 0;
                continue;
            }
            if (c0 == 255 && qAlpha(text) == 255) { // inside a letter
                line[x] = text;
                continue;
            }
            // Shadow copies of one colour over one another: their alphas combine, the colour stays.
            const int clear = shadowLeft[c1] * shadowLeft[c2] / 255 * shadowLeft[c3];
            const int shadowAlpha = 255 - (clear + 127) / 255;
            const int textAlpha = times(qAlpha(text), c0);
            const int under = times(shadowAlpha, 255 - textAlpha);
            const auto channel = [&](int textValue, int shadowValue) {
                return times(textValue, textAlpha) + times(shadowValue, under);
            };
            line[x] = qRgba(channel(qRed(text), qRed(shadow)), channel(qGreen(text), qGreen(shadow)),
                            channel(qBlue(text), qBlue(shadow)), textAlpha + under);
        }
    }
    return image;
}
} // namespace

const QImage& FilterTextImage::image(const QString& text, const Look& look, const QSizeF& boxSize,
                                     qreal pixelRatio)
{
    if (text != m_text || !(look == m_look) || boxSize != m_boxSize || pixelRatio != m_pixelRatio ||
        m_image.isNull()) {
        m_text = text;
        m_look = look;
        m_boxSize = boxSize;
        m_pixelRatio = pixelRatio;
        render();
    }
    return m_image;
}

void FilterTextImage::render()
{
    const QSizeF size = m_boxSize + QSizeF(ShadowReach + 1, ShadowReach + 1);
    QImage glyphs((size * m_pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    glyphs.setDevicePixelRatio(m_pixelRatio);
    glyphs.fill(Qt::transparent);
    {
        QPainter painter(&glyphs);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setFont(m_look.font);
        painter.setPen(Qt::white);
        painter.drawText(QRectF(QPointF(0, 0), m_boxSize), Qt::AlignCenter | Qt::TextSingleLine, m_text);
    }
    m_image = composedOverShadow(glyphs, m_look.foreground, m_look.shadow, m_pixelRatio);
}
