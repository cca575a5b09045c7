#include "tabtable.h"

#include <QRegularExpression>

namespace TabTable {

QList<QVariantMap> componentsSeparatedByTabsAndBreaks(const QString& text)
{
    static const QRegularExpression lineBreak(QStringLiteral("\r\n|\r|\n|\u2028|\u2029"));
    QList<QVariantMap> rows;
    QStringList header;
    bool haveHeader = false;
    for (const QString& line : text.split(lineBreak)) {
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const QStringList cells = line.split(QLatin1Char('\t'));
        if (!haveHeader) {
            haveHeader = true;
            header = cells;
            if (!header.isEmpty())
                rows.append({{QStringLiteral("keys"), header}});
            continue;
        }
        QVariantMap row;
        for (qsizetype i = 0; i < std::min(header.size(), cells.size()); ++i) {
            if (!header.at(i).isEmpty() && !cells.at(i).isEmpty())
                row.insert(header.at(i), cells.at(i));
        }
        if (!row.isEmpty())
            rows.append(row);
    }
    return rows;
}

} // namespace TabTable
