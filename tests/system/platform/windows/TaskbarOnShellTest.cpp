#include <OstrelLibWx/TaskbarProgress.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include <objbase.h>
#include <shobjidl.h>

// What the shell's own object is called with. Windows: elsewhere there is none.

namespace {

using namespace Ostrel;

const CLSID TASKBAR_LIST{0x56FDF344, 0xFD6D, 0x11D0, {0x95, 0x8A, 0x00, 0x60, 0x97, 0xC9, 0xA0, 0x90}};
const WindowHandle WINDOW(0x4711);

/// The calls in their order.
std::vector<std::string> calls;

class RecordingTaskbarList : public ITaskbarList3 {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        const IID wanted{0xEA1AFB91, 0x9E28, 0x4B86, {0x90, 0xE9, 0x9E, 0x9F, 0x8A, 0x5E, 0xEF, 0xAF}};
        *object = IsEqualIID(iid, wanted) || IsEqualIID(iid, IID_IUnknown) ? this : nullptr;
        return *object == nullptr ? E_NOINTERFACE : (++_references, S_OK);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++_references; }
    ULONG STDMETHODCALLTYPE Release() override {
        if (--_references == 0) {
            calls.push_back("released");
        }
        return _references;
    }
    HRESULT STDMETHODCALLTYPE SetProgressValue(HWND window, ULONGLONG completed, ULONGLONG total) override {
        return record(window, std::to_string(static_cast<LONGLONG>(completed)) + " of " + std::to_string(total));
    }
    HRESULT STDMETHODCALLTYPE SetProgressState(HWND window, TBPFLAG state) override {
        return record(window, "state " + std::to_string(static_cast<int>(state)));
    }

    // Not to be called.
    HRESULT STDMETHODCALLTYPE HrInit() override { return unwanted(); }
    HRESULT STDMETHODCALLTYPE AddTab(HWND) override { return unwanted(); }
    HRESULT STDMETHODCALLTYPE DeleteTab(HWND) override { return unwanted(); }
    HRESULT STDMETHODCALLTYPE ActivateTab(HWND) override { return unwanted(); }
    HRESULT STDMETHODCALLTYPE SetActiveAlt(HWND) override { return unwanted(); }
    HRESULT STDMETHODCALLTYPE MarkFullscreenWindow(HWND, BOOL) override { return unwanted(); }
    HRESULT STDMETHODCALLTYPE RegisterTab(HWND, HWND) override { return unwanted(); }
    HRESULT STDMETHODCALLTYPE UnregisterTab(HWND) override { return unwanted(); }
    HRESULT STDMETHODCALLTYPE SetTabOrder(HWND, HWND) override { return unwanted(); }
    HRESULT STDMETHODCALLTYPE SetTabActive(HWND, HWND, DWORD) override { return unwanted(); }
    HRESULT STDMETHODCALLTYPE ThumbBarAddButtons(HWND, UINT, LPTHUMBBUTTON) override { return unwanted(); }
    HRESULT STDMETHODCALLTYPE ThumbBarUpdateButtons(HWND, UINT, LPTHUMBBUTTON) override { return unwanted(); }
    HRESULT STDMETHODCALLTYPE ThumbBarSetImageList(HWND, HIMAGELIST) override { return unwanted(); }
    HRESULT STDMETHODCALLTYPE SetOverlayIcon(HWND, HICON, LPCWSTR) override { return unwanted(); }
    HRESULT STDMETHODCALLTYPE SetThumbnailTooltip(HWND, LPCWSTR) override { return unwanted(); }
    HRESULT STDMETHODCALLTYPE SetThumbnailClip(HWND, RECT*) override { return unwanted(); }

private:
    static HRESULT record(HWND window, std::string call) {
        EXPECT_EQ(WindowHandle::fromPointer(window), WINDOW);
        calls.push_back(std::move(call));
        return S_OK;
    }
    static HRESULT unwanted() {
        ADD_FAILURE() << "not a call that the progress needs";
        return E_NOTIMPL;
    }

    ULONG _references = 0;
};

/// Gives out the recording object in the place of the shell's, as long as it is registered.
class RecordingFactory : public IClassFactory {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        *object = IsEqualIID(iid, IID_IClassFactory) || IsEqualIID(iid, IID_IUnknown) ? this : nullptr;
        return *object == nullptr ? E_NOINTERFACE : S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** object) override {
        *object = nullptr;
        return fails ? E_FAIL : _taskbar.QueryInterface(iid, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

    bool fails = false;

private:
    RecordingTaskbarList _taskbar;
};

TEST(TaskbarOnShell, IsCalledForEachChangeReleasedLastAndMayBeMissing) {
    RecordingFactory factory;
    DWORD cookie = 0;
    ASSERT_GE(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
    ASSERT_EQ(CoRegisterClassObject(TASKBAR_LIST, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie), S_OK);
    const std::vector<std::string> all{"state 0", "state 2",      "500 of 1000", "state 1",
                                       "state 2", "2000 of 1000", "state 0",     "released"};
    for (const bool fails : {false, true}) {
        factory.fails = fails;
        calls.clear();
        {
            Wx::TaskbarProgress first{WINDOW};
            Wx::TaskbarProgress progress(std::move(first));
            progress.setIdle();
            progress.setProgress(0.5F);
            progress.setProgress(0.5004F);
            progress.setIndeterminate();
            progress.setProgress(2.0F);
        }
        EXPECT_EQ(calls, fails ? std::vector<std::string>{} : all);
    }
    CoRevokeClassObject(cookie);
    CoUninitialize();
}

} // namespace
