#include <OstrelLib/Exceptions.h>
#include <OstrelLib/Histogram.h>

#include "core/Extremes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

using namespace Ostrel;

namespace {

using Counts = Array<std::uint64_t>;
using enum CurveChannel;

constexpr std::uint64_t MOST = std::numeric_limits<std::uint64_t>::max();

BitmapImpl<Rgb> rowOf(std::initializer_list<Rgb> pixels) {
    BitmapImpl<Rgb> image(static_cast<int>(pixels.size()), 1);
    std::copy(pixels.begin(), pixels.end(), image.data());
    return image;
}

Counts redCounts(const BitmapImpl<Rgb>& image, float min, float max, int binCount) {
    return Histogram::compute(image, RED, min, max, binCount).getBins();
}

TEST(HistogramCount, PicksTheChannel) {
    const BitmapImpl<Rgb> image = rowOf({{0.1F, 0.3F, 0.8F}, {1, 1, 1}});
    const auto bins = [&](CurveChannel channel) { return Histogram::compute(image, channel, 0, 1, 4).getBins(); };
    EXPECT_EQ(bins(MASTER), (Counts{0, 1, 0, 1}));
    EXPECT_EQ(bins(RED), (Counts{1, 0, 0, 1}));
    EXPECT_EQ(bins(GREEN), (Counts{0, 1, 0, 1}));
    EXPECT_EQ(bins(BLUE), (Counts{0, 0, 0, 2}));
    EXPECT_THROW(bins(static_cast<CurveChannel>(4)), Detail::StopException);
}

TEST(HistogramCount, BinsContainTheirLowerEdgeAndTheLastItsUpperToo) {
    const float belowHalf = std::nextafter(0.5F, 0.0F);
    const float aboveOne = std::nextafter(1.0F, 2.0F);
    const BitmapImpl<Rgb> image = rowOf({{0}, {-0.0F}, {0.25F}, {belowHalf}, {0.5F}, {1}, {aboveOne}, {-1e-40F}});
    EXPECT_EQ(redCounts(image, 0, 1, 4), (Counts{2, 2, 1, 1}));
    EXPECT_EQ(redCounts(image, 0.25F, 0.5F, 1), (Counts{3}));
    EXPECT_EQ(redCounts(rowOf({{-3}, {-2}, {-1}}), -3, -1, 2), (Counts{1, 2}));
}

TEST(HistogramCount, LeavesOutWhatIsOutsideAndCountsNothingInOddRanges) {
    const BitmapImpl<Rgb> image =
        rowOf({{NOT_A_NUMBER}, {INFINITE}, {-INFINITE}, {LARGEST}, {-LARGEST}, {-0.5F}, {2}, {0.5F}});
    EXPECT_EQ(redCounts(image, 0, 1, 2), (Counts{0, 1}));
    EXPECT_EQ(redCounts(image, -LARGEST, LARGEST, 3), (Counts{1, 3, 1})) << "a range as wide as float can have";
    const BitmapImpl<Rgb> sums = rowOf({{LARGEST, LARGEST, LARGEST}, {INFINITE, -INFINITE, 0}, {0.5F, 0.5F, 0.5F}});
    EXPECT_EQ(Histogram::compute(sums, MASTER, 0, LARGEST, 1).getBins(), (Counts{1}));

    for (const auto& [min, max] :
         {std::pair{1.0F, 1.0F}, {1.0F, 0.0F}, {NOT_A_NUMBER, 1.0F}, {0.0F, NOT_A_NUMBER}, {0.0F, INFINITE}}) {
        EXPECT_EQ(redCounts(image, min, max, 3), (Counts{0, 0, 0})) << min << " to " << max;
    }
    EXPECT_TRUE(redCounts(image, 0, 1, 0).empty());
    EXPECT_TRUE(redCounts(image, 0, 1, std::numeric_limits<int>::min()).empty());
    EXPECT_EQ(redCounts({}, 0, 1, 2), (Counts{0, 0}));
}

TEST(HistogramCount, OfALargePictureIsExact) {
    BitmapImpl<Rgb> image(1021, 1031); // no multiple of any number of threads
    Counts expected(256, 0);
    std::minstd_rand random(1);
    for (Rgb& pixel : ArrayView<Rgb>(image.data(), image.size())) {
        const auto bin = static_cast<std::size_t>(random() % 256);
        pixel.green = (static_cast<float>(bin) + 0.5F) / 256.0F;
        ++expected[bin];
    }
    const Histogram histogram = Histogram::compute(image, GREEN, 0, 1, 256);
    EXPECT_EQ(histogram.getBins(), expected);
    EXPECT_EQ(histogram.getLargestBin(), *std::max_element(expected.begin(), expected.end()));
}

TEST(HistogramCumulative, AscendsToOne) {
    EXPECT_EQ(Histogram({1, 0, 2, 1, 0}, 0, 1).getCumulativeHistogram(), (Array<float>{0.25F, 0.25F, 0.75F, 1, 1}));
    EXPECT_EQ(Histogram({MOST, MOST}, 0, 1).getCumulativeHistogram(), (Array<float>{0.5F, 1}));
    EXPECT_EQ(Histogram({0, 0}, 0, 1).getCumulativeHistogram(), (Array<float>{0, 0}));
    EXPECT_TRUE(Histogram().getCumulativeHistogram().empty());
    EXPECT_EQ(Histogram().getLargestBin(), 0U);
}

TEST(EqualizingCurve, HasItsPointsWhereTheCumulativeReachesEachLevel) {
    const auto points = [](Counts bins, float min, float max, int count) {
        return Histogram(std::move(bins), min, max).computeEqualizingCurve(count).getPoints();
    };
    // Within a bin values are even: three quarters of the way through the first, and so on.
    EXPECT_EQ(points({4, 2, 0, 2}, 0, 4, 5), (Array<CurvePoint>{{0, 0}, {0.5F, 0.25F}, {1, 0.5F}, {2, 0.75F}, {4, 1}}));
    EXPECT_EQ(points({0, 3, 0, 0}, 0, 2, 3), (Array<CurvePoint>{{0.5F, 0}, {0.75F, 0.5F}, {1, 1}}));
    EXPECT_EQ(points({1}, -1, 1, 2), (Array<CurvePoint>{{-1, 0}, {1, 1}}));
}

TEST(EqualizingCurve, AscendsStrictlyFromZeroToOne) {
    const float next = std::nextafter(1000.0F, 2000.0F);
    const Histogram histograms[] = {
        Histogram({1, 1'000'000'000'000, 1}, 0, 1),
        Histogram(Counts(100, 1), 1000, next + (next - 1000) * 3), // many bins for few floats
        Histogram({0, 0, 7, 0, 0, 0, 1, 0}, -5, 5),
        Histogram({MOST, 1, 0}, 0, LARGEST),
    };
    for (const Histogram& histogram : histograms) {
        for (const int pointCount : {2, 3, 16, 1000}) {
            const Array<CurvePoint> points = histogram.computeEqualizingCurve(pointCount).getPoints();
            ASSERT_TRUE(points.size() >= 2 && points.size() <= static_cast<std::size_t>(pointCount));
            EXPECT_TRUE(points.front().y == 0.0F && points.back().y == 1.0F);
            EXPECT_TRUE(points.front().x >= histogram.getMin() && points.back().x <= histogram.getMax());
            for (std::size_t i = 1; i < points.size(); ++i) {
                ASSERT_TRUE(points[i - 1].x < points[i].x && points[i - 1].y < points[i].y) << i;
            }
        }
    }
}

TEST(EqualizingCurve, IsTheIdentityWhenThereIsNothingToSpread) {
    const Histogram some({1, 2}, 0, 1);
    const float next = std::nextafter(1.0F, 2.0F);
    for (const Histogram& histogram : {Histogram(), Histogram({0, 0}, 0, 1), Histogram({1, 2}, 1, 0),
                                       Histogram({1, 2}, 0, NOT_A_NUMBER), Histogram({1, 0, 0, 0, 0}, 1, next)}) {
        EXPECT_EQ(histogram.computeEqualizingCurve(16), Curve());
    }
    for (const int pointCount : {1, 0, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(some.computeEqualizingCurve(pointCount), Curve());
    }
}

} // namespace
