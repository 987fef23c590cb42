#include "models/ColorSliderLayout.h"

#include <gtest/gtest.h>

#include <cmath>

namespace Ostrel::Wx {
namespace {

TEST(SliderMarker, LiesWhereTheMouseIsAtEveryPixel) {
    for (const auto& [length, thickness] : {std::pair{200, 5}, {250, 6}, {400, 10}, {1000, 5}, {6, 5}}) {
        const int way = length - thickness;
        for (int mouse = -3; mouse < length + 3; ++mouse) {
            const float position = findSliderPosition(mouse, length, thickness);
            EXPECT_EQ(computeSliderMarker(position, length, thickness), std::clamp(mouse, 0, way)) << length;
            EXPECT_EQ(position == 1.0F, mouse >= way) << mouse;
        }
    }
    for (const int length : {5, 1, 0}) {
        EXPECT_EQ(findSliderPosition(3, length, 5), 0.0F) << length;
        EXPECT_EQ(computeSliderMarker(1, length, 5), 0) << length;
        EXPECT_EQ(getStripPosition(length - 1, length), length > 1 ? 1.0F : 0.0F);
    }
}

TEST(SliderNumber, FollowsThePositionThroughTheMap) {
    const PositionValueFunction square = [](float x, PositionValueMap direction) {
        return direction == PositionValueMap::POSITION_TO_VALUE ? x * x : std::sqrt(x);
    };
    struct Case {
        SliderRange range;
        PositionValueFunction map;
        float position, number;
    };
    for (const Case& c : {Case{{1700, 15000}, {}, 0.5F, 8350},
                          {{0, 255}, {}, 2, 510},
                          {{0, 100}, square, 0.5F, 25},
                          {{10, 0}, {}, 0.25F, 7.5F},
                          {{-2147483647, 2147483647}, {}, 0.5F, 0}}) {
        EXPECT_FLOAT_EQ(computeSliderNumber(c.position, c.range, c.map), c.number);
        EXPECT_FLOAT_EQ(computeSliderPosition(c.number, c.range, c.map), c.position);
    }
    EXPECT_EQ(computeSliderNumber(0.5F, {7, 7}, {}), 7.0F);
    EXPECT_EQ(computeSliderPosition(7, {7, 7}, {}), 0.0F);
    EXPECT_EQ(computeSliderNumber(std::nanf(""), {3, 9}, square), 3.0F);
}

TEST(Field, FindsHueAcrossAndBlacknessDown) {
    for (const auto& [mouse, position] : {std::pair<Pixel, FieldPosition>{{117, 43}, {180, 0.2F}},
                                          {{-5, -5}, {0, 0}},
                                          {{234, 215}, {360, 1}},
                                          {{900, 900}, {360, 1}}}) {
        EXPECT_EQ(findFieldPosition(mouse, {234, 215}), position);
        EXPECT_EQ(computeFieldMarker(position, {234, 215}),
                  (Pixel{std::clamp(mouse.x, 0, 234), std::clamp(mouse.y, 0, 215)}));
    }
    EXPECT_EQ(findFieldPosition({3, 3}, {0, 0}), FieldPosition{});
}

TEST(Field, ShowsTheColourOfEachPixel) {
    for (const Pixel size : {Pixel{215, 215}, {1, 1}, {360, 3}}) {
        ColorField field(size);
        for (int y = 0; y < size.y; ++y) {
            const ArrayView<const Rgb> row = field.computeRow(y);
            for (int x = 0; x < size.x; ++x) {
                const Rgb expected = hsvToRgb({static_cast<float>(x) / static_cast<float>(size.x) * 360.0F, 1.0F,
                                               1.0F - static_cast<float>(y) / static_cast<float>(size.y)});
                ASSERT_EQ(toRgbBytes(row[static_cast<std::size_t>(x)]), toRgbBytes(expected)) << x << ", " << y;
            }
        }
    }
}

} // namespace
} // namespace Ostrel::Wx
