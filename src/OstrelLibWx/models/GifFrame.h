#pragma once

#include <OstrelLib/Types.h>

namespace Ostrel::Detail {

/// Whether the data begins as a GIF file does.
[[nodiscard]] bool isGif(ArrayView<const unsigned char> data);

/// A GIF file with nothing but the first picture of `data`, all of whose pixels and codes have been found to be there
/// and in range. The toolkit's GIF decoder relies on that: it reads and writes outside its tables otherwise.
/// Format and code table: GIF89a Specification, CompuServe 1990, sections 17 to 27 and appendix F.
/// @return empty if the first picture is damaged or incomplete
[[nodiscard]] Array<unsigned char> extractFirstGifFrame(ArrayView<const unsigned char> data);

} // namespace Ostrel::Detail
