#include "models/ToggleModel.h"
#include "models/CheckBoxLayout.h"

#include <gtest/gtest.h>

namespace Ostrel::Wx {
namespace {

constexpr int SPACE = 32;
constexpr int ENTER = 13;

TEST(TogglePress, ExcludesOthersAndEndsAsItBegan) {
    ToggleModel model;
    EXPECT_FALSE(model.releaseMouse({0, 0}, 30, 20).pressEnded) << "without a press";
    EXPECT_FALSE(model.releaseKey(SPACE).pressEnded) << "without a press";

    EXPECT_TRUE(model.pressKey(SPACE));
    EXPECT_FALSE(model.pressKey(SPACE)) << "the key repeats";
    EXPECT_FALSE(model.pressMouse());
    EXPECT_FALSE(model.releaseMouse({0, 0}, 30, 20).pressEnded);
    EXPECT_FALSE(model.releaseKey(ENTER).pressEnded) << "another key";
    EXPECT_TRUE(model.releaseKey(SPACE).clicked);

    EXPECT_TRUE(model.pressMouse());
    model.setFocused(false);
    EXPECT_TRUE(model.releaseMouse({29, 19}, 30, 20).clicked) << "only a key's press ends with the focus";
}

TEST(CheckBoxGeometry, KeepsItsPartsApartAndInside) {
    for (const CheckBoxMetrics& metrics : {CheckBoxMetrics{15, 3, 2}, CheckBoxMetrics{23, 5, 3}}) {
        const Pixel label{40, 15};
        const Pixel size = computeCheckBoxSize(metrics, label);
        const CheckBoxLayout layout = layOutCheckBox(metrics, size, label);
        EXPECT_EQ((Bucket{{0, 0}, size}.intersect(layout.focus)), layout.focus);
        EXPECT_EQ(layout.focus.max.x, size.x);
        EXPECT_TRUE(layout.box.intersect(layout.focus).isEmpty());
        EXPECT_EQ(layout.box.min.y, size.y - layout.box.max.y) << "centred";

        const Pixel bare = computeCheckBoxSize(metrics, {0, 0});
        EXPECT_EQ(layOutCheckBox(metrics, bare, {0, 0}).focus, (Bucket{{0, 0}, bare})) << "without a label";
    }
}

TEST(CheckBoxGeometry, TheTickIsOneStrokeWithinTheFrameAtEveryScale) {
    for (int boxSize = 15; boxSize <= 60; ++boxSize) {
        const Bucket box{{2, 5}, {2 + boxSize, 5 + boxSize}};
        const TickShape tick = computeTick(box);
        for (int i = 0; i < tick.columns; ++i) {
            const int top = tick.getTop(i);
            EXPECT_GT(top, box.min.y + 1) << boxSize;
            EXPECT_LT(top + tick.thickness, box.max.y - 1) << boxSize;
            EXPECT_EQ(std::abs(top - tick.getTop(i + 1)), 1) << boxSize;
        }
        EXPECT_GT(tick.at.x, box.min.x + 1) << boxSize;
        EXPECT_LT(tick.at.x + tick.columns, box.max.x - 1) << boxSize;
    }
}

} // namespace
} // namespace Ostrel::Wx
