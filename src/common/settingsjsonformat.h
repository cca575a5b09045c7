// The file format of Nimbo.conf: a JSON object of preference keys, so that every value keeps
// its type (numbers, booleans, strings, arrays, dictionaries, colours, data, dates) across
// processes. Registered with QSettings as a custom format.
#pragma once

#include <QJsonValue>
#include <QSettings>
#include <QVariant>

namespace SettingsJsonFormat {
QSettings::Format format();

// Conversions used by the format and by nimboctl. fromJson never fails: JSON has no value
// Nimbo cannot keep. toJson answers an undefined value for a type that cannot be stored.
QJsonValue toJson(const QVariant& value);
QVariant fromJson(const QJsonValue& value);
bool isStorable(const QVariant& value);
} // namespace SettingsJsonFormat
