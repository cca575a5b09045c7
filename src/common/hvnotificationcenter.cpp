#include "hvnotificationcenter.h"

#include <QCoreApplication>
#include <QMetaMethod>
#include <QTimer>

namespace {
bool objectMatches(const QVariant& wanted, const QVariant& actual)
{
    return !wanted.isValid() || wanted == actual;
}
} // namespace

HVNotificationCenter::HVNotificationCenter(QObject* parent) : QObject(parent)
{
    qRegisterMetaType<HVNotification>();
}

HVNotificationCenter* HVNotificationCenter::defaultCenter()
{
    // Parented to the application when there is one, so it goes away with it.
    static QPointer<HVNotificationCenter> center;
    if (!center)
        center = new HVNotificationCenter(QCoreApplication::instance());
    return center;
}

void HVNotificationCenter::addObserver(QObject* observer, const char* method, const QString& name,
                                       const QVariant& object)
{
    if (!observer || !method)
        return;
    // The method takes the notification, or nothing at all.
    const QMetaObject* meta = observer->metaObject();
    const QByteArray withNotification =
        QMetaObject::normalizedSignature(QByteArray(method) + "(HVNotification)");
    const bool takesNotification = meta->indexOfMethod(withNotification) >= 0;
    if (!takesNotification && meta->indexOfMethod(QByteArray(method) + "()") < 0) {
        qWarning("Notification observer %s has no method %s", meta->className(),
                 withNotification.constData());
        return;
    }
    m_observers.append({observer, QByteArray(method), name, object, takesNotification});
}

void HVNotificationCenter::addButFirstRemoveObserver(QObject* observer, const char* method,
                                                     const QString& name, const QVariant& object)
{
    m_observers.removeIf([&](const Registration& r) {
        return r.observer == observer && r.method == method && r.name == name && r.object == object;
    });
    addObserver(observer, method, name, object);
}

void HVNotificationCenter::removeObserver(QObject* observer, const QString& name, const QVariant& object)
{
    m_observers.removeIf([&](const Registration& r) {
        return !r.observer || (r.observer == observer && (name.isEmpty() || r.name == name) &&
                               objectMatches(object, r.object));
    });
}

void HVNotificationCenter::postNotification(const HVNotification& notification)
{
    // Observers may register or remove others while being called: deliver to a snapshot and
    // skip registrations that went away meanwhile.
    const QList<Registration> snapshot = m_observers;
    for (const Registration& r : snapshot) {
        if (!r.observer || (!r.name.isEmpty() && r.name != notification.name) ||
            !objectMatches(r.object, notification.object))
            continue;
        if (r.takesNotification)
            QMetaObject::invokeMethod(r.observer, r.method.constData(), Qt::DirectConnection,
                                      Q_ARG(HVNotification, notification));
        else
            QMetaObject::invokeMethod(r.observer, r.method.constData(), Qt::DirectConnection);
    }
    m_observers.removeIf([](const Registration& r) { return !r.observer; });
}

void HVNotificationCenter::postNotificationName(const QString& name, const QVariant& object,
                                                const QVariantMap& userInfo)
{
    postNotification({name, object, userInfo});
}

void HVNotificationCenter::enqueueCoalescedNotificationName(const QString& name)
{
    if (!m_queued.contains(name))
        m_queued.append(name);
    if (m_postScheduled)
        return;
    m_postScheduled = true;
    // A zero timer fires once the event loop has handled what is already pending.
    QTimer::singleShot(0, this, &HVNotificationCenter::postQueued);
}

void HVNotificationCenter::postQueued()
{
    m_postScheduled = false;
    const QStringList names = std::exchange(m_queued, {});
    for (const QString& name : names)
        postNotificationName(name);
}
