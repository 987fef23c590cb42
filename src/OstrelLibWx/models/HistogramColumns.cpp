#include "models/HistogramColumns.h"

#include <OstrelLib/Exceptions.h>

#include <algorithm>
#include <cmath>

namespace Ostrel::Wx {

namespace {

template <class Values, class GetShare>
Array<int> computeColumns(const Values& values, Pixel plotSize, GetShare getShare) {
    Array<int> columns(static_cast<std::size_t>(std::max(plotSize.x, 0)), 0);
    const std::size_t count = std::min(columns.size(), values.size());
    const double height = std::max(plotSize.y, 0);
    std::transform(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(count), columns.begin(),
                   [&](auto value) { return static_cast<int>(height * getShare(value)); });
    return columns;
}

} // namespace

void checkHistogramType(HistogramType type) {
    switch (type) {
    case HistogramType::LINEAR:
    case HistogramType::LOGARITHMIC:
    case HistogramType::CUMULATIVE:
        return;
    }
    constexpr int LINE = 146; // part of the interface: hosts and their reports know it, wherever this code moves to
    Detail::throwStopException("widgets/CurvePanel", LINE);
}

Array<int> computeHistogramColumns(const Histogram& histogram, HistogramType type, Pixel plotSize) {
    checkHistogramType(type);
    if (type == HistogramType::CUMULATIVE) {
        return computeColumns(histogram.getCumulativeHistogram(), plotSize, [](float share) { return double{share}; });
    }
    const auto measure = [type](std::uint64_t count) {
        const auto value = static_cast<double>(count);
        return type == HistogramType::LOGARITHMIC ? std::log1p(value) : value;
    };
    // Without anything counted every share is 0 over this.
    const double largest = measure(std::max<std::uint64_t>(histogram.getLargestBin(), 1));
    return computeColumns(histogram.getBins(), plotSize, [&](std::uint64_t count) { return measure(count) / largest; });
}

} // namespace Ostrel::Wx
