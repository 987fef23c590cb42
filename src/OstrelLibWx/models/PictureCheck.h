#pragma once

#include <OstrelLib/Types.h>

/// What the toolkit's decoders do not look at before they read or write outside of their tables. Each function says
/// whether the toolkit can be trusted with these data; it may still find them damaged.
namespace Ostrel::Detail {

/// Whether the data begin as a BMP file does, or as an icon or cursor file.
[[nodiscard]] bool isBmp(ArrayView<const unsigned char> data);
[[nodiscard]] bool isIcon(ArrayView<const unsigned char> data);

/// False for run-length encoding: the decoder does not notice a run that leaves its row.
[[nodiscard]] bool isSafeBmp(ArrayView<const unsigned char> data);

/// False if any of its pictures is a bitmap with run-length encoding.
[[nodiscard]] bool isSafeIcon(ArrayView<const unsigned char> data);

/// False for a colour map that does not begin at 0 or that a pixel reaches beyond, and for runs that reach beyond the
/// picture or are not all there (Truevision TGA File Format Specification, version 2.0).
[[nodiscard]] bool isSafeTga(ArrayView<const unsigned char> data);

} // namespace Ostrel::Detail
