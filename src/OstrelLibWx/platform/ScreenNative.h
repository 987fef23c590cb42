#pragma once

#include <OstrelLib/Bitmap.h>
#include <OstrelLib/Color.h>
#include <OstrelLib/Geometry.h>

namespace Ostrel::Detail {

/// Copies what the screen shows inside `region` now, alpha 1, into `target` from `place` on. What cannot be read is
/// left as it is.
/// @param region in screen coordinates, all of it on one display
/// @param target large enough
void readScreen(const Bucket& region, BitmapImpl<Rgb>& target, Pixel place);

} // namespace Ostrel::Detail
