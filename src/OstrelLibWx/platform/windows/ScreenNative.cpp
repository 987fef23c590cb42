#include "platform/ScreenNative.h"

#include <cstddef>
#include <memory>

#include <windows.h>

#include "models/PixelConversion.h"

namespace Ostrel::Detail {

namespace {

struct ScreenDcReleaser {
    void operator()(HDC dc) const { ReleaseDC(nullptr, dc); }
};
struct DcDeleter {
    void operator()(HDC dc) const { DeleteDC(dc); }
};
struct BitmapDeleter {
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};

} // namespace

bool readScreen(const Bucket& region, BitmapImpl<Rgb>& target, Pixel place) {
    const std::unique_ptr<HDC__, ScreenDcReleaser> screen(GetDC(nullptr));
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = region.width();
    info.bmiHeader.biHeight = -region.height(); // from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    // Deleted after the context that it is selected into, hence declared before it.
    const std::unique_ptr<HBITMAP__, BitmapDeleter> bitmap(
        CreateDIBSection(screen.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    const std::unique_ptr<HDC__, DcDeleter> memory(CreateCompatibleDC(screen.get()));
    if (bitmap == nullptr || memory == nullptr) {
        return false;
    }
    SelectObject(memory.get(), bitmap.get());
    if (BitBlt(memory.get(), 0, 0, region.width(), region.height(), screen.get(), region.min.x, region.min.y,
               SRCCOPY) == FALSE) {
        return false;
    }
    GdiFlush();
    const auto width = static_cast<std::size_t>(region.width());
    const auto* row = static_cast<const unsigned char*>(bits);
    for (int y = 0; y < region.height(); ++y, row += width * getPixelSize(ByteOrder::BGRX)) {
        convertToPixels(row, ByteOrder::BGRX,
                        target.row(place.y + y).subspan(static_cast<std::size_t>(place.x), width));
    }
    return true;
}

} // namespace Ostrel::Detail
