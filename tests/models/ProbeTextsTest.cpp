#include "models/ProbeTexts.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

namespace Ostrel::Wx {
namespace {

constexpr float ENDLESS = std::numeric_limits<float>::infinity();
constexpr float NAN_VALUE = std::numeric_limits<float>::quiet_NaN();

TEST(ProbeTexts, AreLinesOfFiveDecimals) {
    EXPECT_EQ(formatProbedPosition({-3, 1080}), "Position:\n-3\n1080");
    EXPECT_EQ(formatProbedOriginal({1.7F, -0.2F, 0.0F}, 0.5F),
              "Original\nLinear RGB:\nR: 1.70000\nG: -0.20000\nB: 0.00000\nA: 0.50000");
    EXPECT_EQ(formatProbedTonemapped({ENDLESS, -ENDLESS, -NAN_VALUE}, 1.0F),
              "Tonemapped\nsRGB:\nR: inf\nG: -inf\nB: nan\nA: 1.00000");
}

TEST(ProbeTexts, RoundColoursToTheEvenIntegerAndAlphaUp) {
    const std::tuple<float, float, const char*> cases[] = {
        {0.5F, 0.5F, "128\nA: 128"}, {0.5F / 255.0F, 0.5F / 255.0F, "0\nA: 1"}, {1.7F, 1.7F, "255\nA: 255"},
        {-0.2F, -0.2F, "0\nA: 0"},   {ENDLESS, ENDLESS, "255\nA: 255"},         {NAN_VALUE, NAN_VALUE, "0\nA: 0"}};
    for (const auto& [channel, alpha, text] : cases) {
        EXPECT_EQ(formatProbedBytes({0.0F, 1.0F, channel}, alpha),
                  std::string("Tonemapped\nsRGB 8-bit:\nR: 0\nG: 255\nB: ") + text);
    }
}

TEST(ProbeTexts, WarnOfWhatIsNotFinite) {
    constexpr Rgb FINE{1e30F, -1e30F, 0.0F, NAN_VALUE};
    EXPECT_FALSE(isProbedInvalid(FINE, FINE));
    for (float Rgb::*const channel : {&Rgb::red, &Rgb::green, &Rgb::blue}) {
        for (const float value : {ENDLESS, -ENDLESS, NAN_VALUE}) {
            Rgb odd = FINE;
            odd.*channel = value;
            EXPECT_TRUE(isProbedInvalid(odd, FINE));
            EXPECT_TRUE(isProbedInvalid(FINE, odd));
        }
    }
}

} // namespace
} // namespace Ostrel::Wx
