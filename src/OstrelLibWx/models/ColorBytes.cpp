#include "models/ColorBytes.h"

#include <bit>
#include <cstdint>
#include <limits>

namespace Ostrel::Wx {

namespace {

static_assert(std::numeric_limits<float>::is_iec559 && sizeof(float) == sizeof(std::uint32_t));

constexpr std::array<float Rgb::*, 4> CHANNELS{&Rgb::red, &Rgb::green, &Rgb::blue, &Rgb::alpha};
static_assert(CHANNELS.size() * sizeof(float) == COLOR_BYTE_COUNT);

} // namespace

std::array<std::byte, COLOR_BYTE_COUNT> toColorBytes(const Rgb& color) noexcept {
    std::array<std::byte, COLOR_BYTE_COUNT> bytes;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto bits = std::bit_cast<std::uint32_t>(color.*CHANNELS[i / sizeof(float)]);
        bytes[i] = static_cast<std::byte>(bits >> (8 * (i % sizeof(float))) & 0xFFU);
    }
    return bytes;
}

Rgb fromColorBytes(std::span<const std::byte, COLOR_BYTE_COUNT> bytes) noexcept {
    std::array<std::uint32_t, CHANNELS.size()> bits{};
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bits[i / sizeof(float)] |= std::to_integer<std::uint32_t>(bytes[i]) << (8 * (i % sizeof(float)));
    }
    Rgb color;
    for (std::size_t i = 0; i < CHANNELS.size(); ++i) {
        color.*CHANNELS[i] = std::bit_cast<float>(bits[i]);
    }
    return color;
}

} // namespace Ostrel::Wx
