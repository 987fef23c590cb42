// Plain loops over blocks of a fixed length, one step in each, so that the compiler turns every one of them into
// vectors. Those that are marked are held to it by tools/check-vectorised.
#include <bit>
#include <cstdint>
#include <cstring>

#include "models/PixelKernels.h"

namespace Ostrel::Detail {

namespace {

static_assert(std::endian::native == std::endian::little);

/// Pixels from one step to the next: few enough for the nearest cache, and for the rest of a row to cost little.
constexpr std::size_t BLOCK = 32;
constexpr std::size_t PAIRS = BLOCK / 2;
constexpr std::size_t BLOCK_SIZE = BLOCK * 4 * sizeof(float); ///< bytes of a block's floats

constexpr std::uint64_t FIRST_OF_PAIR = 0xFFFFFF;
constexpr std::uint64_t SECOND_OF_PAIR = FIRST_OF_PAIR << 24; // right behind the first, as bytes of three have it
constexpr std::uint64_t OPAQUE = 0xFF000000FF000000;

std::uint32_t getBits(float value) {
    return std::bit_cast<std::uint32_t>(value);
}

/// @return 0 to 255; NaN fails the first comparison, and becomes 0
float limit(float value, float lower, float upper) {
    const float scaled = value * MAX_BYTE;
    const float positive = scaled > lower ? scaled : lower;
    return positive < upper ? positive : upper;
}

/// Each pixel as four bytes; the last is anything where the order has none.
template <ByteOrder ORDER>
void packBlock(const float* pixels, std::uint32_t* packed) {
    constexpr unsigned RED = isSwapped(ORDER) ? 16 : 0;
    constexpr unsigned BLUE = 16 - RED;
    const float lower = LOWER_LIMIT;
    const float upper = UPPER_LIMIT;
    for (std::size_t i = 0; i < BLOCK; ++i) { // vectorised
        const std::uint32_t red = getBits(limit(pixels[4 * i], lower, upper) + NO_FRACTION);
        const std::uint32_t green = getBits(limit(pixels[4 * i + 1], lower, upper) + NO_FRACTION);
        const std::uint32_t blue = getBits(limit(pixels[4 * i + 2], lower, upper) + NO_FRACTION);
        std::uint32_t pixel = (red << RED) + (green << 8) + (blue << BLUE);
        if constexpr (getPixelSize(ORDER) == 4) {
            const auto alpha = static_cast<std::int32_t>(limit(pixels[4 * i + 3], lower, upper)); // truncated
            pixel += static_cast<std::uint32_t>(alpha) << 24;
            pixel -= getBits(NO_FRACTION); // of the channel that was not shifted; the others' have left at the top
        } else {
            pixel += getBits(pixels[4 * i + 3]) << 24; // read, for vectors are made of whole pixels only
        }
        packed[i] = pixel;
    }
}

/// Moves the pixels together, three bytes each.
void writeTriples(const std::uint32_t* packed, unsigned char* bytes) {
    std::uint64_t pairs[PAIRS];
    for (std::size_t i = 0; i < PAIRS; ++i) { // vectorised
        const std::uint64_t pair = packed[2 * i] | std::uint64_t{packed[2 * i + 1]} << 32;
        pairs[i] = (pair & FIRST_OF_PAIR) | (pair >> 8 & SECOND_OF_PAIR);
    }
    for (std::size_t i = 0; i < PAIRS - 1; ++i) {
        std::memcpy(bytes + 6 * i, &pairs[i], 8); // the next one overwrites what is too much
    }
    std::memcpy(bytes + 6 * (PAIRS - 1), &pairs[PAIRS - 1], 6);
}

template <ByteOrder ORDER>
void writeBlock(const float* pixels, unsigned char* bytes) {
    std::uint32_t packed[BLOCK];
    packBlock<ORDER>(pixels, packed);
    if constexpr (getPixelSize(ORDER) == 4) {
        std::memcpy(bytes, packed, sizeof(packed));
    } else {
        writeTriples(packed, bytes);
    }
}

template <ByteOrder ORDER>
void toBytes(const float* pixels, std::size_t count, unsigned char* bytes) {
    constexpr std::size_t SIZE = getPixelSize(ORDER);
    for (; count >= BLOCK; count -= BLOCK, pixels += 4 * BLOCK, bytes += SIZE * BLOCK) {
        fetchAhead(pixels, BLOCK_SIZE);
        writeBlock<ORDER>(pixels, bytes);
    }
    if (count > 0) {
        float source[4 * BLOCK] = {};
        unsigned char target[SIZE * BLOCK];
        std::memcpy(source, pixels, count * 4 * sizeof(float));
        writeBlock<ORDER>(source, target);
        std::memcpy(bytes, target, count * SIZE);
    }
}

/// Moves the pixels apart, three bytes each, by one byte more: an opaque alpha.
void readTriples(const unsigned char* bytes, std::uint64_t* pairs) {
    std::uint64_t triples[PAIRS];
    for (std::size_t i = 0; i < PAIRS - 1; ++i) {
        std::memcpy(&triples[i], bytes + 6 * i, 8);
    }
    triples[PAIRS - 1] = 0;
    std::memcpy(&triples[PAIRS - 1], bytes + 6 * (PAIRS - 1), 6);
    for (std::size_t i = 0; i < PAIRS; ++i) { // vectorised
        pairs[i] = (triples[i] & FIRST_OF_PAIR) | (triples[i] & SECOND_OF_PAIR) << 8 | OPAQUE;
    }
}

void makeOpaque(const unsigned char* bytes, std::uint64_t* pairs) {
    std::memcpy(pairs, bytes, 4 * BLOCK);
    for (std::size_t i = 0; i < PAIRS; ++i) { // vectorised
        pairs[i] |= OPAQUE;
    }
}

template <ByteOrder ORDER>
void readBlock(const unsigned char* bytes, float* pixels) {
    constexpr std::size_t RED = isSwapped(ORDER) ? 2 : 0;
    constexpr std::size_t BLUE = 2 - RED;
    unsigned char withAlpha[4 * BLOCK];
    if constexpr (!hasAlpha(ORDER)) {
        std::uint64_t pairs[PAIRS];
        if constexpr (getPixelSize(ORDER) == 3) {
            readTriples(bytes, pairs);
        } else {
            makeOpaque(bytes, pairs);
        }
        std::memcpy(withAlpha, pairs, sizeof(pairs));
        bytes = withAlpha;
    }
    for (std::size_t i = 0; i < 4 * BLOCK; i += 4) { // vectorised
        pixels[i] = static_cast<float>(bytes[i + RED]) * BYTE_TO_FLOAT;
        pixels[i + 1] = static_cast<float>(bytes[i + 1]) * BYTE_TO_FLOAT;
        pixels[i + 2] = static_cast<float>(bytes[i + BLUE]) * BYTE_TO_FLOAT;
        pixels[i + 3] = static_cast<float>(bytes[i + 3]) * BYTE_TO_FLOAT;
    }
}

template <ByteOrder ORDER>
void toPixels(const unsigned char* bytes, std::size_t count, float* pixels) {
    constexpr std::size_t SIZE = getPixelSize(ORDER);
    for (; count >= BLOCK; count -= BLOCK, bytes += SIZE * BLOCK, pixels += 4 * BLOCK) {
        fetchAhead(pixels, BLOCK_SIZE);
        readBlock<ORDER>(bytes, pixels);
    }
    if (count > 0) {
        unsigned char source[SIZE * BLOCK] = {};
        float target[4 * BLOCK];
        std::memcpy(source, bytes, count * SIZE);
        readBlock<ORDER>(source, target);
        std::memcpy(pixels, target, count * 4 * sizeof(float));
    }
}

} // namespace

const PixelKernels BASELINE_KERNELS{
    "baseline",
    {toBytes<ByteOrder::RGB>, toBytes<ByteOrder::BGR>, toBytes<ByteOrder::RGBA>, toBytes<ByteOrder::BGRA>,
     toBytes<ByteOrder::BGRX>},
    {toPixels<ByteOrder::RGB>, toPixels<ByteOrder::BGR>, toPixels<ByteOrder::RGBA>, toPixels<ByteOrder::BGRA>,
     toPixels<ByteOrder::BGRX>},
};

void writeDarkened(float value, const float* darkening, std::size_t count, unsigned char* bytes) {
    for (std::size_t i = 0; i < count; ++i) { // vectorised
        const float channel = value - darkening[i] * value;
        bytes[i] = static_cast<unsigned char>(getBits(channel * MAX_BYTE + NO_FRACTION));
    }
}

} // namespace Ostrel::Detail
