#pragma once

#include <wx/string.h>

#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>

/// Start and stop of the library, and its event loop. Except for the start count, which is atomic, everything here
/// belongs to the thread that owns the GUI, the host's main thread.
///
/// A host calls `startup`, creates windows, runs `runEventLoop` (a program of its own) or, from a loop of its own,
/// `processAllPendingEvents` or `processWxWidgetsPendingEvents` now and then, destroys its windows, calls `shutdown`.
namespace Ostrel::LibWx {

/// Who the host is.
enum class ApplicationType : int {
    /// A program whose event loop is `runEventLoop`. The application's initialisation hook is called.
    STANDALONE = 0,
    /// A host with a message loop of its own that is no wxWidgets application. Treated as `STANDALONE`.
    NATIVE_HOST = 1,
    /// A host that has initialised its own wxWidgets application already. The initialisation hook is not called.
    WX_HOST = 2,
};

/// Brings the library up. Calls nest: only the first does anything, the others count and do not look at `type`.
///
/// The first call switches the toolkit's logging off, creates an application object with the class name "OstrelApp" if
/// the host has none, registers the image handlers PNG, JPEG, ICO, BMP, GIF, TIFF and TGA (in this order; a type that
/// the host has registered keeps its place), initialises the toolkit and its sockets, calls the application's
/// `CallOnInit` (`STANDALONE`, `NATIVE_HOST`), and starts a timer that runs the toolkit's idle processing every
/// 2000 ms, as long as any loop dispatches native messages. The process's DPI awareness is left as it is. On Linux the
/// toolkit is asked for its X11 backend, which has an effect only before its first initialisation in the process.
///
/// @return true, always.
/// @throws Detail::StopException at `OstrelLibWx`:145 for a value that is not in `ApplicationType`; the toolkit is
///     initialised by then, the call counts, and there is no timer. Fatal for the host.
/// @throws std::runtime_error if the toolkit cannot be initialised, for want of a display. The call counts.
/// What the toolkit and the host's `CallOnInit` throw passes through.
OSTREL_WX_API bool startup(ApplicationType type);

/// Takes one `startup` back. The last one stops the timer, runs the application's idle processing, `OnExit` and
/// `ExitMainLoop`, and takes back the toolkit's initialisation. Unless the host has initialised the toolkit itself,
/// that deletes the application object, the host's own included, and the image handlers; the library can then be
/// started anew. Toolkit logging stays off. The count has no guard: a call too many is made up for by the next
/// `startup`, which then does nothing.
/// Since it runs `OnExit`, a wxWidgets host calls it elsewhere, for example at the end of its `OnRun`.
OSTREL_WX_API void shutdown();

/// Runs the application's main loop until `stopEventLoop`, or until the last top-level window closes, as the toolkit
/// decides. @return the loop's exit code.
OSTREL_WX_API int runEventLoop();

/// Ends `runEventLoop`.
OSTREL_WX_API void stopEventLoop();

/// Dispatches the events that were queued with `QueueEvent`; no native message.
OSTREL_WX_API void processWxWidgetsPendingEvents();

/// Dispatches the events that were queued with `QueueEvent`, and then every native message that waits. Never blocks;
/// on Linux an idle source of the host that stays installed keeps it going (see `Lib::runSingleEventLoopIteration`).
/// Top-level windows that were told to `Destroy` go with the idle processing: with the timer, or with `shutdown`.
OSTREL_WX_API void processAllPendingEvents();

} // namespace Ostrel::LibWx

namespace Ostrel::Wx {

/// The text of a failed toolkit assertion, for a host that installs an assertion handler; the library installs none.
/// The arguments are those of `wxAssertHandler_t`. Five lines, the last without an end of line.
/// @return empty for the one assertion that is to be ignored: `wxLocale::GetInfo` checking for the classic locale.
OSTREL_WX_API Optional<String> formatWxAssertFailure(const wxString& file, int line, const wxString& function,
                                                     const wxString& condition, const wxString& message);

} // namespace Ostrel::Wx
