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

// One value of the dictionary: a text or a whole number, the types the encoder writes.
// QVariant's own loader is not used: it builds whatever type the data names, and reserves room
// for as many list items as the data claims (a drag of a few bytes could ask for gigabytes).
QVariant readValue(QDataStream& stream)
{
    quint32 type = 0;
    qint8 isNull = 0;
    stream >> type >> isNull;
    switch (type) {
    case QMetaType::QString: {
        QString text;
        stream >> text;
        return text;
    }
    case QMetaType::Int: {
        qint32 number = 0;
        stream >> number;
        return number;
    }
    case QMetaType::UInt: {
        quint32 number = 0;
        stream >> number;
        return number;
    }
    case QMetaType::LongLong: {
        qint64 number = 0;
        stream >> number;
        return number;
    }
    case QMetaType::ULongLong: {
        quint64 number = 0;
        stream >> number;
        return number;
    }
    default:
        stream.setStatus(QDataStream::ReadCorruptData);
        return {};
    }
}
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
    quint32 count = 0;
    stream >> name >> count;
    QVariantMap dict;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        QString key;
        stream >> key;
        const QVariant value = readValue(stream);
        dict.insert(key, value);
    }
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
