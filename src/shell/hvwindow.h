// The panel: a frameless, translucent, rounded window holding the icon view. It sizes itself
// to the view's content, stays on the screen, fades in and out, and remembers the group it
// showed when it closed.
#pragma once

#include "common/hvnotification.h"

#include <QColor>
#include <QRectF>
#include <QWidget>

class HVBkgndView;
class HVIconOverlayView;
class HVPanelControls;
class HVResizeFade;
class HVIconView;
class HVUserDefaults;
class PanelAlpha;

class HVWindow : public QWidget
{
    Q_OBJECT
public:
    // Distances between the icon view and the panel's edges.
    static constexpr int TopMargin = 26;
    static constexpr int BottomMargin = 20;
    static constexpr int LeftMargin = 20;
    static constexpr int RightMargin = 20;
    static constexpr double FadeSeconds = 0.25;
    static constexpr double SlideSeconds = 0.25;

    HVWindow(HVIconView* iconView, HVUserDefaults* defaults, QWidget* parent = nullptr);
    ~HVWindow() override;

    static QVariantMap registeredDefaults();

    HVIconView* iconView() const { return m_iconView; }
    HVIconOverlayView* overlayView() const { return m_overlay; }
    HVPanelControls* controls() const { return m_controls; }
    HVResizeFade* resizeFade() const { return m_resizeFade; }

    void showPanel();
    void hidePanel();
    void raisePanel();
    void lowerPanel();
    bool isPanelVisible() const;

    bool hasBeenMoved() const;
    void slideToCenter();
    void slideBack();
    void slideOnscreen();
    void centerExactly();
    QSizeF maxIconViewSize() const;
    double animationResizeTime(const QRectF& target) const;
    QRectF availableGeometry() const;

    Q_INVOKABLE void subviewDidResize(const HVNotification& notification = HVNotification());
    void screenParametersDidChange();
    void updateColors();
    bool isNonActivating() const { return m_isNonActivating; }
    // False while a sheet (a dialog of the panel) is open: the icons then take no drops.
    Q_INVOKABLE bool iconViewHasUserFocus() const;

    // Fades run to completion before returning, so that showing and hiding are atomic.
    void fadeInOver(double seconds);
    void fadeOutOver(double seconds);
    void slideFrameTo(const QRectF& frame, double seconds);
    // The panel's opacity: the window's, or the alpha it paints where windows have none.
    double panelOpacity() const;

signals:
    // Escape, Ctrl+W or Ctrl+period when the view did not want the key: the user dismisses the panel.
    void closeRequested();
    // The gear button asks for Nimbo's menu at this global point.
    void menuRequested(const QPoint& globalPosition);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void observeDefaults();
    void applyFrame(const QRectF& frame);
    void adoptWindowSystemFocus();

    HVUserDefaults* m_defaults;
    HVIconView* m_iconView;
    PanelAlpha* m_alpha;
    HVBkgndView* m_background;
    HVIconOverlayView* m_overlay;
    HVPanelControls* m_controls;
    HVResizeFade* m_resizeFade;
    QRectF m_movedFrame;
    bool m_isNonActivating = false;
    bool m_useAnimation = false;
    const float m_borderWidth = 2.0f;
};
