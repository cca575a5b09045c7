// The "HVApp" data of a drag, which any program on the desktop can offer: whatever the decoder
// accepts must encode and decode again to the same payload.
#include "fuzzinput.h"

#include "browser/hvdragpayload.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    // The panel decodes with its application object running; values of Gui types need it.
    FuzzInput::startQuietGuiApplication(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto payload =
        HVDragPayload::decoded(QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size)));
    if (!payload)
        return 0;
    const auto again = HVDragPayload::decoded(payload->encoded());
    if (!again || again->appPath != payload->appPath || again->group != payload->group ||
        again->bunch != payload->bunch || again->index != payload->index)
        qFatal("a payload changed on its way through encoding");
    return 0;
}
