#include "models/ProbeTexts.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace Ostrel::Wx {

namespace {

std::string formatNumber(float value) {
    if (std::isnan(value)) {
        return "nan"; // without the sign that some systems write
    }
    char text[64]; // the largest float has 39 digits before the point
    std::snprintf(text, sizeof text, "%.5f", static_cast<double>(value));
    return text;
}

std::string formatChannels(const char* heading, const std::string& red, const std::string& green,
                           const std::string& blue, const std::string& alpha) {
    std::string text(heading);
    text.append("\nR: ").append(red).append("\nG: ").append(green);
    return text.append("\nB: ").append(blue).append("\nA: ").append(alpha);
}

std::string formatColor(const char* heading, const Rgb& color, float alpha) {
    return formatChannels(heading, formatNumber(color.red), formatNumber(color.green), formatNumber(color.blue),
                          formatNumber(alpha));
}

/// Half of a step goes up, where the other channels go to the even integer. The difference is meant.
int toAlphaByte(float alpha) {
    const float limited = alpha > 0.0F ? std::min(alpha, 1.0F) : 0.0F;
    return static_cast<int>(limited * 255.0F + 0.5F); // NOLINT(bugprone-incorrect-roundings): this is meant
}

} // namespace

std::string formatProbedPosition(Pixel position) {
    std::string text("Position:\n");
    return text.append(std::to_string(position.x)).append("\n").append(std::to_string(position.y));
}

std::string formatProbedOriginal(const Rgb& original, float alpha) {
    return formatColor("Original\nLinear RGB:", original, alpha);
}

std::string formatProbedTonemapped(const Rgb& tonemapped, float alpha) {
    return formatColor("Tonemapped\nsRGB:", tonemapped, alpha);
}

std::string formatProbedBytes(const Rgb& tonemapped, float alpha) {
    const RgbBytes bytes = toRgbBytes(tonemapped);
    return formatChannels("Tonemapped\nsRGB 8-bit:", std::to_string(bytes.red), std::to_string(bytes.green),
                          std::to_string(bytes.blue), std::to_string(toAlphaByte(alpha)));
}

bool isProbedInvalid(const Rgb& original, const Rgb& tonemapped) noexcept {
    const auto isInvalid = [](const Rgb& color) {
        return !std::isfinite(color.red) || !std::isfinite(color.green) || !std::isfinite(color.blue);
    };
    return isInvalid(original) || isInvalid(tonemapped);
}

} // namespace Ostrel::Wx
