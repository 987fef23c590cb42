#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>

namespace Ostrel::Wx {

/// A whole turn of the hues.
constexpr float HUE_DEGREES = 360.0F;

/// From linear channels to those that a screen takes: 1/2.2. Pure, and not the curve of IEC 61966-2-1: see
/// `mapLinearSpace`.
constexpr float ENCODING_POWER = 0.45454544F;

/// Limited to [0, 1]; NaN is 0.
[[nodiscard]] constexpr float limitFraction(float fraction) noexcept {
    return !(fraction > 0.0F) ? 0.0F : fraction < 1.0F ? fraction : 1.0F;
}

/// Hue in degrees; whiteness and blackness in [0, 1] for colours within [0, 1] (A. R. Smith and E. R. Lyons, "HWB: A
/// More Intuitive Hue-Based Color Model", Journal of Graphics Tools 1, 1996).
struct Hwb {
    float hue = 0.0F;
    float whiteness = 0.0F;
    float blackness = 0.0F;

    friend constexpr bool operator==(const Hwb& a, const Hwb& b) noexcept = default;
};

[[nodiscard]] Hwb hsvToHwb(const Hsv& color) noexcept;

/// Whiteness and blackness that are more than 1 together are scaled to be 1, which is a grey. Alpha is 1.
[[nodiscard]] Rgb hwbToRgb(const Hwb& color) noexcept;

/// The colour of a black body as the screen shows it, relative to one of 6500 K, which is white: through the matrix of
/// IEC 61966-2-1, scaled to a largest channel of 1, encoded with a power of 1/2.2. Within [0, 1], alpha 1.
[[nodiscard]] Rgb temperatureToRgb(float kelvin);

/// The tint that would make this colour grey: the reciprocal of each channel, scaled to a largest one of 1. If there
/// are channels of 0, these are 1 and the others 0.
[[nodiscard]] Rgb computeNeutralizingTint(const Rgb& sample) noexcept;

/// The screen pixels that are averaged around one: a square of 2 × `radius` + 1.
[[nodiscard]] Bucket getSampleRegion(Pixel middle, int radius) noexcept;

/// The mean of pixels that are there (alpha 1), leaving out those that are not (alpha and colour 0); alpha is 1. Black
/// with alpha 0 if there is none.
[[nodiscard]] Rgb averageSample(ArrayView<const Rgb> pixels) noexcept;

/// Six upper-case digits: red, green and blue, as `toRgbBytes` has them.
[[nodiscard]] String formatHexColor(const Rgb& color);

/// Reads a text as a stream reads an unsigned integer of 32 bits in hexadecimal: blanks before it and "0x" are passed
/// over, what follows it is ignored, one that is too large is the largest, and what is none is 0, "#FF0000" for
/// example: this is meant. Of the integer the lowest 24 bits count. Alpha is 1.
[[nodiscard]] Rgb parseHexColor(const String& text);

} // namespace Ostrel::Wx
