#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/Threading.h>
#include <OstrelLib/Types.h>

#include <atomic>
#include <cstdint>

namespace Ostrel::Wx {

/// What a taskbar button shows; the values are those of the Windows shell.
enum class TaskbarState : int {
    NO_PROGRESS = 0,
    INDETERMINATE = 1,
    NORMAL = 2,
};

/// The shell that owns the taskbar. Called from any thread, from one at a time for each model.
class ITaskbar : public Polymorphic {
public:
    virtual void setState(WindowHandle window, TaskbarState state) = 0;

    /// `completed` of `total`; below 0 or above `total` if the program says so.
    virtual void setValue(WindowHandle window, std::int32_t completed, std::int32_t total) = 0;
};

/// When which progress is sent to the shell. Any thread may call it.
class TaskbarProgressModel : public Object {
public:
    /// Clears what the button shows.
    /// @param taskbar null where there is none: nothing is sent then
    TaskbarProgressModel(WindowHandle window, AutoPtr<ITaskbar> taskbar);

    /// Clears what the button shows.
    ~TaskbarProgressModel() override;

    void setProgress(float fraction);
    void setIdle() { setMode(IDLE, TaskbarState::NO_PROGRESS); }
    void setIndeterminate() { setMode(INDETERMINATE, TaskbarState::INDETERMINATE); }

private:
    // In the place of a value in thousandths. A fraction can come to these values as well, and acts as the mode then.
    static constexpr std::int32_t IDLE = -1;
    static constexpr std::int32_t INDETERMINATE = -2;

    void setMode(std::int32_t mode, TaskbarState state);
    void send(TaskbarState state);

    // 0 at first, which is not idle, so that the constructor has something to clear. Atomic for the one store outside
    // the lock.
    std::atomic<std::int32_t> _lastValue = 0;
    SimpleLock _lock;
    WindowHandle _window;
    AutoPtr<ITaskbar> _taskbar;
};

} // namespace Ostrel::Wx
