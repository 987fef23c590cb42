#include <OstrelLib/Histogram.h>

#include <OstrelLib/Exceptions.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <span>
#include <system_error>
#include <thread>
#include <utility>

namespace Ostrel {

namespace {

/// Less work than this (a fraction of a millisecond) is not worth a thread.
constexpr std::size_t LEAST_PIXELS_PER_THREAD = 1U << 18U;

/// Multiplying is faster than dividing by 3, and white stays 1.
constexpr float ONE_THIRD = 0.33333334F;
static_assert(3.0F * ONE_THIRD == 1.0F);

/// A range that can be cut into bins. NaN makes every comparison false.
bool isUsable(float min, float max) {
    return max > min && std::isfinite(min) && std::isfinite(max);
}

/// Adds the pixels to `bins`.
template <class GetValue>
void countPixels(ArrayView<const Rgb> pixels, GetValue getValue, float min, float max,
                 ArrayView<std::uint64_t> bins) noexcept {
    if (pixels.empty()) {
        return; // also where there is no bin or no range
    }
    const std::size_t lastBin = bins.size() - 1;
    const double binsPerUnit = static_cast<double>(bins.size()) / (double{max} - double{min});
    for (const Rgb& pixel : pixels) {
        const float value = getValue(pixel);
        // Also keeps NaN and whatever no integer can hold from becoming an index.
        if (value >= min && value <= max) {
            const double bin = (double{value} - double{min}) * binsPerUnit;
            ++bins[std::min(static_cast<std::size_t>(bin), lastBin)];
        }
    }
}

/// Divides the pixels among threads, which have bins of their own; sums of integers are the same in any order.
template <class GetValue>
Array<std::uint64_t> countAllPixels(ArrayView<const Rgb> pixels, GetValue getValue, float min, float max,
                                    std::size_t binCount) {
    const std::size_t least = std::max(LEAST_PIXELS_PER_THREAD, binCount);
    const std::size_t most = std::max<std::size_t>(std::thread::hardware_concurrency(), 1);
    const std::size_t partCount = std::clamp<std::size_t>(pixels.size() / least, 1, most);
    const std::size_t partSize = pixels.size() / partCount;

    Array<Array<std::uint64_t>> bins(partCount, Array<std::uint64_t>(binCount, 0));
    const auto countPart = [&](std::size_t part) noexcept {
        const bool isLast = part + 1 == partCount;
        countPixels(pixels.subspan(part * partSize, isLast ? std::dynamic_extent : partSize), getValue, min, max,
                    bins[part]);
    };
    {
        Array<std::jthread> threads;
        threads.reserve(partCount);
        std::size_t part = 1;
        try {
            for (; part < partCount; ++part) {
                threads.emplace_back(countPart, part);
            }
        } catch (const std::system_error&) {
            // The system gives no more threads: what is left is counted here.
        }
        countPart(0);
        for (; part < partCount; ++part) {
            countPart(part);
        }
    }
    for (std::size_t part = 1; part < partCount; ++part) {
        std::transform(bins[part].begin(), bins[part].end(), bins[0].begin(), bins[0].begin(), std::plus<>());
    }
    return std::move(bins[0]);
}

} // namespace

Histogram::Histogram(Array<std::uint64_t> bins, float min, float max)
    : _bins(std::move(bins))
    , _min(min)
    , _max(max)
    , _largestBin(_bins.empty() ? 0 : *std::max_element(_bins.begin(), _bins.end())) {}

Histogram Histogram::compute(const BitmapImpl<Rgb>& image, CurveChannel channel, float min, float max, int binCount) {
    const auto count = static_cast<std::size_t>(std::max(binCount, 0));
    const ArrayView<const Rgb> pixels(image.data(), isUsable(min, max) && count > 0 ? image.size() : 0);
    const auto countBy = [&](auto getValue) {
        return Histogram(countAllPixels(pixels, getValue, min, max, count), min, max);
    };
    switch (channel) {
    case CurveChannel::MASTER:
        return countBy([](const Rgb& pixel) { return (pixel.red + pixel.green + pixel.blue) * ONE_THIRD; });
    case CurveChannel::RED:
        return countBy([](const Rgb& pixel) { return pixel.red; });
    case CurveChannel::GREEN:
        return countBy([](const Rgb& pixel) { return pixel.green; });
    case CurveChannel::BLUE:
        return countBy([](const Rgb& pixel) { return pixel.blue; });
    }
    Detail::throwStopException("Histogram", __LINE__);
}

const Array<std::uint64_t>& Histogram::getBins() const noexcept {
    return _bins;
}

std::size_t Histogram::getBinCount() const noexcept {
    return _bins.size();
}

float Histogram::getMin() const noexcept {
    return _min;
}

float Histogram::getMax() const noexcept {
    return _max;
}

std::uint64_t Histogram::getLargestBin() const noexcept {
    return _largestBin;
}

Array<float> Histogram::getCumulativeHistogram() const {
    // In double, where sums of counts do not wrap.
    Array<double> sums;
    sums.reserve(_bins.size());
    double sum = 0.0;
    for (const std::uint64_t bin : _bins) {
        sum += static_cast<double>(bin);
        sums.push_back(sum);
    }
    Array<float> shares(sums.size(), 0.0F);
    if (sum > 0.0) {
        std::transform(sums.begin(), sums.end(), shares.begin(),
                       [sum](double part) { return static_cast<float>(part / sum); });
    }
    return shares;
}

Curve Histogram::computeEqualizingCurve(int pointCount) const {
    double total = 0.0;
    for (const std::uint64_t bin : _bins) {
        total += static_cast<double>(bin);
    }
    if (pointCount < 2 || !(total > 0.0) || !isUsable(_min, _max)) {
        return Curve();
    }
    const double binWidth = (double{_max} - double{_min}) / static_cast<double>(_bins.size());
    const int lastPoint = pointCount - 1;

    Array<CurvePoint> points;
    std::size_t bin = 0;
    double below = 0.0; // counted in the bins before this one
    for (int i = 0; i <= lastPoint; ++i) {
        const double share = static_cast<double>(i) / lastPoint;
        // On to the first bin that is not empty and reaches the share.
        while (bin + 1 < _bins.size() && (_bins[bin] == 0 || below + static_cast<double>(_bins[bin]) < total * share)) {
            below += static_cast<double>(_bins[bin]);
            ++bin;
        }
        const double part = std::clamp((total * share - below) / static_cast<double>(_bins[bin]), 0.0, 1.0);
        const auto x = static_cast<float>(double{_min} + (static_cast<double>(bin) + part) * binWidth);
        if (i == lastPoint) {
            // The last point is one that stays: others make room for it.
            while (points.size() > 1 && points.back().x >= x) {
                points.pop_back();
            }
        }
        if (points.empty() || x > points.back().x) {
            points.push_back({x, static_cast<float>(share)});
        }
    }
    // Floats cannot tell the edges of the only bin apart.
    return points.size() < 2 ? Curve() : Curve(std::move(points), CurveInterpolation::LINEAR);
}

} // namespace Ostrel
