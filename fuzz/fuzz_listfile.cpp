// A list file: whatever the reader accepts must write back and read again as the same array.
#include "fuzzinput.h"

#include "catalogue/listfilestore.h"

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    FuzzInput::silenceQt();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString path = FuzzInput::writeFile(QStringLiteral("AllApplications.plist"), data, size);
    const std::optional<QVariantList> array = ListFileStore::readArray(path);
    if (!array)
        return 0;
    if (!ListFileStore::writeArray(*array, path))
        qFatal("a list that was read cannot be written");
    const std::optional<QVariantList> again = ListFileStore::readArray(path);
    if (!again || *again != *array)
        qFatal("a list changed on its way through the file");
    return 0;
}
