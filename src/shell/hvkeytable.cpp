#include "hvkeytable.h"

#include "common/tabtable.h"

#include <QFile>

namespace HVKeyTable {

QList<HVKeyTableRow> rowsFromText(const QString& text)
{
    QList<HVKeyTableRow> rows;
    const QList<QVariantMap> table = TabTable::componentsSeparatedByTabsAndBreaks(text);
    for (const QVariantMap& row : table) {
        if (!row.contains(QStringLiteral("title")) || !row.contains(QStringLiteral("tag")))
            continue;
        rows.append({row.value(QStringLiteral("title")).toString(), row.value(QStringLiteral("tag")).toInt(),
                     row.value(QStringLiteral("keysym")).toString()});
    }
    return rows;
}

QList<HVKeyTableRow> rows()
{
    QFile file(QStringLiteral(":/USExtendedKeycodes.txt"));
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("The key table resource is missing");
        return {};
    }
    return rowsFromText(QString::fromUtf8(file.readAll()));
}

HVKeyTableRow rowForTag(const QList<HVKeyTableRow>& rows, int tag)
{
    for (const HVKeyTableRow& row : rows) {
        if (row.tag == tag)
            return row;
    }
    return {};
}

QString hotKeyString(const QList<HVKeyTableRow>& rows, int code, int modifierMask)
{
    const QString name = rowForTag(rows, code).title;
    if (name.isEmpty())
        return QStringLiteral("missing resource");
    if (code < 0)
        return name;
    // The stored mask keeps the classic bits; the desktop calls the keys Ctrl, Alt, Super and Shift.
    const QString control = modifierMask & 4096 ? QStringLiteral("Ctrl + ") : QString();
    const QString option = modifierMask & 2048 ? QStringLiteral("Alt + ") : QString();
    const QString command = modifierMask & 256 ? QStringLiteral("Super + ") : QString();
    const QString shift = modifierMask & 512 ? QStringLiteral("Shift + ") : QString();
    return control + option + command + shift + name;
}

} // namespace HVKeyTable
