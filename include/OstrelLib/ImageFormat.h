#pragma once

#include <OstrelLib/Export.h>
#include <OstrelLib/Flags.h>
#include <OstrelLib/Path.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>

#include <type_traits>

namespace Ostrel {

/// How the channels of a stored picture are coded. The values are bits, so that `Flags` can hold several.
enum class ImageColorFormat : int {
    /// 8-bit integers with the transfer curve of sRGB (IEC 61966-2-1).
    SRGB_8_BIT = 1,
    /// 16-bit integers with the same curve.
    SRGB_16_BIT = 2,
    /// Linear light as 16-bit floats (IEEE 754 binary16).
    LINEAR_16_BIT_FLOAT = 4,
    /// Linear light as 32-bit floats (IEEE 754 binary32).
    LINEAR_32_BIT_FLOAT = 8,
};

template <>
struct IsFlag<ImageColorFormat> : std::true_type {};

/// The picture files that hosts speak of.
enum class ImageFormat : int {
    PNG = 0,
    JPEG = 1,
    BMP = 2,
    GIF = 3,
    TIFF = 4,
    TGA = 5,
    ICO = 6,
    OPENEXR = 7,
};

/// How many formats there are.
constexpr int IMAGE_FORMAT_COUNT = 8;

/// What a picture file of one format is called and can hold.
struct ImageFormatDescriptor {
    ImageFormat format = ImageFormat::PNG;

    /// For people, for example "PNG".
    String name;

    /// In lower case with their dot, for example ".jpg"; the first is the one to give to a new file.
    Array<String> extensions;

    /// The media type, for example "image/png"; registered with IANA but for TGA and OpenEXR, whose are customary.
    String mimeType;

    /// Whether it can hold an alpha channel, or at least a transparent colour (GIF).
    bool canHoldAlpha = false;

    /// What it can hold; never empty.
    Flags<ImageColorFormat> colorFormats;
};

/// The descriptor of a format, valid for the life of the process. Stop exception for a value that is no format.
[[nodiscard]] OSTREL_API const ImageFormatDescriptor& getImageFormatDescriptor(ImageFormat format);

/// The format that the path's extension names, in whatever case; nothing for any other extension and for none. The
/// file is not looked at.
[[nodiscard]] OSTREL_API Optional<ImageFormat> findImageFormat(const Path& path);

} // namespace Ostrel
