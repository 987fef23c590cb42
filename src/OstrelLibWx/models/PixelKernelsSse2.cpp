#include <cstring>

#include <emmintrin.h>

#include "models/PixelKernels.h"

namespace Ostrel::Detail {

namespace {

constexpr float BYTE_TO_FLOAT = 0.003921569F; // 1/255
constexpr float MAX_BYTE = 255.0F;
/// A float of 2^23 has no bits for a fraction: adding it rounds to the nearest integer, ties to the even one.
constexpr float NO_FRACTION = 0x1p23F;
constexpr int SWAP_RED_AND_BLUE = _MM_SHUFFLE(3, 0, 1, 2);
constexpr std::size_t STEP = 4; // pixels

constexpr bool isSwapped(ByteOrder order) {
    return order != ByteOrder::RGB && order != ByteOrder::RGBA;
}

__m128i load(const void* source) {
    return _mm_loadu_si128(static_cast<const __m128i*>(source));
}

void store(void* target, __m128i value) {
    _mm_storeu_si128(static_cast<__m128i*>(target), value);
}

/// Four integers; above 255 there are none. What is below 0, and what no integer is, is negative.
template <ByteOrder ORDER>
__m128i toIntegers(const float* pixel) {
    __m128 value = _mm_loadu_ps(pixel);
    if constexpr (isSwapped(ORDER)) {
        value = _mm_shuffle_ps(value, value, SWAP_RED_AND_BLUE);
    }
    // The order of the operands lets NaN through.
    value = _mm_min_ps(_mm_set1_ps(MAX_BYTE), _mm_mul_ps(value, _mm_set1_ps(MAX_BYTE)));
    if constexpr (getPixelSize(ORDER) == 3) {
        return _mm_cvtps_epi32(value);
    } else {
        const __m128 rounding = _mm_set_ps(0.0F, NO_FRACTION, NO_FRACTION, NO_FRACTION); // alpha is truncated
        return _mm_cvttps_epi32(_mm_sub_ps(_mm_add_ps(value, rounding), rounding));
    }
}

/// Closes the gap that each of the four pixels has in its last byte; what follows the twelve bytes is 0.
__m128i closeGaps(__m128i bytes) {
    const __m128i pairs = _mm_or_si128(_mm_and_si128(bytes, _mm_set1_epi64x(0xFFFFFF)),
                                       _mm_and_si128(_mm_srli_epi64(bytes, 8), _mm_set1_epi64x(0xFFFFFF000000)));
    const __m128i second = _mm_set_epi64x(0xFFFFFFFF, static_cast<long long>(0xFFFF000000000000U));
    return _mm_or_si128(_mm_move_epi64(pairs), _mm_and_si128(_mm_srli_si128(pairs, 2), second));
}

/// Four pixels of three bytes each, every one with a last byte of 255. Reads one byte more.
__m128i loadWithGaps(const unsigned char* bytes) {
    const auto loadPixel = [bytes](int index) {
        int pixel = 0;
        std::memcpy(&pixel, bytes + 3 * index, sizeof(pixel));
        return _mm_cvtsi32_si128(pixel);
    };
    const __m128i pixels = _mm_unpacklo_epi64(_mm_unpacklo_epi32(loadPixel(0), loadPixel(1)),
                                              _mm_unpacklo_epi32(loadPixel(2), loadPixel(3)));
    return _mm_or_si128(pixels, _mm_set1_epi32(static_cast<int>(0xFF000000U)));
}

/// Four pixels; writes 16 bytes, though it may be that 12 count.
template <ByteOrder ORDER>
void stepToBytes(const float* pixels, unsigned char* bytes) {
    const __m128i low = _mm_packs_epi32(toIntegers<ORDER>(pixels), toIntegers<ORDER>(pixels + 4));
    const __m128i high = _mm_packs_epi32(toIntegers<ORDER>(pixels + 8), toIntegers<ORDER>(pixels + 12));
    const __m128i packed = _mm_packus_epi16(low, high); // negative ones become 0
    store(bytes, getPixelSize(ORDER) == 3 ? closeGaps(packed) : packed);
}

template <ByteOrder ORDER>
void toBytes(const float* pixels, std::size_t count, unsigned char* bytes) {
    constexpr std::size_t SIZE = getPixelSize(ORDER);
    constexpr std::size_t NEEDED = (16 + SIZE - 1) / SIZE; // pixels that 16 bytes touch
    for (; count >= NEEDED; count -= STEP, pixels += 4 * STEP, bytes += SIZE * STEP) {
        stepToBytes<ORDER>(pixels, bytes);
    }
    while (count > 0) {
        const std::size_t part = count < STEP ? count : STEP;
        float source[4 * STEP] = {};
        unsigned char target[16];
        std::memcpy(source, pixels, part * 4 * sizeof(float));
        stepToBytes<ORDER>(source, target);
        std::memcpy(bytes, target, part * SIZE);
        count -= part;
        pixels += 4 * part;
        bytes += SIZE * part;
    }
}

/// Two pixels of four 16-bit integers.
template <ByteOrder ORDER>
void storePixels(__m128i words, float* pixels) {
    if constexpr (isSwapped(ORDER)) {
        words = _mm_shufflehi_epi16(_mm_shufflelo_epi16(words, SWAP_RED_AND_BLUE), SWAP_RED_AND_BLUE);
    }
    const __m128 scale = _mm_set1_ps(BYTE_TO_FLOAT);
    const __m128i zero = _mm_setzero_si128();
    _mm_storeu_ps(pixels, _mm_mul_ps(_mm_cvtepi32_ps(_mm_unpacklo_epi16(words, zero)), scale));
    _mm_storeu_ps(pixels + 4, _mm_mul_ps(_mm_cvtepi32_ps(_mm_unpackhi_epi16(words, zero)), scale));
}

/// Four pixels; reads 16 bytes.
template <ByteOrder ORDER>
void stepToPixels(const unsigned char* bytes, float* pixels) {
    __m128i packed = getPixelSize(ORDER) == 3 ? loadWithGaps(bytes) : load(bytes);
    if constexpr (ORDER == ByteOrder::BGRX) {
        packed = _mm_or_si128(packed, _mm_set1_epi32(static_cast<int>(0xFF000000U)));
    }
    storePixels<ORDER>(_mm_unpacklo_epi8(packed, _mm_setzero_si128()), pixels);
    storePixels<ORDER>(_mm_unpackhi_epi8(packed, _mm_setzero_si128()), pixels + 8);
}

template <ByteOrder ORDER>
void toPixels(const unsigned char* bytes, std::size_t count, float* pixels) {
    constexpr std::size_t SIZE = getPixelSize(ORDER);
    constexpr std::size_t NEEDED = (16 + SIZE - 1) / SIZE;
    for (; count >= NEEDED; count -= STEP, bytes += SIZE * STEP, pixels += 4 * STEP) {
        stepToPixels<ORDER>(bytes, pixels);
    }
    while (count > 0) {
        const std::size_t part = count < STEP ? count : STEP;
        unsigned char source[16] = {};
        float target[4 * STEP];
        std::memcpy(source, bytes, part * SIZE);
        stepToPixels<ORDER>(source, target);
        std::memcpy(pixels, target, part * 4 * sizeof(float));
        count -= part;
        bytes += SIZE * part;
        pixels += 4 * part;
    }
}

} // namespace

const PixelKernels SSE2_KERNELS{
    "SSE2",
    {toBytes<ByteOrder::RGB>, toBytes<ByteOrder::BGR>, toBytes<ByteOrder::RGBA>, toBytes<ByteOrder::BGRA>,
     toBytes<ByteOrder::BGRX>},
    {toPixels<ByteOrder::RGB>, toPixels<ByteOrder::BGR>, toPixels<ByteOrder::RGBA>, toPixels<ByteOrder::BGRA>,
     toPixels<ByteOrder::BGRX>},
};

} // namespace Ostrel::Detail
