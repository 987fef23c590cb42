#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Types.h>

namespace Ostrel::Wx {

/// The value that a column of a strip of colours stands for, in [0, 1]: (column - left) / (width - 1), limited.
///
/// It is meant that the column, which is counted from the strip's own left edge, has `left` taken off: the first `left`
/// columns repeat the value 0, and the strip ends below 1.
/// @param left the strip's left edge in its window; above 0
[[nodiscard]] float computeColumnValue(int column, int left, int width) noexcept;

/// The colours of all columns of the strip. `toColor` is asked once for each, from left to right.
void computeGradientColumns(int left, ArrayView<RgbBytes> columns, const Function<Rgb(float)>& toColor);

} // namespace Ostrel::Wx
