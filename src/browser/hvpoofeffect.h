// The little cloud that tells an icon left the group: a few puffs that swell and fade at a screen
// point for a quarter of a second, in a window of their own that takes no input.
#pragma once

#include <QWidget>

class QVariantAnimation;

class HVPoofEffect : public QWidget
{
    Q_OBJECT
public:
    static constexpr int DurationMs = 250;
    static constexpr int Size = 96;

    // Plays the effect centred on `globalPoint`; the window deletes itself when done.
    static HVPoofEffect* showAt(const QPoint& globalPoint);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    HVPoofEffect();
    QVariantAnimation* m_animation;
};
