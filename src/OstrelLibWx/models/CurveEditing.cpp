#include "models/CurveEditing.h"

#include "models/HistogramColumns.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace Ostrel::Wx {

namespace {

/// How near in x a point may come to its neighbours.
constexpr float NEIGHBOUR_GAP = 0.01F;

constexpr float ZOOM_IN = 1.5F;
constexpr float ZOOM_OUT = 0.6666667F;

// Five steps each way from 1.
constexpr float LEAST_ZOOM = 0.13168724F;
constexpr float LARGEST_ZOOM = 7.59375F;

constexpr float ONE_THIRD = 0.33333334F;

/// In milliseconds: what a timer can count.
constexpr std::int64_t LONGEST_DELAY = std::numeric_limits<int>::max();

std::int64_t squaredDistance(Pixel a, Pixel b) noexcept {
    const Pixel offset = a - b;
    return std::int64_t{offset.x} * offset.x + std::int64_t{offset.y} * offset.y;
}

float getValue(const Rgb& colour, CurveChannel channel) noexcept {
    switch (channel) {
    case CurveChannel::RED:
        return colour.red;
    case CurveChannel::GREEN:
        return colour.green;
    case CurveChannel::BLUE:
        return colour.blue;
    case CurveChannel::MASTER:
        break;
    }
    return (colour.red + colour.green + colour.blue) * ONE_THIRD;
}

} // namespace

CurveEditing::CurveEditing(ColorCurve curves, int margin, int hitRadius)
    : _curves(std::move(curves))
    , _plot{.size = {}, .zoom = 1.0F, .margin = margin}
    , _hitRadius(hitRadius) {}

void CurveEditing::setCurve(Curve curve, CurveChannel channel) {
    _curves[channel] = std::move(curve);
    forgetMissingPoint();
}

void CurveEditing::setCurves(ColorCurve curves) {
    _curves = std::move(curves);
    forgetMissingPoint();
}

void CurveEditing::selectChannel(CurveChannel channel) {
    static_cast<void>(_curves[channel]); // refuses what is no channel
    _selectedChannel = channel;
    forgetMissingPoint();
}

/// A drag goes on when the curve is replaced in the middle of it, as long as there is still such a point.
void CurveEditing::forgetMissingPoint() {
    if (_dragPoint && *_dragPoint >= getCurve().getPoints().size()) {
        _dragPoint.reset();
    }
}

Optional<std::size_t> CurveEditing::findPoint(Pixel pixel) const {
    const Array<CurvePoint>& points = getCurve().getPoints();
    Optional<std::size_t> found;
    std::int64_t least = std::int64_t{_hitRadius} * _hitRadius;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const std::int64_t distance = squaredDistance(_plot.toPixel(points[i]), pixel);
        if (distance < least) {
            least = distance;
            found = i;
        }
    }
    return found;
}

bool CurveEditing::press(Pixel pixel) {
    _dragMinX = 0.0F;
    _dragMaxX = 0.0F;
    _dragging = true;
    _dragPoint = findPoint(pixel);
    const bool adds = !_dragPoint;
    if (adds) {
        const float x = _plot.toPoint(pixel).x;
        const CurvePoint onCurve{x, getCurve()(x)};
        // Exactly the radius still counts as on the curve, other than with points.
        if (squaredDistance(_plot.toPixel(onCurve), pixel) > std::int64_t{_hitRadius} * _hitRadius) {
            return false;
        }
        insertPoint(onCurve, pixel);
    }
    const Array<CurvePoint>& points = getCurve().getPoints();
    if (_dragPoint && *_dragPoint > 0 && *_dragPoint + 1 < points.size()) {
        _dragMinX = points[*_dragPoint - 1].x + NEIGHBOUR_GAP;
        _dragMaxX = points[*_dragPoint + 1].x - NEIGHBOUR_GAP;
    }
    return adds;
}

bool CurveEditing::pick(const Rgb& colour) {
    const float value = getValue(colour, _selectedChannel);
    if (!std::isfinite(value)) {
        return false;
    }
    const float x = std::max(value, 0.0F);
    return press(_plot.toPixel({x, getCurve()(x)}));
}

bool CurveEditing::drag(Pixel pixel) {
    if (!_dragging) {
        return false;
    }
    const Pixel place = _plot.clamp(pixel);
    const CurvePoint point = _plot.toPoint(place);
    if (!_dragPoint) {
        // After a press that selected nothing the limits are both 0, so that only x = 0 adds a point; this is meant.
        if (isInDragRange(point.x)) {
            insertPoint(point, place);
        }
        return true; // every step counts as a change, also one that leaves all as it was; this is meant
    }
    const std::size_t index = *_dragPoint;
    if (index == 0 || index + 1 == getCurve().getPoints().size()) {
        moveEnd(index, point);
    } else if (isInDragRange(point.x)) {
        curve().setPoint(index, point);
        curve().sortPoints();
        _dragPoint = findPoint(place);
    } else {
        // This is how a point is deleted by dragging.
        curve().removePoint(index);
        _dragPoint.reset();
    }
    return true;
}

bool CurveEditing::dragVertically(int distance) {
    if (!_dragging || !_dragPoint) {
        return false;
    }
    return drag(_plot.toPixel(getCurve().getPoints()[*_dragPoint]) + Pixel{0, distance});
}

void CurveEditing::release() noexcept {
    _dragPoint.reset();
    _dragging = false;
}

bool CurveEditing::removePoint(Pixel pixel) {
    const Optional<std::size_t> index = findPoint(pixel);
    if (!index || *index == 0 || *index + 1 == getCurve().getPoints().size()) {
        return false;
    }
    curve().removePoint(*index);
    // The other button may be dragging meanwhile.
    if (_dragPoint == index) {
        _dragPoint.reset();
    } else if (_dragPoint && *_dragPoint > *index) {
        --*_dragPoint;
    }
    return true;
}

void CurveEditing::hover(Pixel pixel) {
    const float x = _plot.toPoint(pixel).x;
    _hoverPoint = CurvePoint{x, getCurve()(x)};
}

Optional<CurvePoint> CurveEditing::getHoverPoint() const noexcept {
    return _dragging ? Optional<CurvePoint>() : _hoverPoint;
}

void CurveEditing::mergeChanges(ArrayView<const CurveChannel> channels, std::int64_t delay, std::int64_t now) {
    for (const CurveChannel channel : channels) {
        _pendingChannels.set(static_cast<std::size_t>(channel));
    }
    _tellAt = now + std::clamp(delay, std::int64_t{0}, LONGEST_DELAY);
}

Optional<int> CurveEditing::getWait(std::int64_t now) const noexcept {
    if (_pendingChannels.none()) {
        return {};
    }
    return static_cast<int>(std::clamp(_tellAt - now, std::int64_t{0}, LONGEST_DELAY));
}

Optional<CurveChannel> CurveEditing::takePendingChannel() noexcept {
    for (std::size_t channel = 0; channel < _pendingChannels.size(); ++channel) {
        if (_pendingChannels[channel]) {
            _pendingChannels.reset(channel);
            return static_cast<CurveChannel>(channel);
        }
    }
    return {};
}

bool CurveEditing::setClientSize(Pixel size) noexcept {
    const Pixel plotSize = size - Pixel{2 * _plot.margin, 2 * _plot.margin};
    return std::exchange(_plot.size, plotSize) != plotSize;
}

void CurveEditing::zoom(int wheelRotation) noexcept {
    _plot.zoom = std::clamp(_plot.zoom * (wheelRotation >= 1 ? ZOOM_IN : ZOOM_OUT), LEAST_ZOOM, LARGEST_ZOOM);
}

bool CurveEditing::setHistogram(Histogram histogram) {
    const bool isAnother = histogram != _histogram;
    _histogram = std::move(histogram);
    return isAnother;
}

void CurveEditing::setHistogramType(HistogramType type) {
    checkHistogramType(type);
    _histogramType = type;
}

void CurveEditing::insertPoint(const CurvePoint& point, Pixel pixel) {
    curve().appendPoint(point);
    curve().sortPoints();
    _dragPoint = findPoint(pixel);
}

void CurveEditing::moveEnd(std::size_t index, CurvePoint point) {
    const Array<CurvePoint>& points = getCurve().getPoints();
    // A curve that has one point only has no neighbour. A NaN of the neighbour's is no limit.
    if (points.size() > 1) {
        if (index == 0) {
            point.x = std::min(point.x, points[1].x - NEIGHBOUR_GAP);
        } else {
            point.x = std::max(point.x, points[index - 1].x + NEIGHBOUR_GAP);
        }
    }
    curve().setPoint(index, point);
}

} // namespace Ostrel::Wx
