#include <OstrelLib/Histogram.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace {

using Ostrel::Array;
using Ostrel::BitmapImpl;
using Ostrel::CurveChannel;
using Ostrel::Histogram;
using Ostrel::Rgb;

constexpr int BIN_COUNT = 256;

/// A smooth picture with some grain, brighter than white in places.
const BitmapImpl<Rgb>& getPicture() {
    static const BitmapImpl<Rgb> PICTURE = [] {
        BitmapImpl<Rgb> picture(3840, 2160);
        std::uint32_t grain = 1;
        for (int y = 0; y < picture.getHeight(); ++y) {
            for (int x = 0; x < picture.getWidth(); ++x) {
                grain = grain * 1664525U + 1013904223U;
                const float value = 0.5F + 0.6F * std::sin(static_cast<float>(x + 2 * y) * 0.001F);
                const float noise = static_cast<float>(grain >> 8U) * (0.05F / 16777216.0F);
                picture(x, y) = {value + noise, value * value + noise, 0.25F + noise};
            }
        }
        return picture;
    }();
    return PICTURE;
}

void setCounters(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(getPicture().size()));
}

/// The baseline: one pass over the pixels on one thread.
void histogramOnePassBaseline(benchmark::State& state) {
    const BitmapImpl<Rgb>& picture = getPicture();
    for (auto _ : state) {
        Array<std::uint64_t> bins(BIN_COUNT, 0);
        for (std::size_t i = 0; i < picture.size(); ++i) {
            const Rgb& pixel = picture.data()[i];
            const float value = (pixel.red + pixel.green + pixel.blue) / 3.0F;
            if (value >= 0.0F && value < 1.0F) {
                ++bins[static_cast<std::size_t>(value * BIN_COUNT)];
            }
        }
        benchmark::DoNotOptimize(bins.data());
    }
    setCounters(state);
}
BENCHMARK(histogramOnePassBaseline)->Unit(benchmark::kMillisecond)->UseRealTime();

void histogramOfLargePicture(benchmark::State& state) {
    const auto channel = static_cast<CurveChannel>(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(Histogram::compute(getPicture(), channel, 0.0F, 1.0F, BIN_COUNT));
    }
    setCounters(state);
}
BENCHMARK(histogramOfLargePicture)->Arg(0)->Arg(1)->Arg(3)->Unit(benchmark::kMillisecond)->UseRealTime();

void equalizingCurve(benchmark::State& state) {
    const Histogram histogram = Histogram::compute(getPicture(), CurveChannel::MASTER, 0.0F, 2.0F, BIN_COUNT);
    for (auto _ : state) {
        benchmark::DoNotOptimize(histogram.computeEqualizingCurve(16));
    }
}
BENCHMARK(equalizingCurve);

} // namespace
