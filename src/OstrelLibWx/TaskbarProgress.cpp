#include <OstrelLibWx/TaskbarProgress.h>

#include <OstrelLib/Memory.h>

#include "models/TaskbarProgressModel.h"
#include "platform/TaskbarNative.h"

#include <new>
#include <utility>

namespace Ostrel::Wx {

class TaskbarProgress::Record : public TaskbarProgressModel {
public:
    explicit Record(WindowHandle window)
        : TaskbarProgressModel(window, Detail::createTaskbar()) {}

    // On the heap that all modules share: whichever destroys the handle may free it.
    static void* operator new(std::size_t size) {
        void* const memory = ostrelMalloc(size);
        return memory != nullptr ? memory : throw std::bad_alloc();
    }
    static void operator delete(void* memory) noexcept { ostrelFree(memory); }
};

TaskbarProgress::TaskbarProgress(WindowHandle window)
    : _record(new Record(window)) {}

TaskbarProgress::TaskbarProgress(TaskbarProgress&& other) noexcept
    : _record(std::exchange(other._record, nullptr)) {}

TaskbarProgress::~TaskbarProgress() {
    delete _record;
}

void TaskbarProgress::setProgress(float fraction) {
    _record->setProgress(fraction);
}

void TaskbarProgress::setIdle() {
    _record->setIdle();
}

void TaskbarProgress::setIndeterminate() {
    _record->setIndeterminate();
}

} // namespace Ostrel::Wx
