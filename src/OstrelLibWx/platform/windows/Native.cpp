#include "platform/Native.h"

#include <windows.h>

#include <wx/app.h>
#include <wx/event.h>
#include <wx/msw/private.h>
#include <wx/window.h>

#include <OstrelLib/Application.h>

namespace Ostrel::Detail {

namespace {

HWND toHwnd(WindowHandle window) {
    return static_cast<HWND>(window.toPointer());
}

} // namespace

wchar_t getTypedCharacter(const wxKeyEvent& event) {
    constexpr UINT LEAVE_DEAD_KEYS_ALONE = 4;
    BYTE keys[256];
    if (GetKeyboardState(keys) == FALSE) {
        return 0;
    }
    const auto key = static_cast<UINT>(event.GetRawKeyCode());
    wchar_t typed[4];
    const int count = ToUnicode(key, MapVirtualKeyW(key, MAPVK_VK_TO_VSC), keys, typed, 4, LEAVE_DEAD_KEYS_ALONE);
    return count == 1 && typed[0] >= L' ' ? typed[0] : L'\0';
}

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
