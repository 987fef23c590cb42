// Windows alone: dialogs in front of a window that the toolkit knows nothing of, and what they leave behind.
#include "support/WidgetTest.h"
#include "widgets/ModalDriver.h"

#include <windows.h>

#include <OstrelLibWx/MessageDialog.h>

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

    /// The message dialog once it is shown and takes the keys. The window manager may hand them back to the host, whose
    /// window has only just come up; the user then clicks the dialog.
    static Wx::MessageDialog* findActiveDialog() {
        if (auto* const shown = ModalDriver::findShown<Wx::MessageDialog>(); shown != nullptr && !shown->IsActive()) {
            SetForegroundWindow(shown->GetHandle());
        }
        return ModalDriver::findActive<Wx::MessageDialog>();
    }

    HWND _window{};
    LONG_PTR _procedure{};
};

TEST_F(MessageDialogOfForeignHost, LiesOverItAndLeavesItAlone) {
    const auto answer = [this] {
        auto* const dialog = findActiveDialog();
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
        EXPECT_TRUE(parent.isNull() || pumpUntil([this] { return GetForegroundWindow() == _window; }));
    }
}

TEST_F(MessageDialogOfForeignHost, TakesTheKeypadsEnterForOk) {
    const auto answer = [] {
        if (findActiveDialog() == nullptr) {
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
