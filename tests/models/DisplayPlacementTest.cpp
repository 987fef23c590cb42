#include "models/DisplayPlacement.h"

#include <limits>
#include <tuple>

#include <gtest/gtest.h>

namespace {

using namespace Ostrel;

constexpr int LARGEST = std::numeric_limits<int>::max();
constexpr int SMALLEST = std::numeric_limits<int>::min();
constexpr int BIG = 1 << 24;

TEST(NearestDisplay, IsTheOneWithTheLeastDistanceToItsArea) {
    const Array<Bucket> pair{{{0, 0}, {1920, 1080}}, {{1920, 0}, {3200, 1024}}};
    // An upper left, an upper right and a lower one, with a gap of 100 between the upper ones.
    const Array<Bucket> gap{{{-800, -600}, {0, 0}}, {{100, -600}, {900, 0}}, {{0, 200}, {800, 800}}};
    const Array<Bucket> overlap{{{0, 0}, {100, 100}}, {{50, 50}, {200, 200}}};
    const std::tuple<const char*, Array<Bucket>, Pixel, int> cases[] = {
        {"no display", {}, {5, 5}, Detail::NO_DISPLAY},
        {"inside the first", pair, {1919, 1079}, 0},
        {"below the second, beside the first: 26 down against 1 across", pair, {1920, 1050}, 0},
        {"below both, nearer to the first's last row", pair, {1910, 2000}, 0},
        {"one past the corner: one across and one down", gap, {0, 0}, 0},
        {"in the gap, 50 from each: the lower index", gap, {49, -300}, 0},
        {"in the gap, 49 against 51", gap, {51, -300}, 1},
        {"diagonally: 100 down against 101 and more across", gap, {50, 100}, 2},
        {"overlap: the first", overlap, {75, 75}, 0},
        {"a display without area has one edge to be near to", {{{10, 10}, {10, 10}}, {{40, 10}, {50, 20}}}, {0, 10}, 0},
        // 2^24 + 1 is no float: seen from there, both displays begin at the same distance.
        {"in single precision", {{{BIG + 1, 0}, {BIG + 9, 10}}, {{BIG, 0}, {BIG + 9, 10}}}, {0, 0}, 0},
        {"the ends of the number range", {{{0, 0}, {10, 10}}, {{20, 0}, {30, 10}}}, {LARGEST, SMALLEST}, 0},
    };
    for (const auto& [name, displays, position, nearest] : cases) {
        EXPECT_EQ(Detail::findNearestDisplay(displays, position), nearest) << name;
    }
}

TEST(Placement, StaysInTheWorkArea) {
    const Bucket screen{{0, 0}, {1920, 1040}};
    const Bucket left{{-1280, 40}, {0, 1024}};
    const std::tuple<const char*, Bucket, Pixel, Pixel, Pixel> cases[] = {
        {"moved back from the lower right", screen, {300, 200}, {1900, 1000}, {1620, 840}},
        {"moved in from the upper left", left, {300, 200}, {-1300, 0}, {-1280, 40}},
        {"one pixel beyond it", left, {300, 200}, {-299, 825}, {-300, 824}},
        {"wider: to the left edge", left, {1281, 100}, {-100, 500}, {-1280, 500}},
        {"taller: to the top edge", left, {100, 2000}, {-700, 500}, {-700, 40}},
        {"absurdly large", left, {LARGEST, LARGEST}, {SMALLEST, LARGEST}, {-1280, 40}},
        {"no work area at all", {}, {10, 10}, {5, 5}, {0, 0}},
    };
    for (const auto& [name, workArea, size, wanted, expected] : cases) {
        const Pixel place = Detail::placeInWorkArea(workArea, size, wanted);
        EXPECT_EQ(place, expected) << name << ": (" << place.x << ", " << place.y << ")";
    }
}

} // namespace
