#include "models/ColorBytes.h"
#include "models/SwatchHatch.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

namespace Ostrel::Wx {
namespace {

TEST(ColorBytes, AreFourFloatsWithTheLowestByteFirst) {
    constexpr unsigned char EXPECTED[]{0x00, 0x00, 0xC0, 0x3F,  // 1.5
                                       0x00, 0x00, 0x80, 0xBE,  // -0.25
                                       0xCD, 0xCC, 0xCC, 0x3D,  // 0.1
                                       0x00, 0x00, 0x80, 0x7F}; // infinity
    const Rgb color{1.5F, -0.25F, 0.1F, std::numeric_limits<float>::infinity()};
    const auto bytes = toColorBytes(color);
    for (std::size_t i = 0; i < COLOR_BYTE_COUNT; ++i) {
        EXPECT_EQ(std::to_integer<int>(bytes[i]), EXPECTED[i]) << "byte " << i;
    }
    EXPECT_EQ(fromColorBytes(bytes), color);
    const Rgb odd{std::bit_cast<float>(0x7FC12345U), -0.0F, 1e-45F, 0.0F};
    const Rgb back = fromColorBytes(toColorBytes(odd));
    EXPECT_TRUE(std::isnan(back.red));
    EXPECT_TRUE(std::signbit(back.green));
    EXPECT_EQ(back.blue, 1e-45F);
}

TEST(SwatchHatch, StepsDarkerOrLighterWhereItIsTooDark) {
    EXPECT_EQ(getHatchColor({0, 30, 31}), (RgbBytes{30, 60, 1}));
    EXPECT_EQ(getHatchColor({255, 128, 60}), (RgbBytes{225, 98, 30}));
}

TEST(SwatchHatch, CoversEveryPixelOfAStripeOnceAndNoOther) {
    for (const Bucket& area : {Bucket{{1, 1}, {37, 23}}, Bucket{{1, 1}, {2, 2}}, Bucket{{4, 3}, {9, 40}},
                               Bucket{{1, 1}, {0, 0}}, Bucket{{1, 1}, {1, 9}}}) {
        int covered[64][64]{};
        visitHatchRuns(area, [&](const Bucket& run) {
            for (int x = run.min.x; x < run.max.x; ++x) {
                ++covered[run.min.y][x];
            }
            EXPECT_EQ(run.height(), 1);
        });
        for (int y = 0; y < 64; ++y) {
            for (int x = 0; x < 64; ++x) {
                EXPECT_EQ(covered[y][x], area.contains({x, y}) && (x + y) % 10 < 5 ? 1 : 0) << x << ", " << y;
            }
        }
    }
}

} // namespace
} // namespace Ostrel::Wx
