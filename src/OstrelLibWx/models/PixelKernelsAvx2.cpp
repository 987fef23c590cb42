// Compiled for a processor that has AVX2, so nothing that could be shared with other files may be made here: no inline
// function of a header, the standard library's included, may be called but for intrinsics.
#include <immintrin.h>

#include "models/PixelKernels.h"

namespace Ostrel::Detail {

namespace {

constexpr float BYTE_TO_FLOAT = 0.003921569F; // 1/255
constexpr float MAX_BYTE = 255.0F;
/// A float of 2^23 has no bits for a fraction: adding it rounds to the nearest integer, ties to the even one.
constexpr float NO_FRACTION = 0x1p23F;

/// Eight integers of two pixels; above 255 there are none. What is below 0, and what no integer is, is negative.
template <bool WITH_ALPHA>
__m256i toIntegers(const float* pixels) {
    // The order of the operands lets NaN through.
    const __m256 value =
        _mm256_min_ps(_mm256_set1_ps(MAX_BYTE), _mm256_mul_ps(_mm256_loadu_ps(pixels), _mm256_set1_ps(MAX_BYTE)));
    if constexpr (WITH_ALPHA) {
        const __m256 rounding = _mm256_set_ps(0.0F, NO_FRACTION, NO_FRACTION, NO_FRACTION,  //
                                              0.0F, NO_FRACTION, NO_FRACTION, NO_FRACTION); // alpha is truncated
        return _mm256_cvttps_epi32(_mm256_sub_ps(_mm256_add_ps(value, rounding), rounding));
    } else {
        return _mm256_cvtps_epi32(value);
    }
}

/// Where the bytes of four pixels go, out of red, green, blue, alpha.
template <ByteOrder ORDER>
__m256i getByteShuffle() {
    if constexpr (ORDER == ByteOrder::RGB) {
        return _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1));
    } else if constexpr (ORDER == ByteOrder::BGR) {
        return _mm256_broadcastsi128_si256(_mm_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1));
    } else {
        return _mm256_broadcastsi128_si256(_mm_setr_epi8(2, 1, 0, 3, 6, 5, 4, 7, 10, 9, 8, 11, 14, 13, 12, 15));
    }
}

/// Eight pixels; writes 32 bytes, though it may be that 24 count.
template <ByteOrder ORDER>
void stepToBytes(const float* pixels, unsigned char* bytes) {
    constexpr bool WITH_ALPHA = getPixelSize(ORDER) == 4;
    const __m256i low = _mm256_packs_epi32(toIntegers<WITH_ALPHA>(pixels), toIntegers<WITH_ALPHA>(pixels + 8));
    const __m256i high = _mm256_packs_epi32(toIntegers<WITH_ALPHA>(pixels + 16), toIntegers<WITH_ALPHA>(pixels + 24));
    // Packing goes on in each half by itself: the even pixels stand in one half and the odd ones in the other.
    __m256i packed =
        _mm256_permutevar8x32_epi32(_mm256_packus_epi16(low, high), _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
    if constexpr (ORDER != ByteOrder::RGBA) {
        packed = _mm256_shuffle_epi8(packed, getByteShuffle<ORDER>());
    }
    if constexpr (!WITH_ALPHA) {
        packed = _mm256_permutevar8x32_epi32(packed, _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 3, 7));
    }
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(bytes), packed);
}

template <ByteOrder ORDER>
void toBytes(const float* pixels, std::size_t count, unsigned char* bytes) {
    constexpr std::size_t SIZE = getPixelSize(ORDER);
    constexpr std::size_t NEEDED = (32 + SIZE - 1) / SIZE; // pixels that 32 bytes touch
    for (; count >= NEEDED; count -= 8, pixels += 4 * 8, bytes += SIZE * 8) {
        stepToBytes<ORDER>(pixels, bytes);
    }
    SSE2_KERNELS.toBytes[static_cast<int>(ORDER)](pixels, count, bytes);
}

/// Where in four pixels the bytes of the two from `first` on stand, each to become the lowest byte of an integer.
template <ByteOrder ORDER>
__m256i getIntegerShuffle(int first) {
    constexpr bool SWAPPED = ORDER != ByteOrder::RGB && ORDER != ByteOrder::RGBA;
    constexpr int RED = SWAPPED ? 2 : 0;
    constexpr int NOTHING = -1;
    constexpr bool WITH_ALPHA = ORDER == ByteOrder::RGBA || ORDER == ByteOrder::BGRA;
    constexpr int FREE = 0x80; // the upper bytes of an integer are 0
    constexpr int UPPER = FREE << 8 | FREE << 16 | static_cast<int>(0x80000000U);
    constexpr int SIZE = getPixelSize(ORDER);
    const int a = first * SIZE;
    const int b = a + SIZE;
    return _mm256_setr_epi32(UPPER | (a + RED), UPPER | (a + 1), UPPER | (a + 2 - RED),
                             WITH_ALPHA ? UPPER | (a + 3) : NOTHING, //
                             UPPER | (b + RED), UPPER | (b + 1), UPPER | (b + 2 - RED),
                             WITH_ALPHA ? UPPER | (b + 3) : NOTHING);
}

template <ByteOrder ORDER>
void storePixels(__m256i bytes, __m256i shuffle, float* pixels) {
    const __m256i integers = _mm256_shuffle_epi8(bytes, shuffle);
    __m256 values = _mm256_mul_ps(_mm256_cvtepi32_ps(integers), _mm256_set1_ps(BYTE_TO_FLOAT));
    if constexpr (ORDER != ByteOrder::RGBA && ORDER != ByteOrder::BGRA) {
        values = _mm256_or_ps(values, _mm256_setr_ps(0.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F, 1.0F));
    }
    _mm256_storeu_ps(pixels, values);
}

template <ByteOrder ORDER>
void toPixels(const unsigned char* bytes, std::size_t count, float* pixels) {
    constexpr std::size_t SIZE = getPixelSize(ORDER);
    constexpr std::size_t NEEDED = (16 + SIZE - 1) / SIZE; // pixels that 16 bytes touch
    const __m256i firstTwo = getIntegerShuffle<ORDER>(0);
    const __m256i lastTwo = getIntegerShuffle<ORDER>(2);
    for (; count >= NEEDED; count -= 4, bytes += SIZE * 4, pixels += 4 * 4) {
        const __m256i packed = _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes)));
        storePixels<ORDER>(packed, firstTwo, pixels);
        storePixels<ORDER>(packed, lastTwo, pixels + 8);
    }
    SSE2_KERNELS.toPixels[static_cast<int>(ORDER)](bytes, count, pixels);
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
