#include <OstrelLib/ImageFormat.h>

#include <OstrelLib/Exceptions.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

namespace Ostrel {

namespace {

using Descriptors = std::array<ImageFormatDescriptor, IMAGE_FORMAT_COUNT>;

/// In the order of the enumeration.
const Descriptors& getDescriptors() {
    using enum ImageColorFormat;
    static const Descriptors DESCRIPTORS{{
        {ImageFormat::PNG, "PNG", {".png"}, "image/png", true, SRGB_8_BIT | SRGB_16_BIT},
        {ImageFormat::JPEG, "JPEG", {".jpg", ".jpeg", ".jpe"}, "image/jpeg", false, SRGB_8_BIT},
        {ImageFormat::BMP, "BMP", {".bmp", ".dib"}, "image/bmp", true, SRGB_8_BIT},
        {ImageFormat::GIF, "GIF", {".gif"}, "image/gif", true, SRGB_8_BIT},
        {ImageFormat::TIFF,
         "TIFF",
         {".tif", ".tiff"},
         "image/tiff",
         true,
         SRGB_8_BIT | SRGB_16_BIT | LINEAR_16_BIT_FLOAT | LINEAR_32_BIT_FLOAT},
        {ImageFormat::TGA, "TGA", {".tga"}, "image/x-tga", true, SRGB_8_BIT},
        {ImageFormat::ICO, "ICO", {".ico"}, "image/vnd.microsoft.icon", true, SRGB_8_BIT},
        {ImageFormat::OPENEXR, "OpenEXR", {".exr"}, "image/x-exr", true, LINEAR_16_BIT_FLOAT | LINEAR_32_BIT_FLOAT},
    }};
    return DESCRIPTORS;
}

/// Extensions are ASCII, so the user's language has no say in what is lower case.
String toLowerAscii(const String& text) {
    std::wstring lower = text.toWide();
    for (wchar_t& character : lower) {
        if (character >= L'A' && character <= L'Z') {
            character = static_cast<wchar_t>(character - L'A' + L'a');
        }
    }
    return lower;
}

} // namespace

const ImageFormatDescriptor& getImageFormatDescriptor(ImageFormat format) {
    const auto index = static_cast<std::size_t>(format); // a negative one becomes too large
    if (index >= getDescriptors().size()) {
        Detail::throwStopException("ImageFormat", __LINE__);
    }
    return getDescriptors()[index];
}

Optional<ImageFormat> findImageFormat(const Path& path) {
    const String extension = toLowerAscii(path.extension());
    for (const ImageFormatDescriptor& descriptor : getDescriptors()) {
        if (std::find(descriptor.extensions.begin(), descriptor.extensions.end(), extension) !=
            descriptor.extensions.end()) {
            return descriptor.format;
        }
    }
    return {};
}

} // namespace Ostrel
