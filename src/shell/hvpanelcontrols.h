// The panel's own controls along its top edge: the close button, the group count buttons and
// the gear button. Lays them out when the panel resizes, gives Tab and Shift+Tab to the count
// buttons and picks the buttons' black or white ink from the panel colour.
#pragma once

#include <QObject>
#include <QPoint>

class HVIconView;
class HVPanelButton;
class HVStatsControl;
class HVUserDefaults;
class QWidget;

class HVPanelControls : public QObject
{
    Q_OBJECT
public:
    static constexpr int EdgeInset = 8;
    static constexpr int TopInset = 4;

    HVPanelControls(QWidget* panel, HVIconView* iconView, HVUserDefaults* defaults);

    HVStatsControl* statsControl() const { return m_stats; }
    HVPanelButton* closeButton() const { return m_close; }
    HVPanelButton* gearButton() const { return m_gear; }
    void layout();
    void updateColors();

signals:
    void closeClicked();
    // The gear was pressed: the menu goes below it, at this global point.
    void menuRequested(const QPoint& globalPosition);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* m_panel;
    HVUserDefaults* m_defaults;
    HVStatsControl* m_stats;
    HVPanelButton* m_close;
    HVPanelButton* m_gear;
};
