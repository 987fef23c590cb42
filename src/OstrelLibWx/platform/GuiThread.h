#pragma once

#include <OstrelLib/Types.h>

namespace Ostrel::Detail {

/// Calls `show`, which shows one of the toolkit's own message boxes, for a thread other than the main one, and returns
/// what it returns or throws. On Windows it is called at once, on the calling thread. GTK may not be entered there: on
/// Linux it is called on the main thread, from its event loop, and waited for.
/// @throws std::future_error if the toolkit goes down before it has come to that
int callForOtherThread(const Function<int()>& show);

} // namespace Ostrel::Detail
