// The preferences file as QSettings reads it, every value converted back as nimboctl does.
#include "fuzzinput.h"

#include "common/settingsjsonformat.h"

#include <QSettings>

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    FuzzInput::silenceQt();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString path = FuzzInput::writeFile(QStringLiteral("Nimbo.conf"), data, size);
    QSettings settings(path, SettingsJsonFormat::format());
    for (const QString& key : settings.allKeys()) {
        const QVariant value = settings.value(key);
        if (SettingsJsonFormat::isStorable(value))
            SettingsJsonFormat::fromJson(SettingsJsonFormat::toJson(value));
    }
    return 0;
}
