#include <OstrelLibWx/BitmapUtils.h>

#include <cstddef>
#include <utility>

#include <wx/app.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/debug.h>
#include <wx/display.h>
#include <wx/imagtga.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include "models/GifFrame.h"
#include "models/PictureCheck.h"
#include "models/PixelConversion.h"
#include "painting/BitmapRows.h"
#include "painting/ToolkitTypes.h"
#include "platform/ClipboardNative.h"
#include "platform/Native.h"
#include "platform/ScreenNative.h"

namespace Ostrel::Wx {

namespace {

constexpr const char* UNSUPPORTED_DEPTH = "Bitmap has unsupported bit depth.";
constexpr int DEPTH_WITHOUT_ALPHA = 24;
constexpr int DEPTH_WITH_ALPHA = 32;

template <class Format>
Expected<BitmapImpl<Rgb>, String> readPixels(wxBitmap& bitmap) {
    wxPixelData<wxBitmap, Format> data(bitmap);
    if (!data) {
        return Unexpected<String>(UNSUPPORTED_DEPTH);
    }
    auto image = BitmapImpl<Rgb>::makeUnwritten(data.GetWidth(), data.GetHeight());
    Detail::convertToPixels(Detail::getBitmapRow(data, 0), data.GetRowStride(), Detail::getBitmapByteOrder<Format>(),
                            image);
    return image;
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
    Detail::convertToBytes(image, Detail::getBitmapByteOrder<Format>(), Detail::getBitmapRow(data, 0),
                           data.GetRowStride());
    return bitmap;
}

/// Whether the toolkit's decoder for `type`, or for what it will take the data for, can be trusted with them.
bool isSafeToDecode(ArrayView<const unsigned char> file, wxBitmapType type) {
    const bool any = type == wxBITMAP_TYPE_ANY;
    if (type == wxBITMAP_TYPE_BMP || (any && Detail::isBmp(file))) {
        return Detail::isSafeBmp(file);
    }
    const bool cursor = Detail::isCursor(file) && wxImage::FindHandler(wxBITMAP_TYPE_CUR) != nullptr;
    if (type == wxBITMAP_TYPE_ICO || type == wxBITMAP_TYPE_CUR || (any && (Detail::isIcon(file) || cursor))) {
        return Detail::isSafeIcon(file);
    }
    if (type == wxBITMAP_TYPE_JPEG || (any && Detail::isJpeg(file))) {
        return Detail::isWholeJpeg(file);
    }
    wxMemoryInputStream stream(file.data(), file.size());
    return !(type == wxBITMAP_TYPE_TGA || (any && wxTGAHandler().CanRead(stream))) || Detail::isSafeTga(file);
}

/// No message and no assertion of the toolkit as long as it lives: damaged data cause both. It hears of errors itself.
class ScopedSilence : private wxLog {
public:
    ScopedSilence()
        : _wasEnabled(EnableLogging(true))
        , _target(setTarget(this))
        , _assertHandler(wxSetAssertHandler(nullptr)) {}
    ~ScopedSilence() override {
        wxSetAssertHandler(_assertHandler);
        setTarget(_target);
        EnableLogging(_wasEnabled);
    }
    ScopedSilence(const ScopedSilence&) = delete;
    ScopedSilence& operator=(const ScopedSilence&) = delete;

    [[nodiscard]] bool hasHeardError() const { return _hasHeardError; }

protected:
    void DoLogRecord(wxLogLevel level, const wxString&, const wxLogRecordInfo&) override {
        _hasHeardError = _hasHeardError || level <= wxLOG_Error; // the graver, the lower
    }

private:
    static wxLog* setTarget(wxLog* target) {
        return wxThread::IsMain() ? SetActiveTarget(target) : SetThreadActiveTarget(target);
    }

    bool _hasHeardError = false;
    bool _wasEnabled; ///< in this thread
    wxLog* _target;
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
    return silence.hasHeardError() ? wxImage() : image; // the TIFF decoder makes up what it could not read
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

BitmapImpl<Rgb> getScreenRegionColors(Bucket region) {
    Array<Bucket> parts; // one on each display that the region touches
    for (unsigned i = 0; i < wxDisplay::GetCount(); ++i) {
        const wxRect geometry = wxDisplay(i).GetGeometry();
        const Bucket display{{geometry.x, geometry.y}, {geometry.x + geometry.width, geometry.y + geometry.height}};
        const Bucket part = region.intersect(display);
        if (!part.isEmpty()) {
            parts.push_back(part);
        }
    }
    if (parts.size() == 1 && parts.front() == region) {
        auto whole = BitmapImpl<Rgb>::makeUnwritten(region.width(), region.height());
        if (Detail::readScreen(region, whole, {0, 0})) {
            return whole;
        }
    }
    BitmapImpl<Rgb> image(region.width(), region.height(), Rgb{0.0F, 0.0F, 0.0F, 0.0F});
    for (const Bucket& part : parts) {
        (void)Detail::readScreen(part, image, part.min - region.min);
    }
    return image;
}

bool setClipboardData(const BitmapImpl<Rgb>& image, Flags<SetClipboardData> flags) {
    if (image.isEmpty()) {
        return false;
    }
    wxWindow* const top = wxTheApp == nullptr ? nullptr : wxTheApp->GetTopWindow();
    return Detail::putOnClipboard(image, flags.has(SetClipboardData::NOT_QUITE_GREY),
                                  top == nullptr ? WindowHandle() : Detail::findNativeHandle(*top));
}

bool setClipboardData(const String& text) {
    const wxLogNull silence;
    const wxClipboardLocker opened;
    if (!opened || !wxTheClipboard->SetData(new wxTextDataObject(toWx(text)))) {
        return false;
    }
    Detail::storeClipboardText();
    return true;
}

} // namespace Ostrel::Wx
