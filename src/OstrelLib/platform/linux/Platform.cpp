#include "platform/Platform.h"

#include <OstrelLib/String.h>

#include <dlfcn.h>
#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <langinfo.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <utility>

namespace Ostrel::Platform {

namespace {

/// Unit of the setting "gtk-xft-dpi", and the resolution at which text has its nominal size.
constexpr float XFT_DPI_UNITS_PER_DPI = 1024.0f;
constexpr float NOMINAL_DPI = 96.0f;

/// The default display, or null if GTK has not been initialised: nothing here initialises it for the host.
GdkDisplay* findX11Display() {
    GdkDisplay* display = gdk_display_get_default();
    return display != nullptr && GDK_IS_X11_DISPLAY(display) ? display : nullptr;
}

/// The top-level widget of an X11 window of this process; null for windows of other programs or without a widget.
GtkWidget* findTopLevelWidget(WindowHandle window) {
    GdkDisplay* display = findX11Display();
    if (display == nullptr) {
        return nullptr;
    }
    GdkWindow* gdkWindow = gdk_x11_window_lookup_for_display(display, static_cast<Window>(window.value()));
    if (gdkWindow == nullptr) {
        return nullptr;
    }
    gpointer widget = nullptr;
    gdk_window_get_user_data(gdkWindow, &widget);
    return widget != nullptr && GTK_IS_WIDGET(widget) ? gtk_widget_get_toplevel(GTK_WIDGET(widget)) : nullptr;
}

/// A widget made insensitive; GTK's thread alone may use it.
class DisabledWidget {
public:
    explicit DisabledWidget(WindowHandle window) {
        GtkWidget* widget = findTopLevelWidget(window);
        if (widget != nullptr && gtk_widget_get_sensitive(widget)) {
            _widget = widget;
            g_object_add_weak_pointer(G_OBJECT(widget), &_widget);
            // An insensitive widget loses the focus, and GTK does not give it back.
            _focus = GTK_IS_WINDOW(widget) ? gtk_window_get_focus(GTK_WINDOW(widget)) : nullptr;
            if (_focus != nullptr) {
                g_object_add_weak_pointer(G_OBJECT(_focus), &_focus);
            }
            gtk_widget_set_sensitive(widget, FALSE);
        }
    }
    DisabledWidget(const DisabledWidget&) = delete;
    DisabledWidget& operator=(const DisabledWidget&) = delete;
    ~DisabledWidget() {
        if (_widget != nullptr) {
            g_object_remove_weak_pointer(G_OBJECT(_widget), &_widget);
            gtk_widget_set_sensitive(GTK_WIDGET(_widget), TRUE);
        }
        if (_focus != nullptr) {
            g_object_remove_weak_pointer(G_OBJECT(_focus), &_focus);
            if (_widget != nullptr && gtk_window_get_focus(GTK_WINDOW(_widget)) == nullptr &&
                gtk_widget_get_toplevel(GTK_WIDGET(_focus)) == _widget) {
                giveFocus(GTK_WIDGET(_focus));
            }
        }
    }

private:
    static void giveFocus(GtkWidget* widget) {
        if (GTK_IS_ENTRY(widget)) {
            gtk_entry_grab_focus_without_selecting(GTK_ENTRY(widget)); // the next key must not replace its text
        } else {
            gtk_widget_grab_focus(widget);
        }
    }

    gpointer _widget = nullptr; ///< null once the widget is destroyed
    gpointer _focus = nullptr;  ///< the widget in it that had the focus; null as well once it is destroyed
};

gboolean callAndRemove(gpointer function) {
    (*static_cast<Function<void()>*>(function))();
    return G_SOURCE_REMOVE;
}

void destroyFunction(gpointer function) {
    delete static_cast<Function<void()>*>(function);
}

/// Calls `function` on the main thread: at once if this is it, else from the main loop. Calls from one thread keep
/// their order.
void callOnMainThread(Function<void()> function) {
    if (isMainThread()) {
        function();
        return;
    }
    auto owned = std::make_unique<Function<void()>>(std::move(function));
    g_idle_add_full(G_PRIORITY_HIGH, callAndRemove, owned.release(), destroyFunction);
}

class WindowRestorer : public Object {
public:
    explicit WindowRestorer(WindowHandle window) {
        callOnMainThread([widget = _widget, window] { widget->emplace(window); });
    }
    ~WindowRestorer() override {
        callOnMainThread([widget = std::move(_widget)] { widget->reset(); });
    }

private:
    /// Shared with the calls that may still wait in the main loop.
    SharedPtr<Optional<DisabledWidget>> _widget = std::make_shared<Optional<DisabledWidget>>();
};

} // namespace

bool isMainThread() {
    return syscall(SYS_gettid) == getpid();
}

bool runSingleEventLoopIteration(bool processOnlyWaiting) {
    return g_main_context_iteration(nullptr, processOnlyWaiting ? FALSE : TRUE) != FALSE;
}

float getFontScale() {
    GtkSettings* settings = findX11Display() == nullptr ? nullptr : gtk_settings_get_default();
    if (settings == nullptr) {
        return 1.0f;
    }
    gint xftDpi = 0;
    g_object_get(settings, "gtk-xft-dpi", &xftDpi, nullptr);
    return xftDpi <= 0 ? 1.0f : static_cast<float>(xftDpi) / XFT_DPI_UNITS_PER_DPI / NOMINAL_DPI;
}

wchar_t decimalPointCharacter() {
    // Read as UTF-8 whatever the locale's own encoding: separators beyond ASCII are found in UTF-8 locales alone, and
    // where the host has chosen a language for numbers only, the C library would decode them as plain ASCII.
    const String decoded = String::fromUtf8(nl_langinfo(RADIXCHAR));
    return decoded.isEmpty() || decoded[0] == 0xFFFD ? L'.' : decoded[0];
}

std::size_t getLargePageSize() noexcept {
    return std::size_t{2} << 20; // of every x86-64 processor
}

void useLargePages(void* memory, std::size_t byteCount) noexcept {
    (void)madvise(memory, byteCount, MADV_HUGEPAGE); // an advice: a system that knows none of it goes on as before
}

void* getModuleHandleFromAddress(const void* address) noexcept {
    Dl_info info{};
    return dladdr(address, &info) != 0 ? info.dli_fbase : nullptr;
}

AutoPtr<Polymorphic> disableWindow(WindowHandle window) {
    return std::make_unique<WindowRestorer>(window);
}

} // namespace Ostrel::Platform
