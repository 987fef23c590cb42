#include "platform/TaskbarNative.h"

#include <windows.h>

#include <objbase.h>
#include <shobjidl.h>

namespace Ostrel::Detail {

namespace {

using Wx::TaskbarState;

static_assert(static_cast<int>(TaskbarState::NO_PROGRESS) == TBPF_NOPROGRESS);
static_assert(static_cast<int>(TaskbarState::INDETERMINATE) == TBPF_INDETERMINATE);
static_assert(static_cast<int>(TaskbarState::NORMAL) == TBPF_NORMAL);

/// The shell's TaskbarList class, {56FDF344-FD6D-11D0-958A-006097C9A090}, as an `ITaskbarList3`,
/// {EA1AFB91-9E28-4B86-90E9-9E9F8A5EEFAF}.
constexpr CLSID TASKBAR_LIST_CLASS{0x56FDF344, 0xFD6D, 0x11D0, {0x95, 0x8A, 0x00, 0x60, 0x97, 0xC9, 0xA0, 0x90}};
constexpr IID TASKBAR_LIST_INTERFACE{0xEA1AFB91, 0x9E28, 0x4B86, {0x90, 0xE9, 0x9E, 0x9F, 0x8A, 0x5E, 0xEF, 0xAF}};

class ShellTaskbar : public Wx::ITaskbar {
public:
    explicit ShellTaskbar(ITaskbarList3* taskbar)
        : _taskbar(taskbar) {}
    ShellTaskbar(const ShellTaskbar&) = delete;
    ShellTaskbar& operator=(const ShellTaskbar&) = delete;
    ~ShellTaskbar() override { _taskbar->Release(); }

    void setState(WindowHandle window, TaskbarState state) override {
        _taskbar->SetProgressState(toNative(window), static_cast<TBPFLAG>(state));
    }
    void setValue(WindowHandle window, std::int32_t completed, std::int32_t total) override {
        _taskbar->SetProgressValue(toNative(window), static_cast<ULONGLONG>(completed), static_cast<ULONGLONG>(total));
    }

private:
    static HWND toNative(WindowHandle window) { return static_cast<HWND>(window.toPointer()); }

    ITaskbarList3* _taskbar;
};

} // namespace

AutoPtr<Wx::ITaskbar> createTaskbar() {
    // The apartment is entered for the creation alone, whatever the thread goes on to do, and what comes of that is not
    // looked at: this pairing is meant.
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    void* taskbar = nullptr;
    CoCreateInstance(TASKBAR_LIST_CLASS, nullptr, CLSCTX_INPROC_SERVER, TASKBAR_LIST_INTERFACE, &taskbar);
    CoUninitialize();
    return AutoPtr<Wx::ITaskbar>(taskbar == nullptr ? nullptr : new ShellTaskbar(static_cast<ITaskbarList3*>(taskbar)));
}

} // namespace Ostrel::Detail
