#include "DialogParentWrapper.h"

#include <windows.h>

#include <wx/msw/private.h>

namespace Ostrel::Fallback {

DialogParentWrapper::DialogParentWrapper(WindowHandle window) {
    const HWND handle = static_cast<HWND>(window.toPointer());
    if (IsWindow(handle)) {
        SetHWND(handle);
    }
}

DialogParentWrapper::~DialogParentWrapper() {
    SetHWND(nullptr);
}

} // namespace Ostrel::Fallback
