#pragma once

#include <OstrelLib/Flags.h>

#include <cstdint>
#include <type_traits>

namespace Ostrel {

/// What a framed control looks like now. Bit 1 belongs to the derived controls.
enum class RawaBorderState : std::uint32_t {
    /// The mouse is over the control.
    MOUSE_OVER = 2,
    /// The control is enabled.
    ENABLED = 4,
    /// No outer frame and no shading at the bottom: the inner frame takes the whole rectangle.
    FLAT = 8,
};

template <>
struct IsFlag<RawaBorderState> : std::true_type {};

} // namespace Ostrel
