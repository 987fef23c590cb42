#include "support/Foreground.h"

#include <windows.h>
#include <wx/toplevel.h>

bool hasForeground(const wxTopLevelWindow& window) {
    return GetForegroundWindow() == static_cast<HWND>(window.GetHandle());
}
