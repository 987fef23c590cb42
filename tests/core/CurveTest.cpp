#include <OstrelLib/Curve.h>
#include <OstrelLib/Exceptions.h>

#include "core/Extremes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <tuple>

using namespace Ostrel;

namespace {

using enum CurveInterpolation;

/// The expected values were found by solving the conditions of a natural cubic spline for all coefficients of all
/// pieces at once, in exact fractions.
TEST(CurveSpline, IsTheNaturalCubicSpline) {
    using Case = std::tuple<Array<CurvePoint>, float, float, float>;
    const Array<CurvePoint> even{{-2, 5}, {-1, 1}, {0, 0}, {1, 1}, {2, 4}, {3, -9}};
    const Array<CurvePoint> uneven{{0, 0}, {1, 4}, {3, 0}, {4, 2}, {8, -6}};
    const Case cases[] = {{{{0, 1}, {1, 3}}, 0.5F, 2, 1}, {{{0, 0}, {1, 1}, {2, 0}}, 0.5F, 11, 16},
                          {even, -1.5F, 2265, 836},       {even, 0.5F, -11, 152},
                          {even, 2.5F, -1417, 1672},      {uneven, 0.5F, 3175, 1256},
                          {uneven, 1.5F, 9297, 2512},     {uneven, 6, 178, 157}};
    for (const auto& [points, x, numerator, denominator] : cases) {
        EXPECT_FLOAT_EQ(Curve(points)(x), numerator / denominator) << points.size() << " points at " << x;
    }
}

TEST(Curve, MeetsItsPointsAndIsFlatBeyondThem) {
    const Array<CurvePoint> points{{0.1F, 0.3F}, {0.37F, 0.9F}, {0.71F, -0.4F}, {0.9F, 0.7F}};
    for (const CurveInterpolation interpolation : {CUBIC_SPLINE, LINEAR}) {
        const Curve curve(points, interpolation);
        for (const CurvePoint& point : points) {
            EXPECT_EQ(curve(point.x), point.y);
        }
        for (const float before : {0.0999F, -LARGEST, -INFINITE, NOT_A_NUMBER}) {
            EXPECT_EQ(curve(before), 0.3F) << before;
        }
        for (const float after : {0.9001F, LARGEST, INFINITE}) {
            EXPECT_EQ(curve(after), 0.7F) << after;
        }
    }
    EXPECT_EQ(Curve({{0.5F, 0.25F}})(-3.0F), 0.25F) << "one point";
    EXPECT_EQ(Curve(Array<CurvePoint>())(0.5F), 0.0F) << "no point";
}

TEST(Curve, EveryChangeCountsAtOnceAndAWrongOneIsNone) {
    Curve curve({{0, 0}, {1, 1}}, LINEAR);
    curve.appendPoint({0.5F, 0});
    EXPECT_EQ(curve(0.5F), 0.0F);
    curve.setPoint(2, {0.5F, 1});
    EXPECT_EQ(curve(0.25F), 0.5F);
    curve.setInterpolation(CUBIC_SPLINE);
    EXPECT_GT(curve(0.25F), 0.51F);
    curve.removePoint(1);
    EXPECT_EQ(curve(1.0F), 1.0F);
    curve.setPoints({{0, 3}});
    EXPECT_EQ(curve(0.25F), 3.0F);

    const Curve before = curve;
    EXPECT_THROW(curve.setPoint(1, {}), Detail::StopException);
    EXPECT_THROW(curve.removePoint(1), Detail::StopException);
    EXPECT_THROW(curve.setInterpolation(static_cast<CurveInterpolation>(2)), Detail::StopException);
    EXPECT_EQ(curve, before);
}

TEST(Curve, StepsWherePointsShareAnX) {
    for (const CurveInterpolation interpolation : {CUBIC_SPLINE, LINEAR}) {
        const Curve step({{0, 0}, {0.5F, 0.5F}, {0.5F, 9}, {0.5F, 0.25F}, {1, 0.75F}}, interpolation);
        EXPECT_NEAR(step(std::nextafter(0.5F, 0.0F)), 0.5F, 1e-6F) << "arrives at the first";
        EXPECT_EQ(step(0.5F), 0.25F) << "leaves from the last";
        EXPECT_FLOAT_EQ(step(0.75F), 0.5F);
        const Curve ends({{0, 1}, {0, 2}, {1, 2}, {1, 5}}, interpolation);
        EXPECT_EQ(ends(-1.0F), 1.0F);
        EXPECT_EQ(ends(0.0F), 2.0F);
        EXPECT_EQ(ends(1.0F), 5.0F);
    }
    const Array<CurvePoint> left{{0, 0}, {0.2F, 0.9F}, {0.4F, 0.1F}};
    Array<CurvePoint> both = left;
    both.insert(both.end(), {{0.4F, 0.7F}, {0.6F, 0.0F}, {1, 1}});
    EXPECT_EQ(Curve(both)(0.3F), Curve(left)(0.3F)) << "a spline is natural on both sides of a step";
}

TEST(Curve, GoesByXAndLeavesOutPointsThatAreNotFinite) {
    const Array<CurvePoint> given{{1, 0.75F},    {NOT_A_NUMBER, 0}, {0.5F, NOT_A_NUMBER}, {0, 0.25F},
                                  {INFINITE, 0}, {0.3F, 0.8F},      {0.25F, -INFINITE}};
    const Curve plain({{0, 0.25F}, {0.3F, 0.8F}, {1, 0.75F}});
    Curve curve(given);
    for (const float x : {-1.0F, 0.0F, 0.25F, 0.5F, 2.0F, INFINITE, NOT_A_NUMBER}) {
        EXPECT_EQ(curve(x), plain(x)) << x;
    }
    EXPECT_EQ(curve.getPoints()[0], given[0]) << "the list is as it was given";
    curve.sortPoints();
    EXPECT_EQ(curve.getPoints()[0], given[3]);
    EXPECT_TRUE(std::isnan(curve.getPoints().back().x)) << "kept, at the end";
}

TEST(Curve, StaysFiniteForFinitePoints) {
    const float extremes[] = {0.0F, SMALLEST, -SMALLEST, 1e-20F, 0.5F, 1.0F, 1.0000001F, -1e20F, LARGEST, -LARGEST};
    std::minstd_rand random(1);
    std::uniform_int_distribution<std::size_t> pick(0, std::size(extremes) - 1);
    for (int round = 0; round < 2000; ++round) {
        Array<CurvePoint> points(2 + pick(random));
        for (CurvePoint& point : points) {
            point = {extremes[pick(random)], extremes[pick(random)]};
        }
        const Curve curve(points, static_cast<CurveInterpolation>(round % 2));
        for (const float x : extremes) {
            ASSERT_TRUE(std::isfinite(curve(x)) && std::isfinite(curve(x / 3.0F))) << "round " << round << " at " << x;
        }
    }
}

TEST(CurveEvaluation, OfManyPlacesIsThatOfEach) {
    Array<float> ascending{-INFINITE};
    for (int i = -58; i <= 300; ++i) { // places are looked at by sixteens, one of which ends on the step at 0.5
        ascending.push_back(static_cast<float>(i) / 200.0F);
    }
    ascending.insert(ascending.end(), {INFINITE, NOT_A_NUMBER, 0.50001F});
    Array<float> shuffled = ascending;
    std::shuffle(shuffled.begin(), shuffled.end(), std::minstd_rand(1));
    const Curve curves[] = {Curve({{0.5F, 2}}), Curve(Array<CurvePoint>()), Curve({{0.2F, 0.2F}, {0.6F, 0.6F}}),
                            Curve({{0, 1}, {0.2F, 0}, {0.5F, 0.5F}, {0.5F, 0.1F}, {0.7F, 2}, {1, 0}, {1, 1}})};
    for (const Curve& curve : curves) {
        for (Array<float> places : {ascending, shuffled}) {
            Array<float> expected;
            std::transform(places.begin(), places.end(), std::back_inserter(expected), std::cref(curve));
            curve.evaluate(places, places); // in place
            ASSERT_EQ(places, expected) << curve.getPoints().size() << " points";
        }
    }
    curves[0].evaluate({}, {});
    EXPECT_THROW(curves[0].evaluate(ascending, ArrayView<float>(shuffled).first(3)), Detail::StopException);
}

TEST(CurveIdentity, HasAllPointsOnTheDiagonalAndSpansTheRange) {
    const Array<CurvePoint> identities[] = {{{1, 1}, {0.3F, 0.3F}, {0, 0}},
                                            {{-1e30F, -1e30F}, {0.1F, 0.1F}, {LARGEST, LARGEST}},
                                            {{0, 0}, {0, 0}, {NOT_A_NUMBER, 1}, {1, 1}}};
    const Array<CurvePoint> others[] = {
        {{0, 0}, {0.5F, 0.50001F}, {1, 1}}, {{0.01F, 0.01F}, {1, 1}}, {{0, 0}, {0.99F, 0.99F}}, {}};
    for (const CurveInterpolation interpolation : {CUBIC_SPLINE, LINEAR}) {
        for (const Array<CurvePoint>& points : identities) {
            const Curve curve(points, interpolation);
            EXPECT_TRUE(curve.isIdentity());
            for (float x = 0.0F; x <= 1.0F; x += 0.0097F) {
                ASSERT_EQ(curve(x), x);
            }
        }
        for (const Array<CurvePoint>& points : others) {
            EXPECT_FALSE(Curve(points, interpolation).isIdentity()) << points.size();
        }
    }
    EXPECT_TRUE(Curve().isIdentity());
}

TEST(ColorCurve, HasACurveForEachChannelAndNoMore) {
    ColorCurve curves;
    curves[CurveChannel::BLUE].appendPoint({0.5F, 0.7F});
    EXPECT_FALSE(curves[static_cast<CurveChannel>(3)].isIdentity());
    EXPECT_TRUE(curves[CurveChannel::GREEN].isIdentity());
    for (const int odd : {-1, CURVE_CHANNEL_COUNT}) {
        EXPECT_THROW(static_cast<void>(curves[static_cast<CurveChannel>(odd)]), Detail::StopException);
    }
}

} // namespace
