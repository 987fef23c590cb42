#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>

#include <wx/gdicmn.h>

class wxDC;

namespace Ostrel::Wx {

/// Draws a tooltip of this size in the system's tooltip colours: ground, outline, and the lines below each other, each
/// advancing by its own height in `lineExtents` (as many as there are lines). The text is in the device context's font.
/// Leaves its pen, brush and text colours in the device context.
void paintTooltip(wxDC& dc, wxSize size, ArrayView<const String> lines, ArrayView<const Pixel> lineExtents);

} // namespace Ostrel::Wx
