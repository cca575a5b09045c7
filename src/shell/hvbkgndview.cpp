#include "hvbkgndview.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>

HVBkgndView::HVBkgndView(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TranslucentBackground);
}

void HVBkgndView::setColors(float alpha, const QColor& color, const QColor& borderColor, bool drawBorder,
                            float borderWidth)
{
    m_alpha = alpha;
    m_color = color;
    m_borderColor = borderColor;
    m_drawBorder = drawBorder;
    m_borderWidth = borderWidth;
    update();
}

void HVBkgndView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(event->rect());
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(event->rect(), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);

    QPainterPath path;
    path.addRoundedRect(QRectF(rect()), CornerRadius, CornerRadius);
    QColor fill = m_color;
    fill.setAlphaF(m_alpha);
    painter.fillPath(path, fill);
    if (m_drawBorder) {
        // Twice the width, clipped to the shape, leaves the border's width visible inside.
        painter.setClipPath(path, Qt::IntersectClip);
        QColor border = m_borderColor;
        border.setAlphaF(m_alpha);
        painter.strokePath(path, QPen(border, 2 * m_borderWidth));
    }
}
