#include "models/ColorConversion.h"

#include "core/Printing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Ostrel::Wx {
namespace {

constexpr float INF = std::numeric_limits<float>::infinity();

void expectNear(const Rgb& actual, const Rgb& expected, float tolerance, const std::string& what) {
    EXPECT_NEAR(actual.red, expected.red, tolerance) << what;
    EXPECT_NEAR(actual.green, expected.green, tolerance) << what;
    EXPECT_NEAR(actual.blue, expected.blue, tolerance) << what;
    EXPECT_EQ(actual.alpha, expected.alpha) << what;
}

TEST(HwbConversion, BringsAllBytesBackExactly) {
    for (unsigned color = 0; color < 1U << 24U; ++color) {
        const RgbBytes bytes{static_cast<std::uint8_t>(color >> 16U), static_cast<std::uint8_t>(color >> 8U),
                             static_cast<std::uint8_t>(color)};
        const Rgb rgb{static_cast<float>(bytes.red) / 255.0F, static_cast<float>(bytes.green) / 255.0F,
                      static_cast<float>(bytes.blue) / 255.0F};
        ASSERT_EQ(toRgbBytes(hwbToRgb(hsvToHwb(rgbToHsv(rgb)))), bytes) << color;
    }
}

TEST(HwbConversion, HoldsAtTheOddPoints) {
    struct Case {
        Hwb hwb;
        Rgb rgb;
    };
    for (const auto& [hwb, rgb] : {Case{{0, 0, 0}, {1, 0, 0}},
                                   {{360, 0, 0}, {1, 0, 0}},
                                   {{120, 0.25F, 0.5F}, {0.25F, 0.5F, 0.25F}},
                                   {{120, 0.5F, 0.5F}, {0.5F, 0.5F, 0.5F}},
                                   {{240, 1, 1}, {0.5F, 0.5F, 0.5F}}, // more than 1 together: a grey in proportion
                                   {{240, 0.2F, 1}, {1.0F / 6, 1.0F / 6, 1.0F / 6}},
                                   {{60, 0, 1}, {0, 0, 0}},
                                   {{60, 0, 0.99995F}, {0.00005F, 0.00005F, 0}},
                                   {{0, 1, -2}, {3, 1, 1}},      // above 1
                                   {{0, -1, 0}, {1, -1, -1}}}) { // below 0
        expectNear(hwbToRgb(hwb), rgb, 1e-6F, testing::PrintToString(hwb.hue));
    }
    const Hwb grey = hsvToHwb(rgbToHsv({0.25F, 0.25F, 0.25F}));
    EXPECT_EQ(grey, (Hwb{0, 0.25F, 0.75F}));
}

/// The 2 degree table of sRGB colours of black bodies by M. Charity, divided by its own 6500 K; it is encoded with the
/// piecewise curve, so a few steps of 255 lie between.
TEST(Temperature, GoesFromRedThroughWhiteToBlue) {
    EXPECT_EQ(temperatureToRgb(6500), (Rgb{1, 1, 1}));
    expectNear(temperatureToRgb(1700), {1, 121 / 249.0F, 0}, 0.03F, "1700 K");
    expectNear(temperatureToRgb(3000), {1, 177 / 249.0F, 110 / 253.0F}, 0.03F, "3000 K");
    expectNear(temperatureToRgb(15000), {181 / 255.0F, 205 / 249.0F, 1}, 0.03F, "15000 K");
    Rgb before = temperatureToRgb(1700);
    for (float kelvin = 1750; kelvin <= 15000; kelvin += 50) {
        const Rgb color = temperatureToRgb(kelvin);
        EXPECT_TRUE(color.red <= before.red && color.blue >= before.blue && color.green > 0 && color.green <= 1)
            << kelvin;
        before = color;
    }
    for (const float kelvin : {-INF, 0.0F, INF, std::nanf("")}) {
        const Rgb color = temperatureToRgb(kelvin);
        EXPECT_TRUE(color.red >= 0 && color.green >= 0 && color.blue >= 0 && color.red + color.blue <= 2) << kelvin;
    }
}

TEST(NeutralizingTint, MakesTheSampleGrey) {
    struct Case {
        Rgb sample, tint;
    };
    for (const auto& [sample, tint] : {Case{{1, 0, 0}, {0, 1, 1}},
                                       {{0.5F, 0.25F, 1}, {0.5F, 1, 0.25F}},
                                       {{0, 0, 0}, {1, 1, 1}},
                                       {{0.7F, -0.0F, 3}, {0, 1, 0}},
                                       {{1.0F / 255, 1, 1}, {1, 1.0F / 255, 1.0F / 255}}}) {
        expectNear(computeNeutralizingTint(sample), tint, 1e-6F, testing::PrintToString(sample));
    }
}

TEST(Sample, IsTheMeanOfThePixelsThatAreThere) {
    EXPECT_EQ(getSampleRegion({10, -4}, 0), (Bucket{{10, -4}, {11, -3}}));
    EXPECT_EQ(getSampleRegion({10, -4}, 15), (Bucket{{-5, -19}, {26, 12}}));
    const Rgb nothing{0, 0, 0, 0};
    const Rgb pixels[] = {{1, 0.5F, 0}, {0, 0.5F, 1}, nothing, nothing};
    EXPECT_EQ(averageSample(pixels), (Rgb{0.5F, 0.5F, 0.5F}));
    EXPECT_EQ(averageSample(ArrayView<const Rgb>(pixels).last(2)), nothing);
    EXPECT_EQ(averageSample({}), nothing);
}

TEST(HexText, IsSixUpperCaseDigits) {
    EXPECT_EQ(formatHexColor({1, 0.5F, 0, 0.25F}), String("FF8000"));
    EXPECT_EQ(formatHexColor({INF, std::nanf(""), -7}), String("FF0000"));
    EXPECT_EQ(formatHexColor({0.0392F, 0, 0.7373F}), String("0A00BC"));
}

TEST(HexText, IsReadAsAStreamReadsIt) {
    struct Case {
        const char* text;
        unsigned value;
    };
    for (const auto& [text, value] : {Case{"FF8000", 0xFF8000},
                                      {"ff8", 0x000FF8},
                                      {"1FF0000", 0xFF0000},
                                      {"", 0},
                                      {"#FF0000", 0},
                                      {" \t\n12", 0x12},
                                      {"0xABCDEF", 0xABCDEF},
                                      {"0Xab", 0xAB},
                                      {"0x", 0},
                                      {"12 34", 0x12},
                                      {"12g4", 0x12},
                                      {"red", 0},
                                      {"80123456", 0x123456},
                                      {"123456789", 0xFFFFFF},
                                      {"-1", 0xFFFFFF},
                                      {"+1", 1},
                                      {"1,000", 1}}) {
        const RgbBytes bytes = toRgbBytes(parseHexColor(text));
        EXPECT_EQ(unsigned{bytes.red} << 16U | unsigned{bytes.green} << 8U | bytes.blue, value) << text;
    }
    EXPECT_EQ(parseHexColor("ff8"), (Rgb{0, 15 / 255.0F, 248 / 255.0F, 1}));
    EXPECT_EQ(parseHexColor(String(std::wstring(100'000, L'9'))), (Rgb{1, 1, 1}));
}

} // namespace
} // namespace Ostrel::Wx
