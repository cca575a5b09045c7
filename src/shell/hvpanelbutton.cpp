#include "hvpanelbutton.h"

#include <QPainter>

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
    // A gear: a ring with eight teeth.
    const double outer = box.width() / 2;
    painter.setPen(QPen(ink, outer * 0.3, Qt::SolidLine, Qt::FlatCap));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(c, outer * 0.55, outer * 0.55);
    painter.setPen(QPen(ink, outer * 0.28, Qt::SolidLine, Qt::FlatCap));
    for (int i = 0; i < 8; ++i) {
        const double angle = i * M_PI / 4;
        const QPointF direction(std::cos(angle), std::sin(angle));
        painter.drawLine(c + direction * outer * 0.6, c + direction * outer);
    }
}
