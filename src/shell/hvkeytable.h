// The keys offered for the hot key: a tab-separated resource with the columns "title" (the
// name shown), "tag" (the stored key code) and "keysym" (the X key it stands for). A negative
// tag stands for "no hot key".
#pragma once

#include <QList>
#include <QString>

struct HVKeyTableRow
{
    QString title;
    int tag = 0;
    QString keysym;
};

namespace HVKeyTable {
// The rows that have both a title and a tag, in the order of the resource.
QList<HVKeyTableRow> rows();
QList<HVKeyTableRow> rowsFromText(const QString& text);
// The row for a stored key code, or an empty row (no title) when the table lacks it.
HVKeyTableRow rowForTag(const QList<HVKeyTableRow>& rows, int tag);
// "Ctrl + Alt + Tab": the modifier prefix in a fixed order, then the key's name;
// "missing resource" when the table lacks the code.
QString hotKeyString(const QList<HVKeyTableRow>& rows, int code, int modifierMask);
} // namespace HVKeyTable
