#include "widgets/FileDialogDriver.h"

#include <string>

#include <windows.h>

#include <commctrl.h>
#include <wx/uiaction.h>

namespace FileDialogDriver {

namespace {

using namespace Ostrel;

constexpr const wchar_t* HOST_CLASS = L"FileDialogHost";

HWND toHwnd(WindowHandle window) {
    return static_cast<HWND>(window.toPointer());
}

bool hasClass(HWND window, const wchar_t* name) {
    wchar_t text[64] = {};
    GetClassNameW(window, text, 64);
    return std::wstring(text) == name;
}

String getWindowText(HWND window) {
    std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
    text.resize(
        static_cast<std::size_t>(SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

/// The dialog that has the keyboard; null if another window of this program or of another one has it.
HWND getActiveDialog() {
    const HWND window = GetForegroundWindow();
    return window == GetActiveWindow() && hasClass(window, L"#32770") ? window : nullptr;
}

LRESULT CALLBACK handleHostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETFOCUS) {
        SetFocus(GetWindow(window, GW_CHILD));
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

HWND findChild(HWND parent, const wchar_t* className) {
    struct Search {
        const wchar_t* className;
        HWND found;
    } search{className, nullptr};
    EnumChildWindows(
        parent,
        [](HWND child, LPARAM data) -> BOOL {
            auto& current = *reinterpret_cast<Search*>(data);
            if (hasClass(child, current.className)) {
                current.found = child;
            }
            return current.found == nullptr;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

} // namespace

struct Host::Impl {
    HWND window{};
    HWND field{};
};

Host::Host()
    : _impl(std::make_unique<Impl>()) {
    WNDCLASSW description{};
    description.lpfnWndProc = handleHostMessage;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = HOST_CLASS;
    RegisterClassW(&description);
    _impl->window = CreateWindowExW(0, HOST_CLASS, L"Host", WS_OVERLAPPEDWINDOW, 60, 60, 300, 120, nullptr, nullptr,
                                    description.hInstance, nullptr);
    _impl->field = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 10, 10, 200, 24, _impl->window, nullptr,
                                   description.hInstance, nullptr);
    ShowWindow(_impl->window, SW_SHOW);
    SetForegroundWindow(_impl->window);
}

Host::~Host() {
    DestroyWindow(_impl->window);
    UnregisterClassW(HOST_CLASS, GetModuleHandleW(nullptr));
}

WindowHandle Host::handle() const {
    return WindowHandle::fromPointer(_impl->window);
}

bool Host::isEnabled() const {
    return IsWindowEnabled(_impl->window) != FALSE;
}

bool Host::isActive() const {
    return GetForegroundWindow() == _impl->window && GetFocus() == _impl->field;
}

String Host::getText() const {
    return getWindowText(_impl->field);
}

WindowHandle findDialog(const String& title) {
    const HWND dialog = getActiveDialog();
    if (dialog == nullptr || IsWindowVisible(dialog) == FALSE) {
        return {};
    }
    const String caption = getWindowText(dialog);
    // Wine has one caption for all folder dialogs.
    return caption == title || caption == "Select Folder" ? WindowHandle::fromPointer(dialog) : WindowHandle();
}

int countListed(WindowHandle dialog) {
    const HWND list = findChild(toHwnd(dialog), WC_LISTVIEWW);
    return static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
}

String getName(WindowHandle dialog) {
    return getWindowText(findChild(toHwnd(dialog), L"Edit"));
}

void enterNameField(WindowHandle, wxUIActionSimulator&) {} // a dialog begins there

bool isInNameField(WindowHandle) {
    return hasClass(GetFocus(), L"Edit");
}

Function<bool()> pickAll(WindowHandle dialog, const Array<String>& names, wxUIActionSimulator& input) {
    static_cast<void>(input);
    // Several names are written in quotes.
    String list;
    for (const String& name : names) {
        list += L"\"" + name.toWide() + L"\" ";
    }
    SetWindowTextW(GetFocus(), list.c_str());
    return [dialog, list] { return getName(dialog) == list; };
}

bool canAccept(WindowHandle dialog) {
    return IsWindowEnabled(GetDlgItem(toHwnd(dialog), IDOK)) != FALSE;
}

void cancel(WindowHandle, wxUIActionSimulator& input) {
    input.Char(WXK_ESCAPE);
}

bool hasMessage(WindowHandle dialog) {
    const HWND message = getActiveDialog();
    return message != nullptr && GetWindow(message, GW_OWNER) == toHwnd(dialog);
}

void refuseMessage(wxUIActionSimulator& input) {
    input.Char('N');
}

void closeAll() {
    if (const HWND dialog = getActiveDialog()) {
        PostMessageW(dialog, WM_COMMAND, IDNO, 0);
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    }
}

} // namespace FileDialogDriver
