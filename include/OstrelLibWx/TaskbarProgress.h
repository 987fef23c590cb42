#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLibWx/Export.h>

namespace Ostrel::Wx {

/// The progress of a long operation on the taskbar button of a window. Any thread may make, drive and destroy one, and
/// several threads may drive the same one; none needs the library to be started, or an event loop. On Windows some
/// thread has to keep COM entered as long as the object lives, as the library does from `LibWx::startup` on: the system
/// may unload the shell's part else. The thread that makes it enters the single-threaded apartment for a moment, and
/// leaves it at once: one that lives in the multithreaded apartment has to have entered that twice.
///
/// What does not change the display in whole thousandths is not sent: report as often as you like. Without a taskbar
/// nothing is shown, and nothing is reported about that. On Windows it is the shell's `ITaskbarList3`. On Linux it is
/// the signal of com.canonical.Unity.LauncherEntry on the session's message bus, which docks show on the application's
/// icon whatever the window, if its desktop file is named after the program; they know no busy indicator and show an
/// empty bar for it.
class OSTREL_WX_API TaskbarProgress {
public:
    /// Clears what the button shows.
    /// @param window the native top-level window whose button is meant
    explicit TaskbarProgress(WindowHandle window);

    /// Takes over the button. Nothing may be done with `other` any more but to destroy it.
    TaskbarProgress(TaskbarProgress&& other) noexcept;

    /// Clears what the button shows.
    ~TaskbarProgress();

    /// Shows a bar.
    /// @param fraction 1 is full. Truncated towards zero to thousandths, and not limited to [0, 1]: what the shell
    /// makes of other values is its own affair. What is beyond 32 bits in thousandths counts as their nearest end, NaN
    /// as 0. A fraction that comes to -1 thousandth acts as `setIdle`, to -2 as `setIndeterminate`.
    void setProgress(float fraction);

    /// Shows nothing.
    void setIdle();

    /// Shows that something is going on.
    void setIndeterminate();

private:
    class Record;

    Record* _record; ///< ours; null once it has been taken over
};

} // namespace Ostrel::Wx
