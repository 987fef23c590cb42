#include "models/GradientColumns.h"

#include <gmock/gmock.h>

#include <limits>

namespace Ostrel::Wx {
namespace {

TEST(GradientColumns, HaveTheMarginTakenOffTwice) {
    const struct {
        int column, width;
        float value;
    } cases[] = {{0, 101, 0}, {5, 101, 0}, {6, 101, 0}, {7, 101, 0.01F}, {56, 101, 0.5F}, {100, 101, 0.94F},
                 {6, 7, 0},   {0, 1, 0},   {0, 2, 0},   {106, 101, 1},   {9, 4, 1}};
    for (const auto& [column, width, value] : cases) {
        EXPECT_FLOAT_EQ(computeColumnValue(column, 6, width), value) << column << " of " << width;
    }
}

TEST(GradientColumns, AskOnceForEachAndTakeAnyColour) {
    constexpr float INFINITE = std::numeric_limits<float>::infinity();
    Array<float> asked;
    Array<RgbBytes> columns(101);
    computeGradientColumns(6, columns, [&](float t) {
        asked.push_back(t);
        return t < 0.5F ? Rgb{t, -t - 1, std::nanf("")} : Rgb{t, INFINITE, -INFINITE};
    });
    EXPECT_EQ(asked.size(), columns.size());
    EXPECT_TRUE(std::is_sorted(asked.begin(), asked.end()));
    EXPECT_EQ(columns[5], (RgbBytes{0, 0, 0}));
    EXPECT_EQ(columns[16], (RgbBytes{26, 0, 0})) << "25.5, to the even one";
    EXPECT_EQ(columns[100], (RgbBytes{240, 255, 0}));
    computeGradientColumns(6, {}, {});
}

} // namespace
} // namespace Ostrel::Wx
