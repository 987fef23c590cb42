#pragma once

#include <cstddef>

#include "models/PixelConversion.h"

/// The inner loops of `PixelConversion`, once in instructions that every x86-64 processor has and once in wider ones.
/// They are written with the processor's intrinsics: only those pack with saturation, which is half of the work.
namespace Ostrel::Detail {

/// One loop for each `ByteOrder`, for a run of pixels of four floats each. Neither reads or writes beyond the run.
struct PixelKernels {
    const char* name;
    void (*toBytes[BYTE_ORDER_COUNT])(const float* pixels, std::size_t count, unsigned char* bytes);
    void (*toPixels[BYTE_ORDER_COUNT])(const unsigned char* bytes, std::size_t count, float* pixels);
};

extern const PixelKernels SSE2_KERNELS;
extern const PixelKernels AVX2_KERNELS; ///< to be called only where `hasAvx2()`

/// Whether processor and system have AVX2.
[[nodiscard]] bool hasAvx2();

/// The fastest ones that this machine has.
[[nodiscard]] const PixelKernels& getPixelKernels();

} // namespace Ostrel::Detail
