#pragma once

#include <OstrelLib/Bitmap.h>
#include <OstrelLib/Color.h>
#include <OstrelLib/Curve.h>
#include <OstrelLib/Export.h>
#include <OstrelLib/Types.h>

#include <cstddef>
#include <cstdint>

namespace Ostrel {

/// How often values occur: the range from `getMin()` to `getMax()` is cut into bins of equal width, each of which has
/// its count. A bin contains its lower edge, the last one its upper edge too.
class OSTREL_API Histogram {
public:
    /// No bins; the range is [0, 1].
    Histogram() = default;
    Histogram(Array<std::uint64_t> bins, float min, float max);

    /// Counts one channel of a picture; `MASTER` counts (red + green + blue) / 3. Values outside [min, max] and NaN are
    /// left out. A large picture is counted by several threads; the result does not depend on them.
    /// @param binCount below 1 makes a histogram without bins
    /// @param max must be above `min` and both finite, else all bins are 0
    /// @throws Detail::StopException ("Histogram") for a value that is no channel
    [[nodiscard]] static Histogram compute(const BitmapImpl<Rgb>& image, CurveChannel channel, float min, float max,
                                           int binCount);

    [[nodiscard]] const Array<std::uint64_t>& getBins() const noexcept;
    [[nodiscard]] std::size_t getBinCount() const noexcept;
    [[nodiscard]] float getMin() const noexcept;
    [[nodiscard]] float getMax() const noexcept;

    /// The count of the fullest bin; 0 without bins.
    [[nodiscard]] std::uint64_t getLargestBin() const noexcept;

    /// For each bin the share of all counted values that lie in it or before it, ascending to exactly 1. All 0 when
    /// nothing was counted.
    [[nodiscard]] Array<float> getCumulativeHistogram() const;

    /// The curve that spreads the counted values evenly over [0, 1], that is the cumulative histogram as a function: it
    /// rises from 0 at the lower edge of the first bin that is not empty to 1 at the upper edge of the last such bin,
    /// with its points at equally spaced outputs (values are taken to be even within a bin). It is linear between the
    /// points, because a spline through them could fall where the histogram is steep. The x of the points strictly
    /// ascend; outputs whose x is the same as a float are left out, so that there may be fewer points.
    /// @param pointCount how many points there are to be; below 2 makes the identity
    /// @return the identity also when nothing was counted or the range is not usable (see `compute`)
    [[nodiscard]] Curve computeEqualizingCurve(int pointCount) const;

    friend bool operator==(const Histogram& a, const Histogram& b) noexcept = default;

private:
    Array<std::uint64_t> _bins;
    float _min = 0.0F;
    float _max = 1.0F;
    std::uint64_t _largestBin = 0;
};

} // namespace Ostrel
