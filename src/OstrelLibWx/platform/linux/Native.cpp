#include "platform/Native.h"

#include <algorithm>
#include <memory>

#include <X11/Xatom.h>
#include <gdk/gdkx.h>
#include <gtk/gtk.h>

#include <wx/event.h>
#include <wx/window.h>

namespace Ostrel::Detail {

namespace {

/// Requests of the X server about windows that can vanish at any time: an error is an answer, not the program's end.
class XErrorTrap {
public:
    explicit XErrorTrap(GdkDisplay* display)
        : _display(display) {
        gdk_x11_display_error_trap_push(_display);
    }
    ~XErrorTrap() { gdk_x11_display_error_trap_pop_ignored(_display); }
    XErrorTrap(const XErrorTrap&) = delete;
    XErrorTrap& operator=(const XErrorTrap&) = delete;

private:
    GdkDisplay* _display;
};

/// The toolkit's connection to the X server; null where there is none.
GdkDisplay* getX11Display() {
    GdkDisplay* const display = gdk_display_get_default();
    return GDK_IS_X11_DISPLAY(display) ? display : nullptr;
}

Window toX11(WindowHandle window) {
    return static_cast<Window>(window.value());
}

/// The native window that `widget` draws into, if there is one already.
WindowHandle findX11Window(GtkWidget* widget) {
    GdkWindow* const window = widget == nullptr ? nullptr : gtk_widget_get_window(widget);
    if (window == nullptr || !GDK_IS_X11_WINDOW(window) || gdk_window_is_destroyed(window) != FALSE ||
        gdk_window_has_native(window) == FALSE) {
        return {};
    }
    return WindowHandle(gdk_x11_window_get_xid(window));
}

/// Widths of the window manager's frame, in the order of _NET_FRAME_EXTENTS.
struct FrameExtents {
    int left{}, right{}, top{}, bottom{};
};

/// Extended Window Manager Hints 1.5, "_NET_FRAME_EXTENTS": left, right, top, bottom, CARDINAL[4]/32.
FrameExtents getFrameExtents(::Display* display, Window window) {
    constexpr long COUNT = 4;
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long remaining = 0;
    unsigned char* data = nullptr;
    const Atom property = XInternAtom(display, "_NET_FRAME_EXTENTS", False);
    const int status = XGetWindowProperty(display, window, property, 0, COUNT, False, XA_CARDINAL, &type, &format,
                                          &count, &remaining, &data);
    const std::unique_ptr<unsigned char, int (*)(void*)> owner(data, XFree);
    if (status != Success || type != XA_CARDINAL || format != 32 || count != COUNT) {
        return {};
    }
    // Xlib hands out 32-bit items as longs, whatever the size of a long.
    const long* const widths = reinterpret_cast<const long*>(data);
    const auto width = [widths](int index) { return static_cast<int>(std::clamp(widths[index], 0L, 0xFFFFL)); };
    return {width(0), width(1), width(2), width(3)};
}

} // namespace

wchar_t getTypedCharacter(const wxKeyEvent& event) {
    return event.GetUnicodeKey();
}

void prepareToolkit() {
    gdk_set_allowed_backends("x11");
}

WindowHandle requireNativeHandle(wxWindow& window) {
    GtkWidget* const widget = window.GetHandle();
    if (widget == nullptr) {
        return {};
    }
    if (gtk_widget_get_realized(widget) == FALSE) {
        gtk_widget_realize(widget);
    }
    if (GdkWindow* const gdkWindow = gtk_widget_get_window(widget)) {
        gdk_window_ensure_native(gdkWindow);
    }
    return findX11Window(widget);
}

WindowHandle findNativeHandle(const wxWindow& window) {
    return findX11Window(window.GetHandle());
}

WindowHandle getNativeOwner(WindowHandle window) {
    GdkDisplay* const gdkDisplay = getX11Display();
    if (gdkDisplay == nullptr || !window) {
        return {};
    }
    ::Display* const display = GDK_DISPLAY_XDISPLAY(gdkDisplay);
    const XErrorTrap trap(gdkDisplay);
    Window owner = None;
    if (XGetTransientForHint(display, toX11(window), &owner) == 0 || owner == DefaultRootWindow(display)) {
        return {}; // the root window stands for the program's other windows, not for an owner
    }
    return WindowHandle(owner);
}

void setNativeOwner(WindowHandle window, WindowHandle owner) {
    GdkDisplay* const gdkDisplay = getX11Display();
    if (gdkDisplay == nullptr || !window) {
        return;
    }
    ::Display* const display = GDK_DISPLAY_XDISPLAY(gdkDisplay);
    const XErrorTrap trap(gdkDisplay);
    if (owner) {
        XSetTransientForHint(display, toX11(window), toX11(owner));
    } else {
        XDeleteProperty(display, toX11(window), XA_WM_TRANSIENT_FOR);
    }
    XFlush(display);
}

Bucket getNativeScreenRegion(WindowHandle window) {
    GdkDisplay* const gdkDisplay = getX11Display();
    if (gdkDisplay == nullptr || !window) {
        return {};
    }
    ::Display* const display = GDK_DISPLAY_XDISPLAY(gdkDisplay);
    const XErrorTrap trap(gdkDisplay);
    Window root = None;
    Window child = None;
    int x = 0;
    int y = 0;
    unsigned width = 0;
    unsigned height = 0;
    unsigned border = 0;
    unsigned depth = 0;
    if (XGetGeometry(display, toX11(window), &root, &x, &y, &width, &height, &border, &depth) == 0 ||
        XTranslateCoordinates(display, toX11(window), root, 0, 0, &x, &y, &child) == 0) {
        return {};
    }
    const FrameExtents frame = getFrameExtents(display, toX11(window));
    const int edge = static_cast<int>(border);
    return {{x - edge - frame.left, y - edge - frame.top},
            {x + static_cast<int>(width) + edge + frame.right, y + static_cast<int>(height) + edge + frame.bottom}};
}

} // namespace Ostrel::Detail
