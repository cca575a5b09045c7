// A notification: a name, the object it is about and a dictionary of details.
#pragma once

#include <QMetaType>
#include <QString>
#include <QVariant>
#include <QVariantMap>

struct HVNotification
{
    QString name;
    QVariant object;      // the sender or the thing the notification is about; may be null
    QVariantMap userInfo; // details, may be empty
};

Q_DECLARE_METATYPE(HVNotification)
