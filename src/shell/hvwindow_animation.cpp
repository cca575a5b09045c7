// The panel's fades and slides. Each runs to its end before the call returns; user input
// waits meanwhile, so a show or hide is never interrupted half way by the user. Other events
// still arrive: one of them can start another animation of the same property (the application
// losing the focus hides the panel while it fades in), which stops the first; the first then
// returns at once and leaves the window to the newer one.
#include "hvwindow.h"

#include "panelalpha.h"

#include <QEventLoop>
#include <QPropertyAnimation>

namespace {
// Returns whether the animation ran to its end rather than being stopped by another.
bool runBlocking(QPropertyAnimation& animation)
{
    QEventLoop loop;
    QObject::connect(&animation, &QAbstractAnimation::stateChanged, &loop,
                     [&loop](QAbstractAnimation::State state) {
                         if (state == QAbstractAnimation::Stopped)
                             loop.quit();
                     });
    animation.start();
    if (animation.state() == QAbstractAnimation::Running)
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    return animation.currentTime() >= animation.totalDuration();
}
} // namespace

void HVWindow::fadeInOver(double seconds)
{
    if (!isVisible()) {
        m_alpha->setOpacity(0.0);
        show();
    }
    if (m_alpha->opacity() < 1.0) {
        QPropertyAnimation fade(m_alpha, "opacity");
        fade.setDuration(int(seconds * 1000));
        fade.setStartValue(m_alpha->opacity());
        fade.setEndValue(1.0);
        fade.setEasingCurve(QEasingCurve::InQuad);
        if (!runBlocking(fade))
            return;
    }
    m_alpha->setOpacity(1.0);
}

void HVWindow::fadeOutOver(double seconds)
{
    if (isVisible() && m_alpha->opacity() > 0.0) {
        QPropertyAnimation fade(m_alpha, "opacity");
        fade.setDuration(int(seconds * 1000));
        fade.setStartValue(m_alpha->opacity());
        fade.setEndValue(0.0);
        fade.setEasingCurve(QEasingCurve::OutQuad);
        if (!runBlocking(fade))
            return; // shown again meanwhile
    }
    hide();
    m_alpha->setOpacity(1.0); // ready for the next showing
}

void HVWindow::slideFrameTo(const QRectF& frame, double seconds)
{
    if (!isVisible()) {
        setGeometry(frame.toRect());
        return;
    }
    QPropertyAnimation slide(this, "geometry");
    slide.setDuration(int(seconds * 1000));
    slide.setStartValue(geometry());
    slide.setEndValue(frame.toRect());
    slide.setEasingCurve(QEasingCurve::InOutQuad);
    runBlocking(slide);
}

double HVWindow::panelOpacity() const
{
    return m_alpha->opacity();
}
