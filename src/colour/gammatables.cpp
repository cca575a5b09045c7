#include "gammatables.h"

#include <cmath>
#include <cstdio>
#include <mutex>
#include <new>

namespace {
std::mutex tableMutex;
std::shared_ptr<const LinearRGBFloatTable> decodeTable;
std::shared_ptr<const GammaUInt8Tables> uint8Tables;

std::uint8_t roundedByte(double value)
{
    return std::uint8_t(value * 255.0 + 0.5);
}
} // namespace

double ClampedTableGamma(double gamma)
{
    if (std::isnan(gamma) || gamma < 1.0)
        return 1.0;
    if (gamma > 3.0)
        return 3.0;
    return gamma;
}

std::shared_ptr<const LinearRGBFloatTable> LinearRGB_Float_From_GammaRGB_UInt8(double gamma)
{
    gamma = ClampedTableGamma(gamma);
    std::lock_guard<std::mutex> lock(tableMutex);
    if (decodeTable && decodeTable->gamma == gamma)
        return decodeTable;
    decodeTable.reset();
    auto* table = new (std::nothrow) LinearRGBFloatTable;
    if (!table) {
        std::fputs("\nCan't get memory for LinearRGB_Float_From_GammaRGB_UInt8 lookup table!", stderr);
        return nullptr;
    }
    table->gamma = gamma;
    for (int i = 0; i < 256; ++i)
        table->values[i] = std::pow(i / 255.0, gamma);
    decodeTable.reset(table);
    return decodeTable;
}

std::shared_ptr<const GammaUInt8Tables> GammaRGB_UInt8_Tables(double gamma)
{
    gamma = ClampedTableGamma(gamma);
    std::lock_guard<std::mutex> lock(tableMutex);
    if (uint8Tables && uint8Tables->gamma == gamma)
        return uint8Tables;
    uint8Tables.reset();
    auto* tables = new (std::nothrow) GammaUInt8Tables;
    if (!tables) {
        std::fputs("\nCan't get memory for UInt8 gamma lookup table(s)!", stderr);
        return nullptr;
    }
    tables->gamma = gamma;
    for (int i = 0; i < 256; ++i) {
        tables->remove[i] = roundedByte(std::pow(i / 255.0, gamma));
        tables->add[i] = roundedByte(std::pow(i / 255.0, 1.0 / gamma));
    }
    uint8Tables.reset(tables);
    return uint8Tables;
}
