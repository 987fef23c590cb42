#pragma once

#include <cstddef>
#include <cstdint>

#include "models/PixelConversion.h"

/// The inner loops of `PixelConversion`, twice: as plain loops, which the compiler turns into the vectors that every
/// x86-64 processor has (tools/check-vectorised proves it), and with the Highway library for the wider ones of AVX2,
/// whose byte shuffles no plain loop reaches.
namespace Ostrel::Detail {

/// One loop for each `ByteOrder`, for a run of pixels of four floats each. None reads or writes beyond the run.
struct PixelKernels {
    using ToBytes = void (*)(const float* pixels, std::size_t count, unsigned char* bytes);
    using ToPixels = void (*)(const unsigned char* bytes, std::size_t count, float* pixels);

    const char* name;
    ToBytes toBytes[BYTE_ORDER_COUNT];
    ToPixels toPixels[BYTE_ORDER_COUNT];
};

extern const PixelKernels BASELINE_KERNELS;
extern const PixelKernels AVX2_KERNELS; ///< to be called only where `hasAvx2()`

constexpr float BYTE_TO_FLOAT = 0.003921569F; ///< 1/255
constexpr float MAX_BYTE = 255.0F;
/// A float of 2^23 has no bits for a fraction: adding it rounds to the nearest integer, ties to the even one, and
/// leaves that integer in the lowest bits.
constexpr float NO_FRACTION = 0x1p23F;

/// Has the processor fetch what is wanted soon. Its own looking ahead ends where a page of memory does: asked for two
/// pages ahead, the floats, which are most of what is moved, arrive up to a third faster.
/// @param now what is at work, `size` bytes; nothing is read there or behind it
inline void fetchAhead(const void* now, std::size_t size) {
    constexpr std::size_t AHEAD = 8192;
    constexpr std::size_t CACHE_LINE = 64;
    const std::uintptr_t soon = reinterpret_cast<std::uintptr_t>(now) + AHEAD;
    for (std::size_t offset = 0; offset < size; offset += CACHE_LINE) {
        __builtin_prefetch(reinterpret_cast<const void*>(soon + offset)); // NOLINT: no pointer follows
    }
}

/// Whether red and blue change places.
[[nodiscard]] constexpr bool isSwapped(ByteOrder order) noexcept {
    return order != ByteOrder::RGB && order != ByteOrder::RGBA;
}

/// Whether the bytes hold an alpha that is read.
[[nodiscard]] constexpr bool hasAlpha(ByteOrder order) noexcept {
    return order == ByteOrder::RGBA || order == ByteOrder::BGRA;
}

/// 0 and `MAX_BYTE`, for the plain loops. They are defined in another file, so that the compiler does not know them
/// there: where it does, it makes branches of the clamp, and no vectors.
extern const float LOWER_LIMIT;
extern const float UPPER_LIMIT;

/// Writes `value` × (1 − `darkening`), from 0 to 1, as bytes: × 255, rounded to the nearest, to the even one of two.
/// A plain loop, as the baseline's.
void writeDarkened(float value, const float* darkening, std::size_t count, unsigned char* bytes);

/// What `PixelConversion`'s functions for whole pictures do, with these loops.
void convertToBytes(const PixelKernels& kernels, const BitmapImpl<Rgb>& image, ByteOrder order, unsigned char* firstRow,
                    std::ptrdiff_t stride);
void convertToPixels(const PixelKernels& kernels, const unsigned char* firstRow, std::ptrdiff_t stride, ByteOrder order,
                     BitmapImpl<Rgb>& image);

/// Whether processor and system have AVX2.
[[nodiscard]] bool hasAvx2();

/// The fastest ones that this machine has.
[[nodiscard]] const PixelKernels& getPixelKernels();

} // namespace Ostrel::Detail
