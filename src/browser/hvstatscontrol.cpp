#include "hvstatscontrol.h"

#include "hviconview.h"

#include "catalogue/hvappmanager.h"
#include "common/hvnotificationcenter.h"
#include "common/hvuserdefaults.h"
#include "common/notificationnames.h"

#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace {
struct ButtonSpec
{
    int group;
    const char* longLabel;
    const char* shortLabel;
    const char* tinyLabel;
    bool tabbable;
};
// In the order they stand, left to right.
constexpr ButtonSpec Buttons[HVStatsControl::ButtonCount] = {
    {5, QT_TRANSLATE_NOOP("HVStatsControl", "%1 Total"), QT_TRANSLATE_NOOP("HVStatsControl", "%1 T"),
     QT_TRANSLATE_NOOP("HVStatsControl", "T"), false},
    {1, QT_TRANSLATE_NOOP("HVStatsControl", "%1 Included"), QT_TRANSLATE_NOOP("HVStatsControl", "%1 I"),
     QT_TRANSLATE_NOOP("HVStatsControl", "I"), true},
    {3, QT_TRANSLATE_NOOP("HVStatsControl", "%1 Excluded"), QT_TRANSLATE_NOOP("HVStatsControl", "%1 E"),
     QT_TRANSLATE_NOOP("HVStatsControl", "E"), false},
    {8, QT_TRANSLATE_NOOP("HVStatsControl", "%1 Favorite"), QT_TRANSLATE_NOOP("HVStatsControl", "%1 F"),
     QT_TRANSLATE_NOOP("HVStatsControl", "F"), true},
    {0, QT_TRANSLATE_NOOP("HVStatsControl", "%1 Running"), QT_TRANSLATE_NOOP("HVStatsControl", "%1 R"),
     QT_TRANSLATE_NOOP("HVStatsControl", "R"), true},
};
// Text to button edge, each side; tiny labels sit in tighter buttons.
int horizontalInset(HVStatsControl::LabelSize size)
{
    return size == HVStatsControl::TinyLabels ? 5 : 10;
}
constexpr int ButtonGap = 4;
constexpr int ButtonHeight = 18;
} // namespace

HVStatsControl::HVStatsControl(HVIconView* iconView, HVAppManager* manager, HVUserDefaults* defaults,
                               QWidget* parent)
    : QWidget(parent), m_iconView(iconView), m_manager(manager), m_defaults(defaults),
      m_dragTimer(new QTimer(this))
{
    QFont small = font();
    small.setPixelSize(11);
    setFont(small);
    setAcceptDrops(true);
    setMouseTracking(false);
    m_dragTimer->setSingleShot(true);
    connect(m_dragTimer, &QTimer::timeout, this, [this] {
        if (m_dragButton >= 0)
            selectButtonAtIndex(m_dragButton);
    });
    connect(m_manager, &HVAppManager::didChange, this, &HVStatsControl::refreshCounts);
    connect(m_iconView, &HVIconView::groupShownChanged, this, &HVStatsControl::selectButtonForGroup);
    connect(m_defaults, &HVUserDefaults::valueChanged, this, [this](const QString& key) {
        if (key == QLatin1String("windowAlpha") || key == QLatin1String("windowColor"))
            updateColors();
    });
    auto* center = HVNotificationCenter::defaultCenter();
    center->addButFirstRemoveObserver(this, "selectNextIconGroup", HVNotificationNames::SelectNextIconGroup);
    center->addButFirstRemoveObserver(this, "selectPrevIconGroup", HVNotificationNames::SelectPrevIconGroup);
    refreshCounts({});
    updateColors();
    selectButtonForGroup(m_iconView->groupShown() >= 0 ? m_iconView->groupShown()
                                                       : m_iconView->groupToShow());
}

HVStatsControl::~HVStatsControl()
{
    HVNotificationCenter::defaultCenter()->removeObserver(this);
}

int HVStatsControl::groupForGroup(int group)
{
    switch (group) {
    case 0:
        return 0;
    case 1:
    case 2:
        return 1;
    case 5:
    case 6:
        return 5;
    case 8:
    case 9:
        return 8;
    default: // 3, 4 and the missing group 7 light Excluded
        return 3;
    }
}

int HVStatsControl::buttonGroup(int index)
{
    return index >= 0 && index < ButtonCount ? Buttons[index].group : -1;
}

void HVStatsControl::refreshCounts(const QStringList&)
{
    setCount(m_manager->allApps1D().size(), 0);
    setCount(m_manager->includedApps1D().size(), 1);
    setCount(m_manager->excludedApps1D().size(), 2);
    setCount(m_manager->userApps1D().size(), 3);
    setCount(m_manager->runningApps().size(), 4);
}

void HVStatsControl::setCount(qint64 count, int index)
{
    if (index < 0 || index >= ButtonCount || m_counts[size_t(index)] == count)
        return;
    m_counts[size_t(index)] = count;
    fitToWidth(m_available); // a longer number may need shorter labels
}

QString HVStatsControl::label(int index) const
{
    const ButtonSpec& spec = Buttons[index];
    switch (m_labelSize) {
    case LongLabels:
        return tr(spec.longLabel).arg(m_counts[size_t(index)]);
    case ShortLabels:
        return tr(spec.shortLabel).arg(m_counts[size_t(index)]);
    case TinyLabels:
        break;
    }
    return tr(spec.tinyLabel);
}

void HVStatsControl::selectButtonForGroup(int group)
{
    const int wanted = groupForGroup(group);
    for (int i = 0; i < ButtonCount; ++i)
        if (Buttons[i].group == wanted && m_selected != i) {
            m_selected = i;
            update();
        }
}

void HVStatsControl::selectButtonAtIndex(int index)
{
    if (index < 0 || index >= ButtonCount)
        return;
    m_selected = index;
    update();
    m_iconView->setGroupToShow(Buttons[index].group);
}

void HVStatsControl::selectNextButton()
{
    int index = std::max(m_selected, 0);
    for (int step = 0; step < ButtonCount; ++step) {
        index = (index + 1) % ButtonCount;
        if (Buttons[index].tabbable)
            return selectButtonAtIndex(index);
    }
}

void HVStatsControl::selectPreviousButton()
{
    int index = std::max(m_selected, 0);
    for (int step = 0; step < ButtonCount; ++step) {
        index = (index + ButtonCount - 1) % ButtonCount;
        if (Buttons[index].tabbable)
            return selectButtonAtIndex(index);
    }
}

bool HVStatsControl::handleKeyDown(QKeyEvent* event)
{
    if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    const bool backwards = event->key() == Qt::Key_Backtab;
    if (event->key() != Qt::Key_Tab && !backwards)
        return false;
    if (!event->isAutoRepeat())
        backwards || (event->modifiers() & Qt::ShiftModifier) ? selectPreviousButton() : selectNextButton();
    return true;
}

int HVStatsControl::widthFor(LabelSize size) const
{
    const QFontMetrics metrics(font());
    LabelSize kept = m_labelSize;
    auto* self = const_cast<HVStatsControl*>(this);
    self->m_labelSize = size;
    int total = (ButtonCount - 1) * ButtonGap;
    for (int i = 0; i < ButtonCount; ++i)
        total += metrics.horizontalAdvance(label(i)) + 2 * horizontalInset(size);
    self->m_labelSize = kept;
    return total;
}

void HVStatsControl::fitToWidth(int available)
{
    m_available = available;
    m_labelSize = LongLabels;
    if (widthFor(LongLabels) > available)
        m_labelSize = widthFor(ShortLabels) > available ? TinyLabels : ShortLabels;
    // Narrower than even the tiny labels, the buttons are clipped, never overlapped.
    resize(std::max(0, std::min(widthFor(m_labelSize), std::max(available, 0))), ButtonHeight);
    layoutButtons();
    update();
}

void HVStatsControl::layoutButtons()
{
    const QFontMetrics metrics(font());
    int x = 0;
    for (int i = 0; i < ButtonCount; ++i) {
        const int w = metrics.horizontalAdvance(label(i)) + 2 * horizontalInset(m_labelSize);
        m_rects[size_t(i)] = QRect(x, 0, w, ButtonHeight);
        x += w + ButtonGap;
    }
}

int HVStatsControl::buttonAt(const QPoint& point) const
{
    for (int i = 0; i < ButtonCount; ++i)
        if (m_rects[size_t(i)].contains(point))
            return i;
    return -1;
}

void HVStatsControl::updateColors()
{
    m_winAlpha = std::clamp(m_defaults->floatForKey(QStringLiteral("windowAlpha")), 0.0f, 1.0f);
    QColor color = m_defaults->colorForKey(QStringLiteral("windowColor"));
    if (!color.isValid())
        color = Qt::black;
    if (m_winAlpha < 0.01f) {
        m_foreground = Qt::white;
        m_background = Qt::black;
    } else {
        m_background = color.valueF() > 0.73 ? QColor(Qt::white) : QColor(Qt::black);
        m_foreground = color.valueF() > 0.73 ? QColor(Qt::black) : QColor(Qt::white);
    }
    update();
}

void HVStatsControl::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool transparent = m_winAlpha < 0.01f;
    for (int i = 0; i < ButtonCount; ++i) {
        const QRectF rect = QRectF(m_rects[size_t(i)]).adjusted(0.5, 0.5, -0.5, -0.5);
        const bool lit = i == m_selected || i == m_pressed;
        QColor fill = m_foreground;
        fill.setAlphaF(transparent ? (lit ? 0.5 : 0.3) : (lit ? 0.5 : 0.3) * m_winAlpha);
        painter.setPen(Qt::NoPen);
        painter.setBrush(fill);
        painter.drawRoundedRect(rect, rect.height() / 2, rect.height() / 2);
        painter.setPen(m_foreground);
        painter.drawText(rect, Qt::AlignCenter, label(i));
    }
}

void HVStatsControl::setPressed(int index)
{
    if (index != m_pressed) {
        m_pressed = index;
        update();
    }
}

void HVStatsControl::mousePressEvent(QMouseEvent* event)
{
    setPressed(buttonAt(event->position().toPoint()));
    event->accept(); // the panel does not move from here
}

void HVStatsControl::mouseMoveEvent(QMouseEvent* event)
{
    setPressed(buttonAt(event->position().toPoint()));
}

void HVStatsControl::mouseReleaseEvent(QMouseEvent* event)
{
    setPressed(-1);
    const int index = buttonAt(event->position().toPoint());
    if (index >= 0)
        selectButtonAtIndex(index);
}

void HVStatsControl::testDrag(const QPoint& point)
{
    const int index = buttonAt(point);
    if (index < 0) {
        m_dragButton = -1;
        m_dragTimer->stop();
    } else if (index != m_dragButton) {
        m_dragButton = index;
        m_dragTimer->start(SpringDelayMs);
    }
}

void HVStatsControl::dragEnterEvent(QDragEnterEvent* event)
{
    testDrag(event->position().toPoint());
    event->accept(); // to hear where the drag goes; nothing is ever dropped here
}

void HVStatsControl::dragMoveEvent(QDragMoveEvent* event)
{
    testDrag(event->position().toPoint());
    event->ignore();
}

void HVStatsControl::dragLeaveEvent(QDragLeaveEvent*)
{
    m_dragButton = -1;
    m_dragTimer->stop();
}
