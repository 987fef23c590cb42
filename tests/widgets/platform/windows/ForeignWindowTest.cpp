// Windows alone: a window that the toolkit knows nothing of.
#include "support/WidgetTest.h"

#include <windows.h>

#include <OstrelLibWx/WindowUtils.h>

namespace {

using namespace Ostrel;

class ForeignWindow : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        _window = CreateWindowExW(0, L"STATIC", L"Foreign", WS_POPUP, 300, 200, 150, 90, nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr);
        ASSERT_NE(_window, nullptr);
    }
    void TearDown() override {
        DestroyWindow(_window);
        WidgetTest::TearDown();
    }
    WindowHandle handle() const { return WindowHandle::fromPointer(_window); }

    HWND _window{};
};

TEST_F(ForeignWindow, HasARegion) {
    EXPECT_EQ(Wx::getScreenRegion(handle()), (Bucket{{300, 200}, {450, 290}}));
    DestroyWindow(_window);
    EXPECT_EQ(Wx::getScreenRegion(handle()), Bucket{});
    EXPECT_TRUE(Wx::getOwnerAsNativeHandle(handle()).isNull());
}

TEST_F(ForeignWindow, OwnsAWindowOfTheLibrary) {
    const WindowHandle top = Wx::getWindowNativeHandle(&frame());
    EXPECT_EQ(Wx::setOwnerFromNativeHandle(top, handle()), top);
    EXPECT_EQ(Wx::getOwnerAsNativeHandle(top), handle());
    EXPECT_EQ(GetWindow(static_cast<HWND>(top.toPointer()), GW_OWNER), _window);
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle(handle()), nullptr);
    Wx::setOwnerFromNativeHandle(top, {});
    EXPECT_TRUE(Wx::getOwnerAsNativeHandle(top).isNull());
}

} // namespace
