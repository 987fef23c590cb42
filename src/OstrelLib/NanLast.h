#pragma once

#include <cmath>

namespace Ostrel::Detail {

/// `a < b` with NaN behind everything else, which makes it an order that sorting can rely on.
[[nodiscard]] inline bool isLessNanLast(float a, float b) noexcept {
    return a < b || (std::isnan(b) && !std::isnan(a));
}

} // namespace Ostrel::Detail
