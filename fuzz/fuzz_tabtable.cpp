// A tab-separated table.
#include "fuzzinput.h"

#include "common/tabtable.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    for (const QVariantMap& row : TabTable::componentsSeparatedByTabsAndBreaks(text))
        row.value(QStringLiteral("keys")).toStringList();
    return 0;
}
