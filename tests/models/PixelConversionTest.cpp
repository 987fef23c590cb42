#include "models/PixelConversion.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "models/PixelKernels.h"

namespace {

using namespace Ostrel;
using namespace Ostrel::Detail;
using testing::ElementsAreArray;
using Bytes = Array<unsigned char>;

constexpr float A_255TH = 0.003921569F;
constexpr ByteOrder ORDERS[] = {ByteOrder::RGB, ByteOrder::BGR, ByteOrder::RGBA, ByteOrder::BGRA, ByteOrder::BGRX};
static_assert(std::size(ORDERS) == BYTE_ORDER_COUNT);

Array<const PixelKernels*> getAllLoops() {
    Array<const PixelKernels*> all{&BASELINE_KERNELS};
    if (hasAvx2()) {
        all.push_back(&AVX2_KERNELS);
    }
    return all;
}

/// Where a channel of red, green, blue, alpha stands among the bytes; -1: nowhere.
int getPlace(ByteOrder order, int channel) {
    const bool swapped = order != ByteOrder::RGB && order != ByteOrder::RGBA;
    if (channel == 3) {
        return getPixelSize(order) == 4 ? 3 : -1;
    }
    return swapped ? 2 - channel : channel;
}

/// In the standard library's own terms.
unsigned char expectedByte(float value, bool truncated) {
    const float limited = std::isnan(value) || value < 0.0F ? 0.0F : std::fmin(value, 1.0F);
    const float scaled = limited * 255.0F;
    return static_cast<unsigned char>(truncated ? std::trunc(scaled) : std::nearbyint(scaled));
}

/// All floats around the places where the byte changes, and whatever a pixel should not be but can be.
Array<float> makeTellingValues() {
    using Limits = std::numeric_limits<float>;
    Array<float> values{8421504.6F, 8.5e6F};
    for (const float odd : {0.0F, Limits::denorm_min(), 0.2F, 1.5F, 257.0F, 3e9F, Limits::max(), Limits::infinity(),
                            Limits::quiet_NaN()}) {
        values.insert(values.end(), {odd, -odd});
    }
    for (int half = 0; half <= 511; ++half) {
        const auto middle = std::bit_cast<std::int32_t>(static_cast<float>(half / 510.0));
        for (std::int32_t step = -40; step <= 40; ++step) {
            values.push_back(std::bit_cast<float>(middle + step));
        }
    }
    while (values.size() % 4 != 0) {
        values.push_back(0.0F);
    }
    return values;
}

TEST(PixelKernels, RoundEveryColourToTheNearestEvenByteAndTruncateAlpha) {
    const Array<float> values = makeTellingValues();
    for (const PixelKernels* const loops : getAllLoops()) {
        for (const ByteOrder order : ORDERS) {
            const std::size_t size = getPixelSize(order);
            for (int shift = 0; shift < 4; ++shift) { // every value in every channel
                Array<float> pixels(values.begin() + shift, values.end());
                pixels.insert(pixels.end(), values.begin(), values.begin() + shift);
                Bytes bytes(pixels.size() / 4 * size);
                loops->toBytes[static_cast<int>(order)](pixels.data(), pixels.size() / 4, bytes.data());
                for (std::size_t i = 0; i < pixels.size(); ++i) {
                    const int channel = static_cast<int>(i % 4);
                    const int place = getPlace(order, channel);
                    if (place >= 0) {
                        ASSERT_EQ(bytes[i / 4 * size + static_cast<std::size_t>(place)],
                                  expectedByte(pixels[i], channel == 3))
                            << loops->name << ", order " << static_cast<int>(order) << ", value " << std::hexfloat
                            << pixels[i] << " in channel " << channel;
                    }
                }
            }
        }
    }
}

TEST(PixelKernels, TouchNothingBeyondTheRunOfAnyLengthAtAnyAddress) {
    constexpr unsigned char GUARD = 0xA5;
    constexpr std::size_t MARGIN = 64;
    for (const PixelKernels* const loops : getAllLoops()) {
        for (const ByteOrder order : ORDERS) {
            const std::size_t size = getPixelSize(order);
            for (std::size_t count = 0; count <= 70; ++count) {
                const std::size_t offset = count % 5;
                // Exactly as large as the run, so that a sanitizer sees a read beyond it.
                Bytes source(count * size);
                for (std::size_t i = 0; i < source.size(); ++i) {
                    source[i] = static_cast<unsigned char>(i * 37 + count * 11);
                }
                Array<float> pixels(4 * count + MARGIN, -7.0F);
                loops->toPixels[static_cast<int>(order)](source.data(), count, pixels.data());
                Bytes back(offset + count * size + MARGIN, GUARD);
                const Array<float> exact(pixels.begin(), pixels.begin() + static_cast<std::ptrdiff_t>(4 * count));
                loops->toBytes[static_cast<int>(order)](exact.data(), count, back.data() + offset);
                for (std::size_t i = 0; i < 4 * count; ++i) {
                    const int place = getPlace(order, static_cast<int>(i % 4));
                    const bool opaque = place < 0 || (i % 4 == 3 && order == ByteOrder::BGRX);
                    const float expected =
                        opaque ? 1.0F
                               : static_cast<float>(source[i / 4 * size + static_cast<std::size_t>(place)]) * A_255TH;
                    ASSERT_EQ(pixels[i], expected) << loops->name << " order " << static_cast<int>(order);
                }
                for (std::size_t i = 4 * count; i < pixels.size(); ++i) {
                    ASSERT_EQ(pixels[i], -7.0F) << loops->name << ' ' << count;
                }
                for (std::size_t i = 0; i < back.size(); ++i) {
                    if (i < offset || i >= offset + count * size) {
                        ASSERT_EQ(back[i], GUARD) << loops->name << ' ' << count << " byte " << i;
                    } else if ((i - offset) % size < 3) {
                        ASSERT_EQ(back[i], source[i - offset]) << loops->name << ' ' << count;
                    }
                }
            }
        }
    }
}

TEST(PixelConversion, ConvertsPicturesOfAnySizeRowByRowInEitherDirection) {
    // The last two are larger than what is left to the caches.
    for (const auto& [width, height] :
         {std::pair(1, 1), std::pair(7, 3), std::pair(1200, 900), std::pair(2049, 2051)}) {
        BitmapImpl<Rgb> image(width, height);
        for (std::size_t i = 0; i < image.size(); ++i) {
            const auto value = static_cast<float>(i % 256) * A_255TH;
            image.data()[i] = {value, 1.0F - value, value * value, 1.0F};
        }
        const ByteOrder order = width % 2 == 0 ? ByteOrder::BGRA : ByteOrder::BGR;
        const std::size_t rowSize = getPixelSize(order) * static_cast<std::size_t>(width) + 5;
        const auto stride = -static_cast<std::ptrdiff_t>(rowSize); // the last row comes first in memory
        const Bytes untouched(rowSize * static_cast<std::size_t>(height), 0xA5);
        Bytes bytes = untouched;
        unsigned char* const firstRow = bytes.data() + rowSize * static_cast<std::size_t>(height - 1);
        convertToBytes(image, order, firstRow, stride);
        Bytes expected = untouched;
        BitmapImpl<Rgb> expectedPixels(width, height);
        for (int y = 0; y < height; ++y) {
            unsigned char* const row = expected.data() + rowSize * static_cast<std::size_t>(height - 1 - y);
            convertToBytes(image.row(y), order, row);
            convertToPixels(row, order, expectedPixels.row(y));
        }
        EXPECT_TRUE(bytes == expected) << width;
        BitmapImpl<Rgb> pixels(width, height);
        convertToPixels(firstRow, stride, order, pixels);
        EXPECT_TRUE(pixels == expectedPixels) << width;
    }
}

// The block for the clipboard

BitmapImpl<Rgb> makeImage(int width, int height, std::initializer_list<RgbBytes> pixels) {
    BitmapImpl<Rgb> image(width, height);
    std::size_t i = 0;
    for (const RgbBytes& p : pixels) {
        image.data()[i++] = Rgb{static_cast<float>(p.red), static_cast<float>(p.green), static_cast<float>(p.blue), 0} *
                            (1.0F / 255.0F);
    }
    return image;
}

TEST(Dib, HasItsHeaderAndRowsPaddedToFourBytes) {
    const auto image = makeImage(3, 2, {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {10, 11, 12}, {13, 14, 15}, {255, 0, 128}});
    const Bytes expected{40, 0,  0,  0,  3,  0,  0,   0, 2,   0,   0,   0, // size, width, height
                         1,  0,  24, 0,  0,  0,  0,   0, 0,   0,   0,   0, // planes, bits, compression, size
                         96, 0,  0,  0,  96, 0,  0,   0, 0,   0,   0,   0,   0, 0, 0, 0, // resolution, colours
                         3,  2,  1,  6,  5,  4,  9,   8, 7,   238, 238, 238,             // the upper row comes first
                         12, 11, 10, 15, 14, 13, 128, 0, 255, 238, 238, 238};
    ASSERT_EQ(getDibSize(3, 2), expected.size());
    Bytes block(expected.size(), 238);
    writeDib(image, true, block);
    EXPECT_THAT(block, ElementsAreArray(expected));
    EXPECT_EQ(getDibSize(1, 1), 44U);
    EXPECT_EQ(getDibSize(4, 3), 40U + 36U);
    EXPECT_EQ(getDibSize(40'000, 40'000), 40U + std::size_t{4'800'000'000});
}

TEST(Dib, SpoilsOnlyWhatIsAllGreyAndOnlyWhenAsked) {
    const RgbBytes grey{128, 128, 128};
    const std::tuple<const char*, BitmapImpl<Rgb>, int, int> cases[] = {
        {"one grey pixel", makeImage(1, 1, {grey}), 128, 127},
        {"black", makeImage(1, 1, {{0, 0, 0}}), 0, 1},
        {"almost black", makeImage(1, 1, {{1, 1, 1}}), 1, 0},
        {"white", makeImage(5, 1, {{255, 255, 255}, grey, grey, grey, grey}), 255, 254},
        {"grey but for the last pixel's blue", makeImage(1, 3, {grey, grey, {128, 128, 129}}), 128, 128},
        {"grey but for the first pixel's red", makeImage(2, 1, {{127, 128, 128}, grey}), 128, 128},
        {"grey once it is bytes", BitmapImpl<Rgb>(1, 1, {0.5F, 0.5001F, 0.5002F, 0}), 128, 127},
        {"grey beyond the limits", BitmapImpl<Rgb>(1, 1, {-1.0F, -2.0F, 0.0F, 1}), 0, 1},
    };
    for (const auto& [name, image, plainBlue, spoiltBlue] : cases) {
        for (const bool spoil : {false, true}) {
            Bytes block(getDibSize(image.getWidth(), image.getHeight()));
            Bytes plain = block;
            writeDib(image, false, plain);
            writeDib(image, spoil, block);
            plain[DIB_HEADER_SIZE] = static_cast<unsigned char>(spoil ? spoiltBlue : plainBlue);
            EXPECT_EQ(block, plain) << name;
        }
    }
}

} // namespace
