#pragma once

#include <OstrelLib/Export.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>

#include <chrono>
#include <mutex>

namespace Ostrel {

/// A lock that one thread holds at a time; not recursive. Works with `std::lock_guard` and its relatives.
class SimpleLock {
public:
    void lock() { _mutex.lock(); }
    [[nodiscard]] bool try_lock() { return _mutex.try_lock(); }
    void unlock() { _mutex.unlock(); }

private:
    std::mutex _mutex;
};

/// A stopwatch that runs from its construction on and is not moved by changes of the system's clock.
class Timer {
public:
    void restart() noexcept { _start = Clock::now(); }

    /// Milliseconds since the construction or the last `restart`.
    [[nodiscard]] double elapsedMs() const noexcept {
        return std::chrono::duration<double, std::milli>(Clock::now() - _start).count();
    }

private:
    using Clock = std::chrono::steady_clock;

    Clock::time_point _start = Clock::now();
};

/// Guards a scope against being slow: if it lives longer than the limit, its destructor reports one line,
/// "<label> <functionName> took N ms (limit M ms)", both in whole milliseconds.
class OSTREL_API FunctionElapsedTime {
public:
    /// Receives the line, without a line break.
    using ReportFunction = Function<void(const String&)>;

    FunctionElapsedTime(int limitMs, String label, String functionName);
    FunctionElapsedTime(const FunctionElapsedTime&) = delete;
    FunctionElapsedTime& operator=(const FunctionElapsedTime&) = delete;
    ~FunctionElapsedTime();

    /// Replaces what the guards of the whole process report to; an empty function stands for the default, which
    /// writes to the standard error output. Called by the thread that was slow, which may be any; its exceptions are
    /// swallowed. Safe to replace at any time.
    static void setReportFunction(ReportFunction report);

private:
    int _limitMs;
    String _label;
    String _functionName;
    Timer _timer;
};

} // namespace Ostrel
