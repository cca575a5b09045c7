// The panel's background: a rounded rectangle in the window colour at the window's opacity,
// with an optional border, drawn under the icon view.
#pragma once

#include <QColor>
#include <QWidget>

class HVBkgndView : public QWidget
{
    Q_OBJECT
public:
    static constexpr double CornerRadius = 29.0;

    explicit HVBkgndView(QWidget* parent = nullptr);

    void setColors(float alpha, const QColor& color, const QColor& borderColor, bool drawBorder,
                   float borderWidth);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    float m_alpha = 0.85f;
    QColor m_color = Qt::black;
    QColor m_borderColor = Qt::white;
    bool m_drawBorder = false;
    float m_borderWidth = 2.0f;
};
