#include "models/GradientEditing.h"

#include <gmock/gmock.h>

#include <limits>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;

constexpr Hsv RED{0.0F, 1.0F, 1.0F};
constexpr Hsv BLUE{240.0F, 1.0F, 1.0F};
constexpr float NAN_VALUE = std::numeric_limits<float>::quiet_NaN();

/// 112 × 40 with handles of radius 5: they go from x = 6 to 106, at y = 34.
GradientEditing makeEditing(std::initializer_list<float> positions, float min = 0.0F, float max = 1.0F) {
    GradientEditing editing(5);
    editing.setSize({112, 40});
    editing.setRange(min, max);
    Array<ColorGradientPoint> points;
    for (const float position : positions) {
        points.push_back({points.empty() ? RED : BLUE, position});
    }
    editing.setGradient(ColorGradient(points));
    return editing;
}

std::vector<float> positionsOf(const GradientEditing& editing) {
    std::vector<float> positions;
    for (const ColorGradientPoint& point : editing.getGradient().getPoints()) {
        positions.push_back(point.position);
    }
    return positions;
}

TEST(GradientTrack, PutsHandlesBetweenItsMarginsAndTruncates) {
    struct {
        float position, min, max;
        int x;
    } const cases[] = {{1.0F, 0.0F, 1.0F, 106},    {0.999F, 0.0F, 1.0F, 105}, {-3.0F, 0.0F, 1.0F, 6},
                       {NAN_VALUE, 0.0F, 1.0F, 6}, {0.25F, 1.0F, 0.0F, 81},   {0.5F, 0.5F, 0.5F, 6},
                       {0.6F, 0.5F, 0.5F, 106}};
    for (const auto& [position, min, max, x] : cases) {
        EXPECT_EQ((GradientTrack{{112, 40}, 5, min, max}.toPixel(position)), (Pixel{x, 34}))
            << position << " of " << min << " to " << max;
    }
}

TEST(GradientTrack, TakesPositionsFromAStripOnePixelShorterAndLimitsThemToOne) {
    struct {
        int width, x;
        float min, max, position;
    } const cases[] = {{112, 6, 0.0F, 1.0F, 0.0F},           {112, 105, 0.0F, 1.0F, 1.0F},
                       {112, 39, 0.0F, 1.0F, 33.0F / 99.0F}, {112, 56, 0.0F, 100.0F, 1.0F},
                       {112, 6, 0.25F, 0.75F, 0.25F},        {13, 6, 0.0F, 1.0F, 0.0F}};
    for (const auto& [width, x, min, max, position] : cases) {
        EXPECT_FLOAT_EQ((GradientTrack{{width, 40}, 5, min, max}.toPosition(x)), position) << x << " of " << width;
    }
}

TEST(GradientHandles, AreHitWithinTheirRadiusTheLowestIndexFirst) {
    GradientEditing editing = makeEditing({0.5F, 0.5F, 0.53F});
    const std::pair<Pixel, Optional<std::size_t>> cases[] = {
        {{56, 34}, 0},  {{51, 34}, 0}, {{50, 34}, {}}, {{56, 29}, 0},
        {{56, 28}, {}}, {{60, 37}, 0}, {{60, 38}, 2},  {{std::numeric_limits<int>::min(), 34}, {}}};
    for (const auto& [mouse, index] : cases) {
        EXPECT_EQ(editing.findHandle(mouse), index) << "at (" << mouse.x << ", " << mouse.y << ")";
    }
}

TEST(GradientDrag, OutlivesWhatHappensToItsPoint) {
    GradientEditing editing = makeEditing({0.0F, 0.5F, 1.0F});
    ASSERT_TRUE(editing.press({56, 34}));
    ASSERT_TRUE(editing.remove({6, 34}));
    EXPECT_TRUE(editing.drag({105, 34})) << "the same point, one place further down";
    EXPECT_THAT(positionsOf(editing), ElementsAre(1.0F, 1.0F));
    ASSERT_TRUE(editing.remove({105, 34}));
    EXPECT_FALSE(editing.drag({30, 34})) << "it is gone";
    ASSERT_TRUE(editing.press({106, 34}));
    editing.setGradient({});
    editing.release();
    EXPECT_FALSE(editing.drag({30, 34}) || editing.recolor(RED) || editing.remove({106, 34}));
}

TEST(GradientEdit, TakesAHandleOrAddsAPointOfTheColourThatIsThere) {
    GradientEditing editing = makeEditing({0.0F, 1.0F});
    EXPECT_EQ(editing.edit({106, 34}), 1u);
    EXPECT_EQ(positionsOf(editing).size(), 2u) << "on a handle none is added";
    EXPECT_EQ(editing.edit({39, 3}), 1u);
    const ColorGradientPoint& added = editing.getGradient().getPoints()[1];
    EXPECT_FLOAT_EQ(added.position, 33.0F / 99.0F);
    EXPECT_EQ(toRgbBytes(hsvToRgb(added.color)), (RgbBytes{170, 0, 85})) << "a third of the way from red to blue";
    for (const Pixel outside : {Pixel{-1, 3}, Pixel{112, 3}, Pixel{50, 40}, Pixel{50, -1}}) {
        EXPECT_EQ(editing.edit(outside), std::nullopt);
    }
    EXPECT_EQ(positionsOf(editing).size(), 3u);

    editing.setGradient(ColorGradient({{{NAN_VALUE, NAN_VALUE, 0.5F}, 0.0F}}));
    EXPECT_EQ(editing.edit({60, 3}), 1u) << "a colour that equals nothing, not even itself";
}

} // namespace
} // namespace Ostrel::Wx
