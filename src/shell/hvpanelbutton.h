// A small round button of the panel's top edge: the close cross or the gear. It is drawn black
// on light or invisible panels and white on dark ones.
#pragma once

#include <QAbstractButton>

class HVPanelButton : public QAbstractButton
{
    Q_OBJECT
public:
    enum Kind { Close, Gear };
    static constexpr int Side = 18;

    HVPanelButton(Kind kind, QWidget* parent = nullptr);

    // Black for a panel colour of brightness above 0.73 or an invisible panel.
    static bool usesBlackImage(float windowAlpha, const QColor& windowColor);
    void setBlack(bool black);
    bool isBlack() const { return m_black; }
    QSize sizeHint() const override { return QSize(Side, Side); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Kind m_kind;
    bool m_black = false;
};
