// A desktop entry as the catalogue reads it: its texts, and whether it shows.
#include "fuzzinput.h"

#include "platform/gioentryreader.h"

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    FuzzInput::silenceQt();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString path = FuzzInput::writeFile(QStringLiteral("org.example.App.desktop"), data, size);
    const GioEntryReader reader;
    reader.entryText(path);
    reader.showsApplication(path);
    return 0;
}
