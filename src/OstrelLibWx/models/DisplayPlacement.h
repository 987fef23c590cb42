#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>

namespace Ostrel::Detail {

constexpr int NO_DISPLAY = -1;

/// The display whose area has the least distance to `position`; of several equally near ones, the one with the lowest
/// index. A display's area is the closed box of its pixels, and distances are squared, in single precision.
/// @param displays the full geometries, in the system's order
/// @return an index into `displays`, or `NO_DISPLAY` if there is none
[[nodiscard]] int findNearestDisplay(ArrayView<const Bucket> displays, Pixel position);

/// The top left corner, as near to `wanted` as possible, with which a window of `size` lies in `workArea`. What is
/// larger than the work area is aligned to its left, or its top.
/// @param size width and height in x and y
[[nodiscard]] Pixel placeInWorkArea(const Bucket& workArea, Pixel size, Pixel wanted);

} // namespace Ostrel::Detail
