#pragma once

#include <OstrelLib/Geometry.h>

#include <algorithm>

namespace Ostrel::Wx {

/// The distances of a check box, in screen pixels.
struct CheckBoxMetrics {
    int boxSize; ///< of the square with the tick, frame included
    int gap;     ///< between the box and the frame that shows the focus
    int padding; ///< between that frame's outer edge and what it surrounds
};

/// Where the parts of a check box are. Client coordinates.
struct CheckBoxLayout {
    Bucket box;
    Pixel label;  ///< where the label begins
    Bucket focus; ///< around the label, or around the box if there is no label
};

/// Width and height that show a check box whole. `label` is the label's extent, of no width if there is no label.
[[nodiscard]] constexpr Pixel computeCheckBoxSize(const CheckBoxMetrics& metrics, Pixel label) noexcept {
    const int labelWidth = label.x > 0 ? metrics.gap + label.x + metrics.padding : 0;
    return {metrics.boxSize + 2 * metrics.padding + labelWidth,
            std::max(metrics.boxSize, label.y) + 2 * metrics.padding};
}

/// Box and label are centred between top and bottom, and begin at the left.
[[nodiscard]] constexpr CheckBoxLayout layOutCheckBox(const CheckBoxMetrics& metrics, Pixel size,
                                                      Pixel label) noexcept {
    const auto [boxSize, gap, padding] = metrics;
    const Pixel boxAt{padding, (size.y - boxSize) / 2};
    const Bucket box{boxAt, boxAt + Pixel{boxSize, boxSize}};
    if (label.x <= 0) {
        return {box, box.max, {box.min - Pixel{padding, padding}, box.max + Pixel{padding, padding}}};
    }
    const Pixel labelAt{box.max.x + gap + padding, (size.y - label.y) / 2};
    const Bucket focus{labelAt - Pixel{padding, 0}, labelAt + label + Pixel{padding, 0}};
    return {box, labelAt, focus};
}

/// A tick of whole pixels, in columns: each is `thickness` pixels high, one pixel further down than its neighbour up to
/// the corner, and from there one further up.
struct TickShape {
    int columns;   ///< the tick's width
    int corner;    ///< the index of the lowest column
    int thickness; ///< of each column
    Pixel at;      ///< top left corner of the tick's bounding rectangle

    [[nodiscard]] constexpr int getTop(int column) const noexcept {
        const int distance = column < corner ? corner - column : column - corner;
        return at.y + columns - 1 - corner - distance;
    }
};

/// The tick in a box: half as wide as the box, and in its middle.
[[nodiscard]] constexpr TickShape computeTick(const Bucket& box) noexcept {
    const int columns = box.width() / 2;
    const int corner = std::max(columns - 1, 0) / 3;
    const int thickness = (3 * columns + 3) / 7;
    const int height = columns - 1 - corner + thickness;
    return {
        columns, corner, thickness, {box.min.x + (box.width() - columns) / 2, box.min.y + (box.height() - height) / 2}};
}

} // namespace Ostrel::Wx
