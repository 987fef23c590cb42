#include "models/ColorSliderLayout.h"

#include "models/ColorConversion.h"
#include "models/PixelKernels.h"

#include <algorithm>
#include <cmath>

namespace Ostrel::Wx {

namespace {

/// The pixel at a fraction of the way to `last`.
int toPixel(float fraction, int last) {
    return static_cast<int>(std::lround(static_cast<double>(limitFraction(fraction)) * std::max(last, 0)));
}

/// What fraction of `length` a coordinate is; 0 where there is no length.
float toFraction(int coordinate, int length) {
    return coordinate <= 0 || length <= 0
               ? 0.0F
               : static_cast<float>(std::min(coordinate, length)) / static_cast<float>(length);
}

} // namespace

float computeSliderNumber(float position, SliderRange range, const PositionValueFunction& map) {
    const float known = std::isnan(position) ? 0.0F : position;
    const float fraction = map ? map(known, PositionValueMap::POSITION_TO_VALUE) : known;
    const double span = static_cast<double>(range.max) - range.min;
    return span == 0.0 ? static_cast<float>(range.min)
                       : static_cast<float>(range.min + span * static_cast<double>(fraction));
}

float computeSliderPosition(float number, SliderRange range, const PositionValueFunction& map) {
    const double span = static_cast<double>(range.max) - range.min;
    const float fraction = span == 0.0 ? 0.0F : static_cast<float>((static_cast<double>(number) - range.min) / span);
    return map ? map(fraction, PositionValueMap::VALUE_TO_POSITION) : fraction;
}

float findSliderPosition(int mouse, int length, int markerThickness) noexcept {
    return toFraction(mouse, length - markerThickness);
}

int computeSliderMarker(float position, int length, int markerThickness) noexcept {
    return toPixel(position, length - markerThickness);
}

float getStripPosition(int pixel, int length) noexcept {
    return toFraction(pixel, length - 1);
}

FieldPosition findFieldPosition(Pixel mouse, Pixel size) noexcept {
    return {toFraction(mouse.x, size.x) * HUE_DEGREES, toFraction(mouse.y, size.y)};
}

Pixel computeFieldMarker(FieldPosition position, Pixel size) noexcept {
    return {toPixel(position.hue / HUE_DEGREES, size.x), toPixel(position.blackness, size.y)};
}

ColorField::ColorField(Pixel size, Detail::ByteOrder order)
    : _height(size.y) {
    _darkening.reserve(3 * static_cast<std::size_t>(size.x));
    for (int x = 0; x < size.x; ++x) {
        const float hue = static_cast<float>(x) / static_cast<float>(size.x) * HUE_DEGREES;
        const Rgb full = hsvToRgb({hue, 1.0F, 1.0F});
        const bool redFirst = order == Detail::ByteOrder::RGB;
        for (const float channel : {redFirst ? full.red : full.blue, full.green, redFirst ? full.blue : full.red}) {
            _darkening.push_back(1.0F - channel);
        }
    }
}

void ColorField::writeRow(int y, unsigned char* bytes) const {
    const float value = 1.0F - static_cast<float>(y) / static_cast<float>(_height);
    Detail::writeDarkened(value, _darkening.data(), _darkening.size(), bytes);
}

} // namespace Ostrel::Wx
