#pragma once

#include <OstrelLib/Geometry.h>

#include <algorithm>

namespace Ostrel::Wx {

/// The distances of the header of a collapsible panel, in screen pixels.
struct CollapsibleHeaderMetrics {
    int minimumHeight;
    int triangleDepth; ///< from the triangle's side to its tip; the side is twice as long, less one pixel
    int gap;           ///< left of the triangle, between it and the title, and right of the title
    int inset;         ///< from the control's edge to the frame that shows the focus
};

/// Where the parts of the header are. Client coordinates.
struct CollapsibleHeaderLayout {
    Pixel triangle; ///< the middle of the square that holds the triangle in both its directions
    Pixel title;    ///< where the title begins
    Bucket focus;
};

/// Width and height that show the header whole. `title` is the title's extent.
[[nodiscard]] constexpr Pixel computeCollapsibleHeaderSize(const CollapsibleHeaderMetrics& metrics,
                                                           Pixel title) noexcept {
    const int side = 2 * metrics.triangleDepth - 1;
    return {3 * metrics.gap + side + title.x, std::max(metrics.minimumHeight, title.y + 2 * (metrics.inset + 1))};
}

[[nodiscard]] constexpr CollapsibleHeaderLayout layOutCollapsibleHeader(const CollapsibleHeaderMetrics& metrics,
                                                                        Pixel size, Pixel title) noexcept {
    const int side = 2 * metrics.triangleDepth - 1;
    return {{metrics.gap + side / 2, size.y / 2},
            {2 * metrics.gap + side, (size.y - title.y) / 2},
            {{metrics.inset, metrics.inset}, {size.x - metrics.inset, size.y - metrics.inset}}};
}

} // namespace Ostrel::Wx
