#include <OstrelLib/Curve.h>
#include <OstrelLib/Exceptions.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <utility>

using namespace Ostrel;

namespace {

using enum CurveInterpolation;

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float INFINITE = std::numeric_limits<float>::infinity();
constexpr float LARGEST = std::numeric_limits<float>::max();
constexpr float SMALLEST = std::numeric_limits<float>::denorm_min();

/// The expected values were found by solving the conditions of a natural cubic spline for all coefficients of all
/// pieces at once, in exact fractions.
TEST(CurveSpline, IsTheNaturalCubicSpline) {
    struct Value {
        float x;
        float numerator, denominator;
    };
    struct Case {
        Array<CurvePoint> points;
        Array<Value> values;
    };
    const Case cases[] = {
        {{{0, 1}, {1, 3}}, {{0.5F, 2, 1}}},
        {{{0, 0}, {1, 1}, {2, 0}}, {{0.5F, 11, 16}, {1.5F, 11, 16}}},
        {{{-2, 5}, {-1, 1}, {0, 0}, {1, 1}, {2, 4}, {3, -9}},
         {{-1.5F, 2265, 836}, {-0.5F, 413, 1672}, {0.5F, -11, 152}, {1.5F, 5923, 1672}, {2.5F, -1417, 1672}}},
        {{{0, 0}, {1, 4}, {3, 0}, {4, 2}, {8, -6}},
         {{0.5F, 3175, 1256}, {1.5F, 9297, 2512}, {2.5F, 1795, 2512}, {3.5F, 463, 628}, {6, 178, 157}}},
    };
    for (const Case& c : cases) {
        const Curve curve(c.points);
        for (const Value& value : c.values) {
            EXPECT_FLOAT_EQ(curve(value.x), value.numerator / value.denominator)
                << c.points.size() << " points at " << value.x;
        }
    }
}

TEST(CurveLinear, JoinsItsPointsByLines) {
    Curve curve({{0, 0.5F}, {0.5F, 1}, {1, 0}}, LINEAR);
    EXPECT_FLOAT_EQ(curve(0.25F), 0.75F);
    EXPECT_FLOAT_EQ(curve(0.75F), 0.5F);
    curve.setInterpolation(CUBIC_SPLINE);
    EXPECT_GT(curve(0.25F), 0.76F) << "the mode takes effect at once";
    curve.setInterpolation(LINEAR);
    EXPECT_FLOAT_EQ(curve(0.25F), 0.75F);
}

TEST(Curve, MeetsItsPointsAndIsFlatBeyondThem) {
    const Array<CurvePoint> points{{0.1F, 0.3F}, {0.37F, 0.9F}, {0.71F, -0.4F}, {0.9F, 0.7F}};
    for (const CurveInterpolation interpolation : {CUBIC_SPLINE, LINEAR}) {
        const Curve curve(points, interpolation);
        for (const CurvePoint& point : points) {
            EXPECT_EQ(curve(point.x), point.y);
        }
        for (const float before : {0.0999F, -7.0F, -LARGEST, -INFINITE, NOT_A_NUMBER}) {
            EXPECT_EQ(curve(before), 0.3F) << before;
        }
        for (const float after : {0.9001F, 8.0F, LARGEST, INFINITE}) {
            EXPECT_EQ(curve(after), 0.7F) << after;
        }
    }
}

TEST(Curve, FollowsItsPointsInTheOrderOfX) {
    const Array<CurvePoint> sorted{{0, 0.1F}, {0.3F, 0.8F}, {0.6F, 0.2F}, {1, 1}};
    const Array<CurvePoint> mixed{sorted[2], sorted[0], sorted[3], sorted[1]};
    const Curve expected(sorted);
    Curve curve(mixed);
    for (float x = -0.5F; x < 1.5F; x += 0.01F) {
        ASSERT_EQ(curve(x), expected(x)) << x;
    }
    EXPECT_EQ(curve.getPoints(), mixed) << "the list is as it was given";
    EXPECT_NE(curve, expected);
    curve.sortPoints();
    EXPECT_EQ(curve, expected);
}

TEST(Curve, EveryChangeOfAPointCounts) {
    Curve curve({{0, 0}, {1, 1}}, LINEAR);
    curve.appendPoint({0.5F, 0});
    EXPECT_EQ(curve(0.5F), 0.0F);
    curve.setPoint(2, {0.5F, 1});
    EXPECT_EQ(curve(0.25F), 0.5F);
    curve.removePoint(1);
    EXPECT_EQ(curve(1.0F), 1.0F);
    EXPECT_EQ(curve.getPoints(), (Array<CurvePoint>{{0, 0}, {0.5F, 1}}));
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
        const Curve step({{0, 0}, {0.5F, 0.5F}, {0.5F, 9}, {0.5F, -3}, {0.5F, 0.25F}, {1, 0.75F}}, interpolation);
        EXPECT_FLOAT_EQ(step(0.25F), 0.25F);
        EXPECT_NEAR(step(std::nextafter(0.5F, 0.0F)), 0.5F, 1e-6F) << "arrives at the first";
        EXPECT_EQ(step(0.5F), 0.25F) << "leaves from the last";
        EXPECT_FLOAT_EQ(step(0.75F), 0.5F);
        const Curve ends({{0, 1}, {0, 2}, {1, 2}, {1, 5}}, interpolation);
        EXPECT_EQ(ends(-1.0F), 1.0F);
        EXPECT_EQ(ends(0.0F), 2.0F);
        EXPECT_EQ(ends(0.5F), 2.0F);
        EXPECT_EQ(ends(1.0F), 5.0F);
        EXPECT_EQ(Curve({{0.5F, 1}, {0.5F, 2}}, interpolation)(0.4F), 1.0F);
    }
    const Array<CurvePoint> left{{0, 0}, {0.2F, 0.9F}, {0.4F, 0.1F}};
    Array<CurvePoint> both = left;
    both.insert(both.end(), {{0.4F, 0.7F}, {0.6F, 0.0F}, {1, 1}});
    EXPECT_EQ(Curve(both)(0.3F), Curve(left)(0.3F)) << "a spline is natural on both sides of a step";
}

TEST(Curve, OfOneOrNoPointIsConstant) {
    EXPECT_EQ(Curve({{0.5F, 0.25F}})(0.5F), 0.25F);
    EXPECT_EQ(Curve({{0.5F, 0.25F}})(-3.0F), 0.25F);
    EXPECT_EQ(Curve(Array<CurvePoint>())(0.5F), 0.0F);
    EXPECT_FALSE(Curve(Array<CurvePoint>()).isIdentity());
}

TEST(Curve, LeavesOutPointsThatAreNotFinite) {
    const Array<CurvePoint> odd{{NOT_A_NUMBER, 0}, {0, 0.25F},         {0.5F, NOT_A_NUMBER}, {INFINITE, 0},
                                {1, 0.75F},        {-INFINITE, 1e30F}, {0.25F, -INFINITE}};
    const Curve plain({{0, 0.25F}, {1, 0.75F}});
    Curve curve(odd);
    curve.sortPoints();
    EXPECT_EQ(curve.getPoints().size(), odd.size());
    EXPECT_TRUE(std::isnan(curve.getPoints().back().x));
    for (const float x : {-1.0F, 0.0F, 0.25F, 0.5F, 2.0F, INFINITE, NOT_A_NUMBER}) {
        EXPECT_EQ(curve(x), plain(x)) << x;
    }
}

TEST(Curve, StaysFiniteForFinitePoints) {
    const float extremes[] = {0.0F,
                              SMALLEST,
                              -SMALLEST,
                              1e-20F,
                              0.5F,
                              1.0F,
                              std::nextafter(1.0F, 2.0F),
                              -1e20F,
                              LARGEST,
                              -LARGEST,
                              std::nextafter(LARGEST, 0.0F)};
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
    Array<float> positions;
    for (int i = -50; i <= 300; ++i) {
        positions.push_back(static_cast<float>(i) / 200.0F);
    }
    for (const float odd : {NOT_A_NUMBER, INFINITE, -INFINITE, 0.2F, 0.5F, 0.50001F, 1.0F}) {
        positions.push_back(odd);
    }
    Array<float> shuffled = positions;
    std::shuffle(shuffled.begin(), shuffled.end(), std::minstd_rand(1));
    const Curve curves[] = {Curve(), Curve({{0.5F, 2}}), Curve(Array<CurvePoint>()),
                            Curve({{0.2F, 0.2F}, {0.6F, 0.6F}}),
                            Curve({{0, 1}, {0.2F, 0}, {0.5F, 0.5F}, {0.5F, 0.1F}, {0.7F, 2}, {1, 0}, {1, 1}})};
    for (const Curve& curve : curves) {
        for (Array<float> places : {positions, shuffled}) {
            Array<float> expected;
            std::transform(places.begin(), places.end(), std::back_inserter(expected), std::cref(curve));
            curve.evaluate(places, places); // in place
            ASSERT_EQ(places, expected) << curve.getPoints().size() << " points";
        }
    }
    Array<float> few(3);
    EXPECT_THROW(curves[0].evaluate(positions, few), Detail::StopException);
    curves[0].evaluate({}, {});
}

TEST(CurveIdentity, HasAllPointsOnTheDiagonalAndSpansTheRange) {
    struct Case {
        Array<CurvePoint> points;
        bool isIdentity;
    };
    const Case cases[] = {
        {{{0, 0}, {1, 1}}, true},
        {{{1, 1}, {0.3F, 0.3F}, {0, 0}}, true},
        {{{-1e30F, -1e30F}, {0.1F, 0.1F}, {LARGEST, LARGEST}}, true},
        {{{0, 0}, {0, 0}, {NOT_A_NUMBER, 1}, {1, 1}}, true},
        {{{0, 0}, {0.5F, 0.50001F}, {1, 1}}, false},
        {{{0.01F, 0.01F}, {1, 1}}, false},
        {{{0, 0}, {0.99F, 0.99F}}, false},
        {{{0, 0}, {1, 0.5F}}, false},
        {{{0, 0}}, false},
        {{}, false},
    };
    for (const Case& c : cases) {
        for (const CurveInterpolation interpolation : {CUBIC_SPLINE, LINEAR}) {
            const Curve curve(c.points, interpolation);
            EXPECT_EQ(curve.isIdentity(), c.isIdentity) << testing::PrintToString(c.points.size());
            for (float x = 0.0F; c.isIdentity && x <= 1.0F; x += 0.0097F) {
                ASSERT_EQ(curve(x), x);
            }
        }
    }
    EXPECT_TRUE(Curve().isIdentity());
    EXPECT_EQ(Curve(), Curve({{0, 0}, {1, 1}}));
}

TEST(ColorCurve, HasACurveForEachChannel) {
    ColorCurve curves;
    curves[CurveChannel::BLUE].appendPoint({0.5F, 0.7F});
    for (int channel = 0; channel < CURVE_CHANNEL_COUNT; ++channel) {
        EXPECT_EQ(curves[static_cast<CurveChannel>(channel)].isIdentity(), channel != 3);
    }
    EXPECT_NE(curves, ColorCurve());
    EXPECT_THROW(static_cast<void>(curves[static_cast<CurveChannel>(4)]), Detail::StopException);
    EXPECT_THROW(static_cast<void>(curves[static_cast<CurveChannel>(-1)]), Detail::StopException);
}

} // namespace
