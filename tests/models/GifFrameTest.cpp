#include "models/GifFrame.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace {

using namespace Ostrel;
using Bytes = Array<unsigned char>;

const Bytes HEADER{'G', 'I', 'F', '8', '9', 'a', 2, 0, 2, 0, 0x80, 0, 0, 1, 2, 3, 4, 5, 6}; // two colours
const Bytes CONTROL{0x21, 0xF9, 4, 1, 0, 0, 1, 0};
const Bytes COMMENT{0x21, 0xFE, 3, ',', ',', ',', 0};
const Bytes TRAILER{0x3B};

Bytes join(std::initializer_list<Bytes> parts) {
    Bytes all;
    for (const Bytes& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

/// A picture without colours of its own. The codes are given as they are packed.
Bytes picture(unsigned char width, unsigned char height, unsigned char rootBits, const Bytes& codes) {
    Bytes bytes{0x2C, 0, 0, 0, 0, width, 0, height, 0, 0, rootBits};
    for (std::size_t start = 0; start < codes.size(); start += 255) {
        const auto block =
            ArrayView<const unsigned char>(codes).subspan(start, std::min<std::size_t>(255, codes.size() - start));
        bytes.push_back(static_cast<unsigned char>(block.size()));
        bytes.insert(bytes.end(), block.begin(), block.end());
    }
    bytes.push_back(0);
    return bytes;
}

/// Codes of three bits, as long as the table has no more than eight; the lowest bits come first.
Bytes pack(std::initializer_list<unsigned> codes) {
    Bytes bytes;
    unsigned bits = 0;
    int count = 0;
    for (const unsigned code : codes) {
        bits |= code << count;
        for (count += 3; count >= 8; count -= 8, bits >>= 8) {
            bytes.push_back(static_cast<unsigned char>(bits));
        }
    }
    bytes.push_back(static_cast<unsigned char>(bits));
    return bytes;
}

constexpr unsigned CLEAR = 4;
constexpr unsigned END = 5;

TEST(GifFrame, KeepsTheFirstPictureAndWhatItNeeds) {
    const Bytes first = picture(3, 1, 2, pack({CLEAR, 0, 1, 1}));
    const Bytes second = picture(1, 1, 2, pack({CLEAR, 1, END}));
    const Bytes file = join({HEADER, COMMENT, CONTROL, first, second, TRAILER});
    EXPECT_EQ(Detail::extractFirstGifFrame(file), join({HEADER, CONTROL, first, TRAILER}));
    for (std::size_t size = 0; size < HEADER.size() + COMMENT.size() + CONTROL.size() + first.size() - 1; ++size) {
        EXPECT_TRUE(Detail::extractFirstGifFrame(ArrayView<const unsigned char>(file).first(size)).empty()) << size;
    }
}

TEST(GifFrame, AllowsOnlyCodesThatExistWhereTheyStand) {
    const struct {
        const char* name;
        unsigned char width, height, rootBits;
        Bytes codes;
        bool allowed;
    } cases[] = {
        {"without the code that ends it", 3, 1, 2, pack({CLEAR, 0, 1, 0}), true},
        {"without the code that begins it", 2, 1, 2, pack({1, 0}), true},
        {"a code of the table", 4, 1, 2, pack({CLEAR, 0, 1, 6}), true},
        {"the code that is just being made", 3, 1, 2, pack({CLEAR, 0, 6}), true},
        {"one code beyond it", 2, 1, 2, pack({CLEAR, 0, 7, 0}), false},
        {"a code made by nothing", 1, 1, 2, pack({CLEAR, 6, 0}), false},
        {"a code from before the table was cleared", 4, 1, 2, pack({CLEAR, 0, 1, CLEAR, 6}), false},
        {"ends too early", 4, 1, 2, pack({CLEAR, 0, 1, 0, END}), false},
        {"no codes", 1, 1, 2, {}, false},
        {"no width", 0, 1, 2, pack({CLEAR, 0, END}), false},
        {"no height", 1, 0, 2, pack({CLEAR, 0, END}), false},
        {"colours of one bit", 1, 1, 1, pack({CLEAR, 0, END}), false},
        {"colours of nine bits", 1, 1, 9, Bytes(40), false},
        {"more pixels than codes", 255, 255, 2, pack({CLEAR, 0, 6, 7}), false},
        {"a table that is filled up and never cleared", 250, 20, 8, Bytes(9000, 0), false},
    };
    for (const auto& c : cases) {
        const Bytes file = join({HEADER, picture(c.width, c.height, c.rootBits, c.codes), TRAILER});
        EXPECT_EQ(!Detail::extractFirstGifFrame(file).empty(), c.allowed) << c.name;
    }
}

} // namespace
