#include <algorithm>
#include <cstdint>
#include <cstring>

// One target, whatever the compiler is allowed to use elsewhere: AVX2 and nothing that `hasAvx2` does not ask for.
#define HWY_BASELINE_TARGETS HWY_AVX2
#define HWY_COMPILE_ONLY_STATIC
#define HWY_DISABLE_PCLMUL_AES
#define HWY_DISABLE_BMI2_FMA
#define HWY_DISABLE_F16C
#define HWY_IS_DEBUG_BUILD 0 // its checks need the library itself, not the headers alone
#include <hwy/highway.h>

#include "models/PixelKernels.h"

HWY_BEFORE_NAMESPACE(); // allows the instructions to all that follows, to the end of the file
namespace Ostrel::Detail {

namespace {

namespace hn = hwy::HWY_NAMESPACE;

constexpr hn::FixedTag<float, 8> FLOATS;
constexpr hn::FixedTag<std::int32_t, 8> INTEGERS;
constexpr hn::FixedTag<std::uint8_t, 32> BYTES;
using ByteVector = hn::Vec<decltype(BYTES)>;

constexpr std::size_t STEP = 8;        // pixels
constexpr std::uint8_t NOTHING = 0x80; ///< where a shuffle puts 0

/// Where each byte of a vector comes from, in the half that it stands in.
struct Shuffle {
    std::uint8_t from[32];
};
using IntegerShuffle = std::int32_t[8]; ///< the same for integers, in the whole vector

/// Red, green, blue and alpha to their places in `ORDER`, or from there.
template <ByteOrder ORDER>
constexpr int PLACES[4] = {isSwapped(ORDER) ? 2 : 0, 1, isSwapped(ORDER) ? 0 : 2, 3};

/// A pixel of four floats in each half: of every float the lowest byte, to be the pixel number `part` of the half.
template <ByteOrder ORDER>
constexpr Shuffle makeGathering(int part) {
    Shuffle shuffle{};
    for (int i = 0; i < 32; ++i) {
        const int wanted = i % 16 - 4 * part;
        shuffle.from[i] = wanted >= 0 && wanted < 4 ? static_cast<std::uint8_t>(4 * PLACES<ORDER>[wanted]) : NOTHING;
    }
    return shuffle;
}
template <ByteOrder ORDER>
constexpr Shuffle GATHERING[4] = {makeGathering<ORDER>(0), makeGathering<ORDER>(1), makeGathering<ORDER>(2),
                                  makeGathering<ORDER>(3)};
/// The halves hold the even pixels and the odd ones.
constexpr IntegerShuffle IN_TURNS{0, 4, 1, 5, 2, 6, 3, 7};

constexpr std::uint8_t WITHOUT_FOURTH[]{0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, NOTHING, NOTHING, NOTHING, NOTHING};
constexpr IntegerShuffle WITHOUT_GAP{0, 1, 2, 4, 5, 6, 3, 7};

/// Four pixels of bytes in each half: of the pixel `first` in the lower half, and the next one in the upper, every
/// byte to be an integer.
template <ByteOrder ORDER>
constexpr Shuffle makeSpreading(int first) {
    constexpr int SIZE = getPixelSize(ORDER);
    Shuffle shuffle{};
    for (int i = 0; i < 32; ++i) {
        const int channel = i % 16 / 4;
        const bool wanted = i % 4 == 0 && (channel < 3 || hasAlpha(ORDER));
        shuffle.from[i] =
            wanted ? static_cast<std::uint8_t>(SIZE * (first + i / 16) + PLACES<ORDER>[channel]) : NOTHING;
    }
    return shuffle;
}
template <ByteOrder ORDER>
constexpr Shuffle SPREADING[2] = {makeSpreading<ORDER>(0), makeSpreading<ORDER>(2)};

/// Two pixels; the lowest byte of each float's four is what counts.
template <ByteOrder ORDER>
HWY_INLINE ByteVector round(const float* pixels) {
    const auto scaled = hn::Mul(hn::LoadU(FLOATS, pixels), hn::Set(FLOATS, MAX_BYTE));
    // In this order of the operands NaN becomes 0.
    auto value = hn::Min(hn::Max(scaled, hn::Zero(FLOATS)), hn::Set(FLOATS, MAX_BYTE));
    if constexpr (getPixelSize(ORDER) == 4) {
        const auto channel = hn::And(hn::Iota(INTEGERS, 0), hn::Set(INTEGERS, 3));
        const auto isAlpha = hn::RebindMask(FLOATS, hn::Eq(channel, hn::Set(INTEGERS, 3)));
        value = hn::IfThenElse(isAlpha, hn::Floor(value), value); // alpha is truncated
    }
    return hn::BitCast(BYTES, hn::Add(value, hn::Set(FLOATS, NO_FRACTION)));
}

template <ByteOrder ORDER>
HWY_INLINE ByteVector gather(const float* pixels, int part) {
    return hn::TableLookupBytesOr0(round<ORDER>(pixels + 8 * part), hn::LoadU(BYTES, GATHERING<ORDER>[part].from));
}

HWY_INLINE ByteVector shuffleIntegers(ByteVector bytes, const IntegerShuffle& shuffle) {
    return hn::BitCast(BYTES,
                       hn::TableLookupLanes(hn::BitCast(INTEGERS, bytes), hn::SetTableIndices(INTEGERS, shuffle)));
}

/// Eight pixels; writes 32 bytes, though it may be that 24 count.
template <ByteOrder ORDER>
HWY_INLINE void writeStep(const float* pixels, unsigned char* bytes) {
    auto packed = hn::Or(hn::Or(gather<ORDER>(pixels, 0), gather<ORDER>(pixels, 1)),
                         hn::Or(gather<ORDER>(pixels, 2), gather<ORDER>(pixels, 3)));
    packed = shuffleIntegers(packed, IN_TURNS);
    if constexpr (getPixelSize(ORDER) == 3) {
        packed = hn::TableLookupBytesOr0(packed, hn::LoadDup128(BYTES, WITHOUT_FOURTH));
        packed = shuffleIntegers(packed, WITHOUT_GAP);
    }
    hn::StoreU(packed, BYTES, bytes);
}

template <ByteOrder ORDER>
void toBytes(const float* pixels, std::size_t count, unsigned char* bytes) {
    constexpr std::size_t SIZE = getPixelSize(ORDER);
    constexpr std::size_t NEEDED = (32 + SIZE - 1) / SIZE; // pixels that 32 bytes touch
    for (; count >= NEEDED; count -= STEP, pixels += 4 * STEP, bytes += SIZE * STEP) {
        fetchAhead(pixels, STEP * 4 * sizeof(float));
        writeStep<ORDER>(pixels, bytes);
    }
    while (count > 0) {
        const std::size_t rest = std::min(count, STEP);
        float source[4 * STEP] = {};
        unsigned char target[sizeof(ByteVector)];
        std::memcpy(source, pixels, rest * 4 * sizeof(float));
        writeStep<ORDER>(source, target);
        std::memcpy(bytes, target, rest * SIZE);
        count -= rest;
        pixels += 4 * rest;
        bytes += SIZE * rest;
    }
}

/// Two of four pixels.
template <ByteOrder ORDER>
HWY_INLINE auto spread(ByteVector bytes, int part) {
    const auto integers =
        hn::BitCast(INTEGERS, hn::TableLookupBytesOr0(bytes, hn::LoadU(BYTES, SPREADING<ORDER>[part].from)));
    auto values = hn::Mul(hn::ConvertTo(FLOATS, integers), hn::Set(FLOATS, BYTE_TO_FLOAT));
    if constexpr (!hasAlpha(ORDER)) {
        constexpr float OPAQUE[] = {0.0F, 0.0F, 0.0F, 1.0F};
        values = hn::Or(values, hn::LoadDup128(FLOATS, OPAQUE));
    }
    return values;
}

template <ByteOrder ORDER>
void toPixels(const unsigned char* bytes, std::size_t count, float* pixels) {
    constexpr std::size_t SIZE = getPixelSize(ORDER);
    constexpr std::size_t NEEDED = (16 + SIZE - 1) / SIZE; // pixels that 16 bytes touch
    for (; count >= NEEDED; count -= 4, bytes += SIZE * 4, pixels += 4 * 4) {
        fetchAhead(pixels, 4 * 4 * sizeof(float));
        const ByteVector packed = hn::LoadDup128(BYTES, bytes);
        hn::StoreU(spread<ORDER>(packed, 0), FLOATS, pixels);
        hn::StoreU(spread<ORDER>(packed, 1), FLOATS, pixels + 8);
    }
    while (count > 0) {
        const std::size_t rest = std::min<std::size_t>(count, 4);
        unsigned char source[16] = {};
        float target[16];
        std::memcpy(source, bytes, rest * SIZE);
        const ByteVector packed = hn::LoadDup128(BYTES, source);
        hn::StoreU(spread<ORDER>(packed, 0), FLOATS, target);
        hn::StoreU(spread<ORDER>(packed, 1), FLOATS, target + 8);
        std::memcpy(pixels, target, rest * 4 * sizeof(float));
        count -= rest;
        bytes += SIZE * rest;
        pixels += 4 * rest;
    }
}

} // namespace

const PixelKernels AVX2_KERNELS{
    "AVX2",
    {toBytes<ByteOrder::RGB>, toBytes<ByteOrder::BGR>, toBytes<ByteOrder::RGBA>, toBytes<ByteOrder::BGRA>,
     toBytes<ByteOrder::BGRX>},
    {toPixels<ByteOrder::RGB>, toPixels<ByteOrder::BGR>, toPixels<ByteOrder::RGBA>, toPixels<ByteOrder::BGRA>,
     toPixels<ByteOrder::BGRX>},
};

} // namespace Ostrel::Detail
HWY_AFTER_NAMESPACE();
