// Windows alone: no handle is lost however often pictures are converted and dialogs shown.
#include "support/WidgetTest.h"
#include "widgets/ModalDriver.h"

#include <vector>

#include <windows.h>

#include <OstrelLibWx/BitmapUtils.h>
#include <OstrelLibWx/FileDialogs.h>
#include <OstrelLibWx/MessageDialog.h>

namespace {

using namespace Ostrel;

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

class Handles : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        _host = CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 200, 150, 400, 300, nullptr,
                                nullptr, GetModuleHandleW(nullptr), nullptr);
        ASSERT_NE(_host, nullptr);
        settle();
    }
    void TearDown() override {
        DestroyWindow(_host);
        WidgetTest::TearDown();
    }
    WindowHandle host() const { return WindowHandle::fromPointer(_host); }

    /// `work(i)` leaves none behind after it has been done a few times, for what is made once and kept.
    void expectNoneLost(int times, int before, const std::function<void(int)>& work) {
        const auto repeat = [&work](int count) {
            for (int i = 0; i < count; ++i) {
                work(i);
            }
            settle();
            return countHandles();
        };
        const std::vector<DWORD> counted = repeat(before);
        EXPECT_EQ(repeat(times), counted) << "GDI objects, icons, windows";
    }

private:
    HWND _host{};
};

TEST_F(Handles, AreCounted) {
    const std::vector<DWORD> before = countHandles();
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    const HICON icon = CopyIcon(LoadIconW(nullptr, IDI_APPLICATION));
    const HWND window =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    const std::vector<DWORD> more = countHandles();
    for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_GT(more[i], before[i]) << i;
    }
    DeleteObject(brush);
    DestroyIcon(icon);
    DestroyWindow(window);
}

TEST_F(Handles, AreNotLostOverAThousandPictures) {
    const BitmapImpl<Rgb> image(7, 5, {0.2F, 0.4F, 0.6F, 0.8F});
    expectNoneLost(1000, 10, [&image](int i) {
        wxBitmap bitmap = Wx::toWxBitmap(image, i % 2 == 0);
        EXPECT_TRUE(Wx::toRgbBitmap(bitmap));
        EXPECT_FALSE(Wx::getScreenRegionColors({{-2, -2}, {6, 6}}).isEmpty());
        EXPECT_TRUE(Wx::setClipboardData(image));
    });
}

TEST_F(Handles, AreNotLostOverAHundredMessages) {
    expectNoneLost(100, 10, [this](int i) {
        const ModalDriver driver({[] {
            auto* const dialog = ModalDriver::findShown<Wx::MessageDialog>();
            return dialog != nullptr && dialog->Close();
        }});
        EXPECT_FALSE(Wx::showOkDialog(host(), "Title", "Message", Wx::MessageDialogIcon(i % 5)));
    });
}

TEST_F(Handles, AreNotLostOverAHundredFileDialogs) {
    expectNoneLost(100, 10, [this](int i) {
        const ModalDriver driver({[this] {
            const HWND dialog = GetLastActivePopup(static_cast<HWND>(host().toPointer()));
            return dialog != host().toPointer() && IsWindowVisible(dialog) != FALSE &&
                   PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0) != FALSE;
        }});
        if (i % 10 == 0) { // it takes longer than the others together
            EXPECT_TRUE(Wx::dirSelectDlg(host(), "Title", Path()).isEmpty());
        } else if (i % 2 == 0) {
            EXPECT_TRUE(Wx::filenameSaveDlg(host(), "Title", "All files|*", {}, Path("file")).isEmpty());
        } else {
            EXPECT_TRUE(Wx::multiFilenameOpenDlg(host(), "Title", "All files|*", Path()).empty());
        }
    });
}

} // namespace
