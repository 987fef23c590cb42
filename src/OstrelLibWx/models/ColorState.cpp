#include "models/ColorState.h"

#include <OstrelLib/Exceptions.h>

#include <algorithm>
#include <cmath>

namespace Ostrel::Wx {

namespace {

constexpr const char* SOURCE_PATH = "widgets/ColorPicker";
// What the stop exceptions name.
constexpr int LINE_OF_RANGE = 829;
constexpr int LINE_OF_MAP = 862;
constexpr int LINE_OF_SPACE = 872;
constexpr int LINE_OF_RADIUS = 900;

constexpr float DECODING_POWER = 2.2F;

} // namespace

std::size_t findEyeDropperAveraging(int radius) {
    for (std::size_t i = EYE_DROPPER_AVERAGING_TABLE.size(); i-- > 0;) {
        if (EYE_DROPPER_AVERAGING_TABLE[i].radius <= std::max(radius, 0)) {
            return i;
        }
    }
    Detail::throwStopException(SOURCE_PATH, LINE_OF_RADIUS);
}

float mapLinearSpace(float fraction, PositionValueMap direction) {
    switch (direction) {
    case PositionValueMap::POSITION_TO_VALUE:
        return std::copysign(std::pow(std::abs(fraction), DECODING_POWER), fraction);
    case PositionValueMap::VALUE_TO_POSITION:
        return std::copysign(std::pow(std::abs(fraction), ENCODING_POWER), fraction);
    }
    Detail::throwStopException(SOURCE_PATH, LINE_OF_MAP);
}

ChannelNumbers getChannelNumbers(ColorPickerRange range) {
    switch (range) {
    case ColorPickerRange::UP_TO_255:
        return {{0, 255}, 0, 1.0F};
    case ColorPickerRange::UP_TO_1:
        return {{0, 1}, 3, 0.001F};
    case ColorPickerRange::PERCENT:
        return {{0, 100}, 1, 0.1F};
    }
    Detail::throwStopException(SOURCE_PATH, LINE_OF_RANGE);
}

PositionValueFunction getSpaceMap(ColorPickerSpace space) {
    switch (space) {
    case ColorPickerSpace::LINEAR:
        return mapLinearSpace;
    case ColorPickerSpace::SRGB:
        return {};
    }
    Detail::throwStopException(SOURCE_PATH, LINE_OF_SPACE);
}

void ColorState::setColor(const Rgb& color) {
    _color = limitAlpha(color);
    _hsv = rgbToHsv(_color);
    _hwb = hsvToHwb(_hsv);
}

void ColorState::setReference(const Rgb& color) {
    _reference = limitAlpha(color);
    setColor(color);
}

void ColorState::setSpace(ColorPickerSpace space) {
    (void)getSpaceMap(space);
    _space = space;
}

void ColorState::setRange(ColorPickerRange range) {
    (void)getChannelNumbers(range);
    _range = range;
}

void ColorState::edit(const Rgb& color) {
    const float alpha = _color.alpha;
    setColor(color);
    _color.alpha = alpha;
}

void ColorState::editStrip(ColorStrip strip, float position, float number) {
    switch (strip) {
    case ColorStrip::ALPHA:
        editAlpha(position);
        break;
    case ColorStrip::HUE: // the strip itself shows full colours
        edit(hsvToRgb({position * HUE_DEGREES, _hsv.saturation, _hsv.value}));
        break;
    case ColorStrip::TEMPERATURE:
        edit(temperatureToRgb(number));
        break;
    default:
        edit(getStripColor(strip, position));
    }
}

void ColorState::editField(FieldPosition position) {
    edit(hwbToRgb({position.hue, _hwb.whiteness, position.blackness}));
}

float ColorState::getPosition(ColorStrip strip) const {
    switch (strip) {
    case ColorStrip::RED:
        return _color.red;
    case ColorStrip::GREEN:
        return _color.green;
    case ColorStrip::BLUE:
        return _color.blue;
    case ColorStrip::ALPHA:
        return _color.alpha;
    case ColorStrip::HUE:
        return _hsv.hue / HUE_DEGREES;
    case ColorStrip::SATURATION:
        return _hsv.saturation;
    case ColorStrip::VALUE:
        return _hsv.value;
    case ColorStrip::WHITE_SHARE:
        return _hwb.whiteness;
    case ColorStrip::TEMPERATURE:
        break;
    }
    return 0.0F;
}

Rgb ColorState::getStripColor(ColorStrip strip, float position) const {
    switch (strip) {
    case ColorStrip::RED:
        return {position, _color.green, _color.blue};
    case ColorStrip::GREEN:
        return {_color.red, position, _color.blue};
    case ColorStrip::BLUE:
        return {_color.red, _color.green, position};
    case ColorStrip::ALPHA: {
        // Truncated and not rounded, unlike everything else that becomes bytes: this is meant.
        const float grey = std::floor(position * 255.0F) / 255.0F;
        return {grey, grey, grey};
    }
    case ColorStrip::HUE:
        return hsvToRgb({position * HUE_DEGREES, 1.0F, 1.0F});
    case ColorStrip::SATURATION:
        return hsvToRgb({_hsv.hue, position, _hsv.value});
    case ColorStrip::VALUE:
        return hsvToRgb({_hsv.hue, _hsv.saturation, position});
    case ColorStrip::TEMPERATURE:
        return temperatureToRgb(computeSliderNumber(position, TEMPERATURE_RANGE_KELVIN, {}));
    case ColorStrip::WHITE_SHARE:
        return hwbToRgb({_hwb.hue, position, _hwb.blackness});
    }
    return {};
}

bool ColorState::hasSameStrip(ColorStrip strip, const ColorState& other) const {
    return getStripGround(strip) == other.getStripGround(strip);
}

std::array<float, 2> ColorState::getStripGround(ColorStrip strip) const {
    switch (strip) {
    case ColorStrip::RED:
        return {_color.green, _color.blue};
    case ColorStrip::GREEN:
        return {_color.red, _color.blue};
    case ColorStrip::BLUE:
        return {_color.red, _color.green};
    case ColorStrip::SATURATION:
        return {_hsv.hue, _hsv.value};
    case ColorStrip::VALUE:
        return {_hsv.hue, _hsv.saturation};
    case ColorStrip::WHITE_SHARE:
        return {_hwb.hue, _hwb.blackness};
    case ColorStrip::ALPHA:
    case ColorStrip::HUE:
    case ColorStrip::TEMPERATURE:
        break;
    }
    return {};
}

Rgb ColorState::limitAlpha(const Rgb& color) const {
    return {color.red, color.green, color.blue, _withAlpha ? color.alpha : 1.0F};
}

} // namespace Ostrel::Wx
