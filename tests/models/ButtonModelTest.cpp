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
        SCOPED_TRACE(testing::Message() << "at (" << at.x << ", " << at.y << ")");
        ButtonModel model(false);
        EXPECT_FALSE(model.release(at, 30, 20).pressEnded) << "without a press";
        EXPECT_TRUE(model.press(true));
        EXPECT_EQ(model.getLook(), ButtonLook::PRESSED);
        const ButtonModel::Release release = model.release(at, 30, 20);
        EXPECT_TRUE(release.pressEnded);
        EXPECT_EQ(release.clicked, clicked);
        EXPECT_EQ(model.getLook(), ButtonLook::NORMAL);
    }
}

TEST(ButtonPress, IsRefusedWhileDisabledAndUndoneByCancel) {
    ButtonModel model(false);
    EXPECT_FALSE(model.press(false));
    EXPECT_FALSE(model.isPressed());
    EXPECT_FALSE(model.cancel());

    model.press(true);
    EXPECT_TRUE(model.cancel());
    const ButtonModel::Release release = model.release({1, 1}, 30, 20);
    EXPECT_FALSE(release.pressEnded || release.clicked);
}

TEST(ButtonToggle, OnlyAToggleButtonChangesWithAClick) {
    ButtonModel toggle(true);
    EXPECT_TRUE(toggle.click());
    EXPECT_EQ(toggle.getLook(), ButtonLook::TOGGLED);
    toggle.press(true);
    EXPECT_EQ(toggle.getLook(), ButtonLook::PRESSED) << "pressed goes before toggled";
    toggle.cancel();
    EXPECT_TRUE(toggle.click());
    EXPECT_EQ(toggle.getLook(), ButtonLook::NORMAL);

    ButtonModel push(false);
    push.setToggled(true);
    EXPECT_FALSE(push.click());
    EXPECT_EQ(push.getLook(), ButtonLook::TOGGLED);
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
        {"even", {100, 24}, 0, {40, 14}, 1, {30, 5}},
        {"odd halves are truncated", {101, 25}, 0, {40, 14}, 1, {30, 5}},
        {"beside a bitmap", {100, 24}, 20, {40, 14}, 1, {40, 5}},
        {"too large: truncated towards zero", {10, 10}, 0, {15, 13}, 1, {-2, -1}},
        {"below 96 DPI", {100, 24}, 0, {40, 14}, 0, {30, 5}},
        {"twice the resolution", {200, 48}, 0, {80, 28}, 2, {60, 8}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(computeLabelPosition(c.button, c.bitmapWidth, c.label, c.designPixel), c.expected) << c.name;
    }
}

} // namespace
} // namespace Ostrel::Wx
