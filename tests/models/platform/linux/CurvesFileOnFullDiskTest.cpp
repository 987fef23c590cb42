// Linux alone has a file that is always full.
#include "models/CurvesFile.h"

#include <gtest/gtest.h>

namespace Ostrel::Detail {

TEST(CurvesFileOnFullDisk, IsNotSavedWhetherThatShowsInWritingOrInClosing) {
    for (const std::size_t pointCount : {2u, 100'000u}) { // less and more than a stream keeps back
        const Curve curve(Array<CurvePoint>(pointCount, {0.5F, 0.5F}), CurveInterpolation::LINEAR);
        EXPECT_FALSE(saveCurves({{curve, curve, curve, curve}}, "/dev/full")) << pointCount;
    }
}

} // namespace Ostrel::Detail
