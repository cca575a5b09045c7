// The panel's opacity while it fades. Where the window system sets a window's opacity (X11) it
// is the window's own; where it does not (Wayland), the panel paints its content at that alpha,
// so fades look the same and nothing is asked of the window system that it would refuse.
#pragma once

#include <QObject>

class QWidget;

class PanelAlpha : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double opacity READ opacity WRITE setOpacity)
public:
    explicit PanelAlpha(QWidget* window);

    // Whether the platform in use sets window opacity.
    static bool windowSystemHasOpacity();

    double opacity() const;
    void setOpacity(double opacity);

private:
    void paintAt(double opacity);

    QWidget* m_window;
    bool m_painted;
    double m_opacity = 1.0;
};
