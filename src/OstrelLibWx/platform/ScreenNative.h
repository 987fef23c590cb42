#pragma once

#include <OstrelLib/Bitmap.h>
#include <OstrelLib/Color.h>
#include <OstrelLib/Geometry.h>

namespace Ostrel::Detail {

/// Copies what the screen shows inside `region` now, alpha 1, into `target` from `place` on.
/// @param region in screen coordinates, all of it on one display
/// @param target large enough
/// @return false if it cannot be read; `target` is left as it is
bool readScreen(const Bucket& region, BitmapImpl<Rgb>& target, Pixel place);

} // namespace Ostrel::Detail
