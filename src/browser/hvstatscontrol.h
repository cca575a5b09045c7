// The row of five count buttons at the panel's edge: how many apps each group holds, the group
// the icon view shows lit. A click, Tab / Shift+Tab, a sideways swipe on the view, or a drag held
// over a button switches the view's group. Labels shorten ("230 Total", "230 T", "T") to fit.
#pragma once

#include <QColor>
#include <QRect>
#include <QWidget>

#include <array>

class HVAppManager;
class HVIconView;
class HVUserDefaults;
class QKeyEvent;
class QTimer;

class HVStatsControl : public QWidget
{
    Q_OBJECT
public:
    static constexpr int ButtonCount = 5;
    enum LabelSize { LongLabels, ShortLabels, TinyLabels };
    // Without a desktop-wide spring-loading setting, a drag springs after half a second.
    static constexpr int SpringDelayMs = 500;

    HVStatsControl(HVIconView* iconView, HVAppManager* manager, HVUserDefaults* defaults,
                   QWidget* parent = nullptr);
    ~HVStatsControl() override;

    // The button that lights for a group (the missing group lights Excluded); 3 for unknown ones.
    static int groupForGroup(int group);
    static int buttonGroup(int index);

    void setCount(qint64 count, int index);
    QString label(int index) const;
    void selectButtonForGroup(int group);
    void selectButtonAtIndex(int index);
    int indexOfSelectedButton() const { return m_selected; }
    int groupForSelectedButton() const { return m_selected < 0 ? -1 : buttonGroup(m_selected); }
    void selectNextButton();
    void selectPreviousButton();
    Q_INVOKABLE void selectNextIconGroup() { selectNextButton(); }
    Q_INVOKABLE void selectPrevIconGroup() { selectPreviousButton(); }
    // Tab and Shift+Tab (not their repeats); true when taken.
    bool handleKeyDown(QKeyEvent* event);

    // Chooses the longest labels that fit `available` points and takes the width they need.
    void fitToWidth(int available);
    LabelSize labelSize() const { return m_labelSize; }
    QRect buttonRect(int index) const { return m_rects[size_t(index)]; }
    int buttonAt(const QPoint& point) const;
    void updateColors();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;

private:
    void refreshCounts(const QStringList& keys);
    int widthFor(LabelSize size) const;
    void layoutButtons();
    void setPressed(int index);
    void testDrag(const QPoint& point);

    HVIconView* m_iconView;
    HVAppManager* m_manager;
    HVUserDefaults* m_defaults;
    std::array<qint64, ButtonCount> m_counts{};
    std::array<QRect, ButtonCount> m_rects;
    LabelSize m_labelSize = LongLabels;
    int m_available = 10000;
    int m_selected = -1;
    int m_pressed = -1;
    int m_dragButton = -1;
    QTimer* m_dragTimer;
    QColor m_foreground = Qt::white;
    QColor m_background = Qt::black;
    float m_winAlpha = 0.85f;
};
