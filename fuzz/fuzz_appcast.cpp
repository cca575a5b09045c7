// A release feed as the update check reads it: a feed that reads has a newest release, and the
// version order is one order (antisymmetric, every version equal to itself).
#include "fuzzinput.h"

#include "common/appcast.h"

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    FuzzInput::silenceQt();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const AppcastFeed feed =
        Appcast::parse(QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size)));
    if (feed.ok() != !feed.items.isEmpty() || (feed.ok() && !feed.latest()))
        qFatal("a feed that reads has no newest release, or one that does not read has releases");
    for (const AppcastItem& a : feed.items) {
        if (a.version.isEmpty() || Appcast::compareVersions(a.version, a.version) != 0)
            qFatal("a version is empty or differs from itself");
        for (const AppcastItem& b : feed.items) {
            if (Appcast::compareVersions(a.version, b.version) !=
                -Appcast::compareVersions(b.version, a.version))
                qFatal("two versions are ordered both ways");
        }
    }
    return 0;
}
