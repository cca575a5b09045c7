#include "hvpanelcontrols.h"

#include "hvpanelbutton.h"

#include "browser/hviconview.h"
#include "browser/hvstatscontrol.h"
#include "common/hvuserdefaults.h"

#include <QEvent>
#include <QKeyEvent>

#include <algorithm>

HVPanelControls::HVPanelControls(QWidget* panel, HVIconView* iconView, HVUserDefaults* defaults)
    : QObject(panel), m_panel(panel), m_defaults(defaults),
      m_stats(new HVStatsControl(iconView, iconView->manager(), defaults, panel)),
      m_close(new HVPanelButton(HVPanelButton::Close, panel)),
      m_gear(new HVPanelButton(HVPanelButton::Gear, panel))
{
    connect(m_close, &QAbstractButton::clicked, this, &HVPanelControls::closeClicked);
    connect(m_gear, &QAbstractButton::pressed, this,
            [this] { emit menuRequested(m_gear->mapToGlobal(QPoint(0, m_gear->height()))); });
    connect(m_defaults, &HVUserDefaults::valueChanged, this, [this](const QString& key) {
        if (key == QLatin1String("windowAlpha") || key == QLatin1String("windowColor"))
            updateColors();
    });
    panel->installEventFilter(this);
    iconView->installEventFilter(this);
    updateColors();
    layout();
}

void HVPanelControls::updateColors()
{
    const bool black = HVPanelButton::usesBlackImage(m_defaults->floatForKey(QStringLiteral("windowAlpha")),
                                                     m_defaults->colorForKey(QStringLiteral("windowColor")));
    m_close->setBlack(black);
    m_gear->setBlack(black);
}

void HVPanelControls::layout()
{
    const int width = m_panel->width();
    const int side = HVPanelButton::Side;
    m_close->move(EdgeInset, TopInset);
    m_gear->move(std::max(EdgeInset, width - EdgeInset - side), TopInset);
    const int left = EdgeInset + side + EdgeInset;
    const int available = std::max(0, width - 2 * left);
    m_stats->fitToWidth(available);
    m_stats->move(left + (available - m_stats->width()) / 2, TopInset);
    m_stats->raise();
    m_close->raise();
    m_gear->raise();
}

bool HVPanelControls::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_panel && event->type() == QEvent::Resize)
        layout();
    // Tab would move the keyboard focus; in the panel it steps the groups.
    if (event->type() == QEvent::KeyPress && m_stats->handleKeyDown(static_cast<QKeyEvent*>(event)))
        return true;
    return QObject::eventFilter(watched, event);
}
