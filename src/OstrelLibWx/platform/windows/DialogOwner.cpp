#include "platform/DialogOwner.h"

#include <windows.h>

namespace Ostrel::Detail {

void reactivateOwner(WindowHandle window) {
    const HWND root = GetAncestor(static_cast<HWND>(window.toPointer()), GA_ROOT);
    if (root != nullptr && IsWindowEnabled(root) != FALSE && IsWindowVisible(root) != FALSE) {
        SetForegroundWindow(root);
    }
}

} // namespace Ostrel::Detail
