// X11 alone: a window of another connection, as of another program.
#include "support/WidgetTest.h"

#include <X11/Xlib.h>

#include <X11/Xatom.h>

namespace {

using namespace Ostrel;

class ForeignWindow : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        display = XOpenDisplay(nullptr);
        ASSERT_NE(display, nullptr);
        window = XCreateSimpleWindow(display, DefaultRootWindow(display), 300, 200, 150, 90, 2, 0, 0);
        XSync(display, False);
        handle = WindowHandle(window);
    }
    void TearDown() override {
        if (display != nullptr) {
            XCloseDisplay(display);
        }
        WidgetTest::TearDown();
    }

    ::Display* display{};
    ::Window window{};
    WindowHandle handle;
};

TEST_F(ForeignWindow, HasARegionWithItsBorder) {
    EXPECT_EQ(Wx::getScreenRegion(handle), (Bucket{{300, 200}, {454, 294}}));
    // What a window manager would tell about the frame that it puts around.
    const long extents[] = {3, 4, 20, 5};
    XChangeProperty(display, window, XInternAtom(display, "_NET_FRAME_EXTENTS", False), XA_CARDINAL, 32,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(extents), 4);
    XSync(display, False);
    EXPECT_EQ(Wx::getScreenRegion(handle), (Bucket{{297, 180}, {458, 299}}));
    XDestroyWindow(display, window);
    XSync(display, False);
    EXPECT_EQ(Wx::getScreenRegion(handle), Bucket{});
    EXPECT_TRUE(Wx::getOwnerAsNativeHandle(handle).isNull());
    EXPECT_EQ(Wx::setOwnerFromNativeHandle(handle, handle), handle);
}

TEST_F(ForeignWindow, OwnsAWindowOfTheLibraryAndIsOwned) {
    const WindowHandle top = Wx::getWindowNativeHandle(&frame());
    Wx::setOwnerFromNativeHandle(top, handle);
    EXPECT_EQ(Wx::getOwnerAsNativeHandle(top), handle);
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle(handle), nullptr);
    Wx::setOwnerFromNativeHandle(handle, top);
    EXPECT_EQ(Wx::getOwnerAsNativeHandle(handle), top);
    Wx::setOwnerFromNativeHandle(top, {});
    XSetTransientForHint(display, window, DefaultRootWindow(display)); // for the whole program
    XSync(display, False);
    EXPECT_TRUE(Wx::getOwnerAsNativeHandle(handle).isNull());
}

} // namespace
