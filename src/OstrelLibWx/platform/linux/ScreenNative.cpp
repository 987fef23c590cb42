#include "platform/ScreenNative.h"

#include <cstddef>

#include <sys/ipc.h>
#include <sys/shm.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>
#include <gdk/gdkx.h>

#include "models/PixelConversion.h"

namespace Ostrel::Detail {

namespace {

/// Memory that the X server writes into, where it is on this machine. To make and to map it takes several times as long
/// as to read a few pixels through it, so a small one is kept for the next time. The system takes it back when the
/// process ends.
class SharedMemory {
public:
    explicit SharedMemory(::Display* display)
        : _display(display) {}

    /// Provides that many bytes. @return false if they are not to be had
    bool require(std::size_t size) {
        if (_segment.shmaddr != nullptr && size <= _size) {
            return true;
        }
        drop();
        _segment.shmid = shmget(IPC_PRIVATE, size, IPC_CREAT | 0600);
        if (_segment.shmid < 0) {
            return false;
        }
        void* const memory = shmat(_segment.shmid, nullptr, 0);
        if (memory != reinterpret_cast<void*>(-1)) {
            _segment.shmaddr = static_cast<char*>(memory);
            XShmAttach(_display, &_segment);
            XSync(_display, False); // the server finds the segment by its id only until the next line
            _size = size;
        }
        shmctl(_segment.shmid, IPC_RMID, nullptr); // goes when nobody has it attached any more
        return _segment.shmaddr != nullptr;
    }

    void drop() {
        if (_segment.shmaddr != nullptr) {
            XShmDetach(_display, &_segment);
            shmdt(_segment.shmaddr);
            _segment.shmaddr = nullptr;
            _size = 0;
        }
    }

    void dropIfLarge() {
        constexpr std::size_t KEPT_BYTES = 1U << 20U; // 512 × 512 pixels
        if (_size > KEPT_BYTES) {
            drop();
        }
    }

    ::Display* getDisplay() const { return _display; }
    XShmSegmentInfo& getSegment() { return _segment; }

private:
    ::Display* _display;
    XShmSegmentInfo _segment{};
    std::size_t _size = 0;
};

SharedMemory& getSharedMemory(::Display* display) {
    static SharedMemory memory(display);
    if (memory.getDisplay() != display) {
        memory = SharedMemory(display); // the other one was closed, and the server let go of the memory with it
    }
    return memory;
}

/// A part of the root window as it is now, straight from the X server: the graphics library would answer with what it
/// has read earlier.
class ScreenPicture {
public:
    ScreenPicture(GdkDisplay* display, int x, int y, unsigned width, unsigned height)
        : _gdkDisplay(display)
        , _display(gdk_x11_display_get_xdisplay(display))
        , _shared(getSharedMemory(_display)) {
        gdk_x11_display_error_trap_push(_gdkDisplay);
        if (!readShared(x, y, width, height)) {
            dropImage();
            _shared.drop();
            _image = XGetImage(_display, DefaultRootWindow(_display), x, y, width, height, AllPlanes, ZPixmap);
        }
    }
    ~ScreenPicture() {
        dropImage();
        _shared.dropIfLarge();
        gdk_x11_display_error_trap_pop_ignored(_gdkDisplay);
    }
    ScreenPicture(const ScreenPicture&) = delete;
    ScreenPicture& operator=(const ScreenPicture&) = delete;

    /// Null if the server refused.
    XImage* get() const { return _image; }

private:
    bool readShared(int x, int y, unsigned width, unsigned height) {
        if (XShmQueryExtension(_display) == False) {
            return false;
        }
        const int screen = DefaultScreen(_display);
        _image = XShmCreateImage(_display, DefaultVisual(_display, screen),
                                 static_cast<unsigned>(DefaultDepth(_display, screen)), ZPixmap, nullptr,
                                 &_shared.getSegment(), width, height);
        if (_image == nullptr || !_shared.require(static_cast<std::size_t>(_image->bytes_per_line) * height)) {
            return false;
        }
        _image->data = _shared.getSegment().shmaddr;
        return XShmGetImage(_display, DefaultRootWindow(_display), _image, x, y, AllPlanes) != False;
    }

    void dropImage() {
        if (_image != nullptr) {
            if (_image->obdata != nullptr) {
                _image->data = nullptr; // belongs to the segment
            }
            XDestroyImage(_image);
            _image = nullptr;
        }
    }

    GdkDisplay* _gdkDisplay;
    ::Display* _display;
    SharedMemory& _shared;
    XImage* _image = nullptr;
};

bool hasBytesOfBgrx(const XImage& image) {
    return image.bits_per_pixel == 32 && image.byte_order == LSBFirst && image.red_mask == 0xFF0000 &&
           image.green_mask == 0xFF00 && image.blue_mask == 0xFF;
}

/// One pixel of a screen of any other kind.
Rgb readPixel(XImage& image, int x, int y) {
    const unsigned long pixel = XGetPixel(&image, x, y);
    const auto getChannel = [pixel](unsigned long mask) {
        return mask == 0 ? 0.0F : static_cast<float>(pixel & mask) / static_cast<float>(mask);
    };
    return {getChannel(image.red_mask), getChannel(image.green_mask), getChannel(image.blue_mask), 1.0F};
}

} // namespace

bool readScreen(const Bucket& region, BitmapImpl<Rgb>& target, Pixel place) {
    GdkDisplay* const display = gdk_display_get_default();
    if (!GDK_IS_X11_DISPLAY(display)) {
        return false;
    }
    // The toolkit's coordinates are the server's divided by this.
    const int scale = gdk_window_get_scale_factor(gdk_screen_get_root_window(gdk_display_get_default_screen(display)));
    const ScreenPicture picture(display, region.min.x * scale, region.min.y * scale,
                                static_cast<unsigned>(region.width() * scale),
                                static_cast<unsigned>(region.height() * scale));
    XImage* const image = picture.get();
    if (image == nullptr) {
        return false;
    }
    const auto width = static_cast<std::size_t>(region.width());
    const bool direct = scale == 1 && hasBytesOfBgrx(*image);
    for (int y = 0; y < region.height(); ++y) {
        const ArrayView<Rgb> row = target.row(place.y + y).subspan(static_cast<std::size_t>(place.x), width);
        if (direct) {
            const char* const source = image->data + static_cast<std::ptrdiff_t>(image->bytes_per_line) * y;
            convertToPixels(reinterpret_cast<const unsigned char*>(source), ByteOrder::BGRX, row);
            continue;
        }
        for (int x = 0; x < region.width(); ++x) {
            row[static_cast<std::size_t>(x)] = readPixel(*image, x * scale, y * scale);
        }
    }
    return true;
}

} // namespace Ostrel::Detail
