#include "hvpoofeffect.h"

#include <QPainter>
#include <QVariantAnimation>

#include <cmath>

HVPoofEffect::HVPoofEffect()
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus),
      m_animation(new QVariantAnimation(this))
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(Size, Size);
    m_animation->setStartValue(0.0);
    m_animation->setEndValue(1.0);
    m_animation->setDuration(DurationMs);
    connect(m_animation, &QVariantAnimation::valueChanged, this, [this] { update(); });
    connect(m_animation, &QVariantAnimation::finished, this, &QWidget::close);
}

HVPoofEffect* HVPoofEffect::showAt(const QPoint& globalPoint)
{
    auto* poof = new HVPoofEffect;
    poof->move(globalPoint - QPoint(Size / 2, Size / 2));
    poof->show();
    poof->m_animation->start();
    return poof;
}

void HVPoofEffect::paintEvent(QPaintEvent*)
{
    const double t = m_animation->currentValue().toDouble();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QPointF centre(width() / 2.0, height() / 2.0);
    // Five puffs around a middle one drift outwards, grow and fade.
    const double spread = 6 + 22 * t;
    const double radius = 8 + 14 * t;
    QColor cloud(235, 235, 235);
    cloud.setAlphaF(float(0.9 * (1.0 - t)));
    painter.setBrush(cloud);
    painter.drawEllipse(centre, radius * 0.9, radius * 0.9);
    for (int i = 0; i < 5; ++i) {
        const double angle = (i * 72.0 + 30.0 * t) * M_PI / 180.0;
        const QPointF at = centre + QPointF(std::cos(angle), std::sin(angle)) * spread;
        painter.drawEllipse(at, radius * 0.7, radius * 0.7);
    }
}
