#pragma once

#include <OstrelLib/Export.h>

#include <cstdint>

namespace Ostrel {

/// A linear colour, not clamped: 0 is black and 1 is full strength, and a rendered picture goes beyond both. Alpha is
/// 1 where the colour is opaque.
struct Rgb {
    float red = 0.0F;
    float green = 0.0F;
    float blue = 0.0F;
    float alpha = 1.0F;

    /// Component by component, alpha included.
    friend constexpr Rgb operator+(const Rgb& a, const Rgb& b) noexcept {
        return {a.red + b.red, a.green + b.green, a.blue + b.blue, a.alpha + b.alpha};
    }
    friend constexpr Rgb operator-(const Rgb& a, const Rgb& b) noexcept {
        return {a.red - b.red, a.green - b.green, a.blue - b.blue, a.alpha - b.alpha};
    }
    friend constexpr Rgb operator*(const Rgb& a, const Rgb& b) noexcept {
        return {a.red * b.red, a.green * b.green, a.blue * b.blue, a.alpha * b.alpha};
    }
    friend constexpr Rgb operator*(const Rgb& a, float factor) noexcept {
        return {a.red * factor, a.green * factor, a.blue * factor, a.alpha * factor};
    }
    friend constexpr Rgb operator*(float factor, const Rgb& a) noexcept { return a * factor; }
    friend constexpr Rgb operator/(const Rgb& a, float divisor) noexcept {
        return {a.red / divisor, a.green / divisor, a.blue / divisor, a.alpha / divisor};
    }
    friend constexpr bool operator==(const Rgb& a, const Rgb& b) noexcept = default;
};

/// A colour for the screen, 0 to 255 a channel.
struct RgbBytes {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend constexpr bool operator==(const RgbBytes& a, const RgbBytes& b) noexcept = default;
};

/// Hue in degrees, [0, 360) as made by `rgbToHsv`; saturation and value in [0, 1] for colours within [0, 1].
struct Hsv {
    float hue = 0.0F;
    float saturation = 0.0F;
    float value = 0.0F;

    friend constexpr bool operator==(const Hsv& a, const Hsv& b) noexcept = default;
};

/// A colour by the tristimulus values of the CIE 1931 2° standard observer.
struct XYZ {
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;

    friend constexpr bool operator==(const XYZ& a, const XYZ& b) noexcept = default;
};

/// The hexcone form of a colour (A. R. Smith, "Color Gamut Transform Pairs", SIGGRAPH 1978): value is the largest
/// channel, saturation the spread of the channels over the value. A grey has hue 0 and saturation 0, and so has
/// saturation whatever has value 0. Alpha is left out. Channels are not limited: a negative one makes a saturation
/// above 1 or below 0, which `hsvToRgb` undoes.
[[nodiscard]] OSTREL_API Hsv rgbToHsv(const Rgb& color) noexcept;

/// The inverse of `rgbToHsv`, with alpha 1. Any finite hue is taken round the circle; any other counts as 0.
[[nodiscard]] OSTREL_API Rgb hsvToRgb(const Hsv& color) noexcept;

/// Each channel limited to [0, 1], times 255, rounded to the nearest integer, ties to the even one. NaN becomes 0.
[[nodiscard]] OSTREL_API RgbBytes toRgbBytes(const Rgb& color) noexcept;

/// The colour of an ideal black body at `kelvin`, scaled to Y = 1: Planck's law (with the second radiation constant
/// of CODATA 2018) times the colour matching functions of the CIE 1931 2° observer (CIE 15), summed from 380 nm to
/// 780 nm in steps of 5 nm. The temperature is limited to [100, 1000000]; NaN counts as the lowest. Always finite.
[[nodiscard]] OSTREL_API XYZ blackbodyColor(float kelvin) noexcept;

} // namespace Ostrel
