#pragma once

#include <OstrelLib/ColorGradient.h>
#include <OstrelLib/Curve.h>
#include <OstrelLib/Histogram.h>

#include <wx/bitmap.h>
#include <wx/colour.h>

/// Pictures of the core library's values. Sizes are in screen pixels.
namespace Ostrel::Gallery {

/// The colour on the screen of these stored values.
wxColour toScreenColour(const Rgb& colour);

/// The same points joined by a natural spline and by straight lines, over [0, 1] in both directions.
wxBitmap plotCurve(wxSize size, const Array<CurvePoint>& points);

/// The light of black bodies, from one temperature at the left to the other at the right, each at its full brightness.
wxBitmap plotBlackBodies(wxSize size, float fromKelvin, float toKelvin);

/// The gradient from 0 at the left to 1 at the right, with a mark at each of its points.
wxBitmap plotGradient(wxSize size, const ColorGradient& gradient);

/// The bins from left to right. The fullest fills the height; the first and the last, into which all that is too dark
/// or too bright has been forced, do not count for that and may be cut off.
wxBitmap plotHistogram(wxSize size, const Histogram& histogram, const wxColour& colour);

} // namespace Ostrel::Gallery
