#include <OstrelLib/Curve.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace {

using Ostrel::Array;
using Ostrel::Curve;
using Ostrel::CurveInterpolation;
using Ostrel::CurvePoint;

/// The curve over a row of places, and over as many pixels as a branch predictor cannot learn by heart.
constexpr std::size_t PLACE_COUNT = 4096;
constexpr std::size_t PIXEL_COUNT = 1U << 18U;

/// As many points as the equalizing curve has.
Array<CurvePoint> makePoints() {
    Array<CurvePoint> points;
    for (int i = 0; i < 16; ++i) {
        const float x = static_cast<float>(i) / 15.0F;
        points.push_back({x, std::sqrt(x)});
    }
    return points;
}

Array<float> makePlaces() {
    Array<float> places;
    for (std::size_t i = 0; i < PLACE_COUNT; ++i) {
        places.push_back(static_cast<float>(i) / static_cast<float>(PLACE_COUNT));
    }
    return places;
}

Array<float> makePixels() {
    Array<float> pixels;
    std::uint32_t random = 1;
    for (std::size_t i = 0; i < PIXEL_COUNT; ++i) {
        random = random * 1664525U + 1013904223U;
        pixels.push_back(static_cast<float>(random >> 8U) / 16777216.0F);
    }
    return pixels;
}

/// The baseline: walks the list to the segment and mixes its ends, in floats; linear only.
float walk(const Array<CurvePoint>& points, float x) {
    if (x <= points.front().x) {
        return points.front().y;
    }
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (x < points[i].x) {
            const float width = points[i].x - points[i - 1].x;
            return points[i - 1].y + (points[i].y - points[i - 1].y) * (x - points[i - 1].x) / width;
        }
    }
    return points.back().y;
}

void measure(benchmark::State& state, const Array<float>& places, auto getValue) {
    Array<float> values(places.size());
    for (auto _ : state) {
        for (std::size_t i = 0; i < places.size(); ++i) {
            values[i] = getValue(places[i]);
        }
        benchmark::DoNotOptimize(values.data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(places.size()));
}

void curveWalkBaseline(benchmark::State& state, const Array<float>& places) {
    measure(state, places, [points = makePoints()](float x) { return walk(points, x); });
}
BENCHMARK_CAPTURE(curveWalkBaseline, pixels, makePixels());
BENCHMARK_CAPTURE(curveWalkBaseline, row, makePlaces());

void curvePerCall(benchmark::State& state, const Array<float>& places, CurveInterpolation interpolation) {
    measure(state, places, Curve(makePoints(), interpolation));
}
BENCHMARK_CAPTURE(curvePerCall, pixels cubic, makePixels(), CurveInterpolation::CUBIC_SPLINE);
BENCHMARK_CAPTURE(curvePerCall, pixels linear, makePixels(), CurveInterpolation::LINEAR);
BENCHMARK_CAPTURE(curvePerCall, row cubic, makePlaces(), CurveInterpolation::CUBIC_SPLINE);

void curveEvaluate(benchmark::State& state, const Array<float>& places, const Curve& curve) {
    Array<float> values(places.size());
    for (auto _ : state) {
        curve.evaluate(places, values);
        benchmark::DoNotOptimize(values.data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(places.size()));
}
BENCHMARK_CAPTURE(curveEvaluate, pixels cubic, makePixels(), Curve(makePoints()));
BENCHMARK_CAPTURE(curveEvaluate, row cubic, makePlaces(), Curve(makePoints()));
BENCHMARK_CAPTURE(curveEvaluate, row identity, makePlaces(), Curve());

/// One step of dragging a point: the point changes, and what evaluation needs is worked out anew.
void curveChange(benchmark::State& state) {
    Curve curve(makePoints());
    float y = 0.0F;
    for (auto _ : state) {
        curve.setPoint(7, {7.0F / 15.0F, y});
        y = y < 1.0F ? y + 0.001F : 0.0F;
        benchmark::DoNotOptimize(curve);
    }
}
BENCHMARK(curveChange);

} // namespace
