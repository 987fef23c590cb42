// X11 alone: a window of another connection, as of another program.
#include "support/WidgetTest.h"

#include <OstrelLibWx/WindowUtils.h>

#include <X11/Xlib.h>

#include <X11/Xatom.h>

namespace {

using namespace Ostrel;

class ForeignWindow : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        _display = XOpenDisplay(nullptr);
        ASSERT_NE(_display, nullptr);
        _window = XCreateSimpleWindow(_display, DefaultRootWindow(_display), 300, 200, 150, 90, 2, 0, 0);
        XSync(_display, False);
    }
    void TearDown() override {
        if (_display != nullptr) {
            XCloseDisplay(_display);
        }
        WidgetTest::TearDown();
    }
    WindowHandle handle() const { return WindowHandle(_window); }

    ::Display* _display{};
    ::Window _window{};
};

TEST_F(ForeignWindow, HasARegionWithItsBorder) {
    EXPECT_EQ(Wx::getScreenRegion(handle()), (Bucket{{300, 200}, {454, 294}}));
    // What a window manager would tell about the frame that it puts around.
    const long extents[] = {3, 4, 20, 5};
    XChangeProperty(_display, _window, XInternAtom(_display, "_NET_FRAME_EXTENTS", False), XA_CARDINAL, 32,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(extents), 4);
    XSync(_display, False);
    EXPECT_EQ(Wx::getScreenRegion(handle()), (Bucket{{297, 180}, {458, 299}}));
    XDestroyWindow(_display, _window);
    XSync(_display, False);
    EXPECT_EQ(Wx::getScreenRegion(handle()), Bucket{});
    EXPECT_TRUE(Wx::getOwnerAsNativeHandle(handle()).isNull());
    EXPECT_EQ(Wx::setOwnerFromNativeHandle(handle(), handle()), handle());
}

TEST_F(ForeignWindow, OwnsAWindowOfTheLibrary) {
    const WindowHandle top = Wx::getWindowNativeHandle(&frame());
    Wx::setOwnerFromNativeHandle(top, handle());
    EXPECT_EQ(Wx::getOwnerAsNativeHandle(top), handle());
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle(handle()), nullptr);
    Wx::setOwnerFromNativeHandle(handle(), top);
    ::Window owner = 0;
    EXPECT_NE(XGetTransientForHint(_display, _window, &owner), 0);
    EXPECT_EQ(WindowHandle(owner), top);
    Wx::setOwnerFromNativeHandle(top, {});
}

TEST_F(ForeignWindow, TransientForTheWholeProgramHasNoOwner) {
    XSetTransientForHint(_display, _window, DefaultRootWindow(_display));
    XSync(_display, False);
    EXPECT_TRUE(Wx::getOwnerAsNativeHandle(handle()).isNull());
}

} // namespace
