#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>

#include <wx/bitmap.h>
#include <wx/gdicmn.h>

class wxDC;

/// What the strips and fields of colours are painted with. All lengths are screen pixels.
namespace Ostrel::Wx {

/// Fills a bitmap with stripes, one for each colour: across it, or with `vertical` down it. `bitmap` is made anew only
/// if it has not the right size.
/// @param thickness of the strip, at least 1
/// @param colors at least one
void writeStrip(wxBitmap& bitmap, ArrayView<const Rgb> colors, int thickness, bool vertical);

/// The field of hue and blackness. A size below 1 counts as 1.
[[nodiscard]] wxBitmap makeColorField(wxSize size);

/// Draws a strip's marker: white, outlined in black. Leaves its pen and brush in the device context.
void paintSliderMarker(wxDC& dc, const Bucket& marker);

/// What the field's marker covers around its middle: the outline goes through the four corners of a square of 2 ×
/// `reach` + 1, each line `lineWidth` towards the inside.
[[nodiscard]] Bucket getFieldMarkerArea(Pixel middle, int reach);

/// Draws the outline of the field's marker, in the hue opposite to `hue`. Leaves its pen and brush in the device
/// context.
void paintFieldMarker(wxDC& dc, const Bucket& area, int lineWidth, float hue);

} // namespace Ostrel::Wx
