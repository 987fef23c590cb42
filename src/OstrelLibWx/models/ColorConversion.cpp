#include "models/ColorConversion.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <locale>
#include <sstream>

namespace Ostrel::Wx {

namespace {

/// Blackness as near as this to 1 is black: there is nothing to divide the whiteness by.
constexpr float BLACK_MARGIN = 0.0001F;

constexpr float WHITE_KELVIN = 6500.0F;

/// From the tristimulus values to linear red, green and blue with the white D65 (IEC 61966-2-1).
constexpr std::array<std::array<float, 3>, 3> XYZ_TO_RGB{{
    {3.2406F, -1.5372F, -0.4986F},
    {-0.9689F, 1.8758F, 0.0415F},
    {0.0557F, -0.2040F, 1.0570F},
}};

float largestChannel(const Rgb& color) {
    return std::max({color.red, color.green, color.blue});
}

Rgb computeBlackbodyRgb(float kelvin) {
    const XYZ xyz = blackbodyColor(kelvin);
    const auto channel = [&xyz](const std::array<float, 3>& row) {
        return row[0] * xyz.x + row[1] * xyz.y + row[2] * xyz.z;
    };
    const Rgb color{channel(XYZ_TO_RGB[0]), channel(XYZ_TO_RGB[1]), channel(XYZ_TO_RGB[2])};
    return color / largestChannel(color);
}

float encode(float channel) {
    return limitFraction(std::pow(std::max(channel, 0.0F), ENCODING_POWER));
}

} // namespace

Hwb hsvToHwb(const Hsv& color) noexcept {
    return {color.hue, (1.0F - color.saturation) * color.value, 1.0F - color.value};
}

Rgb hwbToRgb(const Hwb& color) noexcept {
    float whiteness = color.whiteness;
    float blackness = color.blackness;
    if (const float sum = whiteness + blackness; sum > 1.0F) {
        whiteness *= 1.0F / sum;
        blackness *= 1.0F / sum;
    }
    const float value = 1.0F - blackness;
    const float saturation =
        std::abs(blackness - 1.0F) > BLACK_MARGIN ? std::max(0.0F, 1.0F - whiteness / value) : 1.0F;
    return hsvToRgb({color.hue, saturation, value});
}

Rgb temperatureToRgb(float kelvin) {
    static const Rgb white = computeBlackbodyRgb(WHITE_KELVIN);
    const Rgb color = computeBlackbodyRgb(kelvin);
    return {encode(color.red / white.red), encode(color.green / white.green), encode(color.blue / white.blue)};
}

Rgb computeNeutralizingTint(const Rgb& sample) noexcept {
    const auto isZero = [](float channel) { return channel == 0.0F ? 1.0F : 0.0F; };
    const Rgb zeros{isZero(sample.red), isZero(sample.green), isZero(sample.blue)};
    if (largestChannel(zeros) > 0.0F) {
        return zeros;
    }
    const Rgb reciprocals{1.0F / sample.red, 1.0F / sample.green, 1.0F / sample.blue};
    const float largest = largestChannel(reciprocals);
    return {reciprocals.red / largest, reciprocals.green / largest, reciprocals.blue / largest};
}

Bucket getSampleRegion(Pixel middle, int radius) noexcept {
    return {{middle.x - radius, middle.y - radius}, {middle.x + radius + 1, middle.y + radius + 1}};
}

Rgb averageSample(ArrayView<const Rgb> pixels) noexcept {
    Rgb sum{0.0F, 0.0F, 0.0F, 0.0F};
    for (const Rgb& pixel : pixels) {
        sum = sum + pixel;
    }
    return sum / std::max(sum.alpha, 1.0F);
}

String formatHexColor(const Rgb& color) {
    constexpr wchar_t DIGITS[] = L"0123456789ABCDEF";
    const RgbBytes bytes = toRgbBytes(color);
    std::wstring text;
    for (const unsigned byte : {bytes.red, bytes.green, bytes.blue}) {
        text += DIGITS[byte >> 4U];
        text += DIGITS[byte & 15U];
    }
    return text;
}

Rgb parseHexColor(const String& text) {
    std::wistringstream stream(text.toWide());
    stream.imbue(std::locale::classic());
    std::uint32_t value = 0;
    stream >> std::hex >> value;
    const auto channel = [value](unsigned shift) { return static_cast<float>(value >> shift & 255U) / 255.0F; };
    return {channel(16), channel(8), channel(0)};
}

} // namespace Ostrel::Wx
