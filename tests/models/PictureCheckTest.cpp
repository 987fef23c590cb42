#include "models/PictureCheck.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace Ostrel;

namespace {

using Bytes = Array<unsigned char>;

/// A bitmap with this information header size and compression, after `before` bytes.
Bytes bitmapWith(std::size_t before, unsigned char headerSize, unsigned char compression) {
    Bytes data(before + 40, 0);
    data[before] = headerSize;
    data[before + 16] = compression;
    return data;
}

TEST(PictureCheck, RefusesRunLengthsInBitmapsAndIcons) {
    const struct {
        unsigned char headerSize, compression;
        bool safe;
    } cases[] = {{40, 0, true}, {40, 1, false}, {40, 2, false}, {40, 3, true}, {124, 1, false}, {12, 1, true}};
    for (const auto& [headerSize, compression, safe] : cases) {
        EXPECT_EQ(Detail::isSafeBmp(bitmapWith(14, headerSize, compression)), safe) << int{headerSize};
        Bytes icon = bitmapWith(38, headerSize, compression);
        icon[2] = 1;    // an icon
        icon[4] = 2;    // of two pictures,
        icon[18] = 200; // one beyond the end
        icon[34] = 38;  // and this one
        EXPECT_EQ(Detail::isSafeIcon(icon), safe) << int{headerSize};
    }
    EXPECT_TRUE(Detail::isSafeIcon(Bytes{0, 0, 1, 0, 0xFF, 0xFF})) << "no picture of the many that it promises";
}

/// A TGA picture of two pixels by one, with a map of two colours if it is of a mapped type.
Bytes tgaWith(unsigned char type, unsigned char bits, const Bytes& pixels) {
    constexpr std::size_t HEADER_SIZE = 18;
    const bool mapped = type == 1 || type == 9;
    const std::size_t mapSize = mapped ? 6 : 0;
    Bytes data(HEADER_SIZE + mapSize + pixels.size(), 0);
    data[1] = mapped ? 1 : 0;
    data[2] = type;
    data[5] = mapped ? 2 : 0;
    data[7] = 24;
    data[12] = 2;
    data[14] = 1;
    data[16] = bits;
    std::copy(pixels.begin(), pixels.end(), data.begin() + static_cast<std::ptrdiff_t>(HEADER_SIZE + mapSize));
    return data;
}

TEST(PictureCheck, FollowsTheRunsAndIndicesOfATga) {
    const struct {
        Bytes data;
        bool safe;
        const char* what;
    } cases[] = {
        {tgaWith(2, 24, Bytes(6)), true, "plain"},
        {tgaWith(2, 24, Bytes(5)), true, "plain and cut off, which the toolkit notices"},
        {tgaWith(10, 24, {0x81, 1, 2, 3}), true, "one run of two"},
        {tgaWith(10, 24, {0x01, 1, 2, 3, 4, 5, 6}), true, "two pixels as they are"},
        {tgaWith(10, 24, {0x82, 1, 2, 3}), false, "a run of three"},
        {tgaWith(10, 24, {0x80, 1, 2, 3}), false, "the second pixel missing"},
        {tgaWith(10, 24, {0x81, 1, 2}), false, "a channel missing"},
        {tgaWith(1, 8, {0, 1}), true, "both colours of the map"},
        {tgaWith(1, 8, {0, 2}), false, "a third colour"},
        {tgaWith(9, 8, {0x81, 1}), true, "a run of the second colour"},
        {tgaWith(9, 8, {0x81, 2}), false, "a run of a third colour"},
        {tgaWith(1, 16, {0, 0, 0, 0}), false, "indices of two bytes"},
        {tgaWith(2, 7, Bytes(6)), false, "pixels of no byte"},
        {Bytes(17), false, "less than a header"},
    };
    for (const auto& [data, safe, what] : cases) {
        EXPECT_EQ(Detail::isSafeTga(data), safe) << what;
    }
    Bytes moved = tgaWith(1, 8, {0, 1});
    moved[3] = 1;
    EXPECT_FALSE(Detail::isSafeTga(moved)) << "a map that begins at 1";
    Bytes long_ = tgaWith(1, 8, {0, 1});
    long_[6] = 0xFF;
    EXPECT_FALSE(Detail::isSafeTga(long_)) << "a map beyond the end";
}

} // namespace
