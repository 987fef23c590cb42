#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Geometry.h>

class wxDC;

namespace Ostrel::Wx {

/// A colour within a black outline of one pixel. `hatched` lays stripes over it.
void paintSwatch(wxDC& dc, Pixel size, const Rgb& color, bool hatched);

} // namespace Ostrel::Wx
