#include <OstrelLib/Color.h>

#include "core/Extremes.h"
#include "core/Printing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <tuple>

using namespace Ostrel;
using testing::PrintToString;

namespace {

Rgb fromBytes(int red, int green, int blue) {
    return {static_cast<float>(red) / 255.0F, static_cast<float>(green) / 255.0F, static_cast<float>(blue) / 255.0F};
}

TEST(HsvConversion, HasTheTextbookValues) {
    using Case = std::pair<Rgb, Hsv>;
    const Case cases[] = {{{1, 0, 0}, {0, 1, 1}},
                          {{1, 1, 0}, {60, 1, 1}},
                          {{0, 1, 0}, {120, 1, 1}},
                          {{0, 1, 1}, {180, 1, 1}},
                          {{0, 0, 1}, {240, 1, 1}},
                          {{1, 0, 1}, {300, 1, 1}},
                          {{0, 0, 0}, {0, 0, 0}},
                          {{4, 4, 4}, {0, 0, 4}},
                          {{0.5F, 0.25F, 0.25F}, {0, 0.5F, 0.5F}},
                          {{0, 0.5F, 0.25F}, {150, 1, 0.5F}},
                          {{2, 1, 0}, {30, 1, 2}},
                          {{1, 0, 0.5F}, {330, 1, 1}},
                          {{1, -1, -1}, {0, 2, 1}},
                          {{-1, -2, -2}, {0, -1, -1}}};
    for (const auto& [rgb, hsv] : cases) {
        const Hsv converted = rgbToHsv(rgb);
        EXPECT_NEAR(converted.hue, hsv.hue, 1e-4F) << PrintToString(hsv);
        EXPECT_NEAR(converted.saturation, hsv.saturation, 1e-6F) << PrintToString(hsv);
        EXPECT_EQ(converted.value, hsv.value);
        const Rgb back = hsvToRgb(hsv);
        EXPECT_NEAR(back.red, rgb.red, 1e-6F) << PrintToString(hsv);
        EXPECT_NEAR(back.green, rgb.green, 1e-6F) << PrintToString(hsv);
        EXPECT_NEAR(back.blue, rgb.blue, 1e-6F) << PrintToString(hsv);
    }
}

/// Every seventh colour, from black to white: every byte in every channel, and neighbours of each kind.
TEST(HsvConversion, BringsBytesBackExactly) {
    for (int color = 0; color < 1 << 24; ++color) {
        const RgbBytes bytes{static_cast<std::uint8_t>(color >> 16), static_cast<std::uint8_t>(color >> 8),
                             static_cast<std::uint8_t>(color)};
        const Hsv hsv = rgbToHsv(fromBytes(bytes.red, bytes.green, bytes.blue));
        ASSERT_TRUE(toRgbBytes(hsvToRgb(hsv)) == bytes && hsv.hue >= 0.0F && hsv.hue < 360.0F) << PrintToString(hsv);
    }
}

TEST(HsvConversion, KeepsHueBelowAFullTurnAndTakesAnyHueRoundTheCircle) {
    EXPECT_EQ(rgbToHsv({1.0F, 0.0F, 1e-9F}).hue, 0.0F);
    const Rgb expected = hsvToRgb({300, 0.5F, 0.75F});
    for (const float hue : {-60.0F, 660.0F, -420.0F, 300.0F + 360.0F * 64.0F}) {
        EXPECT_EQ(hsvToRgb({hue, 0.5F, 0.75F}), expected) << hue;
    }
    for (const float hue : {NOT_A_NUMBER, INFINITE, -INFINITE, 360.0F, -1e-12F, 360.0F * 0x1p90F}) {
        EXPECT_EQ(hsvToRgb({hue, 1, 1}), (Rgb{1, 0, 0})) << hue;
    }
}

TEST(ColorBytes, AreLimitedAndRoundedToTheNearestTiesToEven) {
    // 0.5 * 255 is 127.5; the others that lie between two bytes are exact as well.
    const std::pair<float, int> cases[] = {{0.5F, 128},         {0.1F, 26},          {0.5F / 255, 0}, {1.5F / 255, 2},
                                           {254.4F / 255, 254}, {254.6F / 255, 255}, {-1.0F, 0},      {1.0001F, 255},
                                           {LARGEST, 255},      {-LARGEST, 0},       {INFINITE, 255}, {-INFINITE, 0},
                                           {NOT_A_NUMBER, 0},   {1e-40F, 0}};
    for (const auto& [channel, byte] : cases) {
        EXPECT_EQ(int{toRgbBytes({channel, 0, 0}).red}, byte) << channel;
        EXPECT_EQ(int{toRgbBytes({0, channel, 0}).green}, byte) << channel;
        EXPECT_EQ(int{toRgbBytes({0, 0, channel}).blue}, byte) << channel;
    }
}

/// Chromaticities of the Planckian locus, as published (CIE 15 for illuminant A at 2856 K).
TEST(BlackbodyColor, LiesOnThePlanckianLocus) {
    using Case = std::tuple<float, float, float>;
    for (const auto& [kelvin, x, y] : {Case{2000.0F, 0.52669F, 0.41331F}, Case{2856.0F, 0.44757F, 0.40745F},
                                       Case{6500.0F, 0.31352F, 0.32363F}, Case{10000.0F, 0.28063F, 0.28829F}}) {
        const XYZ color = blackbodyColor(kelvin);
        const float sum = color.x + color.y + color.z;
        EXPECT_EQ(color.y, 1.0F);
        EXPECT_NEAR(color.x / sum, x, 5e-4F) << kelvin;
        EXPECT_NEAR(color.y / sum, y, 5e-4F) << kelvin;
    }
}

TEST(BlackbodyColor, IsFiniteForEveryFloat) {
    const XYZ lowest = blackbodyColor(100.0F);
    const XYZ highest = blackbodyColor(1.0e6F);
    EXPECT_TRUE(std::isfinite(lowest.x) && lowest.x > 1.0F && lowest.z >= 0.0F && lowest.z < 1e-6F);
    EXPECT_NEAR(highest.x / (highest.x + highest.y + highest.z), 0.2403F, 1e-3F) << "near the end of the locus";
    for (const float kelvin : {NOT_A_NUMBER, 0.0F, -5000.0F, 1e-40F, 99.0F, -INFINITE}) {
        EXPECT_EQ(blackbodyColor(kelvin), lowest) << kelvin;
    }
    EXPECT_EQ(blackbodyColor(1e7F), highest);
    EXPECT_EQ(blackbodyColor(INFINITE), highest);
}

} // namespace
