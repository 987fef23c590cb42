#include "models/SwatchHatch.h"

#include <gtest/gtest.h>

namespace Ostrel::Wx {
namespace {

TEST(SwatchHatch, StepsDarkerOrLighterWhereItIsTooDark) {
    EXPECT_EQ(getHatchColor({0, 30, 31}), (RgbBytes{30, 60, 1}));
    EXPECT_EQ(getHatchColor({255, 128, 60}), (RgbBytes{225, 98, 30}));
}

TEST(SwatchHatch, CoversEveryPixelOfAStripeOnceAndNoOther) {
    for (const Bucket& area : {Bucket{{1, 1}, {37, 23}}, Bucket{{4, 3}, {9, 40}}, Bucket{{1, 1}, {0, 0}}}) {
        int covered[64][64]{};
        visitHatchRuns(area, [&](const Bucket& run) {
            for (int x = run.min.x; x < run.max.x; ++x) {
                ++covered[run.min.y][x];
            }
        });
        for (int i = 0; i < 64 * 64; ++i) {
            const Pixel p{i % 64, i / 64};
            EXPECT_EQ(covered[p.y][p.x], area.contains(p) && (p.x + p.y) % 10 < 5 ? 1 : 0) << p.x << ", " << p.y;
        }
    }
}

} // namespace
} // namespace Ostrel::Wx
