#include <OstrelLib/ColorGradient.h>

#include <OstrelLib/Exceptions.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "NanLast.h"

namespace Ostrel {

namespace {

constexpr const char* SOURCE_PATH = "ColorGradient";

Hsv mix(const ColorGradientPoint& left, const ColorGradientPoint& right, float position) {
    // In double the distance between two floats neither overflows nor vanishes.
    const double distance = double{right.position} - double{left.position};
    const auto weight = static_cast<float>((double{position} - double{left.position}) / distance);
    return rgbToHsv(hsvToRgb(left.color) * (1.0F - weight) + hsvToRgb(right.color) * weight);
}

} // namespace

ColorGradient::ColorGradient(Array<ColorGradientPoint> points)
    : _points(std::move(points)) {
    sortPoints();
}

const Array<ColorGradientPoint>& ColorGradient::getPoints() const noexcept {
    return _points;
}

void ColorGradient::setPoints(Array<ColorGradientPoint> points) {
    _points = std::move(points);
    sortPoints();
}

void ColorGradient::setPoint(std::size_t index, const ColorGradientPoint& point) {
    if (index >= _points.size()) {
        Detail::throwStopException(SOURCE_PATH, __LINE__);
    }
    _points[index] = point;
}

std::size_t ColorGradient::insert(const ColorGradientPoint& point) {
    Array<ColorGradientPoint> previous = _points;
    const ColorGradientPoint added = point; // may be one of ours
    _points.push_back(added);
    sortPoints();
    const auto found = std::find(_points.begin(), _points.end(), added);
    if (found == _points.end()) {
        _points = std::move(previous);
        Detail::throwStopException("utility/ColorGradient", 115);
    }
    return static_cast<std::size_t>(found - _points.begin());
}

void ColorGradient::erase(std::size_t index) {
    if (index >= _points.size()) {
        Detail::throwStopException(SOURCE_PATH, __LINE__);
    }
    _points.erase(_points.begin() + static_cast<std::ptrdiff_t>(index));
}

void ColorGradient::sortPoints() {
    std::stable_sort(_points.begin(), _points.end(), [](const ColorGradientPoint& a, const ColorGradientPoint& b) {
        return Detail::isLessNanLast(a.position, b.position);
    });
}

Hsv ColorGradient::getColorAt(float position) const noexcept {
    const ColorGradientPoint* left = nullptr;  // the last of those at the highest position not above the one asked for
    const ColorGradientPoint* right = nullptr; // the first of those at the lowest position above it
    for (const ColorGradientPoint& point : _points) {
        if (!std::isfinite(point.position)) {
            continue;
        }
        if (point.position <= position) {
            if (left == nullptr || point.position >= left->position) {
                left = &point;
            }
        } else if (right == nullptr || point.position < right->position) {
            right = &point;
        }
    }
    if (left == nullptr) {
        return right == nullptr ? Hsv{} : right->color;
    }
    return right == nullptr || left->position == position ? left->color : mix(*left, *right, position);
}

} // namespace Ostrel
