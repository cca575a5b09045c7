#include "systemdunitname.h"

namespace SystemdUnitName {

namespace {
const QLatin1String AppPrefix("app-");
const QLatin1String ScopeSuffix(".scope");
const QLatin1String ServiceSuffix(".service");

bool keepsAsIs(char c, bool first)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == ':' ||
           c == '_' || (c == '.' && !first);
}

int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// The IDs the parts can form: launcher parts dropped from the front, one first, then none,
// then more.
QStringList idsFrom(const QStringList& parts)
{
    QStringList ids;
    const auto idFrom = [&parts](qsizetype first) {
        QStringList unescaped;
        for (qsizetype i = first; i < parts.size(); ++i)
            unescaped.append(unescape(parts.at(i)));
        return unescaped.join(QLatin1Char('-'));
    };
    if (parts.size() > 1)
        ids.append(idFrom(1));
    ids.append(idFrom(0));
    for (qsizetype first = 2; first < parts.size(); ++first)
        ids.append(idFrom(first));
    return ids;
}
} // namespace

Parsed parse(const QString& unit)
{
    const bool scope = unit.endsWith(ScopeSuffix);
    if (!unit.startsWith(AppPrefix) || (!scope && !unit.endsWith(ServiceSuffix)))
        return {};
    QString body = unit.sliced(AppPrefix.size());
    body.chop(scope ? ScopeSuffix.size() : ServiceSuffix.size());
    const qsizetype at = body.indexOf(QLatin1Char('@'));
    const bool instance = !scope && at >= 0;
    if (instance)
        body.truncate(at);
    QStringList parts = body.split(QLatin1Char('-'));
    Parsed parsed{Kind::Odd, {}};
    for (const QString& part : std::as_const(parts)) {
        if (part.isEmpty() || unescape(part).isEmpty())
            return parsed;
    }
    if (scope) {
        // The random part comes last, and something must come before it.
        if (parts.size() < 2)
            return parsed;
        parts.removeLast();
        parsed.applicationIds = idsFrom(parts);
    } else {
        parsed.applicationIds = idsFrom(parts);
        // A service without an instance may still end in a random part, as desktops once named them.
        if (!instance && parts.size() > 1) {
            parts.removeLast();
            for (const QString& id : idsFrom(parts)) {
                if (!parsed.applicationIds.contains(id))
                    parsed.applicationIds.append(id);
            }
        }
    }
    parsed.kind = Kind::Application;
    return parsed;
}

QString scopeForLaunch(const QString& applicationId, quint32 random)
{
    return AppPrefix + QStringLiteral("nimbo-") + escape(applicationId) + QLatin1Char('-') +
           QString::number(random, 16) + ScopeSuffix;
}

QString escape(const QString& part)
{
    const QByteArray bytes = part.toUtf8();
    QString escaped;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const char c = bytes.at(i);
        if (keepsAsIs(c, i == 0))
            escaped.append(QLatin1Char(c));
        else
            escaped.append(QStringLiteral("\\x%1").arg(uchar(c), 2, 16, QLatin1Char('0')));
    }
    return escaped;
}

QString unescape(const QString& part)
{
    const QByteArray bytes = part.toUtf8();
    QByteArray plain;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        if (bytes.at(i) == '\\' && i + 3 < bytes.size() && bytes.at(i + 1) == 'x' &&
            hexValue(bytes.at(i + 2)) >= 0 && hexValue(bytes.at(i + 3)) >= 0) {
            plain.append(char(hexValue(bytes.at(i + 2)) * 16 + hexValue(bytes.at(i + 3))));
            i += 3;
        } else {
            plain.append(bytes.at(i));
        }
    }
    return QString::fromUtf8(plain);
}

} // namespace SystemdUnitName
