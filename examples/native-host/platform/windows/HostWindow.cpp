#include "HostWindow.h"

#include <stdexcept>
#include <utility>

#include <windows.h>

namespace {

constexpr wchar_t CLASS_NAME[] = L"NativeHostWindow";
constexpr wchar_t TEXT[] = L"This window is the host's own.";
constexpr UINT_PTR TIMER_ID = 1;

} // namespace

struct HostWindow::Impl {
    HWND window = nullptr;
    std::function<void()> tick;
    bool ticking = false;

    static LRESULT CALLBACK handleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static void paint(HWND window);
};

LRESULT CALLBACK HostWindow::Impl::handleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* impl = reinterpret_cast<Impl*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    switch (message) {
    case WM_TIMER:
        // A dialog that is opened within has a loop of its own, in which the timer goes on.
        if (impl->tick && !std::exchange(impl->ticking, true)) {
            impl->tick();
            impl->ticking = false;
        }
        return 0;
    case WM_CLOSE:
        PostQuitMessage(0);
        return 0;
    case WM_PAINT:
        paint(window);
        return 0;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

void HostWindow::Impl::paint(HWND window) {
    PAINTSTRUCT painting;
    const HDC dc = BeginPaint(window, &painting);
    SetBkMode(dc, TRANSPARENT);
    TextOutW(dc, 12, 12, TEXT, static_cast<int>(std::size(TEXT)) - 1);
    EndPaint(window, &painting);
}

HostWindow::HostWindow(const std::string& title, int width, int height)
    : _impl(std::make_unique<Impl>()) {
    const HINSTANCE module = GetModuleHandleW(nullptr);
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = &Impl::handleMessage;
    windowClass.hInstance = module;
    windowClass.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    windowClass.lpszClassName = CLASS_NAME;
    RegisterClassExW(&windowClass);
    const std::wstring wideTitle(title.begin(), title.end());
    _impl->window = CreateWindowExW(0, CLASS_NAME, wideTitle.c_str(), WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT,
                                    CW_USEDEFAULT, width, height, nullptr, nullptr, module, nullptr);
    if (_impl->window == nullptr) {
        throw std::runtime_error("the host's window could not be made");
    }
    SetWindowLongPtrW(_impl->window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(_impl.get()));
}

HostWindow::~HostWindow() {
    DestroyWindow(_impl->window);
}

Ostrel::WindowHandle HostWindow::handle() const {
    return Ostrel::WindowHandle::fromPointer(_impl->window);
}

void HostWindow::run(int intervalMs, std::function<void()> tick) {
    _impl->tick = std::move(tick);
    SetTimer(_impl->window, TIMER_ID, static_cast<UINT>(intervalMs), nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    KillTimer(_impl->window, TIMER_ID);
    _impl->tick = nullptr;
}

void HostWindow::quit() {
    PostQuitMessage(0);
}
