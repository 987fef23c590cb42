#include "platform/Platform.h"

#include <windows.h>

namespace Ostrel::Platform {

namespace {

/// Set when the library is loaded, by the thread that loads it.
const DWORD MAIN_THREAD_ID = GetCurrentThreadId();

/// The range that the system's settings page offers, in percent.
constexpr DWORD MIN_TEXT_SCALE_PERCENT = 100;
constexpr DWORD MAX_TEXT_SCALE_PERCENT = 225;

class WindowRestorer : public Object {
public:
    /// `window` is enabled and becomes disabled.
    explicit WindowRestorer(HWND window)
        : _window(window) {
        EnableWindow(_window, FALSE);
    }
    ~WindowRestorer() override {
        if (IsWindow(_window)) {
            EnableWindow(_window, TRUE);
        }
    }

private:
    HWND _window;
};

} // namespace

bool isMainThread() {
    return GetCurrentThreadId() == MAIN_THREAD_ID;
}

bool runSingleEventLoopIteration(bool processOnlyWaiting) {
    MSG message{};
    // Not WaitMessage and PeekMessageW: WaitMessage overlooks messages that an earlier peek has passed by.
    const BOOL found = processOnlyWaiting ? PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)
                                          : GetMessageW(&message, nullptr, 0, 0) != -1;
    if (!found) {
        return false;
    }
    if (message.message == WM_QUIT) {
        PostQuitMessage(static_cast<int>(message.wParam));
        return false;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
    return true;
}

float getFontScale() {
    DWORD percent = 0;
    DWORD byteCount = sizeof(percent);
    const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Accessibility", L"TextScaleFactor",
                                        RRF_RT_REG_DWORD, nullptr, &percent, &byteCount);
    if (status != ERROR_SUCCESS || percent < MIN_TEXT_SCALE_PERCENT || percent > MAX_TEXT_SCALE_PERCENT) {
        return 1.0f;
    }
    return static_cast<float>(percent) / 100.0f;
}

wchar_t decimalPointCharacter() {
    // Up to three characters and the terminator.
    wchar_t separator[4] = {};
    const int length = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, separator, 4);
    return length > 1 ? separator[0] : L'.';
}

std::size_t getLargePageSize() noexcept {
    return 0; // large pages are for programs of an administrator
}

void useLargePages(void*, std::size_t) noexcept {}

void* getModuleHandleFromAddress(const void* address) noexcept {
    HMODULE module = nullptr;
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    return GetModuleHandleExW(flags, static_cast<LPCWSTR>(address), &module) ? module : nullptr;
}

AutoPtr<Polymorphic> disableWindow(WindowHandle window) {
    HWND root = GetAncestor(static_cast<HWND>(window.toPointer()), GA_ROOT);
    // A window that is disabled already stays as it was found; GetAncestor gives null for what is no window.
    return root != nullptr && IsWindowEnabled(root) ? std::make_unique<WindowRestorer>(root) : nullptr;
}

} // namespace Ostrel::Platform
