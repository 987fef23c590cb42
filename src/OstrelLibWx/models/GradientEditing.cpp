#include "models/GradientEditing.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Ostrel::Wx {

namespace {

/// NaN equals nothing: a point that holds one could not be found again once it has been sorted in.
Hsv withoutNan(const Hsv& color) {
    const auto known = [](float component) { return std::isnan(component) ? 0.0F : component; };
    return {known(color.hue), known(color.saturation), known(color.value)};
}

} // namespace

void GradientEditing::setGradient(ColorGradient gradient) {
    _gradient = std::move(gradient);
    _selected.reset();
    _dragging = false;
}

void GradientEditing::setRange(float min, float max) noexcept {
    _track.min = min;
    _track.max = max;
}

Optional<std::size_t> GradientEditing::findHandle(Pixel mouse) const noexcept {
    const Array<ColorGradientPoint>& points = _gradient.getPoints();
    const auto found = std::find_if(points.begin(), points.end(), [&](const ColorGradientPoint& point) {
        return _track.hits(_track.toPixel(point.position), mouse);
    });
    return found == points.end() ? Optional<std::size_t>{} : static_cast<std::size_t>(found - points.begin());
}

bool GradientEditing::press(Pixel mouse) {
    const Optional<std::size_t> hit = findHandle(mouse);
    _dragging = hit.has_value();
    if (hit) {
        _selected = hit;
    }
    return _dragging;
}

bool GradientEditing::drag(Pixel mouse) {
    if (!_dragging) {
        return false;
    }
    const Hsv color = _gradient.getPoints()[*_selected].color;
    _gradient.setPoint(*_selected, {color, _track.toPosition(mouse.x)});
    return true;
}

void GradientEditing::release() {
    if (!std::exchange(_dragging, false)) {
        return;
    }
    const ColorGradientPoint dragged = _gradient.getPoints()[*_selected];
    _gradient.sortPoints();
    const Array<ColorGradientPoint>& points = _gradient.getPoints();
    const auto found = std::find(points.begin(), points.end(), dragged);
    if (found == points.end()) { // it holds a NaN
        _selected.reset();
    } else {
        _selected = static_cast<std::size_t>(found - points.begin());
    }
}

bool GradientEditing::remove(Pixel mouse) {
    const Optional<std::size_t> hit = findHandle(mouse);
    if (!hit) {
        return false;
    }
    _gradient.erase(*hit);
    if (_selected == hit) {
        _selected.reset();
        _dragging = false;
    } else if (_selected && *_selected > *hit) {
        --*_selected;
    }
    return true;
}

Optional<std::size_t> GradientEditing::edit(Pixel mouse) {
    release();
    if (const Optional<std::size_t> hit = findHandle(mouse)) {
        _selected = hit;
    } else if (Bucket{{0, 0}, _track.size}.contains(mouse)) {
        const float position = _track.toPosition(mouse.x);
        _selected = _gradient.insert({withoutNan(_gradient.getColorAt(position)), position});
    } else {
        return {};
    }
    return _selected;
}

bool GradientEditing::recolor(const Hsv& color) {
    if (!_selected) {
        return false;
    }
    _gradient.setPoint(*_selected, {color, _gradient.getPoints()[*_selected].position});
    return true;
}

} // namespace Ostrel::Wx
