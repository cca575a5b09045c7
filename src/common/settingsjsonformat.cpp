#include "settingsjsonformat.h"

#include <QColor>
#include <QDateTime>
#include <QIODevice>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
const QString ColorTag = QStringLiteral("@color");
const QString DataTag = QStringLiteral("@data");
const QString DateTag = QStringLiteral("@date");

bool readJson(QIODevice& device, QSettings::SettingsMap& map)
{
    const QByteArray bytes = device.readAll();
    if (bytes.trimmed().isEmpty())
        return true;
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        return false;
    const QJsonObject object = document.object();
    for (auto it = object.begin(); it != object.end(); ++it)
        map.insert(it.key(), SettingsJsonFormat::fromJson(it.value()));
    return true;
}

bool writeJson(QIODevice& device, const QSettings::SettingsMap& map)
{
    QJsonObject object;
    for (auto it = map.begin(); it != map.end(); ++it) {
        const QJsonValue value = SettingsJsonFormat::toJson(it.value());
        if (!value.isUndefined())
            object.insert(it.key(), value);
    }
    return device.write(QJsonDocument(object).toJson(QJsonDocument::Indented)) >= 0;
}
} // namespace

namespace SettingsJsonFormat {

QSettings::Format format()
{
    static const QSettings::Format registered =
        QSettings::registerFormat(QStringLiteral("conf"), readJson, writeJson);
    return registered;
}

bool isStorable(const QVariant& value)
{
    return !toJson(value).isUndefined();
}

QJsonValue toJson(const QVariant& value)
{
    switch (value.metaType().id()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
        return value.toLongLong();
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        return double(value.toULongLong());
    case QMetaType::Float:
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::QString:
        return value.toString();
    case QMetaType::QStringList:
    case QMetaType::QVariantList: {
        QJsonArray array;
        for (const QVariant& element : value.toList()) {
            const QJsonValue json = toJson(element);
            if (json.isUndefined())
                return QJsonValue(QJsonValue::Undefined);
            array.append(json);
        }
        return array;
    }
    case QMetaType::QVariantMap: {
        QJsonObject object;
        const QVariantMap map = value.toMap();
        for (auto it = map.begin(); it != map.end(); ++it) {
            const QJsonValue json = toJson(it.value());
            if (json.isUndefined())
                return QJsonValue(QJsonValue::Undefined);
            object.insert(it.key(), json);
        }
        return object;
    }
    case QMetaType::QColor: {
        const QColor color = value.value<QColor>();
        float r, g, b, a;
        color.getRgbF(&r, &g, &b, &a);
        return QJsonObject{{ColorTag, QJsonArray{r, g, b, a}}};
    }
    case QMetaType::QByteArray:
        return QJsonObject{{DataTag, QString::fromLatin1(value.toByteArray().toBase64())}};
    case QMetaType::QDateTime:
        return QJsonObject{{DateTag, value.toDateTime().toUTC().toString(Qt::ISODateWithMs)}};
    default:
        return QJsonValue(QJsonValue::Undefined);
    }
}

QVariant fromJson(const QJsonValue& value)
{
    if (value.isObject()) {
        const QJsonObject object = value.toObject();
        if (object.size() == 1) {
            const QJsonArray rgba = object.value(ColorTag).toArray();
            if (object.contains(ColorTag) && rgba.size() == 4)
                return QColor::fromRgbF(float(rgba[0].toDouble()), float(rgba[1].toDouble()),
                                        float(rgba[2].toDouble()), float(rgba[3].toDouble()));
            if (object.value(DataTag).isString())
                return QByteArray::fromBase64(object.value(DataTag).toString().toLatin1());
            if (object.value(DateTag).isString())
                return QDateTime::fromString(object.value(DateTag).toString(), Qt::ISODateWithMs);
        }
        QVariantMap map;
        for (auto it = object.begin(); it != object.end(); ++it)
            map.insert(it.key(), fromJson(it.value()));
        return map;
    }
    if (value.isArray()) {
        QVariantList list;
        for (const QJsonValue& element : value.toArray())
            list.append(fromJson(element));
        return list;
    }
    return value.toVariant();
}

} // namespace SettingsJsonFormat
