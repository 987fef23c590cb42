#include "HostWindow.h"

#include <stdexcept>
#include <string_view>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <glib-unix.h>
#include <glib.h>

namespace {

constexpr std::string_view TEXT = "This window is the host's own.";
constexpr unsigned long WHITE = 0xffffff;

} // namespace

struct HostWindow::Impl {
    Display* display = nullptr;
    Window window = 0;
    Atom deleteWindow = 0;
    GMainLoop* loop = nullptr;
    std::function<void()> tick;

    void handleEvents();
};

/// All that Xlib has read or can read without waiting.
void HostWindow::Impl::handleEvents() {
    while (XPending(display) > 0) {
        XEvent event;
        XNextEvent(display, &event);
        if (event.type == Expose) {
            XDrawString(display, window, DefaultGC(display, DefaultScreen(display)), 12, 24, TEXT.data(),
                        static_cast<int>(TEXT.size()));
        } else if (event.type == ClientMessage && static_cast<Atom>(event.xclient.data.l[0]) == deleteWindow) {
            g_main_loop_quit(loop);
        }
    }
}

HostWindow::HostWindow(const std::string& title, int width, int height)
    : _impl(std::make_unique<Impl>()) {
    _impl->display = XOpenDisplay(nullptr);
    if (_impl->display == nullptr) {
        throw std::runtime_error("the X server could not be reached");
    }
    _impl->window = XCreateSimpleWindow(_impl->display, DefaultRootWindow(_impl->display), 0, 0,
                                        static_cast<unsigned>(width), static_cast<unsigned>(height), 0, 0, WHITE);
    XStoreName(_impl->display, _impl->window, title.c_str());
    XSelectInput(_impl->display, _impl->window, ExposureMask);
    _impl->deleteWindow = XInternAtom(_impl->display, "WM_DELETE_WINDOW", False);
    XSetWMProtocols(_impl->display, _impl->window, &_impl->deleteWindow, 1);
    XMapWindow(_impl->display, _impl->window);
    XFlush(_impl->display);
    _impl->loop = g_main_loop_new(nullptr, FALSE);
}

HostWindow::~HostWindow() {
    g_main_loop_unref(_impl->loop);
    XDestroyWindow(_impl->display, _impl->window);
    XCloseDisplay(_impl->display);
}

Ostrel::WindowHandle HostWindow::handle() const {
    return Ostrel::WindowHandle(_impl->window);
}

void HostWindow::run(int intervalMs, std::function<void()> tick) {
    _impl->tick = std::move(tick);
    const auto onInput = [](gint, GIOCondition, gpointer data) -> gboolean {
        static_cast<Impl*>(data)->handleEvents();
        return G_SOURCE_CONTINUE;
    };
    const auto onTimer = [](gpointer data) -> gboolean {
        auto* impl = static_cast<Impl*>(data);
        impl->handleEvents(); // what an answer to a request brought in with it
        impl->tick();
        return G_SOURCE_CONTINUE;
    };
    const guint input = g_unix_fd_add(ConnectionNumber(_impl->display), G_IO_IN, onInput, _impl.get());
    const guint timer = g_timeout_add(static_cast<guint>(intervalMs), onTimer, _impl.get());
    g_main_loop_run(_impl->loop);
    g_source_remove(timer);
    g_source_remove(input);
    _impl->tick = nullptr;
}

void HostWindow::quit() {
    g_main_loop_quit(_impl->loop);
}
