#include "models/CurvePlot.h"

#include <algorithm>
#include <cmath>

namespace Ostrel::Wx {

namespace {

/// Lines of the grid in the value range from 0 to 1.
constexpr double GRID_LINES_PER_UNIT = 8.0;

/// A float's relative rounding error is half of this.
constexpr double FLOAT_ROUNDING = 0x1p-23;

/// Towards zero. What misses an integer by no more than the rounding of a point to floats counts as that integer, or
/// a point that was set to a pixel would creep away from it, a pixel at each of its moves.
int truncate(double distance) noexcept {
    constexpr double LIMIT = CurvePlot::FARTHEST;
    if (!(std::abs(distance) < LIMIT)) {
        return distance > 0.0 ? CurvePlot::FARTHEST : -CurvePlot::FARTHEST;
    }
    const double nearest = std::round(distance);
    const bool isRounded = std::abs(distance - nearest) <= std::abs(distance) * FLOAT_ROUNDING;
    return static_cast<int>(isRounded ? nearest : distance);
}

/// Pixels to units; a plot without room counts as one pixel.
float toUnits(int distance, int length, float zoom) noexcept {
    return static_cast<float>(double{static_cast<double>(distance)} / double{zoom} / std::max(length, 1));
}

} // namespace

Pixel CurvePlot::toPixel(const CurvePoint& point) const noexcept {
    const int right = truncate(double{static_cast<double>(size.x)} * double{point.x} * double{zoom});
    const int up = truncate(double{static_cast<double>(size.y)} * double{point.y} * double{zoom});
    return {margin + right, getClientSize().y - up - margin};
}

CurvePoint CurvePlot::toPoint(Pixel pixel) const noexcept {
    const Pixel fromOrigin = pixel - Pixel{margin, getClientSize().y - margin};
    return {toUnits(fromOrigin.x, size.x, zoom), toUnits((Pixel{} - fromOrigin).y, size.y, zoom)};
}

Pixel CurvePlot::clamp(Pixel pixel) const noexcept {
    // Where the limits cross, the left and the lower one hold.
    return {std::max(margin, std::min(pixel.x, margin + size.x)), std::min(std::max(pixel.y, margin), margin + size.y)};
}

int CurvePlot::getGridDistance(int eighths, int length) const noexcept {
    return truncate(eighths * length / GRID_LINES_PER_UNIT * double{zoom});
}

int CurvePlot::getLastGridLine() const noexcept {
    return static_cast<int>(std::ceil(GRID_LINES_PER_UNIT / double{zoom}));
}

} // namespace Ostrel::Wx
