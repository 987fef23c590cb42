#include "models/GradientColumns.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

namespace Ostrel::Wx {

TEST(GradientColumns, HaveTheMarginTakenOffTwiceAndTakeAnyColour) {
    const std::tuple<int, int, float> cases[] = {{5, 101, 0}, {6, 101, 0}, {7, 101, 0.01F}, {100, 101, 0.94F},
                                                 {6, 7, 0},   {0, 1, 0},   {9, 4, 1}};
    for (const auto& [column, width, value] : cases) {
        EXPECT_FLOAT_EQ(computeColumnValue(column, 6, width), value) << column << " of " << width;
    }
    constexpr float INFINITE = std::numeric_limits<float>::infinity();
    Array<RgbBytes> columns(101);
    computeGradientColumns(6, columns, [](float t) {
        return t < 0.5F ? Rgb{t, -t - 1, std::nanf("")} : Rgb{t, INFINITE, -INFINITE};
    });
    EXPECT_EQ(columns[16], (RgbBytes{26, 0, 0})) << "25.5, to the even one";
    EXPECT_EQ(columns[100], (RgbBytes{240, 255, 0}));
    computeGradientColumns(6, {}, {});
}

} // namespace Ostrel::Wx
