#include <OstrelLib/Application.h>
#include <OstrelLib/TextSerializer.h>

#include <gtest/gtest.h>

#include <windows.h>

#include <thread>

using namespace Ostrel;

namespace {

/// Runs the message loop until nothing waits in it.
void drain() {
    while (Lib::runSingleEventLoopIteration(true)) {
    }
}

int receivedCount = 0;

LRESULT CALLBACK countUserMessages(HWND window, UINT message, WPARAM wide, LPARAM parameter) {
    receivedCount += message == WM_USER;
    return DefWindowProcW(window, message, wide, parameter);
}

class Win32Windows : public testing::Test {
protected:
    Win32Windows() {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = countUserMessages;
        windowClass.hInstance = static_cast<HINSTANCE>(WinApi::getMyModuleHandle());
        windowClass.lpszClassName = L"OstrelCoreTest";
        RegisterClassW(&windowClass);
        window = CreateWindowExW(0, L"OstrelCoreTest", L"", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr,
                                 windowClass.hInstance, nullptr);
        child = CreateWindowExW(0, L"OstrelCoreTest", L"", WS_CHILD, 0, 0, 10, 10, window, nullptr,
                                windowClass.hInstance, nullptr);
        drain();
        receivedCount = 0;
    }
    ~Win32Windows() override {
        DestroyWindow(window);
        drain();
    }

    void SetUp() override { ASSERT_TRUE(IsWindow(window) && IsWindow(child)); }

    HWND window = nullptr;
    HWND child = nullptr;
};

TEST_F(Win32Windows, GetEachPostedMessageOnce) {
    PostMessageW(window, WM_USER, 0, 0);
    PostMessageW(window, WM_USER, 0, 0);
    EXPECT_TRUE(Lib::runSingleEventLoopIteration(true));
    EXPECT_EQ(receivedCount, 1) << "one message for one step";
    EXPECT_TRUE(Lib::runSingleEventLoopIteration(false)) << "does not wait for what is there already";
    EXPECT_EQ(receivedCount, 2);
    EXPECT_FALSE(Lib::runSingleEventLoopIteration(true));
    std::thread([this] { PostMessageW(window, WM_USER, 0, 0); }).join();
    EXPECT_TRUE(Lib::runSingleEventLoopIteration(false));
    EXPECT_EQ(receivedCount, 3);
}

TEST_F(Win32Windows, LeaveTheQuitMessageToTheHost) {
    PostQuitMessage(7);
    EXPECT_FALSE(Lib::runSingleEventLoopIteration(true));
    EXPECT_FALSE(Lib::runSingleEventLoopIteration(false));
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 7u);
}

TEST_F(Win32Windows, AreDisabledAndRestoredAsFound) {
    {
        const WindowDisabler disabler(WindowHandle::fromPointer(child));
        EXPECT_FALSE(IsWindowEnabled(window));
        { const WindowDisabler nested(WindowHandle::fromPointer(window)); }
        EXPECT_FALSE(IsWindowEnabled(window));
    }
    EXPECT_TRUE(IsWindowEnabled(window));
    EnableWindow(window, FALSE);
    { const WindowDisabler disabler(WindowHandle::fromPointer(window)); }
    EXPECT_FALSE(IsWindowEnabled(window)) << "the host had disabled it itself";
}

TEST_F(Win32Windows, MayVanishWhileDisabled) {
    const WindowDisabler disabler(WindowHandle::fromPointer(window));
    EXPECT_TRUE(DestroyWindow(window));
}

TEST(FontScale, IsReadFromTheUsersSettings) {
    // The process sees a key of its own in place of the user's.
    constexpr const wchar_t* SCRATCH = L"Software\\OstrelCoreTest";
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, SCRATCH, &key), ERROR_SUCCESS);
    ASSERT_EQ(RegOverridePredefKey(HKEY_CURRENT_USER, key), ERROR_SUCCESS);
    EXPECT_EQ(getFontScale(), 1.0f);
    const std::pair<DWORD, float> cases[] = {{150, 1.5f}, {225, 2.25f}, {99, 1.0f}, {226, 1.0f}, {0xFFFFFFFF, 1.0f}};
    for (const auto& [percent, scale] : cases) {
        RegSetKeyValueW(key, L"Software\\Microsoft\\Accessibility", L"TextScaleFactor", REG_DWORD, &percent,
                        sizeof(percent));
        EXPECT_EQ(getFontScale(), scale) << percent;
    }
    RegSetKeyValueW(key, L"Software\\Microsoft\\Accessibility", L"TextScaleFactor", REG_SZ, L"150", 8);
    EXPECT_EQ(getFontScale(), 1.0f) << "of another type";
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegCloseKey(key);
    RegDeleteTreeW(HKEY_CURRENT_USER, SCRATCH);
}

TEST(DecimalPoint, IsTheOneOfTheUsersSettings) {
    wchar_t expected[4] = {};
    ASSERT_GT(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, expected, 4), 1);
    EXPECT_EQ(decimalPointCharacter(), expected[0]);
}

} // namespace
