// A transparent layer over the icon view. It draws no icons: it shows the name of the app under
// the pointer beside its cell (a longer label once the pointer rests there for two seconds) and
// the typed filter in large letters, faded out after the typing pause. It learns everything from
// the icon view's notifications and from the preferences.
#pragma once

#include "catalogue/hvapparray.h"
#include "common/hvnotification.h"
#include "filtertextimage.h"

#include <QColor>
#include <QPointer>
#include <QRectF>
#include <QWidget>

class HVUserDefaults;
class QTimer;
class QVariantAnimation;

class HVIconOverlayView : public QWidget
{
    Q_OBJECT
public:
    static constexpr int LongLabelDelayMs = 2000;
    static constexpr int FadeMs = 500;

    // `iconView` is the view whose cells the rectangles of the notifications are in.
    HVIconOverlayView(QWidget* iconView, HVUserDefaults* defaults, QWidget* parent = nullptr);
    ~HVIconOverlayView() override;

    Q_INVOKABLE void selectedAppChanged(const HVNotification& notification);
    Q_INVOKABLE void filterStringChanged(const HVNotification& notification);

    HVAppRef selectedApp() const { return m_selectedApp; }
    bool showsLongLabel() const { return m_showLongLabel; }
    // The text drawn beside the selected cell, empty with no app.
    QString labelText() const;
    QString filterString() const { return m_filterString; }
    // The filter text's opacity: 1 while typing, down to 0 through the fade.
    double filterOpacity() const { return m_filterOpacity; }
    bool isFading() const;
    // Where the label goes (in this view's coordinates) for a label of `size`.
    QRectF labelRect(const QSizeF& size) const;
    void updateColors();
    // An app's icon at 64 x 64 with its name and folder below, centred on `center`.
    void drawBigIconForApp(QPainter& painter, const HVApp& app, const QPointF& center) const;

signals:
    void longLabelShown();
    void filterFaded();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void readPlacementPreferences();
    QFont labelFont() const;
    QRectF labelBox() const;
    QFont filterFont() const;
    QRectF filterBox() const;
    void repaintLabel();
    void repaintFilter();
    void drawLabel(QPainter& painter);
    void drawFilterString(QPainter& painter);
    void startFade();

    QPointer<QWidget> m_iconView;
    HVUserDefaults* m_defaults;
    HVAppRef m_selectedApp;
    QRectF m_selectedAppRect; // in the icon view's coordinates
    bool m_showLongLabel = false;
    QRectF m_paintedLabel; // where the label and the filter text were last asked to be drawn
    QRectF m_paintedFilter;
    FilterTextImage m_filterText;
    QTimer* m_labelTimer;
    QString m_filterString;
    QTimer* m_filterStringTimer;
    QVariantAnimation* m_fade = nullptr;
    double m_filterOpacity = 1.0;
    int m_groupOrientation = 0;
    bool m_tabletMode = false;
    int m_tabletHandedness = 0;
    QColor m_foreground = Qt::white;
    QColor m_background = Qt::black;
    float m_winAlpha = 0.85f;
};
