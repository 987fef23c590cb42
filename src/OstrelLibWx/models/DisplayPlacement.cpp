#include "models/DisplayPlacement.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace Ostrel::Detail {

namespace {

float distanceToRange(float coordinate, float first, float last) {
    if (coordinate < first) {
        return first - coordinate;
    }
    return coordinate > last ? coordinate - last : 0.0F;
}

int placeInRange(int first, int end, int size, int wanted) {
    const int lastPlace = saturateToInt(std::int64_t{end} - size);
    return std::max(first, std::min(wanted, std::max(first, lastPlace)));
}

} // namespace

int findNearestDisplay(ArrayView<const Bucket> displays, Pixel position) {
    const auto x = static_cast<float>(position.x);
    const auto y = static_cast<float>(position.y);
    int nearest = NO_DISPLAY;
    float least = std::numeric_limits<float>::max();
    for (std::size_t i = 0; i < displays.size(); ++i) {
        const Bucket& display = displays[i];
        const float dx =
            distanceToRange(x, static_cast<float>(display.min.x), static_cast<float>(display.max.x) - 1.0F);
        const float dy =
            distanceToRange(y, static_cast<float>(display.min.y), static_cast<float>(display.max.y) - 1.0F);
        const float score = dx * dx + dy * dy;
        if (score < least) {
            least = score;
            nearest = static_cast<int>(i);
        }
    }
    return nearest;
}

Pixel placeInWorkArea(const Bucket& workArea, Pixel size, Pixel wanted) {
    return {placeInRange(workArea.min.x, workArea.max.x, size.x, wanted.x),
            placeInRange(workArea.min.y, workArea.max.y, size.y, wanted.y)};
}

} // namespace Ostrel::Detail
