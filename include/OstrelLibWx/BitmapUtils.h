#pragma once

#include <cstdint>

#include <wx/bitmap.h>
#include <wx/image.h>

#include <OstrelLib/Bitmap.h>
#include <OstrelLib/Color.h>
#include <OstrelLib/Flags.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>

/// Pictures between the toolkit, the screen, the clipboard and the core library. GUI thread only. A byte b of a toolkit
/// bitmap is the float b / 255 and back; no transfer curve is applied either way.
namespace Ostrel::Wx {

/// Decodes a picture held in memory. Damaged data are safe to pass; a picture that is not all there is not decoded. Of
/// a GIF, the first picture is taken. A BMP or ICO with run-length encoding is not decoded, because the toolkit's
/// decoder writes outside the picture.
/// @param data the file's bytes
/// @param size in bytes
/// @param type its format; wxBITMAP_TYPE_ANY to find out from the data
/// @return an invalid bitmap if the data cannot be decoded; no message is shown
OSTREL_WX_API wxBitmap convertMemoryToBitmap(const unsigned* data, int size, wxBitmapType type);

/// As `convertMemoryToBitmap`, as an image.
OSTREL_WX_API wxImage convertMemoryToImage(const unsigned* data, int size, wxBitmapType type);

/// The stored bytes of a 24 or 32 bit bitmap as floats; alpha is 1 in one of 24 bits. Colours are not divided by alpha:
/// what `toWxBitmap` made comes back as it was, but a bitmap that the toolkit made from an image with an alpha channel
/// holds premultiplied colours on Windows.
/// @return an empty image for an invalid bitmap; the error "Bitmap has unsupported bit depth." for any other depth
OSTREL_WX_API Expected<BitmapImpl<Rgb>, String> toRgbBitmap(wxBitmap& bitmap);

/// The image as a bitmap of 32 bits, or 24 without alpha. Colours are clamped to [0, 1] and rounded to the nearest
/// byte, ties to the even one; alpha is clamped and truncated. NaN counts as 0.
/// @return an invalid bitmap for an empty image
OSTREL_WX_API wxBitmap toWxBitmap(const BitmapImpl<Rgb>& image, bool withAlpha);

/// What the screen shows inside `region` now, in screen coordinates; alpha is 1. Pixels that are on no display are 0,
/// alpha included. Row 0 is the uppermost. On Linux, at a scale of the desktop above 1, the first of the screen's
/// pixels that make one.
/// @return an image of the region's size; more pixels than memory can hold throw as `BitmapImpl` says
OSTREL_WX_API BitmapImpl<Rgb> getScreenRegionColors(Bucket region);

/// How a picture is put on the clipboard.
enum class SetClipboardData : std::uint32_t {
    /// If all of the picture is grey, the blue of its first pixel is changed by one step. This keeps programs that
    /// receive it from treating it as a greyscale picture.
    NOT_QUITE_GREY = 2,
};

/// Puts a picture on the clipboard in the place of what is there: 24 bits a pixel, colours as in `toWxBitmap`, alpha
/// left out. Row 0 becomes the lowest row of what other programs see, on both platforms.
///
/// On Windows it is a CF_DIB block that belongs to the system from then on. The clipboard is opened for the
/// application's top window; Windows refuses a picture without one. On Linux it is offered as image/bmp (that same
/// block in a file) and as image/png. There the process keeps it for as long as nothing else takes the clipboard, and
/// hands it over to the desktop's clipboard manager, if there is one, when the toolkit's event loop ends.
/// @return false if the image is empty (the clipboard keeps what it has), if another program holds the clipboard open,
/// or if memory runs out
OSTREL_WX_API bool setClipboardData(const BitmapImpl<Rgb>& image, Flags<SetClipboardData> flags = {});

/// Puts a text on the clipboard in the place of what is there. On Windows it stays when the process ends; on Linux the
/// process keeps it.
/// @return false if another program holds the clipboard open
OSTREL_WX_API bool setClipboardData(const String& text);

} // namespace Ostrel::Wx
