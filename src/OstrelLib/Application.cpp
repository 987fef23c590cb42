#include <OstrelLib/Application.h>

#include "platform/Platform.h"

namespace Ostrel {

bool isMainThread() {
    return Platform::isMainThread();
}

float getFontScale() {
    return Platform::getFontScale();
}

bool Lib::runSingleEventLoopIteration(bool processOnlyWaiting) {
    return Platform::runSingleEventLoopIteration(processOnlyWaiting);
}

WindowDisabler::WindowDisabler(WindowHandle window)
    : _restorer(window.isNull() ? nullptr : Platform::disableWindow(window)) {}

WindowDisabler::~WindowDisabler() = default;

void* Detail::getModuleHandleFromAddress(const void* address) noexcept {
    return address == nullptr ? nullptr : Platform::getModuleHandleFromAddress(address);
}

} // namespace Ostrel
