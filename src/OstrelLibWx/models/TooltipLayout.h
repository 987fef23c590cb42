#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>

namespace Ostrel::Wx {

/// Pixels between a tooltip's edge and its text, the outline included.
constexpr int TOOLTIP_MARGIN_PX = 3;

/// The width in pixels of a line of text.
using MeasureText = Function<int(const String&)>;

/// Breaks a tooltip's text into lines: at line feeds, and at the last space at which a line is not wider than
/// `maximumWidth` pixels.
///
/// The width is looked at only where a space follows. So the last word of the text, or of a paragraph, never moves to a
/// line of its own, and a line that begins with a word wider than the maximum runs on to the space after it. This is
/// meant. The empty text has no line; a text that ends in a line feed ends in an empty one.
[[nodiscard]] Array<String> breakTooltipLines(const String& text, int maximumWidth, const MeasureText& measure);

/// The size of the popup around lines of these sizes: the widest line and the sum of the heights, with the margin on
/// every side.
[[nodiscard]] Pixel computeTooltipSize(ArrayView<const Pixel> lineExtents);

} // namespace Ostrel::Wx
