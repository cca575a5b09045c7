#include "filtertextimage.h"

#include <QPainter>

namespace {
// `glyphs` in one colour, keeping their coverage.
QImage tinted(const QImage& glyphs, const QColor& color)
{
    QImage result = glyphs;
    QPainter painter(&result);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRectF(QPointF(0, 0), result.deviceIndependentSize()), color);
    return result;
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
    m_image = QImage(glyphs.size(), QImage::Format_ARGB32_Premultiplied);
    m_image.setDevicePixelRatio(m_pixelRatio);
    m_image.fill(Qt::transparent);
    // A blurred shadow would cost more than a keystroke may; three offset copies stand in for it.
    const QImage shadowGlyphs = tinted(glyphs, m_look.shadow);
    QPainter painter(&m_image);
    for (const QPointF offset : {QPointF(2, 2), QPointF(3, 3), QPointF(1, 3)})
        painter.drawImage(offset, shadowGlyphs);
    painter.drawImage(QPointF(0, 0), tinted(glyphs, m_look.foreground));
}
