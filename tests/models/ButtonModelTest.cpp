#include "models/ButtonModel.h"

#include <gtest/gtest.h>

namespace Ostrel::Wx {
namespace {

TEST(ButtonPress, AClickIsAPressThatEndsInside) {
    struct Case {
        Pixel at;
        bool clicked;
    };
    // The control is 30 × 20: its last pixel is (29, 19).
    for (const auto& [at, clicked] : {Case{{0, 0}, true}, Case{{29, 19}, true}, Case{{30, 19}, false},
                                      Case{{29, 20}, false}, Case{{-1, 0}, false}, Case{{0, -1}, false}}) {
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
    struct Case {
        const char* name;
        Pixel button;
        int bitmapWidth;
        Pixel label;
        int designPixel;
        Pixel expected;
    };
    const Case cases[] = {
        {"odd halves are truncated", {101, 25}, 0, {40, 14}, 1, {30, 5}},
        {"beside a bitmap", {100, 24}, 20, {40, 14}, 1, {40, 5}},
        {"too large: truncated towards zero", {10, 10}, 0, {15, 13}, 1, {-2, -1}},
        {"twice the resolution", {200, 48}, 0, {80, 28}, 2, {60, 8}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(computeLabelPosition(c.button, c.bitmapWidth, c.label, c.designPixel), c.expected) << c.name;
    }
}

} // namespace
} // namespace Ostrel::Wx
