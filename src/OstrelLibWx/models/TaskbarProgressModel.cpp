#include "models/TaskbarProgressModel.h"

#include <cmath>
#include <limits>
#include <mutex>
#include <utility>

namespace Ostrel::Wx {

namespace {

constexpr std::int32_t TOTAL = 1000;

/// In thousandths, truncated towards zero. What 32 bits cannot hold becomes their nearest end, NaN 0.
std::int32_t toThousandths(float fraction) {
    using Limits = std::numeric_limits<std::int32_t>;
    const float value = fraction * static_cast<float>(TOTAL);
    if (std::isnan(value)) {
        return 0;
    }
    if (value >= 0x1p31F) {
        return Limits::max();
    }
    return value < -0x1p31F ? Limits::min() : static_cast<std::int32_t>(value);
}

} // namespace

TaskbarProgressModel::TaskbarProgressModel(WindowHandle window, AutoPtr<ITaskbar> taskbar)
    : _window(window)
    , _taskbar(std::move(taskbar)) {
    setIdle();
}

TaskbarProgressModel::~TaskbarProgressModel() {
    setIdle();
}

void TaskbarProgressModel::setProgress(float fraction) {
    const std::int32_t value = toThousandths(fraction);
    if (value == IDLE || value == INDETERMINATE) {
        setMode(value, value == IDLE ? TaskbarState::NO_PROGRESS : TaskbarState::INDETERMINATE);
    } else {
        const std::lock_guard guard(_lock);
        if (value != _lastValue) {
            _lastValue = value;
            send(TaskbarState::NORMAL); // before every value, not only after another mode
            if (_taskbar != nullptr) {
                _taskbar->setValue(_window, value, TOTAL);
            }
        }
    }
    // Once more, outside the lock, as this has always been: when another thread has changed the mode in between, the
    // next call of that mode is sent again, and the next one of this value is not.
    _lastValue = value;
}

void TaskbarProgressModel::setMode(std::int32_t mode, TaskbarState state) {
    const std::lock_guard guard(_lock);
    if (_lastValue != mode) {
        _lastValue = mode;
        send(state);
    }
}

void TaskbarProgressModel::send(TaskbarState state) {
    if (_taskbar != nullptr) {
        _taskbar->setState(_window, state);
    }
}

} // namespace Ostrel::Wx
