// The hot key table, and the names made from each of its codes with every modifier mask.
#include "fuzzinput.h"

#include "shell/hvkeytable.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    const QList<HVKeyTableRow> rows = HVKeyTable::rowsFromText(text);
    const int mask = size > 0 ? data[0] : 0;
    for (const HVKeyTableRow& row : rows) {
        HVKeyTable::rowForTag(rows, row.tag);
        HVKeyTable::hotKeyString(rows, row.tag, mask << 16);
    }
    HVKeyTable::hotKeyString(rows, -1, mask << 16);
    return 0;
}
