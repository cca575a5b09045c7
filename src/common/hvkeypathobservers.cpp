#include "hvkeypathobservers.h"

#include "hvuserdefaults.h"

#include <QHash>
#include <QMetaObject>
#include <QObject>

namespace {
HVUserDefaults* defaultsOf(const HVKeyPathObserver& entry)
{
    return entry.object ? entry.object : HVUserDefaults::standardUserDefaults();
}

bool implements(QObject* observer, const QByteArray& selector)
{
    const QByteArray signature = QMetaObject::normalizedSignature(selector + "(QVariantMap)");
    return observer->metaObject()->indexOfMethod(signature) >= 0;
}

// The live observations, per observer and key path; they end with the observer.
class Registrations : public QObject
{
public:
    using QObject::QObject;
    QHash<QString, QMetaObject::Connection> connections;
    ~Registrations() override
    {
        for (const QMetaObject::Connection& connection : std::as_const(connections))
            QObject::disconnect(connection);
    }
};

Registrations* registrationsOf(QObject* observer, bool create)
{
    auto* registrations =
        observer->findChild<Registrations*>(QStringLiteral("HVKeyPathObservers"), Qt::FindDirectChildrenOnly);
    if (!registrations && create) {
        registrations = new Registrations(observer);
        registrations->setObjectName(QStringLiteral("HVKeyPathObservers"));
    }
    return registrations;
}

QVariantMap changeDictionary(const HVKeyPathObserver& entry, const QVariant& oldValue,
                             const QVariant& newValue)
{
    QVariantMap change{{HVKeyValueChange::KindKey, 1}};
    if (entry.options & HVKeyPathObserver::New)
        change.insert(HVKeyValueChange::NewKey, newValue);
    if (entry.options & HVKeyPathObserver::Old)
        change.insert(HVKeyValueChange::OldKey, oldValue);
    return change;
}
} // namespace

namespace HVKeyPathObserving {

void registerUserDefaultsFromHalvornKeyPathObservers(const HVKeyPathObserverTable& table)
{
    QHash<HVUserDefaults*, QVariantMap> defaults;
    for (const HVKeyPathObserver& entry : table) {
        if (entry.defaultValue.isValid())
            defaults[defaultsOf(entry)].insert(entry.keyPath, entry.defaultValue);
    }
    for (auto it = defaults.begin(); it != defaults.end(); ++it)
        it.key()->registerDefaults(it.value());
}

void registerHalvornKeyPathObservers(QObject* observer, const HVKeyPathObserverTable& table)
{
    if (!observer)
        return;
    Registrations* registrations = registrationsOf(observer, true);
    for (const HVKeyPathObserver& entry : table) {
        if (entry.selector.isEmpty() || !implements(observer, entry.selector))
            continue;
        QObject::disconnect(registrations->connections.take(entry.keyPath));
        registrations->connections.insert(
            entry.keyPath,
            QObject::connect(defaultsOf(entry), &HVUserDefaults::valueChanged, observer,
                             [observer, table, entry](const QString& key, const QVariant& oldValue,
                                                      const QVariant& newValue) {
                                 if (key == entry.keyPath)
                                     dispatchFromHalvornKeyPathObservers(
                                         observer, table, key, changeDictionary(entry, oldValue, newValue));
                             }));
    }
}

void unregisterHalvornKeyPathObservers(QObject* observer, const HVKeyPathObserverTable& table)
{
    Registrations* registrations = observer ? registrationsOf(observer, false) : nullptr;
    if (!registrations)
        return;
    for (const HVKeyPathObserver& entry : table)
        QObject::disconnect(registrations->connections.take(entry.keyPath));
}

bool dispatchFromHalvornKeyPathObservers(QObject* observer, const HVKeyPathObserverTable& table,
                                         const QString& keyPath, const QVariantMap& change)
{
    for (const HVKeyPathObserver& entry : table) {
        if (entry.keyPath != keyPath || entry.selector.isEmpty() || !implements(observer, entry.selector))
            continue;
        return QMetaObject::invokeMethod(observer, entry.selector.constData(), Qt::DirectConnection,
                                         Q_ARG(QVariantMap, change));
    }
    return false;
}

} // namespace HVKeyPathObserving
