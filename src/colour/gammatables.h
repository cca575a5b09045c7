// The process-wide gamma look-up tables. Each is rebuilt only when a different gamma (clamped
// into [1.0, 3.0]) is asked for; the rebuild is guarded, and a caller keeps the table it was
// handed alive even if another thread replaces it meanwhile.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

// Entry i = (i / 255)^gamma: decodes an 8-bit gamma-encoded sample to linear light.
struct LinearRGBFloatTable
{
    double gamma = 0.0;
    std::array<double, 256> values{};
};

// The 8-bit pair: remove[i] = round((i/255)^gamma * 255), add[i] = round((i/255)^(1/gamma) * 255).
struct GammaUInt8Tables
{
    double gamma = 0.0;
    std::array<std::uint8_t, 256> remove{};
    std::array<std::uint8_t, 256> add{};
};

// The gamma the tables are built for: below 1.0 becomes 1.0, above 3.0 becomes 3.0 (and a
// gamma that is not a number 1.0).
double ClampedTableGamma(double gamma);

// The decode table for this gamma; null (with a message on standard error) when it cannot be made.
std::shared_ptr<const LinearRGBFloatTable> LinearRGB_Float_From_GammaRGB_UInt8(double gamma);

// The 8-bit table pair for this gamma; null (with a message on standard error) when it cannot be made.
std::shared_ptr<const GammaUInt8Tables> GammaRGB_UInt8_Tables(double gamma);
