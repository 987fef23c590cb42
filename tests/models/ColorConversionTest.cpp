#include "models/ColorConversion.h"

#include "core/Printing.h"

#include <gtest/gtest.h>

#include <cmath>

namespace Ostrel::Wx {
namespace {

void expectNear(const Rgb& actual, const Rgb& expected, float tolerance, float what) {
    EXPECT_NEAR(actual.red, expected.red, tolerance) << what;
    EXPECT_NEAR(actual.green, expected.green, tolerance) << what;
    EXPECT_NEAR(actual.blue, expected.blue, tolerance) << what;
}

TEST(HwbConversion, BringsAllBytesBackExactly) {
    for (unsigned color = 0; color < 1U << 24U; ++color) {
        const Rgb rgb{static_cast<float>(color >> 16U) / 255.0F, static_cast<float>(color >> 8U & 255U) / 255.0F,
                      static_cast<float>(color & 255U) / 255.0F};
        const RgbBytes bytes = toRgbBytes(hwbToRgb(hsvToHwb(rgbToHsv(rgb))));
        ASSERT_EQ(unsigned{bytes.red} << 16U | unsigned{bytes.green} << 8U | bytes.blue, color);
    }
}

TEST(HwbConversion, HoldsAtTheOddPoints) {
    for (const auto& [hwb, rgb] : {std::pair<Hwb, Rgb>{{360, 0, 0}, {1, 0, 0}},
                                   {{120, 0.25F, 0.5F}, {0.25F, 0.5F, 0.25F}},
                                   {{240, 1, 1}, {0.5F, 0.5F, 0.5F}}, // more than 1 together: a grey in proportion
                                   {{240, 0.2F, 1}, {1.0F / 6, 1.0F / 6, 1.0F / 6}},
                                   {{60, 0, 1}, {0, 0, 0}},
                                   {{60, 0, 0.99995F}, {0.00005F, 0.00005F, 0}},
                                   {{0, 1, -2}, {3, 1, 1}},
                                   {{0, -1, 0}, {1, -1, -1}}}) {
        expectNear(hwbToRgb(hwb), rgb, 1e-6F, hwb.blackness);
    }
}

/// M. Charity's table of black bodies on sRGB screens (2 degrees), divided by its own 6500 K. It is encoded with the
/// piecewise curve, so a few steps of 255 lie between.
TEST(Temperature, GoesFromRedThroughWhiteToBlue) {
    EXPECT_EQ(temperatureToRgb(6500), (Rgb{1, 1, 1}));
    for (const auto& [kelvin, rgb] : {std::pair<float, Rgb>{1700, {1, 121 / 249.0F, 0}},
                                      {3000, {1, 177 / 249.0F, 110 / 253.0F}},
                                      {15000, {181 / 255.0F, 205 / 249.0F, 1}}}) {
        expectNear(temperatureToRgb(kelvin), rgb, 0.03F, kelvin);
    }
    for (float kelvin = 1700; kelvin <= 15000; kelvin += 50) {
        const Rgb color = temperatureToRgb(kelvin);
        const Rgb next = temperatureToRgb(kelvin + 50);
        EXPECT_TRUE(next.red <= color.red && next.blue >= color.blue && next.green > 0) << kelvin;
    }
}

TEST(NeutralizingTint, MakesTheSampleGrey) {
    for (const auto& [sample, tint] : {std::pair<Rgb, Rgb>{{1, 0, 0}, {0, 1, 1}},
                                       {{0.5F, 0.25F, 1}, {0.5F, 1, 0.25F}},
                                       {{0.7F, -0.0F, 3}, {0, 1, 0}}}) {
        expectNear(computeNeutralizingTint(sample), tint, 1e-6F, sample.green);
    }
}

TEST(HexText, IsSixDigitsAndReadAsAStreamReadsIt) {
    EXPECT_EQ(formatHexColor({1, 0.5F, 0, 0.25F}), String("FF8000"));
    EXPECT_EQ(formatHexColor({std::nanf(""), -7, 0.0392F}), String("00000A"));
    for (const auto& [text, read] : {std::pair{"ff8", "000FF8"},
                                     {"1FF0000", "FF0000"},
                                     {"", "000000"},
                                     {"#FF0000", "000000"},
                                     {" \t\n12 34", "000012"},
                                     {"0xABCDEF", "ABCDEF"},
                                     {"12g4", "000012"},
                                     {"80123456", "123456"},
                                     {"123456789", "FFFFFF"},
                                     {"-1", "FFFFFF"}}) {
        EXPECT_EQ(formatHexColor(parseHexColor(text)), String(read)) << text;
    }
    EXPECT_EQ(parseHexColor(String(std::wstring(100'000, L'9'))), (Rgb{1, 1, 1}));
}

} // namespace
} // namespace Ostrel::Wx
