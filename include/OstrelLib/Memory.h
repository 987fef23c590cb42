#pragma once

#include <OstrelLib/Export.h>

#include <cstddef>

namespace Ostrel {

/// `byteCount` bytes (also for 0 a pointer of its own), aligned for every type, from a heap that all modules share;
/// null when there is no memory left. Release them with `ostrelFree`, in whichever module.
[[nodiscard]] OSTREL_API void* ostrelMalloc(std::size_t byteCount) noexcept;

/// Releases memory from `ostrelMalloc`; null is ignored.
OSTREL_API void ostrelFree(void* memory) noexcept;

} // namespace Ostrel
