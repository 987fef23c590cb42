#include <OstrelLib/Geometry.h>

#include "core/Printing.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

using Ostrel::Bucket;
using Ostrel::Pixel;
using testing::PrintToString;

namespace {

constexpr int LOWEST = std::numeric_limits<int>::min();
constexpr int HIGHEST = std::numeric_limits<int>::max();

TEST(PixelArithmetic, StopsAtTheEndsOfInt) {
    EXPECT_EQ((Pixel{3, -4} - Pixel{-1, 10}), (Pixel{4, -14}));
    EXPECT_EQ((Pixel{HIGHEST, LOWEST} + Pixel{1, -1}), (Pixel{HIGHEST, LOWEST}));
    EXPECT_EQ((Pixel{0, LOWEST} - Pixel{LOWEST, HIGHEST}), (Pixel{HIGHEST, LOWEST}));
}

TEST(BucketSize, IsNeverNegativeAndNeverOverflows) {
    using Case = std::tuple<Bucket, int, int, bool>;
    const Case cases[] = {{{{1, 2}, {4, 6}}, 3, 4, false},
                          {{{5, 5}, {6, 5}}, 1, 0, true},
                          {{{4, 0}, {1, 3}}, 0, 3, true},
                          {{{LOWEST, LOWEST}, {HIGHEST, LOWEST + 1}}, HIGHEST, 1, false},
                          {{{HIGHEST, -1}, {LOWEST, HIGHEST}}, 0, HIGHEST, true}};
    for (const auto& [bucket, width, height, isEmpty] : cases) {
        EXPECT_EQ(bucket.width(), width) << PrintToString(bucket);
        EXPECT_EQ(bucket.height(), height) << PrintToString(bucket);
        EXPECT_EQ(bucket.isEmpty(), isEmpty) << PrintToString(bucket);
    }
}

TEST(BucketContents, ExcludeTheMaximumCorner) {
    const Bucket bucket{{-1, 0}, {2, 3}};
    EXPECT_TRUE(bucket.contains({-1, 0}) && bucket.contains({1, 2}));
    EXPECT_FALSE(bucket.contains({2, 2}) || bucket.contains({1, 3}) || bucket.contains({-2, 0}));
}

TEST(BucketIntersection, IsWhatBothHave) {
    const Bucket a{{0, 0}, {4, 4}};
    const std::pair<Bucket, Bucket> cases[] = {{{{2, -1}, {9, 3}}, {{2, 0}, {4, 3}}},
                                               {{{4, 0}, {8, 4}}, {}},
                                               {{{9, 9}, {10, 10}}, {}},
                                               {{{3, 3}, {1, 1}}, {}},
                                               {{{LOWEST, LOWEST}, {HIGHEST, HIGHEST}}, a}};
    for (const auto& [b, expected] : cases) {
        EXPECT_EQ(a.intersect(b), expected);
        EXPECT_EQ(b.intersect(a), expected);
    }
}

} // namespace
