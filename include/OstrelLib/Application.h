#pragma once

#include <OstrelLib/Export.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>

namespace Ostrel {

/// Whether the caller runs on the main thread: on Linux the thread that the process began with, on Windows the one
/// that loaded this library.
[[nodiscard]] OSTREL_API bool isMainThread();

/// The user's text size setting as a factor, 1 being the default: on Windows the accessibility setting for text
/// (1 to 2.25), on Linux GTK's font resolution over 96 dots per inch. 1 where there is no setting, on Linux also
/// before GTK has been initialised. Call it on the GUI thread.
[[nodiscard]] OSTREL_API float getFontScale();

namespace Lib {

/// One step of the native event loop, on the thread that owns the windows.
///
/// With `processOnlyWaiting` it processes what waits already and never blocks; without, it waits for something first.
/// Returns whether anything was processed, so a loop over it drains the queue.
///
/// On Windows a step is one message of the calling thread. A quit message is left in the queue and counts as not
/// processed: the loop ends, and the host's own loop sees the message.
///
/// On Linux a step is one iteration of GLib's default main context, which dispatches every ready source of the most
/// urgent priority. Idle sources count: one that stays installed is always ready, and a loop over this function ends
/// only when it removes itself (the idle source of wxWidgets does so once its idle handlers ask for nothing more).
OSTREL_API bool runSingleEventLoopIteration(bool processOnlyWaiting);

} // namespace Lib

/// Keeps the host's window from taking input as long as it lives, typically while a modal dialog is shown.
///
/// It disables the top-level window that `window` is or belongs to, and enables it again in the end, unless it was
/// disabled before or has been destroyed meanwhile. A null or unknown handle disables nothing. On Linux only windows
/// of GTK in this process can be disabled, and off the main thread that happens when the main loop next gets to it.
class OSTREL_API WindowDisabler {
public:
    explicit WindowDisabler(WindowHandle window);
    WindowDisabler(const WindowDisabler&) = delete;
    WindowDisabler& operator=(const WindowDisabler&) = delete;
    ~WindowDisabler();

private:
    AutoPtr<Polymorphic> _restorer;
};

namespace Detail {

/// The loaded module (program or shared library) that contains `address`: an `HMODULE` on Windows, the address it is
/// loaded at on Linux. Null for an address in no module.
[[nodiscard]] OSTREL_API void* getModuleHandleFromAddress(const void* address) noexcept;

} // namespace Detail

namespace WinApi {

/// The module that the calling source is compiled into, as `Detail::getModuleHandleFromAddress` gives it: a shared
/// library's own, not its host program's. Internal linkage is meant: were the anchor shared between modules, all would
/// get the first one's answer. For the same reason do not call it from inline functions of a header.
[[nodiscard]] static inline void* getMyModuleHandle() noexcept {
    static char anchor = 0;
    return Detail::getModuleHandleFromAddress(&anchor);
}

} // namespace WinApi

} // namespace Ostrel
