#pragma once

#include <type_traits>

#include <wx/bitmap.h>
#include <wx/dc.h>
#include <wx/font.h>
#include <wx/gdicmn.h>
#include <wx/toplevel.h>
#include <wx/window.h>

#include <OstrelLib/Flags.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLibWx/Export.h>

/// Windows, screens and DPI, for the GUI thread alone. None of these functions reports an error: a window that is not
/// there is null, a picture that is no picture changes nothing.
namespace Ostrel::Wx {

/// Style of a static text, for `setupStaticTextFont`.
enum class TextFlag : unsigned {
    BOLD = 1,
    ITALIC = 2,
};

/// What `findWindowByPosition` looks at besides windows that are shown and enabled.
enum class FindWindowFlag : unsigned {
    INCLUDE_HIDDEN = 1,   ///< hidden windows and their children
    INCLUDE_DISABLED = 2, ///< disabled windows and their children
};

/// Which part of a display is meant.
enum class MonitorRegionType : int {
    WORK_AREA = 0,     ///< without task bars and panels
    WHOLE_MONITOR = 1, ///< everything; any value but 0 acts so
};

/// Which way `moveFocus` walks.
enum class MoveFocusDirection : int {
    FORWARD = 0,  ///< to the next sibling in child order
    BACKWARD = 1, ///< to the previous one; any value but 0 acts so
};

/// Marks a control that `moveFocus` may give the focus to. A second base beside the control's toolkit class.
struct OSTREL_WX_API Focusable {};

// Sizes. Design pixels are pixels at 96 DPI; every size that the library states is in them. A screen pixel is a design
// pixel times the system's DPI over 96, rounded to the nearest integer, as `wxWindow::FromDIP` without a window does.
// On Linux the toolkit's own pixels are independent of the screen, and all of these are the identity. The system is
// asked at the first call: a host on Windows settles its program's DPI awareness before.

/// `value` design pixels in screen pixels.
OSTREL_WX_API int scaleByDpi(int value);

/// Both coordinates, each scaled on its own.
OSTREL_WX_API Pixel scaleByDpi(Pixel pixel);

/// Both components, each scaled on its own. A component of -1, the toolkit's "default", stays -1.
OSTREL_WX_API wxSize scaleByDpi(wxSize size);

/// Both components, each scaled on its own. A component of -1, the toolkit's "default", stays -1.
OSTREL_WX_API wxPoint scaleByDpi(wxPoint point);

/// The bitmap with every pixel repeated `scaleByDpi(1)` times in both directions, without smoothing. The factor is a
/// whole number on purpose: nothing changes at 125 %, and at 150 % a bitmap is doubled. An invalid bitmap, and any
/// bitmap where the factor is 1, comes back as it is.
OSTREL_WX_API wxBitmap scaleByDpi(wxBitmap bitmap);

// Fonts

/// `font` at `factor` times the library's text height of 12 design pixels, in screen pixels, truncated.
/// @param factor a number above 0 that leaves at least one pixel
OSTREL_WX_API wxFont setDefaultFontSize(wxFont font, float factor);

/// The font of all static texts: the regular, upright, not underlined face of `font`, 12 design pixels high, made bold
/// and italic as `flags` say. An invalid font stands for the one that the system gives its controls.
OSTREL_WX_API wxFont setupStaticTextFont(wxFont font, Flags<TextFlag> flags);

// Icons

/// Makes `bitmap` the window's icon. An invalid bitmap takes the icon away.
OSTREL_WX_API void setIcon(wxTopLevelWindow* window, const wxBitmap& bitmap);

/// Makes the product's icon, 64 × 64 pixels, the window's icon.
OSTREL_WX_API void setNimbraIcon(wxTopLevelWindow* window);

// Native handles. A `WindowHandle` is an HWND on Windows and an X11 window id on Linux, and may belong to a window of
// another toolkit or, on Linux, of another program. A null handle has no owner and an empty region.

/// The window's native handle. On Linux only top-level windows have a native window from the start: asking for another
/// window's handle gives it one, and one that draws on its parent answers with its parent's handle.
OSTREL_WX_API WindowHandle getWindowNativeHandle(wxWindow* window);

/// The owner: the window that `handle` stays in front of. Null if there is none.
/// On Linux, the window that its transient-for hint (WM_TRANSIENT_FOR) names.
OSTREL_WX_API WindowHandle getOwnerAsNativeHandle(WindowHandle handle);

/// Makes `owner` the owner of `handle`; a null `owner` leaves it without one. On Linux, sets the transient-for hint.
/// @return `handle`, not the previous owner
OSTREL_WX_API WindowHandle setOwnerFromNativeHandle(WindowHandle handle, WindowHandle owner);

/// The window with its frame, in screen coordinates; empty at (0, 0) if there is no such window.
/// On Linux the frame is as wide as the window manager says (_NET_FRAME_EXTENTS), and none if it says nothing.
OSTREL_WX_API Bucket getScreenRegion(WindowHandle handle);

// Finding windows

/// The first of the toolkit's top-level windows, in their order of creation, that has this handle; null if none has.
OSTREL_WX_API wxTopLevelWindow* findTopLevelWxWindowForNativeHandle(WindowHandle handle);

/// The first window at or below `root` that has this handle, depth first, the last child first; null if none has, or
/// if `handle` is null. On Linux a child window is found once its handle has been asked for.
OSTREL_WX_API wxWindow* findWindowByNativeHandle(wxWindow* root, WindowHandle handle);

/// The innermost window at or below `root` under the screen point `position`; null if there is none. Hidden and
/// disabled windows are left out together with all that is in them, unless `flags` include them. A child is found even
/// outside its parent. Of overlapping siblings the one that comes first among the children is found.
OSTREL_WX_API wxWindow* findWindowByPosition(wxWindow* root, Pixel position, Flags<FindWindowFlag> flags);

// Displays. The display nearest to a point is the one whose area has the least distance to it; of several equally near
// ones, the first. Without any display the toolkit's own assertion answers.

/// The region of the display nearest to `position`, in screen coordinates.
OSTREL_WX_API Bucket getMonitorRegionByPoint(Pixel position, MonitorRegionType type);

/// The region of the display nearest to the middle of the window.
OSTREL_WX_API Bucket getMonitorRegionByWindow(wxWindow* window, MonitorRegionType type);

/// Moves the window so that its top left corner is as near to the screen point `position` as the work area of the
/// display nearest to it allows. What does not fit is aligned to the left or the top.
OSTREL_WX_API void smartPositionWindow(wxWindow* window, Pixel position);

// Focus

/// Gives the focus to the next, or previous, of the siblings of `window` that can take it and derives from `Focusable`;
/// after the last one comes the first. Nothing happens if there is none besides `window`, or without a parent.
OSTREL_WX_API void moveFocus(wxWindow* window, MoveFocusDirection direction);

// Scope guards

/// Clips a device context to a rectangle as long as it lives. Afterwards there is no clipping at all: an earlier
/// region is not restored, so guards on one device context do not nest.
class ScopedClippingRegion {
public:
    /// @param rectangle in logical coordinates of `dc`, which has to outlive the guard
    ScopedClippingRegion(wxDC& dc, wxRect rectangle)
        : _dc(dc) {
        _dc.SetClippingRegion(rectangle);
    }
    ~ScopedClippingRegion() { _dc.DestroyClippingRegion(); }
    ScopedClippingRegion(const ScopedClippingRegion&) = delete;
    ScopedClippingRegion& operator=(const ScopedClippingRegion&) = delete;

private:
    wxDC& _dc;
};

/// Keeps a window from repainting as long as it lives.
class ScopedWindowFreezer {
public:
    /// @param window has to outlive the guard
    explicit ScopedWindowFreezer(wxWindow* window)
        : _window(window) {
        _window->Freeze();
    }
    ~ScopedWindowFreezer() { _window->Thaw(); }
    ScopedWindowFreezer(const ScopedWindowFreezer&) = delete;
    ScopedWindowFreezer& operator=(const ScopedWindowFreezer&) = delete;

private:
    wxWindow* _window;
};

} // namespace Ostrel::Wx

namespace Ostrel {

template <>
struct IsFlag<Wx::TextFlag> : std::true_type {};
template <>
struct IsFlag<Wx::FindWindowFlag> : std::true_type {};

} // namespace Ostrel
