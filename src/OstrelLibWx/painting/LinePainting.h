#pragma once

#include <OstrelLib/Types.h>

#include <wx/colour.h>
#include <wx/gdicmn.h>

class wxDC;

namespace Ostrel::Wx {

/// Draws a separator line of the first pixel rows (columns, if it is vertical) of `size`, one for each colour, over
/// `lengthScale` of its length, truncated to whole pixels. At exactly 1 the colours are drawn as they are; otherwise
/// every channel is doubled, up to 255. Throws a stop exception unless the orientation is one of the two.
/// Leaves its pen in the device context.
void paintStaticLine(wxDC& dc, wxSize size, wxOrientation orientation, ArrayView<const wxColour> colours,
                     float lengthScale);

} // namespace Ostrel::Wx
