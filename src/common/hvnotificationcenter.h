// The notification centre: observers register a method (an invokable or slot taking
// `const HVNotification&`, or nothing) for a name and, optionally, one object; posting calls them at once,
// in registration order, on the posting thread.
#pragma once

#include "hvnotification.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QSet>

class HVNotificationCenter : public QObject
{
    Q_OBJECT
public:
    explicit HVNotificationCenter(QObject* parent = nullptr);

    // The process's default centre (created on first use, lives as long as the application).
    static HVNotificationCenter* defaultCenter();

    // Registers `method` (a method name such as "appIconChanged") of `observer` for `name`.
    // An empty name means every name; a null object means any object. Registering the same
    // thing twice delivers twice, as with any notification centre.
    void addObserver(QObject* observer, const char* method, const QString& name,
                     const QVariant& object = QVariant());
    // The same, but first removes an equal registration, so that doing it twice never doubles delivery.
    void addButFirstRemoveObserver(QObject* observer, const char* method, const QString& name,
                                   const QVariant& object = QVariant());
    // Removes the observer's registrations for `name` (all names when empty) and `object`
    // (all objects when null). Destroyed observers are removed automatically.
    void removeObserver(QObject* observer, const QString& name = QString(),
                        const QVariant& object = QVariant());

    void postNotification(const HVNotification& notification);
    void postNotificationName(const QString& name, const QVariant& object = QVariant(),
                              const QVariantMap& userInfo = QVariantMap());

    // Posts the named notification (no object) once the event loop is next idle; enqueuing it
    // again before then coalesces into that one posting.
    void enqueueCoalescedNotificationName(const QString& name);

    int observerCount() const { return int(m_observers.size()); }

private:
    struct Registration
    {
        QPointer<QObject> observer;
        QByteArray method;
        QString name;
        QVariant object;
        bool takesNotification = true;
    };
    void postQueued();

    QList<Registration> m_observers;
    QStringList m_queued;
    bool m_postScheduled = false;
};
