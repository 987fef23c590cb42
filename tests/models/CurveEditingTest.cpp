#include "models/CurveEditing.h"
#include "models/HistogramColumns.h"

#include <OstrelLib/Exceptions.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>

namespace Ostrel::Wx {
namespace {

using enum CurveChannel;
using testing::ElementsAre;
using testing::IsEmpty;

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

using Action = bool (CurveEditing::*)(Pixel);
constexpr Action PRESS = &CurveEditing::press;
constexpr Action DRAG = &CurveEditing::drag;
constexpr Action RIGHT_CLICK = &CurveEditing::removePoint;

struct Step {
    Action action; ///< null: release
    Pixel at;
    bool reports;
    const char* curve; ///< as shown afterwards
};

void play(CurveEditing editing, std::initializer_list<Step> steps) {
    for (const Step& step : steps) {
        const bool reported = step.action != nullptr ? (editing.*step.action)(step.at) : (editing.release(), false);
        const auto number = &step - steps.begin();
        EXPECT_EQ(reported, step.reports) << "step " << number;
        EXPECT_EQ(show(editing), step.curve) << "step " << number;
    }
}

TEST(CurvePlotMapping, TruncatesAndTakesEveryPixelThereAndBack) {
    const CurvePlot plot{.size = {256, 100}};
    const std::pair<CurvePoint, Pixel> cases[] = {{{0, 0}, {5, 105}},
                                                  {{1, 1}, {261, 5}},
                                                  {{0.503F, 0.509F}, {133, 55}},
                                                  {{-0.503F, -0.509F}, {-123, 155}},
                                                  {{ENDLESS, -ENDLESS}, {(1 << 28) + 5, (1 << 28) + 105}},
                                                  {{NONE, 0}, {5 - (1 << 28), 105}}};
    for (const auto& [point, pixel] : cases) {
        EXPECT_EQ(plot.toPixel(point), pixel) << point.x << ", " << point.y;
    }
    EXPECT_EQ((CurvePlot{{256, 100}, 0.5F}.toPoint({133, 55})), (CurvePoint{1.0F, 1.0F}));
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
    // What selects nothing leaves the limits at 0, so that only the left edge adds a point.
    play(flat, {{PRESS, {105, 92}, false, "0,0.5 1,0.5"},
                {DRAG, {105, 105}, false, "0,0.5 1,0.5"},
                {DRAG, {3, 55}, true, "0,0.5 [0,0.75] 1,0.5"}});
}

TEST(CurveDrag, DeletesAMiddlePointPastItsNeighboursAndBringsItBack) {
    play(makeEditing({{0, 0}, {0.5F, 0.5F}, {1, 1}}), {{DRAG, {100, 100}, false, "0,0 0.5,0.5 1,1"},
                                                       {PRESS, {108, 100}, false, "0,0 [0.5,0.5] 1,1"},
                                                       {DRAG, {7, 65}, true, "0,0 [0.01,0.7] 1,1"}, // as near as may be
                                                       {DRAG, {203, 300}, true, "0,0 [0.99,0] 1,1"},
                                                       {DRAG, {204, 105}, true, "0,0 1,1"},
                                                       {DRAG, {900, 105}, false, "0,0 1,1"},
                                                       {DRAG, {105, -7}, true, "0,0 [0.5,1] 1,1"},
                                                       {DRAG, {6, 105}, true, "0,0 1,1"},
                                                       {nullptr, {}, false, "0,0 1,1"},
                                                       {DRAG, {105, 105}, false, "0,0 1,1"}});
    play(makeEditing({{0, 0}, {0.5F, 0.25F}, {0.5F, 0.5F}, {0.5F, 0.75F}, {1, 1}}),
         {{PRESS, {105, 105}, false, "0,0 0.5,0.25 [0.5,0.5] 0.5,0.75 1,1"},
          {DRAG, {105, 105}, true, "0,0 0.5,0.25 0.5,0.75 1,1"}}); // no room between neighbours at its own x
}

TEST(CurveDrag, HoldsTheEndsBesideTheirNeighbours) {
    play(makeEditing({{0, 0}, {0.5F, 0.5F}, {1, 1}}), {{PRESS, {5, 205}, false, "[0,0] 0.5,0.5 1,1"},
                                                       {DRAG, {180, 5}, true, "[0.49,1] 0.5,0.5 1,1"},
                                                       {DRAG, {25, 185}, true, "[0.1,0.1] 0.5,0.5 1,1"},
                                                       {PRESS, {205, 5}, false, "0.1,0.1 0.5,0.5 [1,1]"},
                                                       {DRAG, {-100, 400}, true, "0.1,0.1 0.5,0.5 [0.51,0]"},
                                                       {DRAG, {400, 105}, true, "0.1,0.1 0.5,0.5 [1,0.5]"}});
}

TEST(CurveRemoval, SparesTheEndsAndFollowsADrag) {
    play(makeEditing({{0, 0}, {0.25F, 0.25F}, {0.5F, 0.5F}, {1, 1}}),
         {{RIGHT_CLICK, {5, 205}, false, "0,0 0.25,0.25 0.5,0.5 1,1"},
          {RIGHT_CLICK, {205, 5}, false, "0,0 0.25,0.25 0.5,0.5 1,1"},
          {PRESS, {105, 105}, false, "0,0 0.25,0.25 [0.5,0.5] 1,1"},
          {RIGHT_CLICK, {55, 155}, true, "0,0 [0.5,0.5] 1,1"},
          {RIGHT_CLICK, {105, 105}, true, "0,0 1,1"}});
}

TEST(CurveEditingHostile, SurvivesNoRoomOddPointsAndCurvesReplacedInADrag) {
    CurveEditing editing = makeEditing({{0, 0}, {0.5F, 0.5F}, {1, 1}});
    editing.press({205, 5});
    editing.selectChannel(RED);
    EXPECT_EQ(show(editing), "0,0 1,1") << "its number is gone";
    const Array<CurvePoint> oddities[] = {{},
                                          {{0.5F, 0.5F}},
                                          {{0, 0}, {NONE, 0.5F}},
                                          {{-ENDLESS, ENDLESS}, {0.5F, 3e38F}, {ENDLESS, NONE}},
                                          {{0, 0}, {0.5F, 0.5F}, {1, 1}}};
    for (const Array<CurvePoint>& points : oddities) {
        for (const int size : {210, 11, 10, 9, 0}) {
            editing.setClientSize({size, size});
            editing.setCurve(Curve(points), RED);
            for (int at = -15; at <= size + 20; at += 5) {
                editing.press(editing.getPlot().clamp({at, size - at}));
                editing.drag({at + 20, at});
                editing.drag({at, -at});
                editing.removePoint({at, at});
                editing.hover({at, at});
            }
        }
    }
    for (const CurvePoint& point : editing.getCurve().getPoints()) {
        EXPECT_TRUE(point.x >= -0.01F && point.x <= 1.01F && point.y >= 0 && point.y <= 1) << "without room for a plot";
    }
    EXPECT_EQ(editing.getPlot().clamp({1000, -1000}), (Pixel{5, -5})) << "the origin";
    EXPECT_THROW(editing.selectChannel(static_cast<CurveChannel>(4)), Detail::StopException);
    EXPECT_EQ(editing.getSelectedChannel(), RED);
}

TEST(CurveZoom, StopsAfterFiveStepsEachWay) {
    CurveEditing editing = makeEditing({});
    const auto turn = [&editing](int rotation, int steps) {
        while (steps-- > 0) {
            editing.zoom(rotation);
        }
        return editing.getPlot().zoom;
    };
    EXPECT_LT(turn(1, 4), 7.0F);
    EXPECT_EQ(turn(120, 2), 7.59375F);
    EXPECT_EQ(editing.getPlot().getLastGridLine(), 2);
    EXPECT_EQ(editing.getPlot().getGridDistance(1, 200), 189);
    EXPECT_NEAR(turn(-1, 5), 1.0F, 1e-6F);
    EXPECT_GT(turn(0, 4), 0.19F) << "no rotation is a step outwards";
    EXPECT_EQ(turn(-120, 2), 0.13168724F);
    EXPECT_EQ(editing.getPlot().getLastGridLine(), 61);
}

TEST(CurvePick, PressesAtTheValueOfTheSelectedChannelAndMovesUpAndDownAlone) {
    const struct {
        CurveChannel channel;
        Rgb colour;
        const char* curve;
    } cases[] = {{MASTER, {0.25F, 0.5F, 0.75F}, "0,0 [0.5,0.5] 1,1"},
                 {RED, {0.25F, NONE, ENDLESS}, "0,0 [0.25,0.25] 1,1"},
                 {GREEN, {0.25F, 0.5F, 0.75F}, "0,0 [0.5,0.5] 1,1"},
                 {BLUE, {0.25F, 0.5F, 0.75F}, "0,0 [0.75,0.75] 1,1"},
                 {RED, {-3, 0, 0}, "[0,0] 1,1"},    // the end that is there
                 {RED, {4, 0, 0}, "0,0 1,1 [4,1]"}, // beyond the plot
                 {MASTER, {0, NONE, 0}, "0,0 1,1"},
                 {BLUE, {0, 0, ENDLESS}, "0,0 1,1"}};
    for (const auto& [channel, colour, curve] : cases) {
        CurveEditing editing = makeEditing({{0, 0}, {1, 1}});
        editing.selectChannel(channel);
        editing.pick(colour);
        EXPECT_EQ(show(editing), curve);
    }
    CurveEditing editing = makeEditing({{0, 0}, {0.3F, 0.3F}, {1, 1}});
    editing.setClientSize({1021, 778});
    EXPECT_FALSE(editing.dragVertically(-5));
    editing.pick({0.3F, 0.3F, 0.3F});
    const auto getPixel = [&editing] { return editing.getPlot().toPixel(editing.getCurve().getPoints()[1]); };
    const Pixel start = getPixel();
    for (int i = 1; i <= 150; ++i) {
        EXPECT_TRUE(editing.dragVertically(-1));
        ASSERT_EQ(getPixel(), (start - Pixel{0, i})) << "creeps";
    }
}

TEST(CurveChanges, AreToldAtOnceOrHeldBackOncePerChannel) {
    CurveEditing editing = makeEditing({});
    const auto merge = [&editing](std::initializer_list<CurveChannel> channels, std::int64_t delay) {
        return editing.mergeChanges({channels.begin(), channels.size()}, delay).value_or(0);
    };
    EXPECT_EQ(merge({BLUE, MASTER}, 100), 100);
    EXPECT_EQ(merge({BLUE}, std::int64_t{1} << 40), std::numeric_limits<int>::max());
    EXPECT_EQ(merge({RED}, 0), 0) << "what was held back goes along";
    for (const Optional<CurveChannel> next :
         {Optional(MASTER), Optional(RED), Optional(BLUE), Optional<CurveChannel>()}) {
        EXPECT_EQ(editing.takePendingChannel(), next);
    }
    EXPECT_EQ(merge({}, std::numeric_limits<std::int64_t>::min()), 0);
}

TEST(HistogramColumns, AreSharesOfTheHeightInThreeWays) {
    const Histogram histogram({0, 1, 3, 96, 28}, 0, 1);
    using enum HistogramType;
    EXPECT_THAT(computeHistogramColumns(histogram, LINEAR, {5, 192}), ElementsAre(0, 2, 6, 192, 56));
    EXPECT_THAT(computeHistogramColumns(histogram, LOGARITHMIC, {5, 200}), ElementsAre(0, 30, 60, 200, 147));
    EXPECT_THAT(computeHistogramColumns(histogram, CUMULATIVE, {6, 256}), ElementsAre(0, 2, 8, 200, 256, 0));
    EXPECT_THAT(computeHistogramColumns(histogram, CUMULATIVE, {2, 256}), ElementsAre(0, 2));
    EXPECT_THAT(computeHistogramColumns(Histogram({~0ULL}, 0, 1), LOGARITHMIC, {1, 50}), ElementsAre(50));
    for (const HistogramType type : {LINEAR, LOGARITHMIC, CUMULATIVE}) {
        EXPECT_THAT(computeHistogramColumns(histogram, type, {-9, -9}), IsEmpty());
        EXPECT_THAT(computeHistogramColumns(Histogram(), type, {2, 50}), ElementsAre(0, 0));
        EXPECT_THAT(computeHistogramColumns(Histogram({0, 0}, 0, 1), type, {2, 50}), ElementsAre(0, 0));
    }
    try {
        checkHistogramType(static_cast<HistogramType>(3));
        FAIL() << "the type was taken";
    } catch (const Detail::StopException& stop) {
        EXPECT_EQ(stop.getPath(), "widgets/CurvePanel");
        EXPECT_EQ(stop.getLine(), 146);
    }
}

} // namespace
} // namespace Ostrel::Wx
