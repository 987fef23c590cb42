#pragma once

#include <OstrelLib/Color.h>

#include <array>
#include <cstddef>
#include <span>

namespace Ostrel::Wx {

/// What a colour is when programs hand it to each other.
constexpr std::size_t COLOR_BYTE_COUNT = 16;

/// Red, green, blue and alpha as IEEE 754 single-precision floats, each with its lowest byte first.
[[nodiscard]] std::array<std::byte, COLOR_BYTE_COUNT> toColorBytes(const Rgb& color) noexcept;

/// The inverse. Any bytes are a colour; its channels may be NaN or infinite.
[[nodiscard]] Rgb fromColorBytes(std::span<const std::byte, COLOR_BYTE_COUNT> bytes) noexcept;

} // namespace Ostrel::Wx
