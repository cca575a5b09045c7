// The panel's fades and slides. Each runs to its end before the call returns; user input
// waits meanwhile, so a show or hide is never interrupted half way.
#include "hvwindow.h"

#include <QEventLoop>
#include <QPropertyAnimation>

namespace {
void runBlocking(QPropertyAnimation& animation)
{
    QEventLoop loop;
    QObject::connect(&animation, &QAbstractAnimation::finished, &loop, &QEventLoop::quit);
    animation.start();
    if (animation.state() == QAbstractAnimation::Running)
        loop.exec(QEventLoop::ExcludeUserInputEvents);
}
} // namespace

void HVWindow::fadeInOver(double seconds)
{
    if (!isVisible()) {
        setWindowOpacity(0.0);
        show();
    }
    if (windowOpacity() < 1.0) {
        QPropertyAnimation fade(this, "windowOpacity");
        fade.setDuration(int(seconds * 1000));
        fade.setStartValue(windowOpacity());
        fade.setEndValue(1.0);
        fade.setEasingCurve(QEasingCurve::InQuad);
        runBlocking(fade);
    }
    setWindowOpacity(1.0);
}

void HVWindow::fadeOutOver(double seconds)
{
    if (isVisible() && windowOpacity() > 0.0) {
        QPropertyAnimation fade(this, "windowOpacity");
        fade.setDuration(int(seconds * 1000));
        fade.setStartValue(windowOpacity());
        fade.setEndValue(0.0);
        fade.setEasingCurve(QEasingCurve::OutQuad);
        runBlocking(fade);
    }
    hide();
    setWindowOpacity(1.0); // ready for the next showing
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
