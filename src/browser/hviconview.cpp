// Set-up of the icon view: its preference defaults, and what it observes in the preferences, the
// catalogue and the notification centre.
#include "hviconview.h"
#include "hviconviewaccessible.h"
#include "hviconviewdrag.h"

#include "catalogue/hvappgroup.h"
#include "catalogue/hvappmanager.h"
#include "common/hvnotificationcenter.h"
#include "common/hvuserdefaults.h"
#include "common/notificationnames.h"

#include <QTimer>

namespace {
const QStringList AppearanceKeys = {"windowAlpha",
                                    "windowColor",
                                    "excludedIconAlpha",
                                    "drawFilledIconHighlight",
                                    "drawStrokedIconHighlight",
                                    "iconHighlightColor"};
const QStringList LayoutKeys = {"iconReadingOrder", "iconPadding", "iconSpacing", "minimizeEmptyCells"};

// The groups that show a catalogue list (or its flat twin): a change of the list re-lays them out.
QList<int> groupsShowingList(const QString& key)
{
    using namespace HVAppListKeys;
    if (key == AllApps || key == AllApps1D)
        return {HVAppGroupAll, HVAppGroupAll1D};
    if (key == IncludedApps || key == IncludedApps1D)
        return {HVAppGroupIncluded, HVAppGroupIncluded1D};
    // The missing apps are worked out together with the excluded ones.
    if (key == ExcludedApps || key == ExcludedApps1D)
        return {HVAppGroupExcluded, HVAppGroupExcluded1D, HVAppGroupMissing};
    if (key == UserApps || key == UserApps1D)
        return {HVAppGroupUser, HVAppGroupUser1D};
    if (key == RunningApps)
        return {HVAppGroupRunning};
    return {};
}
} // namespace

HVIconView::HVIconView(HVAppManager* manager, HVUserDefaults* defaults, QWidget* parent)
    : QWidget(parent), m_manager(manager),
      m_defaults(defaults ? defaults : HVUserDefaults::standardUserDefaults()),
      m_filterSubstringTimer(new QTimer(this))
{
    qRegisterMetaType<HVAppRef>();
    static const bool accessible = [] {
        QAccessible::installFactory(&HVIconViewAccessible::factory);
        return true;
    }();
    Q_UNUSED(accessible);
    m_dragger = new HVIconViewDrag(this);
    initialize(m_defaults);
    setMouseTracking(true);
    setAcceptDrops(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Applications"));
    setAutoFillBackground(false);
    m_filterSubstringTimer->setSingleShot(true);
    connect(m_filterSubstringTimer, &QTimer::timeout, this, &HVIconView::filterSubstringTimerFired);

    connect(m_defaults, &HVUserDefaults::valueChanged, this, &HVIconView::preferenceChanged);
    if (m_manager)
        connect(m_manager, &HVAppManager::didChange, this, &HVIconView::catalogueDidChange);
    HVNotificationCenter* center = HVNotificationCenter::defaultCenter();
    center->addButFirstRemoveObserver(this, "updateAppIcon", HVNotificationNames::AppIconChanged);
    center->addButFirstRemoveObserver(this, "showProgressStep", HVNotificationNames::ShowProgressStep);
    center->addButFirstRemoveObserver(this, "modifierKeysChanged", HVNotificationNames::EventFlagsChanged);

    m_look = HVIconViewAppearance::fromUserDefaults(*m_defaults);
    m_filter.setMatchesKeywords(m_defaults->boolForKey(QStringLiteral("matchKeywords")));
    refreshMembershipSets();
    updateLayout();
}

HVIconView::~HVIconView()
{
    HVNotificationCenter::defaultCenter()->removeObserver(this);
}

void HVIconView::initialize(HVUserDefaults* defaults)
{
    if (!defaults)
        return;
    defaults->registerDefaults({
        {"groupOrientation", 2},
        {"iconReadingOrder", 1},
        {"maximumIconSize", 64},
        {"iconPadding", 2},
        {"iconSpacing", 0},
        {"excludedIconAlpha", 0.15},
        {"drawFilledIconHighlight", true},
        {"drawStrokedIconHighlight", false},
        {"iconHighlightColor", QColor(Qt::red)},
        {"reverseScrollWheel", false},
        {"minimizeEmptyCells", false},
        {"matchKeywords", true},
    });
}

void HVIconView::preferenceChanged(const QString& key, const QVariant&, const QVariant& newValue)
{
    if (AppearanceKeys.contains(key)) {
        updateColors();
    } else if (key == QLatin1String("groupOrientation")) {
        // Stacked or unbunched grids read down then across, bunches side by side across then down.
        const qint64 orientation = newValue.toLongLong();
        if (orientation == 0 || orientation == 1)
            m_defaults->setInteger(2, QStringLiteral("iconReadingOrder"));
        else if (orientation == 2)
            m_defaults->setInteger(1, QStringLiteral("iconReadingOrder"));
        // The reading order may have been right already, with no change to re-lay out on.
        if (HVIconLayoutPreferences::fromUserDefaults(*m_defaults).clamped() != m_layout.preferences())
            updateLayout();
    } else if (key == QLatin1String("matchKeywords")) {
        m_filter.setMatchesKeywords(newValue.toBool());
        m_filteredCells.invalidate();
        repaintFilteredCells();
    } else if (LayoutKeys.contains(key)) {
        updateLayout();
    } else if (key == QLatin1String("maximumIconSize")) {
        updateLayout();
        if (m_manager) {
            m_manager->loadAllIconsPrioritizingGroup(m_groupShown);
            m_manager->loadIconsForApps(m_manager->runningApps());
        }
    }
}

void HVIconView::catalogueDidChange(const QStringList& keys)
{
    bool relayout = false;
    bool repaint = false;
    for (const QString& key : keys) {
        if (groupsShowingList(key).contains(m_groupShown))
            relayout = true;
        // Highlights follow the running apps, fading follows the excluded ones.
        if (key == HVAppListKeys::RunningApps || key == HVAppListKeys::ExcludedApps1D)
            repaint = true;
    }
    if (repaint)
        refreshMembershipSets();
    if (relayout && m_keys.shift) {
        m_layoutPending = true; // settles when Shift is let go, so icons stay under the pointer
        update();
    } else if (relayout) {
        resizeViewForced(false);
    } else if (repaint) {
        update();
    }
}

void HVIconView::refreshMembershipSets()
{
    m_runningApps.clear();
    m_excludedApps.clear();
    if (!m_manager)
        return;
    for (const HVAppRef& app : m_manager->runningApps())
        m_runningApps.insert(app.get());
    for (const HVAppRef& app : m_manager->excludedApps1D())
        m_excludedApps.insert(app.get());
}

void HVIconView::postSubviewNeedsResizing()
{
    HVNotificationCenter::defaultCenter()->postNotificationName(HVNotificationNames::SubviewNeedsResizing,
                                                                QVariant::fromValue<QObject*>(this));
}

void HVIconView::updateColors()
{
    m_look = HVIconViewAppearance::fromUserDefaults(*m_defaults);
    update();
}

void HVIconView::setDragState(const HVIconDragState& state)
{
    m_drag = state;
    m_droppableApps.clear();
    for (const HVAppRef& app : std::as_const(m_drag.droppableApps))
        m_droppableApps.insert(app.get());
    updateCursor();
    update();
}
