#include "hvhotspotview.h"

#include "pointertracker.h"

#include "common/hvuserdefaults.h"

#include <QLoggingCategory>
#include <QPainter>

#include <algorithm>
#include <cmath>

Q_LOGGING_CATEGORY(lcHotSpot, "nimbo.hotspot")

namespace {
const QString HighlightKey = QStringLiteral("highlightHotSpots");
const QString DelayKey = QStringLiteral("cursorHotSpotDelay");
const QString IgnoreDelayKey = QStringLiteral("ignoreCursorHotSpotDelayOnHide");
} // namespace

HVHotSpotView::HVHotSpotView(const QRect& area, HVUserDefaults* defaults, QWidget* parent)
    : QWidget(parent), m_defaults(defaults), m_tracker(new PointerTracker(area, this))
{
    m_delayTimer.setSingleShot(true);
    m_delayTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_delayTimer, &QTimer::timeout, this, &HVHotSpotView::delayTimerFire);
    connect(m_tracker, &PointerTracker::entered, this, &HVHotSpotView::mouseEntered);
    connect(m_tracker, &PointerTracker::left, this, &HVHotSpotView::mouseExited);
    connect(m_defaults, &HVUserDefaults::valueChanged, this, [this](const QString& key) {
        if (key == HighlightKey || key == DelayKey || key == IgnoreDelayKey)
            readDefaults();
    });
    readDefaults();
}

HVHotSpotView::~HVHotSpotView()
{
    stopTracking();
}

QRect HVHotSpotView::area() const
{
    return m_tracker->area();
}

void HVHotSpotView::startTracking()
{
    m_tracker->start();
}

void HVHotSpotView::stopTracking()
{
    m_tracker->stop();
    m_delayTimer.stop();
}

void HVHotSpotView::readDefaults()
{
    m_displayHotSpots = m_defaults->boolForKey(HighlightKey);
    m_ignoreDelayOnClose = m_defaults->boolForKey(IgnoreDelayKey);
    const double stored = m_defaults->doubleForKey(DelayKey);
    m_delay = std::isfinite(stored) ? std::clamp(stored, 0.0, LongestDelay) : 0.0;
    if (m_delay != stored)
        qCWarning(lcHotSpot, "\"cursorHotSpotDelay\" %g is not a delay of 0 to %g seconds: %g s is used",
                  stored, LongestDelay, m_delay);
}

void HVHotSpotView::performAction()
{
    if (m_target.action)
        m_target.action();
}

bool HVHotSpotView::mainWindowIsVisible() const
{
    return m_target.mainWindowIsVisible && m_target.mainWindowIsVisible();
}

void HVHotSpotView::mouseEntered()
{
    m_delayTimer.stop();
    if (m_target.action && mainWindowIsVisible() && m_ignoreDelayOnClose) {
        performAction(); // hiding needs no dwell
    } else if (m_delay > 0) {
        m_delayTimer.start(int(std::lround(m_delay * 1000)));
        m_tracker->setAttentive(true); // leaving must stop the timer in time
    } else {
        performAction();
    }
    showHotSpot();
}

void HVHotSpotView::mouseExited()
{
    m_delayTimer.stop();
    m_tracker->setAttentive(false);
    hideHotSpot();
}

void HVHotSpotView::delayTimerFire()
{
    m_tracker->setAttentive(false);
    performAction();
}

void HVHotSpotView::showHotSpot()
{
    if (!m_displayHotSpots)
        return;
    m_red = true;
    window()->clearMask(); // the window shows where it was shaped away
    window()->raise();     // over whatever the window manager has raised since
    repaint();
}

void HVHotSpotView::hideHotSpot()
{
    if (!m_red)
        return;
    m_red = false;
    // Shaped to a point outside itself, the window shows nothing even without a compositor.
    window()->setMask(QRegion(-1, -1, 1, 1));
    update();
}

void HVHotSpotView::paintEvent(QPaintEvent*)
{
    if (!m_displayHotSpots || !m_red)
        return;
    QPainter(this).fillRect(rect(), Qt::red);
}
