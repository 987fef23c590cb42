#include "platform/Native.h"

#include <windows.h>

#include <wx/app.h>
#include <wx/msw/private.h>
#include <wx/window.h>

#include <OstrelLib/Application.h>

namespace Ostrel::Detail {

namespace {

HWND toHwnd(WindowHandle window) {
    return static_cast<HWND>(window.toPointer());
}

} // namespace

void prepareToolkit() {
    wxSetInstance(static_cast<HINSTANCE>(WinApi::getMyModuleHandle()));
}

WindowHandle requireNativeHandle(wxWindow& window) {
    return findNativeHandle(window);
}

WindowHandle findNativeHandle(const wxWindow& window) {
    return WindowHandle::fromPointer(window.GetHandle());
}

WindowHandle getNativeOwner(WindowHandle window) {
    return WindowHandle(static_cast<std::uintptr_t>(GetWindowLongPtrW(toHwnd(window), GWLP_HWNDPARENT)));
}

void setNativeOwner(WindowHandle window, WindowHandle owner) {
    SetWindowLongPtrW(toHwnd(window), GWLP_HWNDPARENT, static_cast<LONG_PTR>(owner.value()));
}

Bucket getNativeScreenRegion(WindowHandle window) {
    RECT rectangle{};
    GetWindowRect(toHwnd(window), &rectangle);
    return {{rectangle.left, rectangle.top}, {rectangle.right, rectangle.bottom}};
}

} // namespace Ostrel::Detail
