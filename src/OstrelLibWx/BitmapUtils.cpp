#include <OstrelLibWx/BitmapUtils.h>

#include <cstddef>
#include <cstdint>

#include <wx/debug.h>
#include <wx/imagtga.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/rawbmp.h>

#include "models/GifFrame.h"
#include "models/PictureCheck.h"

namespace Ostrel::Wx {

namespace {

constexpr float BYTE_TO_FLOAT = 0.003921569F; // 1/255
constexpr const char* UNSUPPORTED_DEPTH = "Bitmap has unsupported bit depth.";
constexpr int DEPTH_WITHOUT_ALPHA = 24;
constexpr int DEPTH_WITH_ALPHA = 32;

/// The first byte of a row. Rows lie as far apart as the toolkit says, in either direction.
template <class PixelData>
unsigned char* getRow(PixelData& data, int y) {
    typename PixelData::Iterator row(data);
    row.OffsetY(data, y);
    return row.m_ptr;
}

template <class Format>
Expected<BitmapImpl<Rgb>, String> readPixels(wxBitmap& bitmap) {
    wxPixelData<wxBitmap, Format> data(bitmap);
    if (!data) {
        return Unexpected<String>(UNSUPPORTED_DEPTH);
    }
    BitmapImpl<Rgb> image(data.GetWidth(), data.GetHeight());
    for (int y = 0; y < image.getHeight(); ++y) {
        const unsigned char* source = getRow(data, y);
        for (Rgb& pixel : image.row(y)) {
            pixel.red = static_cast<float>(source[Format::RED]) * BYTE_TO_FLOAT;
            pixel.green = static_cast<float>(source[Format::GREEN]) * BYTE_TO_FLOAT;
            pixel.blue = static_cast<float>(source[Format::BLUE]) * BYTE_TO_FLOAT;
            if constexpr (Format::HasAlpha) {
                pixel.alpha = static_cast<float>(source[Format::ALPHA]) * BYTE_TO_FLOAT;
            } else {
                pixel.alpha = 1.0F;
            }
            source += Format::SizePixel;
        }
    }
    return image;
}

/// [0, 1] to [0, 255], the rest clamped; NaN to 0, hence the order of the comparisons.
float toByteRange(float value) {
    return value > 0.0F ? (value < 1.0F ? value * 255.0F : 255.0F) : 0.0F;
}

unsigned char truncateToByte(float value) {
    return static_cast<unsigned char>(toByteRange(value));
}

/// To the nearest byte, ties to the even one: a float of 2^23 and more has no fraction, so the sum is rounded to an
/// integer, that way.
unsigned char roundToByte(float value) {
    constexpr float NO_FRACTION = 8388608.0F;
    return static_cast<unsigned char>(toByteRange(value) + NO_FRACTION - NO_FRACTION);
}

template <class Format>
wxBitmap writePixels(const BitmapImpl<Rgb>& image, int depth) {
    wxBitmap bitmap(image.getWidth(), image.getHeight(), depth);
    if (!bitmap.IsOk()) {
        return {};
    }
    wxPixelData<wxBitmap, Format> data(bitmap);
    if (!data) {
        return {};
    }
    for (int y = 0; y < image.getHeight(); ++y) {
        unsigned char* target = getRow(data, y);
        for (const Rgb& pixel : image.row(y)) {
            target[Format::RED] = roundToByte(pixel.red);
            target[Format::GREEN] = roundToByte(pixel.green);
            target[Format::BLUE] = roundToByte(pixel.blue);
            if constexpr (Format::HasAlpha) {
                target[Format::ALPHA] = truncateToByte(pixel.alpha);
            }
            target += Format::SizePixel;
        }
    }
    return bitmap;
}

/// Whether the toolkit's decoder for `type`, or for what it will take the data for, can be trusted with them.
bool isSafeToDecode(ArrayView<const unsigned char> file, wxBitmapType type) {
    const bool any = type == wxBITMAP_TYPE_ANY;
    if (type == wxBITMAP_TYPE_BMP || (any && Detail::isBmp(file))) {
        return Detail::isSafeBmp(file);
    }
    if (type == wxBITMAP_TYPE_ICO || type == wxBITMAP_TYPE_CUR || (any && Detail::isIcon(file))) {
        return Detail::isSafeIcon(file);
    }
    wxMemoryInputStream stream(file.data(), file.size());
    return !(type == wxBITMAP_TYPE_TGA || (any && wxTGAHandler().CanRead(stream))) || Detail::isSafeTga(file);
}

/// No message and no assertion of the toolkit as long as it lives: damaged data cause both.
class ScopedSilence {
public:
    ScopedSilence()
        : _assertHandler(wxSetAssertHandler(nullptr)) {}
    ~ScopedSilence() { wxSetAssertHandler(_assertHandler); }
    ScopedSilence(const ScopedSilence&) = delete;
    ScopedSilence& operator=(const ScopedSilence&) = delete;

private:
    wxLogNull _log;
    wxAssertHandler_t _assertHandler;
};

} // namespace

wxBitmap convertMemoryToBitmap(const unsigned* data, int size, wxBitmapType type) {
    const wxImage image = convertMemoryToImage(data, size, type);
    return image.IsOk() ? wxBitmap(image) : wxBitmap();
}

wxImage convertMemoryToImage(const unsigned* data, int size, wxBitmapType type) {
    if (data == nullptr || size <= 0) {
        return {};
    }
    ArrayView<const unsigned char> file(reinterpret_cast<const unsigned char*>(data), static_cast<std::size_t>(size));
    const ScopedSilence silence;
    Array<unsigned char> checked;
    if (type == wxBITMAP_TYPE_GIF || (type == wxBITMAP_TYPE_ANY && Detail::isGif(file))) {
        checked = Detail::extractFirstGifFrame(file);
        file = checked;
    } else if (!isSafeToDecode(file, type)) {
        return {};
    }
    wxMemoryInputStream stream(file.data(), file.size());
    wxImage image;
    image.SetLoadFlags(image.GetLoadFlags() & ~wxImage::Load_Verbose); // some decoders write to the console
    image.LoadFile(stream, type);
    return image;
}

Expected<BitmapImpl<Rgb>, String> toRgbBitmap(wxBitmap& bitmap) {
    if (!bitmap.IsOk()) {
        return BitmapImpl<Rgb>();
    }
    switch (bitmap.GetDepth()) {
    case DEPTH_WITH_ALPHA: {
        const bool hadAlpha = bitmap.HasAlpha(); // raw access turns it on
        auto image = readPixels<wxAlphaPixelFormat>(bitmap);
        bitmap.UseAlpha(hadAlpha);
        return image;
    }
    case DEPTH_WITHOUT_ALPHA:
        return readPixels<wxNativePixelFormat>(bitmap);
    default:
        return Unexpected<String>(UNSUPPORTED_DEPTH);
    }
}

wxBitmap toWxBitmap(const BitmapImpl<Rgb>& image, bool withAlpha) {
    if (image.getWidth() < 1 || image.getHeight() < 1) {
        return {};
    }
    return withAlpha ? writePixels<wxAlphaPixelFormat>(image, DEPTH_WITH_ALPHA)
                     : writePixels<wxNativePixelFormat>(image, DEPTH_WITHOUT_ALPHA);
}

} // namespace Ostrel::Wx
