#include "hvpanelbutton.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

HVPanelButton::HVPanelButton(Kind kind, QWidget* parent) : QAbstractButton(parent), m_kind(kind)
{
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    resize(Side, Side);
    setAccessibleName(kind == Close ? tr("Close") : tr("Menu"));
}

bool HVPanelButton::usesBlackImage(float windowAlpha, const QColor& windowColor)
{
    // Colours are stored in 16 bits: 0.73 reads back a hair above it.
    return windowAlpha < 0.01f || windowColor.valueF() > 0.7301;
}

void HVPanelButton::setBlack(bool black)
{
    if (black != m_black) {
        m_black = black;
        update();
    }
}

void HVPanelButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor ink = m_black ? QColor(Qt::black) : QColor(Qt::white);
    ink.setAlphaF(isDown() ? 1.0 : 0.8);
    const QRectF box = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    const QPointF c = box.center();
    if (m_kind == Close) {
        painter.setPen(QPen(ink, 1.5));
        painter.drawEllipse(box);
        const double d = box.width() * 0.2;
        painter.drawLine(c + QPointF(-d, -d), c + QPointF(d, d));
        painter.drawLine(c + QPointF(-d, d), c + QPointF(d, -d));
        return;
    }
    // A gear: eight teeth around a ring.
    QPainterPath gear;
    const double outer = box.width() / 2, inner = outer * 0.7;
    for (int i = 0; i < 16; ++i) {
        const double r = i % 2 ? inner : outer;
        for (double edge : {-0.18, 0.18}) {
            const double angle = (i + 0.5 + edge) * M_PI / 8;
            const QPointF p = c + QPointF(std::cos(angle) * r, std::sin(angle) * r);
            gear.isEmpty() ? gear.moveTo(p) : gear.lineTo(p);
        }
    }
    gear.closeSubpath();
    gear.addEllipse(c, outer * 0.3, outer * 0.3);
    gear.setFillRule(Qt::OddEvenFill);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawPath(gear);
}
