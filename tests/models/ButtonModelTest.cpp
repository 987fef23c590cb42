#include "models/ButtonModel.h"

#include <gtest/gtest.h>

namespace Ostrel::Wx {
namespace {

TEST(ButtonPress, AClickIsAPressThatEndsInside) {
    // The control is 30 × 20: its last pixel is (29, 19).
    const std::pair<Pixel, bool> cases[] = {{{0, 0}, true},    {{29, 19}, true}, {{30, 19}, false},
                                            {{29, 20}, false}, {{-1, 0}, false}, {{0, -1}, false}};
    for (const auto& [at, clicked] : cases) {
        ButtonModel model(false);
        EXPECT_FALSE(model.release(at, 30, 20).clicked) << "without a press";
        model.press(true);
        EXPECT_EQ(model.release(at, 30, 20).clicked, clicked) << "at (" << at.x << ", " << at.y << ")";
    }
}

TEST(ButtonToggle, OnlyAToggleButtonChangesWithAClickAndPressedGoesFirst) {
    ButtonModel toggle(true);
    toggle.click();
    EXPECT_EQ(toggle.getLook(), ButtonLook::TOGGLED);
    toggle.press(true);
    EXPECT_EQ(toggle.getLook(), ButtonLook::PRESSED);
    ButtonModel push(false);
    push.click();
    EXPECT_EQ(push.getLook(), ButtonLook::NORMAL);
}

TEST(ButtonLabel, IsCentredBesideTheBitmapAndLiftedAtTwiceTheResolution) {
    EXPECT_EQ(computeLabelPosition({101, 25}, 0, {40, 14}, 1), (Pixel{30, 5})) << "odd halves are truncated";
    EXPECT_EQ(computeLabelPosition({100, 24}, 20, {40, 14}, 1), (Pixel{40, 5})) << "beside a bitmap";
    EXPECT_EQ(computeLabelPosition({10, 10}, 0, {15, 13}, 1), (Pixel{-2, -1})) << "truncated towards zero";
    EXPECT_EQ(computeLabelPosition({200, 48}, 0, {80, 28}, 2), (Pixel{60, 8})) << "twice the resolution";
}

} // namespace
} // namespace Ostrel::Wx
