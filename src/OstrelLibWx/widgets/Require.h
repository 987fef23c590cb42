#pragma once

#include <OstrelLib/Exceptions.h>
#include <OstrelLib/Types.h>

namespace Ostrel::Wx {

/// What was given, which is not null; else a stop exception.
template <class Callbacks>
SharedPtr<Callbacks> require(SharedPtr<Callbacks> callbacks, const char* path, int line) {
    if (callbacks == nullptr) {
        Detail::throwStopException(path, line);
    }
    return callbacks;
}

} // namespace Ostrel::Wx
