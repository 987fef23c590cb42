#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Geometry.h>

#include <algorithm>
#include <cstdint>

namespace Ostrel::Wx {

/// The stripes over the swatch of a disabled control: going down to the left, screen pixels on every screen.
constexpr int HATCH_PERIOD_PX = 10;
constexpr int HATCH_STRIPE_PX = 5;

/// A stripe on a swatch of this colour: each channel a step darker, or lighter where it is too dark for that.
[[nodiscard]] constexpr RgbBytes getHatchColor(RgbBytes swatch) noexcept {
    constexpr int STEP = 30;
    const auto shift = [](std::uint8_t channel) {
        return static_cast<std::uint8_t>(channel < STEP + 1 ? channel + STEP : channel - STEP);
    };
    return {shift(swatch.red), shift(swatch.green), shift(swatch.blue)};
}

/// The stripes' runs of pixels in `area`: those whose x + y has a remainder of less than HATCH_STRIPE_PX by
/// HATCH_PERIOD_PX. Its corner is not left of or above the origin.
/// @param visit called with each run, one pixel high
template <class Visitor>
void visitHatchRuns(const Bucket& area, Visitor visit) {
    for (int y = area.min.y; y < area.max.y; ++y) {
        for (int x = area.min.x - (area.min.x + y) % HATCH_PERIOD_PX; x < area.max.x; x += HATCH_PERIOD_PX) {
            const Bucket run{{std::max(x, area.min.x), y}, {std::min(x + HATCH_STRIPE_PX, area.max.x), y + 1}};
            if (!run.isEmpty()) {
                visit(run);
            }
        }
    }
}

} // namespace Ostrel::Wx
