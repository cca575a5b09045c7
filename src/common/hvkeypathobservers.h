// The key-path observer table: a class describes the preferences it observes as a list of
// entries (key path, registered default, handler name, options). From that one table it
// registers its defaults once, starts and stops observing, and has each change dispatched to
// its `observe_<key>` handler, an invokable method taking the change dictionary.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QVariant>
#include <QVariantMap>

class HVUserDefaults;
class QObject;

struct HVKeyPathObserver
{
    enum Option { New = 1, Old = 2 };

    QString keyPath;
    QVariant defaultValue;            // invalid: the entry registers no default
    QByteArray selector;              // e.g. "observe_groupContentsSortOrder"; empty: default only
    HVUserDefaults* object = nullptr; // the observed defaults; null means the standard defaults
    int options = New | Old;
};
using HVKeyPathObserverTable = QList<HVKeyPathObserver>;

// The keys of a change dictionary.
namespace HVKeyValueChange {
inline const QString NewKey = QStringLiteral("new");
inline const QString OldKey = QStringLiteral("old");
inline const QString KindKey = QStringLiteral("kind");
} // namespace HVKeyValueChange

namespace HVKeyPathObserving {
// Registers the defaults of every entry that has one, each in its own defaults object.
void registerUserDefaultsFromHalvornKeyPathObservers(const HVKeyPathObserverTable& table);
// Starts observing every entry whose handler the observer implements. No handler is called now.
void registerHalvornKeyPathObservers(QObject* observer, const HVKeyPathObserverTable& table);
void unregisterHalvornKeyPathObservers(QObject* observer, const HVKeyPathObserverTable& table);
// Routes one change to the handler of the entry for `keyPath`; false when no entry claims it.
bool dispatchFromHalvornKeyPathObservers(QObject* observer, const HVKeyPathObserverTable& table,
                                         const QString& keyPath, const QVariantMap& change);
} // namespace HVKeyPathObserving

// What an `observe_<key>` handler remembers: it acts on the first value it sees and then
// only on values that differ from the last one.
template<typename T>
class HVLastValue
{
public:
    bool changeTo(const T& value)
    {
        if (m_seen && m_value == value)
            return false;
        m_seen = true;
        m_value = value;
        return true;
    }

private:
    T m_value{};
    bool m_seen = false;
};
