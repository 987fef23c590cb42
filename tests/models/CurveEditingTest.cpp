#include "models/CurveEditing.h"
#include "models/HistogramColumns.h"

#include <OstrelLib/Exceptions.h>

#include <gmock/gmock.h>

#include <limits>
#include <sstream>

namespace Ostrel::Wx {
namespace {

using enum CurveChannel;
using namespace testing;

constexpr float NONE = std::numeric_limits<float>::quiet_NaN();
constexpr float ENDLESS = std::numeric_limits<float>::infinity();

/// A plot of 200 × 200 pixels with its origin at (5, 205); points are joined by straight lines.
CurveEditing makeEditing(const Array<CurvePoint>& points) {
    ColorCurve curves;
    curves[MASTER] = Curve(points, CurveInterpolation::LINEAR);
    CurveEditing editing(std::move(curves), 5, 12);
    editing.setClientSize({210, 210});
    return editing;
}

/// The selected curve's points, the one that is being dragged in brackets.
std::string show(const CurveEditing& editing) {
    std::ostringstream text;
    const Array<CurvePoint>& points = editing.getCurve().getPoints();
    for (std::size_t i = 0; i < points.size(); ++i) {
        const bool dragged = editing.getDragPoint() == i;
        text << (i > 0 ? " " : "") << (dragged ? "[" : "") << points[i].x << "," << points[i].y << (dragged ? "]" : "");
    }
    return text.str();
}

constexpr auto PRESS = &CurveEditing::press;
constexpr auto DRAG = &CurveEditing::drag;
constexpr auto RIGHT_CLICK = &CurveEditing::removePoint;

/// The action and its place, whether it reports a change, and the curve as shown afterwards.
using Step = std::tuple<bool (CurveEditing::*)(Pixel), Pixel, bool, const char*>;

void play(CurveEditing editing, std::initializer_list<Step> steps) {
    for (const auto& [action, at, reports, curve] : steps) {
        EXPECT_EQ((editing.*action)(at), reports) << at.x << ", " << at.y;
        EXPECT_EQ(show(editing), curve) << at.x << ", " << at.y;
    }
}

TEST(CurvePlotMapping, TruncatesAndTakesEveryPixelThereAndBack) {
    const CurvePlot plot{.size = {256, 100}};
    EXPECT_EQ(plot.toPixel({0.503F, 0.509F}), (Pixel{133, 55}));
    EXPECT_EQ(plot.toPixel({-0.503F, -0.509F}), (Pixel{-123, 155}));
    EXPECT_EQ(plot.toPixel({ENDLESS, -ENDLESS}), (Pixel{5 + (1 << 28), 105 + (1 << 28)}));
    EXPECT_EQ(plot.toPixel({NONE, -3e38F}), (Pixel{5 - (1 << 28), 105 + (1 << 28)}));
    for (const int size : {1, 2, 7, 199, 256, 1014, 4096}) {
        for (const float zoom : {0.13168724F, 0.44444448F, 1.0F, 5.0625F, 7.59375F}) {
            const CurvePlot other{.size = {size, size + 1}, .zoom = zoom};
            for (int i = -20; i <= size + 20; ++i) {
                ASSERT_EQ(other.toPixel(other.toPoint({i, i})), (Pixel{i, i})) << size << ", zoom " << zoom;
            }
        }
    }
}

TEST(CurveHit, IsTheNearestPointWithinTwelvePixelsAndTheFirstOfEquals) {
    const CurveEditing editing = makeEditing({{0.25F, 0.5F}, {0.3F, 0.5F}, {0.8F, 0.5F}, {0.8F, 0.5F}, {0.9F, NONE}});
    const std::pair<Pixel, int> cases[] = {
        {{60, 105}, 0},  {{61, 105}, 1},                      // halfway between pixels 55 and 65, and past it
        {{44, 105}, 0},  {{43, 105}, -1},  {{55, 94}, 0},     // 11 and 12 pixels away
        {{165, 110}, 2}, {{185, 105}, -1}, {{100, 105}, -1}}; // two at one place; where a NaN has its x
    for (const auto& [pixel, hit] : cases) {
        EXPECT_EQ(editing.findPoint(pixel).value_or(-1), static_cast<std::size_t>(hit)) << pixel.x << ", " << pixel.y;
    }
}

TEST(CurvePress, AddsAPointOnTheCurveUpToTwelvePixelsAway) {
    const CurveEditing flat = makeEditing({{0, 0.5F}, {1, 0.5F}});
    play(flat, {{PRESS, {105, 116}, true, "0,0.5 [0.5,0.5] 1,0.5"}});
    play(flat, {{PRESS, {105, 93}, true, "0,0.5 0.5,0.5 1,0.5"}}); // added, but too far away to be hit
    play(flat, {{PRESS, {105, 92}, false, "0,0.5 1,0.5"}, // leaves the limits at 0: only the left edge adds a point
                {DRAG, {105, 105}, true, "0,0.5 1,0.5"},  // reports all the same
                {DRAG, {3, 55}, true, "0,0.5 [0,0.75] 1,0.5"}});
}

TEST(CurveDrag, DeletesAMiddlePointPastItsNeighboursAndBringsItBack) {
    play(makeEditing({{0, 0}, {0.5F, 0.5F}, {1, 1}}), {{DRAG, {100, 100}, false, "0,0 0.5,0.5 1,1"},
                                                       {PRESS, {108, 100}, false, "0,0 [0.5,0.5] 1,1"},
                                                       {DRAG, {7, 65}, true, "0,0 [0.01,0.7] 1,1"}, // as near as may be
                                                       {DRAG, {203, 300}, true, "0,0 [0.99,0] 1,1"},
                                                       {DRAG, {204, 105}, true, "0,0 1,1"},
                                                       {DRAG, {105, -7}, true, "0,0 [0.5,1] 1,1"},
                                                       {DRAG, {6, 105}, true, "0,0 1,1"}});
    play(makeEditing({{0, 0}, {0.5F, 0.25F}, {0.5F, 0.5F}, {0.5F, 0.75F}, {1, 1}}),
         {{PRESS, {105, 105}, false, "0,0 0.5,0.25 [0.5,0.5] 0.5,0.75 1,1"},
          {DRAG, {105, 105}, true, "0,0 0.5,0.25 0.5,0.75 1,1"}}); // no room between neighbours at its own x
}

TEST(CurveDrag, HoldsTheEndsAndFollowsRemovals) {
    play(makeEditing({{0, 0}, {0.5F, 0.5F}, {1, 1}}), {{PRESS, {5, 205}, false, "[0,0] 0.5,0.5 1,1"},
                                                       {DRAG, {180, 5}, true, "[0.49,1] 0.5,0.5 1,1"},
                                                       {DRAG, {25, 185}, true, "[0.1,0.1] 0.5,0.5 1,1"},
                                                       {PRESS, {205, 5}, false, "0.1,0.1 0.5,0.5 [1,1]"},
                                                       {DRAG, {-100, 400}, true, "0.1,0.1 0.5,0.5 [0.51,0]"},
                                                       {RIGHT_CLICK, {25, 185}, false, "0.1,0.1 0.5,0.5 [0.51,0]"},
                                                       {RIGHT_CLICK, {105, 105}, true, "0.1,0.1 [0.51,0]"}});
}

TEST(CurvePick, PressesAtTheValueOfTheSelectedChannelAndMovesUpAndDownAlone) {
    const std::tuple<CurveChannel, Rgb, const char*> cases[] = {{MASTER, {0.25F, 0.5F, 0.75F}, "0,0 [0.5,0.5] 1,1"},
                                                                {RED, {0.25F, NONE, ENDLESS}, "0,0 [0.25,0.25] 1,1"},
                                                                {BLUE, {0.25F, 0.5F, 0.75F}, "0,0 [0.75,0.75] 1,1"},
                                                                {RED, {-3, 0, 0}, "[0,0] 1,1"}, // the end that is there
                                                                {RED, {4, 0, 0}, "0,0 1,1 [4,1]"}, // beyond the plot
                                                                {MASTER, {0, NONE, 0}, "0,0 1,1"},
                                                                {GREEN, {0, ENDLESS, 0}, "0,0 1,1"}};
    for (const auto& [channel, colour, curve] : cases) {
        CurveEditing editing = makeEditing({{0, 0}, {1, 1}});
        editing.selectChannel(channel);
        editing.pick(colour);
        EXPECT_EQ(show(editing), curve);
    }
    CurveEditing editing = makeEditing({{0, 0}, {0.3F, 0.3F}, {1, 1}});
    editing.setClientSize({1021, 778});
    editing.pick({0.3F, 0.3F, 0.3F});
    const Pixel start = editing.getPlot().toPixel({0.3F, 0.3F});
    for (int i = 1; i <= 150; ++i) {
        EXPECT_TRUE(editing.dragVertically(-1));
        ASSERT_EQ(editing.getPlot().toPixel(editing.getCurve().getPoints()[1]), (start - Pixel{0, i})) << "creeps";
    }
}

TEST(CurveChanges, AreToldAtOnceOrHeldBackOncePerChannel) {
    CurveEditing editing = makeEditing({});
    const auto change = [&editing](CurveChannel channel, std::int64_t delay, std::int64_t now) {
        editing.mergeChanges({&channel, 1}, delay, now);
        return editing.getWait(now);
    };
    EXPECT_EQ(change(BLUE, 100, 1000), 100);
    EXPECT_EQ(change(MASTER, 100, 1050), 100);
    EXPECT_EQ(editing.getWait(1100), 50) << "what came halfway puts it off";
    EXPECT_EQ(editing.getWait(1150), 0);
    EXPECT_EQ(change(BLUE, 1LL << 62, 1150), 0x7FFFFFFF);
    EXPECT_EQ(change(BLUE, -1, 1160), 0) << "what was held back goes along";
    EXPECT_EQ(editing.takePendingChannel(), MASTER);
    EXPECT_EQ(editing.takePendingChannel(), BLUE);
    EXPECT_EQ(editing.getWait(1160), std::nullopt);
}

TEST(CurveZoom, GoesFiveStepsEachWayAndOutwardsWithoutARotation) {
    const std::tuple<int, int, float> cases[] = {{1, 1, 1.5F},       {240, 5, 7.59375F}, {120, 6, 7.59375F},
                                                 {0, 1, 0.6666667F}, {0, 5, 0.1316873F}, {-1, 6, 0.13168724F}};
    for (const auto& [rotation, steps, zoom] : cases) {
        CurveEditing editing = makeEditing({});
        for (int i = 0; i < steps; ++i) {
            editing.zoom(rotation);
        }
        EXPECT_FLOAT_EQ(editing.getPlot().zoom, zoom) << rotation << ", " << steps << " times";
    }
}

TEST(HistogramColumns, AreSharesOfTheHeightInThreeWays) {
    using enum HistogramType;
    const Histogram histogram({0, 1, 3, 96, 28}, 0, 1);
    EXPECT_THAT(computeHistogramColumns(histogram, LINEAR, {5, 192}), ElementsAre(0, 2, 6, 192, 56));
    EXPECT_THAT(computeHistogramColumns(histogram, LOGARITHMIC, {3, 200}), ElementsAre(0, 30, 60));
    EXPECT_THAT(computeHistogramColumns(histogram, CUMULATIVE, {6, 256}), ElementsAre(0, 2, 8, 200, 256, 0));
    for (const HistogramType type : {LINEAR, LOGARITHMIC, CUMULATIVE}) {
        EXPECT_THAT(computeHistogramColumns(histogram, type, {-9, -9}), ElementsAre());
        EXPECT_THAT(computeHistogramColumns(Histogram({0}, 0, 1), type, {2, 50}), ElementsAre(0, 0));
    }
    EXPECT_THAT([] { checkHistogramType(static_cast<HistogramType>(3)); },
                Throws<Detail::StopException>(AllOf(Property(&Detail::StopException::getPath, "widgets/CurvePanel"),
                                                    Property(&Detail::StopException::getLine, 146))));
}

} // namespace
} // namespace Ostrel::Wx
