#pragma once

#include <OstrelLib/Bitmap.h>
#include <OstrelLib/ImageFormat.h>
#include <OstrelLib/Path.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>

namespace Ostrel::Gallery {

/// The kinds of file that the Lab writes.
constexpr ImageFormat WRITTEN_FORMATS[] = {ImageFormat::PNG, ImageFormat::TIFF};

/// For a file dialog: the kinds that can hold such a picture, "PNG (*.png)|*.png|TIFF (*.tif;*.tiff)|*.tif;*.tiff".
[[nodiscard]] String getWildcard(ImageColorFormat colorFormat);

/// The path with an extension that fits: without one, or with that of a kind that cannot hold such a picture, it gets
/// the first one that can, in the place of the latter.
[[nodiscard]] Path fitExtension(const Path& path, ImageColorFormat colorFormat);

/// Writes what is in `image` in the form that it asks for: bytes and 16-bit integers are stored as they are, from 0 to
/// 1, so they have to be encoded for the screen already; floats are written as light, not limited. Integers are
/// limited, and NaN becomes 0; a half float is the nearest, ties to the even one, and infinite if it is too large.
/// Alpha is not multiplied into the colours. The name's extension says what kind of file it is.
/// @return why it could not, as a sentence for the user
[[nodiscard]] Expected<void, String> writePicture(const Image& image, const Path& path);

} // namespace Ostrel::Gallery
