#pragma once

#include <OstrelLib/Bitmap.h>
#include <OstrelLib/Color.h>
#include <OstrelLib/Geometry.h>

namespace Ostrel::Detail {

/// Puts the picture on the clipboard as `writeDib` makes it: on Windows that block as CF_DIB; on Linux as the contents
/// of a BMP file, and as PNG.
/// @param image not empty
/// @param owner the window that takes the clipboard; of no use on Linux
/// @return false if the clipboard is not to be had or memory runs out
[[nodiscard]] bool putOnClipboard(const BitmapImpl<Rgb>& image, bool spoilGrey, WindowHandle owner);

/// After the toolkit has put a text on the clipboard: on Windows makes it outlive the process. On Linux it does
/// nothing, since only a clipboard manager could.
void storeClipboardText();

} // namespace Ostrel::Detail
