#pragma once

#include <OstrelLib/Types.h>

/// What the toolkit's decoders do not look at before they read or write outside of their tables, or fill up a picture
/// that is not all there. Each function says whether the toolkit can be trusted with these data; it may still find them
/// damaged.
namespace Ostrel::Detail {

/// Whether the data begin as a BMP, icon, cursor or JPEG file does. So does many a TGA file as a cursor.
[[nodiscard]] bool isBmp(ArrayView<const unsigned char> data);
[[nodiscard]] bool isIcon(ArrayView<const unsigned char> data);
[[nodiscard]] bool isCursor(ArrayView<const unsigned char> data);
[[nodiscard]] bool isJpeg(ArrayView<const unsigned char> data);

/// False for rows that are not all there, for run-length encoding, because the decoder does not notice a run that
/// leaves its row, and for a colour table that a pixel reaches beyond.
[[nodiscard]] bool isSafeBmp(ArrayView<const unsigned char> data);

/// False if any of its pictures is not all there, or is a bitmap that the decoder cannot be trusted with. What follows
/// a short colour table counts as that picture's pixels, so that an icon of several such pictures is refused.
[[nodiscard]] bool isSafeIcon(ArrayView<const unsigned char> data);

/// Whether the end is there (ITU-T T.81, annex B); the decoder makes up what is missing.
[[nodiscard]] bool isWholeJpeg(ArrayView<const unsigned char> data);

/// False for a colour map that does not begin at 0 or that a pixel reaches beyond, for runs that reach beyond the
/// picture, and for pixels that are not all there (Truevision TGA File Format Specification, version 2.0).
[[nodiscard]] bool isSafeTga(ArrayView<const unsigned char> data);

} // namespace Ostrel::Detail
