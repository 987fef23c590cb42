#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Geometry.h>

#include <string>

namespace Ostrel::Wx {

/// The values of a pixel as the probe shows them: lines of text, with '\n' between them. Numbers are written as by
/// printf, in the program's locale.
[[nodiscard]] std::string formatProbedPosition(Pixel position);
[[nodiscard]] std::string formatProbedOriginal(const Rgb& original, float alpha);
[[nodiscard]] std::string formatProbedTonemapped(const Rgb& tonemapped, float alpha);
[[nodiscard]] std::string formatProbedBytes(const Rgb& tonemapped, float alpha);

/// Whether a channel of either is infinite or NaN. Alpha is not looked at.
[[nodiscard]] bool isProbedInvalid(const Rgb& original, const Rgb& tonemapped) noexcept;

} // namespace Ostrel::Wx
