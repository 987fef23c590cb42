#pragma once

#include <OstrelLib/Types.h>

#include <stop_token>

namespace Ostrel::Gallery {

/// Calls `action` with every row from 0 to `rowCount` - 1, in no order, on this thread and others, and returns when all
/// are done. `action` throws nothing. Once a stop is requested no further row is begun.
/// @param threadCount this thread included; fewer if the system gives no more. 0: as many as the processor has
void forEachRow(int rowCount, unsigned threadCount, const std::stop_token& stop, const Function<void(int)>& action);

} // namespace Ostrel::Gallery
