#pragma once

#include <wx/bitmap.h>
#include <wx/image.h>

#include <OstrelLib/Bitmap.h>
#include <OstrelLib/Color.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>

/// Pictures between the toolkit and the core library. A byte b of a toolkit bitmap is the float b / 255 and back; no
/// transfer curve is applied either way.
namespace Ostrel::Wx {

/// Decodes a picture held in memory. Damaged data are safe to pass. Of a GIF, the first picture is taken, if it is
/// whole. A BMP or ICO with run-length encoding is not decoded, because the toolkit's decoder writes outside the
/// picture.
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

} // namespace Ostrel::Wx
