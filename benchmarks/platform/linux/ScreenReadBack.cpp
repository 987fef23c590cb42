#include "platform/ScreenReadBack.h"

#include <cstddef>
#include <stdexcept>

#include <sys/ipc.h>
#include <sys/shm.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>

/// XShmGetImage over a connection of its own.
struct ScreenReadBack::Impl {
    ::Display* display = nullptr;
    XShmSegmentInfo segment{};
    XImage* image = nullptr;
    Ostrel::Bucket region;
};

ScreenReadBack::ScreenReadBack(const Ostrel::Bucket& region)
    : _impl(new Impl{.region = region}) {
    _impl->display = XOpenDisplay(nullptr);
    if (_impl->display == nullptr || XShmQueryExtension(_impl->display) == False) {
        throw std::runtime_error("the X server shares no memory");
    }
    ::Display* const display = _impl->display;
    const int screen = DefaultScreen(display);
    _impl->image = XShmCreateImage(
        display, DefaultVisual(display, screen), static_cast<unsigned>(DefaultDepth(display, screen)), ZPixmap, nullptr,
        &_impl->segment, static_cast<unsigned>(region.width()), static_cast<unsigned>(region.height()));
    const auto size =
        static_cast<std::size_t>(_impl->image->bytes_per_line) * static_cast<std::size_t>(region.height());
    _impl->segment.shmid = shmget(IPC_PRIVATE, size, IPC_CREAT | 0600);
    void* const memory = shmat(_impl->segment.shmid, nullptr, 0);
    if (memory == reinterpret_cast<void*>(-1)) {
        throw std::runtime_error("the system shares no memory");
    }
    _impl->segment.shmaddr = static_cast<char*>(memory);
    _impl->image->data = _impl->segment.shmaddr;
    XShmAttach(display, &_impl->segment);
    XSync(display, False);
    shmctl(_impl->segment.shmid, IPC_RMID, nullptr);
}

ScreenReadBack::~ScreenReadBack() {
    XShmDetach(_impl->display, &_impl->segment);
    _impl->image->data = nullptr; // belongs to the segment
    XDestroyImage(_impl->image);
    shmdt(_impl->segment.shmaddr);
    XCloseDisplay(_impl->display);
}

void ScreenReadBack::read() {
    XShmGetImage(_impl->display, DefaultRootWindow(_impl->display), _impl->image, _impl->region.min.x,
                 _impl->region.min.y, AllPlanes);
}
