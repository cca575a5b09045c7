#include "hvdragpayload.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QIODevice>
#include <QVariantMap>

namespace {
const QString DictName = QStringLiteral("ivDict");
const QString AppKey = QStringLiteral("_app");
const QString GroupKey = QStringLiteral("_group");
const QString BunchKey = QStringLiteral("_bunch");
const QString IndexKey = QStringLiteral("_index");
const QString ProcessKey = QStringLiteral("_pid");
} // namespace

QByteArray HVDragPayload::encoded() const
{
    const QVariantMap dict{{AppKey, appPath},
                           {GroupKey, group},
                           {BunchKey, bunch},
                           {IndexKey, index},
                           {ProcessKey, QCoreApplication::applicationPid()}};
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_0);
    stream << DictName << dict;
    return data;
}

std::optional<HVDragPayload> HVDragPayload::decoded(const QByteArray& data)
{
    QDataStream stream(data);
    stream.setVersion(QDataStream::Qt_6_0);
    QString name;
    QVariantMap dict;
    stream >> name >> dict;
    if (stream.status() != QDataStream::Ok || name != DictName || !dict.value(AppKey).canConvert<QString>()) {
        qWarning("Refusing a dragged app: the data is malformed (%lld bytes)", qlonglong(data.size()));
        return std::nullopt;
    }
    if (dict.value(ProcessKey).toLongLong() != QCoreApplication::applicationPid()) {
        qWarning("Refusing a dragged app that comes from another Nimbo process");
        return std::nullopt;
    }
    HVDragPayload payload;
    payload.appPath = dict.value(AppKey).toString();
    payload.group = dict.value(GroupKey).toULongLong();
    payload.bunch = dict.value(BunchKey).toULongLong();
    payload.index = dict.value(IndexKey).toULongLong();
    return payload;
}
