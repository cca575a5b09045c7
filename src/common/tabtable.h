// A tab-separated table: a header line names the columns, every later line becomes a
// dictionary from column name to cell. Empty lines and lines starting with "#" are skipped.
#pragma once

#include <QList>
#include <QString>
#include <QVariantMap>

namespace TabTable {
// The first element is {"keys": header cells} when the header has any; then one dictionary per
// row holding its non-empty cells under non-empty column names (empty rows are left out).
QList<QVariantMap> componentsSeparatedByTabsAndBreaks(const QString& text);
} // namespace TabTable
