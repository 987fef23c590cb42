#pragma once

#include <OstrelLib/Geometry.h>

#include <cstdint>

namespace Ostrel::Wx {

/// Where the positions of a gradient lie in a control, in client coordinates, and where a pixel of it is among the
/// positions. Both ways stand here and nowhere else, and they are not each other's inverse: see `toPosition`.
struct GradientTrack {
    Pixel size;     ///< of the control
    int radius = 5; ///< of a handle
    float min = 0.0F;
    float max = 1.0F;

    /// Between the strip and the left and right edge; a handle's middle is as far above the lower edge.
    [[nodiscard]] constexpr int getMargin() const noexcept { return radius + 1; }

    /// The strip of colours: between the margins, down to the middle of the handles.
    [[nodiscard]] constexpr Bucket getStrip() const noexcept {
        return {{getMargin(), 0}, {size.x - getMargin(), size.y - getMargin()}};
    }

    /// The middle of the handle of a position. What lies outside `min` to `max` is at the nearer end, and NaN at the
    /// left one. When the two are equal, what is above them is at the right end and all else at the left one.
    [[nodiscard]] Pixel toPixel(float position) const noexcept;

    /// The position of a pixel of the strip and its neighbourhood, limited to [0, 1] whatever `min` and `max` are. The
    /// strip counts as one pixel shorter than for the handles. Both are meant. Where there is no room it is any
    /// position.
    [[nodiscard]] float toPosition(int x) const noexcept;

    /// The position whose colour the pixel shows.
    [[nodiscard]] float toShownPosition(int x) const noexcept;

    [[nodiscard]] constexpr bool hits(Pixel handle, Pixel mouse) const noexcept {
        const std::int64_t dx = std::int64_t{handle.x} - mouse.x;
        const std::int64_t dy = std::int64_t{handle.y} - mouse.y;
        constexpr std::int64_t FARTHEST = 1 << 30; // squares of more would not fit
        return dx > -FARTHEST && dx < FARTHEST && dy > -FARTHEST && dy < FARTHEST &&
               dx * dx + dy * dy <= std::int64_t{radius} * radius;
    }
};

} // namespace Ostrel::Wx
