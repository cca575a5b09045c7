// nimboctl defaults: reads and writes Nimbo's preferences as JSON. A running Nimbo picks the
// change up at once.
#include "ctlcommand.h"

#include "catalogue/hvappmanager.h"
#include "common/hvuserdefaults.h"
#include "common/settingsjsonformat.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

namespace {
QByteArray jsonText(const QJsonValue& value, QJsonDocument::JsonFormat format)
{
    // A document holds an object or an array; a lone value is printed from inside an array.
    if (value.isObject())
        return QJsonDocument(value.toObject()).toJson(format).trimmed();
    if (value.isArray())
        return QJsonDocument(value.toArray()).toJson(format).trimmed();
    const QByteArray wrapped = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return wrapped.mid(1, wrapped.size() - 2);
}

std::optional<QJsonValue> parseJsonValue(const QString& text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson("[" + text.toUtf8() + "]", &error);
    if (error.error != QJsonParseError::NoError || document.array().size() != 1)
        return std::nullopt;
    return document.array().first();
}

int read(HVUserDefaults& defaults, const QStringList& args)
{
    QTextStream out(stdout);
    if (args.isEmpty()) {
        out << jsonText(SettingsJsonFormat::toJson(defaults.persistentDomain()), QJsonDocument::Indented)
            << "\n";
        return 0;
    }
    const QVariant value = defaults.objectForKey(args.first());
    if (!value.isValid()) {
        QTextStream(stderr) << "nimboctl: no preference \"" << args.first() << "\"\n";
        return 1;
    }
    out << jsonText(SettingsJsonFormat::toJson(value), QJsonDocument::Compact) << "\n";
    return 0;
}

int write(HVUserDefaults& defaults, const QStringList& args)
{
    if (args.size() != 2) {
        QTextStream(stderr) << "usage: nimboctl defaults write KEY JSON\n";
        return 2;
    }
    const auto value = parseJsonValue(args.at(1));
    if (!value || value->isNull()) {
        QTextStream(stderr) << "nimboctl: not a JSON value: " << args.at(1) << "\n";
        return 2;
    }
    defaults.setObject(SettingsJsonFormat::fromJson(*value), args.first());
    return defaults.synchronize() ? 0 : 1;
}

int runDefaults(const QStringList& args)
{
    HVUserDefaults* defaults = HVUserDefaults::standardUserDefaults();
    HVAppManager::initialize(defaults); // the catalogue's registered defaults are readable too
    const QString verb = args.value(0);
    if (verb == QLatin1String("read"))
        return read(*defaults, args.mid(1));
    if (verb == QLatin1String("write"))
        return write(*defaults, args.mid(1));
    if (verb == QLatin1String("delete") && args.size() == 2) {
        defaults->removeObjectForKey(args.at(1));
        return defaults->synchronize() ? 0 : 1;
    }
    QTextStream(stderr) << "usage: nimboctl defaults read [KEY] | write KEY JSON | delete KEY\n";
    return 2;
}
} // namespace

NIMBOCTL_COMMAND("defaults", "defaults read [KEY] | write KEY JSON | delete KEY", runDefaults)
