#pragma once

#include <OstrelLib/Geometry.h>

class wxColour;
class wxDC;

/// Small marks that several controls share, of whole pixels, the same on every platform.
namespace Ostrel::Wx {

enum class TriangleDirection { RIGHT, DOWN };

/// Fills a triangle that points that way: `depth` pixels from its side to its tip, the side 2 × `depth` − 1 pixels
/// long. `middle` is the middle of the square over that side. Leaves its pen and brush in the device context.
void paintTriangle(wxDC& dc, Pixel middle, int depth, TriangleDirection direction, const wxColour& colour);

/// Dots every other of the outermost pixels of `rectangle`: what shows where the focus is. An empty rectangle draws
/// nothing. Leaves its pen and brush in the device context.
void paintFocusFrame(wxDC& dc, const Bucket& rectangle, const wxColour& colour);

} // namespace Ostrel::Wx
