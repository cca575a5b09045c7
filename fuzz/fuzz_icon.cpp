// An icon file as the loader takes it: drawn into its square (SVG, PNG, XPM, ... by content),
// then analysed for its dominant colours. Inputs are bounded to keep the run fast; the
// renderer's own bounds (file size, pixel count) are what stop larger hostile files.
#include "fuzzinput.h"

#include "catalogue/iconanalysis.h"
#include "platform/iconfilerenderer.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    // Image format plugins (and SVG's fonts) need the application object.
    FuzzInput::startQuietGuiApplication(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size > 64 * 1024)
        return 0;
    const QString path = FuzzInput::writeFile(QStringLiteral("icon"), data, size);
    QString error;
    const QImage icon = IconFileRenderer::render(path, 64, &error);
    if (icon.isNull())
        return 0;
    IconAnalysisWork::analyse(icon, 0.5f, 0.5f);
    return 0;
}
