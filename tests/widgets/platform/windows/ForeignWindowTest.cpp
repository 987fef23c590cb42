// Windows alone: a window that the toolkit knows nothing of.
#include "support/WidgetTest.h"

#include <windows.h>

namespace {

using namespace Ostrel;

class ForeignWindow : public WidgetTest {};

TEST_F(ForeignWindow, HasARegionAndOwnsAWindowOfTheLibrary) {
    const HWND window = CreateWindowExW(0, L"STATIC", L"Foreign", WS_POPUP, 300, 200, 150, 90, nullptr, nullptr,
                                        GetModuleHandleW(nullptr), nullptr);
    const WindowHandle handle = WindowHandle::fromPointer(window);
    EXPECT_EQ(Wx::getScreenRegion(handle), (Bucket{{300, 200}, {450, 290}}));
    const WindowHandle top = Wx::getWindowNativeHandle(&frame());
    EXPECT_EQ(Wx::setOwnerFromNativeHandle(top, handle), top);
    EXPECT_EQ(Wx::getOwnerAsNativeHandle(top), handle);
    EXPECT_EQ(GetWindow(static_cast<HWND>(top.toPointer()), GW_OWNER), window);
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle(handle), nullptr);
    Wx::setOwnerFromNativeHandle(top, {});
    EXPECT_TRUE(Wx::getOwnerAsNativeHandle(top).isNull());

    EXPECT_TRUE(DestroyWindow(window));
    EXPECT_EQ(Wx::getScreenRegion(handle), Bucket{});
    EXPECT_TRUE(Wx::getOwnerAsNativeHandle(handle).isNull());
}

} // namespace
