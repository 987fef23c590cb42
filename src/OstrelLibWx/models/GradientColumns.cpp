#include "models/GradientColumns.h"

#include <algorithm>

namespace Ostrel::Wx {

float computeColumnValue(int column, int left, int width) noexcept {
    const int steps = std::max(width - 1, 1);
    return std::clamp(static_cast<float>(column - left) / static_cast<float>(steps), 0.0F, 1.0F);
}

void computeGradientColumns(int left, ArrayView<RgbBytes> columns, const Function<Rgb(float)>& toColor) {
    const int width = static_cast<int>(columns.size());
    for (int i = 0; i < width; ++i) {
        columns[static_cast<std::size_t>(i)] = toRgbBytes(toColor(computeColumnValue(i, left, width)));
    }
}

} // namespace Ostrel::Wx
