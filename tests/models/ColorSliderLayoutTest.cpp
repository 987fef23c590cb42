#include "models/ColorSliderLayout.h"

#include <gtest/gtest.h>

#include <array>
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

TEST(SliderNumber, GoesThereAndBackAndIsOneWithoutARangeOrAPosition) {
    EXPECT_EQ(computeSliderNumber(0.5F, {7, 7}, {}), 7.0F);
    EXPECT_EQ(computeSliderPosition(7, {7, 7}, {}), 0.0F);
    EXPECT_EQ(computeSliderNumber(std::nanf(""), {3, 9}, {}), 3.0F);
    EXPECT_EQ(computeSliderNumber(0.5F, {1700, 15000}, {}), 8350.0F);
    EXPECT_EQ(computeSliderPosition(8350.0F, {1700, 15000}, {}), 0.5F);
}

TEST(Field, ShowsTheColourOfEachPixel) {
    constexpr int SIZE = 215;
    const ColorField field({SIZE, SIZE}, Detail::ByteOrder::RGB);
    const ColorField mirrored({SIZE, SIZE}, Detail::ByteOrder::BGR);
    std::array<unsigned char, 3 * SIZE> row{};
    std::array<unsigned char, 3 * SIZE> other{};
    for (int y = 0; y < SIZE; ++y) {
        field.writeRow(y, row.data());
        mirrored.writeRow(y, other.data());
        for (std::size_t x = 0; x < SIZE; ++x) {
            const float hue = static_cast<float>(x) / SIZE * 360.0F;
            const RgbBytes expected = toRgbBytes(hsvToRgb({hue, 1.0F, 1.0F - static_cast<float>(y) / SIZE}));
            ASSERT_EQ((RgbBytes{row[3 * x], row[3 * x + 1], row[3 * x + 2]}), expected) << x << ", " << y;
            ASSERT_EQ((RgbBytes{other[3 * x + 2], other[3 * x + 1], other[3 * x]}), expected) << x << ", " << y;
        }
    }
}

} // namespace
} // namespace Ostrel::Wx
