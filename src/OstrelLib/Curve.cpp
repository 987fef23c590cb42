#include <OstrelLib/Curve.h>

#include <OstrelLib/Exceptions.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <limits>
#include <utility>

#include "NanLast.h"

namespace Ostrel {

namespace {

constexpr const char* SOURCE_PATH = "Curve";

/// Places that `evaluate` looks at together.
constexpr std::size_t BLOCK_SIZE = 16;

void checkInterpolation(CurveInterpolation interpolation) {
    if (interpolation != CurveInterpolation::CUBIC_SPLINE && interpolation != CurveInterpolation::LINEAR) {
        Detail::throwStopException(SOURCE_PATH, __LINE__);
    }
}

void checkIndex(std::size_t index, std::size_t count) {
    if (index >= count) {
        Detail::throwStopException(SOURCE_PATH, __LINE__);
    }
}

void sortByX(Array<CurvePoint>& points) {
    std::stable_sort(points.begin(), points.end(),
                     [](const CurvePoint& a, const CurvePoint& b) { return Detail::isLessNanLast(a.x, b.x); });
}

/// The last knot at or before `x`, which must not lie before the first, by halving without branches: for places in no
/// order these would be guesses.
std::size_t findSegment(const Array<float>& knots, float x) {
    const float* knot = knots.data();
    for (std::size_t count = knots.size(); count > 1;) {
        const std::size_t half = count / 2;
        knot += knot[half] <= x ? half : 0;
        count -= half;
    }
    return static_cast<std::size_t>(knot - knots.data());
}

template <class Segment>
float evaluatePolynomial(const Segment& s, double distance) {
    constexpr double LARGEST = std::numeric_limits<float>::max();
    const double value = s.value + distance * (s.slope + distance * (s.quadratic + distance * s.cubic));
    return static_cast<float>(std::clamp(value, -LARGEST, LARGEST));
}

} // namespace

Curve::Curve()
    : Curve({{0.0F, 0.0F}, {1.0F, 1.0F}}) {}

Curve::Curve(Array<CurvePoint> points, CurveInterpolation interpolation)
    : _points(std::move(points))
    , _interpolation(interpolation) {
    checkInterpolation(interpolation);
    update();
}

const Array<CurvePoint>& Curve::getPoints() const noexcept {
    return _points;
}

void Curve::setPoints(Array<CurvePoint> points) {
    _points = std::move(points);
    update();
}

void Curve::appendPoint(const CurvePoint& point) {
    _points.push_back(point);
    update();
}

void Curve::setPoint(std::size_t index, const CurvePoint& point) {
    checkIndex(index, _points.size());
    _points[index] = point;
    update();
}

void Curve::removePoint(std::size_t index) {
    checkIndex(index, _points.size());
    _points.erase(_points.begin() + static_cast<std::ptrdiff_t>(index));
    update();
}

void Curve::sortPoints() {
    // The curve itself goes by x already.
    sortByX(_points);
}

CurveInterpolation Curve::getInterpolation() const noexcept {
    return _interpolation;
}

void Curve::setInterpolation(CurveInterpolation interpolation) {
    checkInterpolation(interpolation);
    _interpolation = interpolation;
    update();
}

float Curve::operator()(float x) const noexcept {
    if (_knots.empty()) {
        return 0.0F;
    }
    if (!(x >= _knots.front())) {
        return _valueBefore;
    }
    if (x >= _knots.back()) {
        return _valueAfter;
    }
    if (_isDiagonal) {
        return x;
    }
    const std::size_t segment = findSegment(_knots, x);
    return evaluatePolynomial(_segments[segment], double{x} - double{_knots[segment]});
}

void Curve::evaluate(ArrayView<const float> positions, ArrayView<float> values) const {
    if (positions.size() != values.size()) {
        Detail::throwStopException(SOURCE_PATH, __LINE__);
    }
    if (_knots.empty()) {
        std::fill(values.begin(), values.end(), 0.0F);
        return;
    }
    const float first = _knots.front();
    const float last = _knots.back();
    if (_isDiagonal) {
        std::transform(positions.begin(), positions.end(), values.begin(),
                       [first, last](float x) { return x >= first ? std::min(x, last) : first; });
        return;
    }
    // Neighbouring places mostly lie in one segment, and then the block is a loop without decisions.
    for (std::size_t i = 0; i < positions.size(); i += BLOCK_SIZE) {
        const std::size_t size = std::min(BLOCK_SIZE, positions.size() - i);
        const ArrayView<const float> from = positions.subspan(i, size);
        const ArrayView<float> to = values.subspan(i, size);
        const std::size_t segment = from[0] >= first && from[0] < last ? findSegment(_knots, from[0]) : 0;
        const float start = _knots[segment];
        const float stop = _knots[std::min(segment + 1, _knots.size() - 1)];
        if (std::all_of(from.begin(), from.end(), [start, stop](float x) { return x >= start && x < stop; })) {
            const Segment polynomial = _segments[segment];
            std::transform(from.begin(), from.end(), to.begin(), [&polynomial, start](float x) {
                return evaluatePolynomial(polynomial, double{x} - double{start});
            });
        } else {
            std::transform(from.begin(), from.end(), to.begin(), std::cref(*this));
        }
    }
}

bool Curve::isIdentity() const noexcept {
    return _isDiagonal && !_knots.empty() && _knots.front() <= 0.0F && _knots.back() >= 1.0F;
}

void Curve::update() {
    Array<CurvePoint> points;
    std::copy_if(_points.begin(), _points.end(), std::back_inserter(points),
                 [](const CurvePoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); });
    sortByX(points);

    _knots.clear();
    _segments.clear();
    for (const CurvePoint& point : points) {
        if (!_knots.empty()) {
            const double width = double{point.x} - double{_knots.back()};
            Segment& segment = _segments.back();
            segment.slope = width > 0.0 ? (double{point.y} - segment.value) / width : 0.0;
        }
        _knots.push_back(point.x);
        _segments.push_back({.value = double{point.y}, .slope = 0.0, .quadratic = 0.0, .cubic = 0.0});
    }
    if (!_segments.empty()) {
        _segments.pop_back(); // nothing follows the last point
    }
    _valueBefore = points.empty() ? 0.0F : points.front().y;
    _valueAfter = points.empty() ? 0.0F : points.back().y;
    _isDiagonal = !points.empty() &&
                  std::all_of(points.begin(), points.end(), [](const CurvePoint& point) { return point.x == point.y; });

    if (_interpolation == CurveInterpolation::CUBIC_SPLINE) {
        fitSplines();
    }
}

void Curve::fitSplines() {
    // Each run of knots that ascend strictly, from step to step, is a spline of its own.
    std::size_t first = 0;
    for (std::size_t knot = 1; knot <= _knots.size(); ++knot) {
        if (knot == _knots.size() || _knots[knot] == _knots[knot - 1]) {
            fitSpline(first, knot - 1);
            first = knot;
        }
    }
}

void Curve::fitSpline(std::size_t first, std::size_t last) {
    if (last < first + 2) {
        return; // a line
    }
    const auto width = [this](std::size_t i) { return double{_knots[i + 1]} - double{_knots[i]}; };

    // The second derivatives m of a natural cubic spline are 0 at both ends and elsewhere solve
    //     w[i-1] m[i-1] + 2 (w[i-1] + w[i]) m[i] + w[i] m[i+1] = 6 (s[i] - s[i-1])
    // with the widths w and the slopes s of the straight segments. The matrix is tridiagonal and diagonally dominant,
    // so that elimination needs no pivots (L. H. Thomas, 1949).
    const std::size_t count = last - first + 1;
    Array<double> upper(count, 0.0);
    Array<double> m(count, 0.0);
    for (std::size_t i = 1; i + 1 < count; ++i) {
        const double before = width(first + i - 1);
        const double after = width(first + i);
        const double pivot = 2.0 * (before + after) - before * upper[i - 1];
        upper[i] = after / pivot;
        m[i] = (6.0 * (_segments[first + i].slope - _segments[first + i - 1].slope) - before * m[i - 1]) / pivot;
    }
    for (std::size_t i = count - 2; i > 0; --i) {
        m[i] -= upper[i] * m[i + 1];
    }
    for (std::size_t i = 0; i + 1 < count; ++i) {
        const double w = width(first + i);
        Segment& segment = _segments[first + i];
        segment.slope -= w * (2.0 * m[i] + m[i + 1]) / 6.0;
        segment.quadratic = m[i] / 2.0;
        segment.cubic = (m[i + 1] - m[i]) / (6.0 * w);
    }
}

const Curve& ColorCurve::operator[](CurveChannel channel) const {
    const auto index = static_cast<std::size_t>(channel); // a negative one becomes too large
    checkIndex(index, curves.size());
    return curves[index];
}

Curve& ColorCurve::operator[](CurveChannel channel) {
    return const_cast<Curve&>(std::as_const(*this)[channel]);
}

} // namespace Ostrel
