#include "platform/ScreenReadBack.h"

#include <stdexcept>

#include <windows.h>

/// BitBlt into memory that the program sees.
struct ScreenReadBack::Impl {
    HDC screen = nullptr;
    HDC memory = nullptr;
    HBITMAP bitmap = nullptr;
    Ostrel::Bucket region;
};

ScreenReadBack::ScreenReadBack(const Ostrel::Bucket& region)
    : _impl(new Impl{.region = region}) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = region.width();
    info.bmiHeader.biHeight = -region.height(); // from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    _impl->screen = GetDC(nullptr);
    _impl->memory = CreateCompatibleDC(_impl->screen);
    _impl->bitmap = CreateDIBSection(_impl->screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (_impl->memory == nullptr || _impl->bitmap == nullptr) {
        throw std::runtime_error("no memory for the screen's pixels");
    }
    SelectObject(_impl->memory, _impl->bitmap);
}

ScreenReadBack::~ScreenReadBack() {
    DeleteDC(_impl->memory);
    DeleteObject(_impl->bitmap);
    ReleaseDC(nullptr, _impl->screen);
}

void ScreenReadBack::read() {
    BitBlt(_impl->memory, 0, 0, _impl->region.width(), _impl->region.height(), _impl->screen, _impl->region.min.x,
           _impl->region.min.y, SRCCOPY);
    GdiFlush();
}
