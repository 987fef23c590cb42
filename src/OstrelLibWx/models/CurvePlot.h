#pragma once

#include <OstrelLib/Curve.h>
#include <OstrelLib/Geometry.h>

namespace Ostrel::Wx {

/// Where curve units lie in a panel, in client coordinates. The plot is surrounded by a margin; its lower left corner
/// is the origin, and it shows 0 to 1 / zoom in both directions. Both ways of the mapping stand here and nowhere else.
struct CurvePlot {
    Pixel size; ///< of the plot: that of the panel without its margins, so 0 or less in a panel that has no room
    float zoom = 1.0F;
    int margin = 5;

    /// Pixels are limited to this distance from the origin, so that sums and squares of them stay integers.
    static constexpr int FARTHEST = 1 << 28;

    [[nodiscard]] constexpr Pixel getClientSize() const noexcept { return {size.x + 2 * margin, size.y + 2 * margin}; }
    [[nodiscard]] constexpr Bucket getArea() const noexcept {
        return {{margin, margin}, {margin + size.x, margin + size.y}};
    }

    /// The pixel of a point: its distance from the origin, truncated. A NaN lies as far out as can be.
    [[nodiscard]] Pixel toPixel(const CurvePoint& point) const noexcept;

    /// The point of a pixel, which `toPixel` takes back to that pixel.
    [[nodiscard]] CurvePoint toPoint(Pixel pixel) const noexcept;

    /// The nearest pixel of the plot and its edges; the origin's where there is no room for a plot.
    [[nodiscard]] Pixel clamp(Pixel pixel) const noexcept;

    /// How far the grid line of `eighths` / 8 is from the origin along an axis of `length` pixels.
    [[nodiscard]] int getGridDistance(int eighths, int length) const noexcept;

    /// The number of the grid's last line that may be seen: they go by eighths of the value 1.
    [[nodiscard]] int getLastGridLine() const noexcept;
};

} // namespace Ostrel::Wx
