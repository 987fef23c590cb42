#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/Histogram.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/widgets/HistogramType.h>

namespace Ostrel::Wx {

/// Stop exception ("widgets/CurvePanel", line 146) for a value that is no type.
void checkHistogramType(HistogramType type);

/// The height in pixels, 0 to `plotSize.y`, of each column of a plot, one for each bin from the left; 0 where there is
/// no bin or nothing was counted. Stop exception as above.
[[nodiscard]] Array<int> computeHistogramColumns(const Histogram& histogram, HistogramType type, Pixel plotSize);

} // namespace Ostrel::Wx
