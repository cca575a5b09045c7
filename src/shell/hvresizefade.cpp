#include "hvresizefade.h"

#include <QGraphicsOpacityEffect>
#include <QPropertyAnimation>
#include <QWidget>

#include <algorithm>
#include <utility>

HVResizeFade::HVResizeFade(QWidget* iconView, QWidget* overlay, QObject* parent)
    : QObject(parent), m_iconView(iconView), m_overlay(overlay)
{}

void HVResizeFade::run(double seconds, std::function<void()> applyFrame)
{
    if (isRunning())
        finish();
    const int half = int(std::clamp(seconds, 0.0, 10.0) * 500);
    m_applyFrame = std::move(applyFrame);
    m_effect = new QGraphicsOpacityEffect(m_iconView);
    m_iconView->setGraphicsEffect(m_effect); // the view owns it from here
    m_overlay->hide();
    fade(1.0, 0.0, half, [this, half] {
        if (auto apply = std::exchange(m_applyFrame, nullptr))
            apply();
        fade(0.0, 1.0, half, [this] { finish(); });
    });
}

void HVResizeFade::fade(double from, double to, int milliseconds, std::function<void()> then)
{
    m_animation = new QPropertyAnimation(m_effect, "opacity", this);
    m_animation->setDuration(milliseconds);
    m_animation->setStartValue(from);
    m_animation->setEndValue(to);
    m_animation->setEasingCurve(to < from ? QEasingCurve::OutQuad : QEasingCurve::InQuad);
    connect(m_animation, &QPropertyAnimation::finished, this, std::move(then));
    m_animation->start(QAbstractAnimation::DeleteWhenStopped);
}

void HVResizeFade::finish()
{
    if (m_animation) {
        m_animation->disconnect(this);
        m_animation->stop();
    }
    if (auto apply = std::exchange(m_applyFrame, nullptr))
        apply();
    m_iconView->setGraphicsEffect(nullptr); // deletes the effect: plain drawing again
    m_overlay->show();
    emit finished();
}
