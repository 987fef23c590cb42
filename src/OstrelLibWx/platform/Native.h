#pragma once

#include <OstrelLib/Geometry.h>

class wxKeyEvent;
class wxWindow;

/// What the system has to do and the toolkit does not. One implementation per platform.
namespace Ostrel::Detail {

/// Settles what the toolkit has to know before its initialisation: on Windows the module whose resources it uses, this
/// library's; on Linux its backend, X11.
void prepareToolkit();

/// The character that a key of a `wxEVT_CHAR_HOOK` types in the user's keyboard layout; 0 if it types none. On Windows
/// the toolkit tells of the key alone there.
[[nodiscard]] wchar_t getTypedCharacter(const wxKeyEvent& event);

/// The window's native handle; on Linux a native window is made if it has none.
[[nodiscard]] WindowHandle requireNativeHandle(wxWindow& window);

/// The window's native handle; null if it has none yet.
[[nodiscard]] WindowHandle findNativeHandle(const wxWindow& window);

/// The window's owner; null if it has none, or if there is no such window.
[[nodiscard]] WindowHandle getNativeOwner(WindowHandle window);

/// A null owner leaves the window without one.
void setNativeOwner(WindowHandle window, WindowHandle owner);

/// The window with its frame on the screen; the default bucket if there is no such window.
[[nodiscard]] Bucket getNativeScreenRegion(WindowHandle window);

} // namespace Ostrel::Detail
