#include <OstrelLib/ColorGradient.h>
#include <OstrelLib/Exceptions.h>

#include "core/Extremes.h"
#include "core/Printing.h"

#include <gtest/gtest.h>

using namespace Ostrel;

namespace {

constexpr Hsv RED{0, 1, 1};
constexpr Hsv GREEN{120, 1, 1};
constexpr Hsv BLUE{240, 1, 1};
constexpr Hsv BLACK{0, 0, 0};
constexpr Hsv WHITE{0, 0, 1};

TEST(ColorGradient, MixesItsNeighboursInRgb) {
    const Rgb color = hsvToRgb(ColorGradient({{BLUE, 1.0F}, {RED, 0.0F}}).getColorAt(0.25F));
    EXPECT_NEAR(color.red, 0.75F, 1e-6F);
    EXPECT_NEAR(color.green, 0.0F, 1e-6F) << "not by way of the green between their hues";
    EXPECT_NEAR(color.blue, 0.25F, 1e-6F);
    EXPECT_NEAR(ColorGradient({{BLACK, -LARGEST}, {WHITE, LARGEST}}).getColorAt(LARGEST / 2).value, 0.75F, 1e-6F);
    EXPECT_NEAR(ColorGradient({{BLACK, 0.0F}, {WHITE, 1e-44F}}).getColorAt(0.5e-44F).value, 0.5F, 0.1F);
}

TEST(ColorGradient, IsExactOnItsPointsAndFlatBeyondThem) {
    const Hsv odd{359.5F, 0.3F, 7.0F}; // would not survive the way through RGB unchanged
    const ColorGradient gradient({{odd, 0.2F}, {GREEN, 0.5F}, {odd, 0.9F}});
    for (const float position : {0.2F, 0.9F, -3.0F, 4.0F, LARGEST, INFINITE, -INFINITE, NOT_A_NUMBER}) {
        EXPECT_EQ(gradient.getColorAt(position), odd) << position;
    }
    EXPECT_EQ(gradient.getColorAt(0.5F), GREEN);
}

TEST(ColorGradient, LeavesOutPointsThatAreNotFiniteAndIsBlackWithoutAny) {
    EXPECT_EQ(ColorGradient().getColorAt(0.5F), BLACK);
    EXPECT_EQ(ColorGradient({{RED, NOT_A_NUMBER}, {RED, INFINITE}}).getColorAt(0.5F), BLACK);
    EXPECT_EQ(ColorGradient({{RED, -INFINITE}, {GREEN, 0.5F}, {RED, NOT_A_NUMBER}}).getColorAt(0.1F), GREEN);
}

TEST(ColorGradient, StepsWherePointsShareAPosition) {
    const ColorGradient gradient({{BLACK, 0.0F}, {RED, 0.5F}, {BLUE, 0.5F}, {GREEN, 0.5F}, {BLACK, 1.0F}});
    EXPECT_EQ(gradient.getColorAt(0.5F), GREEN);
    EXPECT_EQ(hsvToRgb(gradient.getColorAt(0.25F)), (Rgb{0.5F, 0, 0}));
    EXPECT_EQ(hsvToRgb(gradient.getColorAt(0.75F)), (Rgb{0, 0.5F, 0}));
}

TEST(ColorGradient, InsertsWhereThePointBelongs) {
    ColorGradient gradient({{RED, 0.0F}, {BLUE, 1.0F}});
    EXPECT_EQ(gradient.insert({GREEN, 0.5F}), 1U);
    EXPECT_EQ(gradient.insert({BLACK, 0.5F}), 2U) << "after those at the same position";
    EXPECT_EQ(gradient.insert({GREEN, 0.5F}), 1U) << "an equal one cannot be told apart";
    EXPECT_EQ(gradient.insert(gradient.getPoints()[0]), 0U) << "one of its own";
    gradient.erase(0);
    const Array<ColorGradientPoint> expected{{RED, 0.0F}, {GREEN, 0.5F}, {BLACK, 0.5F}, {GREEN, 0.5F}, {BLUE, 1.0F}};
    EXPECT_EQ(gradient.getPoints(), expected);
}

TEST(ColorGradient, RefusesAPointThatCannotBeFoundAgain) {
    const ColorGradient before({{RED, 0.0F}, {BLUE, 1.0F}});
    for (const ColorGradientPoint& point :
         {ColorGradientPoint{GREEN, NOT_A_NUMBER}, ColorGradientPoint{{0, NOT_A_NUMBER, 1}, 0.5F}}) {
        ColorGradient gradient = before;
        try {
            gradient.insert(point);
            ADD_FAILURE() << point.position;
        } catch (const Detail::StopException& stop) {
            EXPECT_EQ(stop.getPath(), "utility/ColorGradient");
            EXPECT_EQ(stop.getLine(), 115);
        }
        EXPECT_EQ(gradient, before);
    }
}

TEST(ColorGradient, KeepsTheIndexOfAMovedPointUntilItIsSorted) {
    ColorGradient gradient({{RED, 0.0F}, {GREEN, 0.5F}, {BLUE, 1.0F}});
    gradient.setPoint(0, {RED, 0.75F});
    EXPECT_EQ(gradient.getPoints()[0], (ColorGradientPoint{RED, 0.75F}));
    EXPECT_EQ(gradient.getColorAt(0.0F), GREEN) << "colours do not wait for it";
    gradient.sortPoints();
    EXPECT_EQ(gradient.getPoints()[1], (ColorGradientPoint{RED, 0.75F}));
    EXPECT_THROW(gradient.setPoint(3, {}), Detail::StopException);
    EXPECT_THROW(gradient.erase(3), Detail::StopException);
}

} // namespace
