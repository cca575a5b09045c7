// Ordering: every list but the user's own follows "groupContentsSortOrder" (path, name or
// icon colour); colour order is refreshed one second after the last icon arrived.
#include "hvappmanager.h"

#include "common/hvuserdefaults.h"

#include <QCollator>
#include <QTimer>

namespace {
const QString SortOrderKey = QStringLiteral("groupContentsSortOrder");
const QString SortRunningKey = QStringLiteral("sortRunningByLaunchOrder");
const QStringList ColorSortKeys = {
    QStringLiteral("colorSortGrayThreshold"), QStringLiteral("colorSortWrapHue"),
    QStringLiteral("colorSortMinSaturation"), QStringLiteral("colorSortMinLuminosity"),
    QStringLiteral("colorSortGraysBySecondaryColor")};

QString fileNameOf(const HVAppRef& app)
{
    return app->path().section(QLatin1Char('/'), -1);
}

float floatOf(const QVariantMap& change)
{
    const QVariant value = change.value(HVKeyValueChange::NewKey);
    return value.metaType().id() == QMetaType::Bool ? (value.toBool() ? 1.0f : 0.0f) : value.toFloat();
}

// Sorts by keys computed once per record rather than at every comparison.
template<typename Key, typename MakeKey>
void sortByKey(HVAppBunch& apps, MakeKey makeKey)
{
    std::vector<std::pair<Key, HVAppRef>> keyed;
    keyed.reserve(apps.size());
    for (const HVAppRef& app : std::as_const(apps))
        keyed.emplace_back(makeKey(app), app);
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    for (qsizetype i = 0; i < apps.size(); ++i)
        apps[i] = std::move(keyed[i].second);
}

struct NameKey
{
    std::optional<QCollatorSortKey> name; // the language's collation
    QString foldedName;                   // the C locale's: case-folded code units
    QString fileName;
    bool operator<(const NameKey& other) const
    {
        const int byName = name ? name->compare(*other.name) : foldedName.compare(other.foldedName);
        return byName != 0 ? byName < 0 : fileName < other.fileName;
    }
};

void sortByName(HVAppBunch& apps)
{
    // Display names in the user's language, case-insensitively; equal names by file name.
    // The C locale's collator ignores case only when comparing, not in its sort keys.
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    const bool plain = collator.locale().language() == QLocale::C;
    sortByKey<NameKey>(apps, [&collator, plain](const HVAppRef& app) {
        const QString name = app->name();
        NameKey key{std::nullopt, QString(), fileNameOf(app).toCaseFolded()};
        if (plain)
            key.foldedName = name.toCaseFolded();
        else
            key.name = collator.sortKey(name);
        return key;
    });
}

void sortByPath(HVAppBunch& apps)
{
    sortByKey<QString>(apps, [](const HVAppRef& app) { return app->path().toCaseFolded(); });
}
} // namespace

int HVAppManager::sortOrder() const
{
    const qint64 order = m_defaults->integerForKey(SortOrderKey);
    return order == SortByPath || order == SortByColor ? int(order) : int(SortByName);
}

bool HVAppManager::isSortedList(const HVAppBunch& apps) const
{
    if (apps.isEmpty() || &apps == &m_userApps1D)
        return false;
    for (const HVAppBunch& bunch : m_userApps) {
        if (&apps == &bunch)
            return false;
    }
    return &apps != &m_runningApps || !m_defaults->boolForKey(SortRunningKey);
}

void HVAppManager::sortArray(HVAppBunch& apps) const
{
    if (!isSortedList(apps))
        return;
    switch (sortOrder()) {
    case SortByPath:
        sortByPath(apps);
        break;
    case SortByColor:
        // Ascending colour values; equal values keep their order.
        std::stable_sort(apps.begin(), apps.end(), [](const HVAppRef& a, const HVAppRef& b) {
            return a->colorSortValue() < b->colorSortValue();
        });
        break;
    default:
        sortByName(apps);
        break;
    }
}

void HVAppManager::sortAllApps()
{
    HVListChange change(this, {HVAppListKeys::AllApps, HVAppListKeys::AllApps1D});
    for (HVAppBunch& bunch : m_allApps)
        sortArray(bunch);
    sortArray(m_allApps1D);
}

void HVAppManager::sortAllArrays()
{
    sortAllApps();
    {
        HVListChange change(this, {HVAppListKeys::IncludedApps, HVAppListKeys::IncludedApps1D});
        for (HVAppBunch& bunch : m_includedApps)
            sortArray(bunch);
        sortArray(m_includedApps1D);
    }
    {
        HVListChange change(this, {HVAppListKeys::ExcludedApps, HVAppListKeys::ExcludedApps1D});
        for (HVAppBunch& bunch : m_excludedApps)
            sortArray(bunch);
        sortArray(m_excludedApps1D);
    }
    if (!m_defaults->boolForKey(SortRunningKey)) {
        HVListChange change(this, {HVAppListKeys::RunningApps});
        sortArray(m_runningApps);
    }
}

void HVAppManager::observe_groupContentsSortOrder(const QVariantMap& change)
{
    if (m_lastSortOrder.changeTo(change.value(HVKeyValueChange::NewKey).toLongLong()))
        sortAllArrays();
}

void HVAppManager::appIconChanged(const HVNotification& notification)
{
    if (m_sortColorTimer) {
        m_sortColorTimer->stop();
        m_sortColorTimer->deleteLater();
        m_sortColorTimer = nullptr;
    }
    if (!notification.object.isValid() || notification.object.isNull())
        return;
    m_sortColorTimer = new QTimer(this);
    m_sortColorTimer->setSingleShot(true);
    m_sortColorTimer->setInterval(1000);
    connect(m_sortColorTimer, &QTimer::timeout, this, &HVAppManager::sortIconColorTimerFire);
    m_sortColorTimer->start();
}

void HVAppManager::sortIconColorTimerFire()
{
    if (m_sortColorTimer) {
        m_sortColorTimer->deleteLater();
        m_sortColorTimer = nullptr;
    }
    if (sortOrder() == SortByColor)
        sortAllArrays();
}

bool HVAppManager::hasPendingColorSort() const
{
    return m_sortColorTimer && m_sortColorTimer->isActive();
}

void HVAppManager::colorSortPreferenceChanged(HVLastValue<float>& memory, float value)
{
    // New colour parameters mean new colour values: every icon is analysed again.
    if (memory.changeTo(value))
        loadIconsForApps(m_allApps1D);
}

// The grey threshold and the wrap hue share one memory, the other three another.
void HVAppManager::observe_colorSortGrayThreshold(const QVariantMap& change)
{
    colorSortPreferenceChanged(m_lastColorThresholdOrHue, floatOf(change));
}

void HVAppManager::observe_colorSortWrapHue(const QVariantMap& change)
{
    colorSortPreferenceChanged(m_lastColorThresholdOrHue, floatOf(change));
}

void HVAppManager::observe_colorSortMinSaturation(const QVariantMap& change)
{
    colorSortPreferenceChanged(m_lastColorSaturationLuminosityOrGrays, floatOf(change));
}

void HVAppManager::observe_colorSortMinLuminosity(const QVariantMap& change)
{
    colorSortPreferenceChanged(m_lastColorSaturationLuminosityOrGrays, floatOf(change));
}

void HVAppManager::observe_colorSortGraysBySecondaryColor(const QVariantMap& change)
{
    colorSortPreferenceChanged(m_lastColorSaturationLuminosityOrGrays, floatOf(change));
}

void HVAppManager::resetColorSortingOptions()
{
    for (const QString& key : ColorSortKeys)
        m_defaults->removeObjectForKey(key);
    m_defaults->synchronize();
}

void HVAppManager::observe_sortRunningByLaunchOrder(const QVariantMap& change)
{
    if (m_lastSortRunningByLaunchOrder.changeTo(change.value(HVKeyValueChange::NewKey).toBool()))
        runningAppsListDidChange();
}
