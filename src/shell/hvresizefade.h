// The panel's animated resize ("animateWindowResizing"): the icons fade out over the first half
// of the time, the panel takes its new frame, and they fade back in over the second half. The
// overlay stays hidden meanwhile, so no name or filter text floats over a moving grid.
#pragma once

#include <QGraphicsOpacityEffect>
#include <QObject>
#include <QPointer>
#include <QPropertyAnimation>

#include <functional>

class QWidget;

class HVResizeFade : public QObject
{
    Q_OBJECT
public:
    HVResizeFade(QWidget* iconView, QWidget* overlay, QObject* parent = nullptr);

    // Fades over `seconds` in all, calling `applyFrame` at the middle. A resize that comes while
    // one runs finishes the running one at once first.
    void run(double seconds, std::function<void()> applyFrame);
    bool isRunning() const { return bool(m_applyFrame) || m_effect; }

signals:
    void finished();

private:
    void fade(double from, double to, int milliseconds, std::function<void()> then);
    void finish();

    QWidget* m_iconView;
    QWidget* m_overlay;
    QPointer<QGraphicsOpacityEffect> m_effect;
    QPointer<QPropertyAnimation> m_animation;
    std::function<void()> m_applyFrame;
};
