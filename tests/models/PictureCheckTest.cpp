#include "models/PictureCheck.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

using namespace Ostrel;

namespace {

using Bytes = Array<unsigned char>;

/// A bitmap of 8 by 1 pixels of `bits` each, after `before` bytes: header, table and one row.
struct Bitmap {
    unsigned char headerSize, bits, compression, coloursUsed;
    Bytes row;

    [[nodiscard]] Bytes after(std::size_t before) const {
        Bytes data(before + headerSize + 4U * coloursUsed, 0);
        data[before] = headerSize;
        if (headerSize == 12) {
            data[before + 4] = 8;
            data[before + 6] = 1;
            data[before + 10] = bits;
        } else {
            data[before + 4] = 8;
            data[before + 8] = 1;
            data[before + 14] = bits;
            data[before + 16] = compression;
            data[before + 32] = coloursUsed;
        }
        data.insert(data.end(), row.begin(), row.end());
        return data;
    }
};

TEST(PictureCheck, RefusesBitmapsAndIconsThatReachBeyondTheirTables) {
    const Bytes black(8, 0);
    const std::tuple<Bitmap, bool, const char*> cases[] = {
        {{40, 8, 0, 0, black}, true, "a table of the usual size"},
        {{40, 8, 1, 0, black}, false, "run lengths of bytes"},
        {{40, 4, 2, 0, Bytes(4)}, false, "run lengths of half bytes"},
        {{124, 8, 1, 0, black}, false, "run lengths under a longer header"},
        {{40, 24, 3, 0, Bytes(24)}, true, "bit fields"},
        {{12, 8, 1, 0, black}, true, "a header without the field"},
        {{40, 8, 0, 2, {0, 1, 0, 1, 0, 1, 0, 1}}, true, "both colours"},
        {{40, 8, 0, 2, {0, 1, 0, 1, 0, 1, 0, 2}}, false, "a third colour"},
        {{40, 4, 0, 3, {0x01, 0x22, 0x10, 0x00}}, true, "three colours, two to a byte"},
        {{40, 4, 0, 3, {0x01, 0x32, 0x10, 0x00}}, false, "a fourth colour"},
        {{40, 1, 0, 1, {0x10, 0, 0, 0}}, false, "a second colour of one"},
        {{40, 0, 0, 1, black}, false, "colours for no bits"},
        {{40, 1, 0, 3, {0, 0, 0, 0}}, false, "more colours than a pixel tells apart"},
    };
    for (const auto& [bitmap, safe, what] : cases) {
        Bytes file = bitmap.after(14);
        file[10] = static_cast<unsigned char>(file.size() - bitmap.row.size());
        EXPECT_EQ(Detail::isSafeBmp(file), safe) << what;
        file.pop_back();
        EXPECT_FALSE(Detail::isSafeBmp(file)) << "cut off: " << what;
        Bytes icon = bitmap.after(38);
        icon[2] = 1; // an icon
        icon[4] = 2; // of two pictures, both the same
        for (const std::size_t entry : {6U, 22U}) {
            icon[entry + 8] = static_cast<unsigned char>(icon.size() - 38);
            icon[entry + 12] = 38;
        }
        EXPECT_EQ(Detail::isSafeIcon(icon), safe) << what;
        icon.pop_back();
        EXPECT_FALSE(Detail::isSafeIcon(icon)) << "cut off: " << what;
    }
    Bytes huge = Bitmap{40, 32, 0, 0, black}.after(14);
    std::fill(huge.begin() + 18, huge.begin() + 26, static_cast<unsigned char>(0xFF));
    EXPECT_FALSE(Detail::isSafeBmp(huge)) << "rows that no number counts";
    EXPECT_FALSE(Detail::isSafeIcon(Bytes{0, 0, 1, 0, 0xFF, 0xFF})) << "no picture of the many that it promises";
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
    const std::tuple<Bytes, bool, const char*> cases[] = {
        {tgaWith(2, 24, Bytes(6)), true, "plain"},
        {tgaWith(2, 24, Bytes(5)), false, "plain and cut off"},
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
