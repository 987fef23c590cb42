// Windows alone: dialogs in front of a window that the toolkit knows nothing of, and what they leave behind.
#include "support/WidgetTest.h"
#include "widgets/ModalDriver.h"

#include <windows.h>

#include <OstrelLibWx/MessageDialog.h>
#include <OstrelLibWx/WindowUtils.h>

#include <future>

namespace {

using namespace Ostrel;
using Wx::MessageDialogIcon;

class MessageDialogOfForeignHost : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        _window = CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 200, 150, 400, 300, nullptr,
                                  nullptr, GetModuleHandleW(nullptr), nullptr);
        ASSERT_NE(_window, nullptr);
        _procedure = GetWindowLongPtrW(_window, GWLP_WNDPROC);
        // The window manager gives a new window the focus a while later: not to the host once its dialog is there.
        SetForegroundWindow(_window);
        ASSERT_TRUE(pumpUntil([this] { return GetForegroundWindow() == _window; }));
        settle();
    }
    void TearDown() override {
        EXPECT_TRUE(IsWindow(_window));
        EXPECT_TRUE(IsWindowEnabled(_window));
        EXPECT_TRUE(IsWindowVisible(_window));
        EXPECT_EQ(GetWindowLongPtrW(_window, GWLP_WNDPROC), _procedure) << "hooked";
        DestroyWindow(_window);
        WidgetTest::TearDown();
    }
    WindowHandle host() const { return WindowHandle::fromPointer(_window); }

    HWND _window{};
    LONG_PTR _procedure{};
};

TEST_F(MessageDialogOfForeignHost, LiesOverItAndLeavesItAlone) {
    const auto answer = [this] {
        auto* const dialog = ModalDriver::findActive<Wx::MessageDialog>();
        if (dialog == nullptr) {
            return false;
        }
        EXPECT_EQ(GetWindow(dialog->GetHandle(), GW_OWNER), _window);
        input().Char(WXK_RETURN);
        return true;
    };
    const ModalDriver driver({answer});
    EXPECT_TRUE(Wx::showOkDialog(host(), "Title", "Message", MessageDialogIcon::WARNING));
}

TEST_F(MessageDialogOfForeignHost, IsDisabledBehindTheToolkitsBoxOffTheMainThread) {
    for (const WindowHandle parent : {host(), WindowHandle()}) {
        std::future<bool> result = std::async(std::launch::async, [parent] {
            return Wx::showOkDialog(parent, "Worker", "Message", MessageDialogIcon::INFORMATION);
        });
        const auto answer = [this, parent] {
            const HWND box = FindWindowW(nullptr, L"Worker");
            if (box == nullptr || GetForegroundWindow() != box) {
                return false;
            }
            EXPECT_NE(GetWindowThreadProcessId(box, nullptr), GetCurrentThreadId());
            EXPECT_EQ(GetWindow(box, GW_OWNER), static_cast<HWND>(parent.toPointer()));
            EXPECT_EQ(IsWindowEnabled(_window) != FALSE, parent.isNull());
            input().Char(WXK_RETURN);
            return true;
        };
        const ModalDriver driver({answer});
        EXPECT_TRUE(
            pumpUntil([&result] { return result.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
        EXPECT_TRUE(result.get());
    }
}

/// GDI objects, icons and cursors, and windows of this process. Wine does not count for us, but finds the object of a
/// handle by its lower half, so that all can be tried; Windows does not, and counts.
std::vector<DWORD> countHandles() {
    constexpr std::uintptr_t LOWER_HALVES = 0x10000;
    DWORD gdi = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    DWORD icons = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    DWORD windows = 0;
    for (std::uintptr_t half = 1; half < LOWER_HALVES; ++half) {
        void* const handle = WindowHandle(half).toPointer();
        gdi += GetObjectType(handle) != 0 ? 1 : 0;
        DWORD process = 0;
        GetWindowThreadProcessId(static_cast<HWND>(handle), &process);
        windows += process == GetCurrentProcessId() ? 1 : 0;
    }
    for (std::uintptr_t half = 1; half < LOWER_HALVES; ++half) {
        ICONINFO info{};
        if (GetIconInfo(static_cast<HICON>(WindowHandle(half).toPointer()), &info)) {
            ++icons;
            DeleteObject(info.hbmMask);
            DeleteObject(info.hbmColor);
        }
    }
    return {gdi, icons, windows};
}

TEST_F(MessageDialogOfForeignHost, LosesNoHandleOverAHundredDialogs) {
    const auto showMany = [this](int count) {
        for (int i = 0; i < count; ++i) {
            const ModalDriver driver({[] {
                auto* const dialog = dynamic_cast<Wx::MessageDialog*>(wxTopLevelWindows.back());
                return dialog != nullptr && dialog->IsShown() && dialog->Close();
            }});
            EXPECT_FALSE(Wx::showOkDialog(host(), "Title", "Message", MessageDialogIcon(i % 5)));
        }
        settle();
        return countHandles();
    };
    const std::vector<DWORD> before = showMany(10); // what is made once and kept
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    const HICON icon = CopyIcon(LoadIconW(nullptr, IDI_APPLICATION));
    const std::vector<DWORD> more = countHandles();
    EXPECT_GT(more[0], before[0]) << "GDI objects are not counted";
    EXPECT_GT(more[1], before[1]) << "icons are not counted";
    EXPECT_GT(before[2], 2U) << "windows are not counted";
    DeleteObject(brush);
    DestroyIcon(icon);
    EXPECT_EQ(showMany(100), before) << "GDI objects, icons, windows";
}

TEST_F(MessageDialogOfForeignHost, TakesTheKeypadsEnterForOk) {
    const auto answer = [] {
        if (ModalDriver::findActive<Wx::MessageDialog>() == nullptr) {
            return false;
        }
        keybd_event(VK_RETURN, 0, KEYEVENTF_EXTENDEDKEY, 0);
        keybd_event(VK_RETURN, 0, KEYEVENTF_EXTENDEDKEY | KEYEVENTF_KEYUP, 0);
        return true;
    };
    const ModalDriver driver({answer});
    EXPECT_TRUE(Wx::showOkDialog(host(), "Title", "Message", MessageDialogIcon::NO_ICON));
}

} // namespace
