#include <OstrelLib/Memory.h>

#include <algorithm>
#include <cstdlib>

namespace Ostrel {

void* ostrelMalloc(std::size_t byteCount) noexcept {
    // malloc(0) may return null, which callers would take for a failure.
    return std::malloc(std::max<std::size_t>(byteCount, 1));
}

void ostrelFree(void* memory) noexcept {
    std::free(memory);
}

} // namespace Ostrel
