#include <OstrelLib/Memory.h>

#include <OstrelLib/Bitmap.h>

#include "platform/Platform.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace Ostrel {

namespace {

constexpr std::size_t CACHE_LINE = 64;

std::align_val_t getAlignment(std::size_t byteCount) {
    const std::size_t page = Platform::getLargePageSize();
    return std::align_val_t(page > 0 && byteCount >= 2 * page ? page : CACHE_LINE);
}

} // namespace

void* ostrelMalloc(std::size_t byteCount) noexcept {
    // malloc(0) may return null, which callers would take for a failure.
    return std::malloc(std::max<std::size_t>(byteCount, 1));
}

void ostrelFree(void* memory) noexcept {
    std::free(memory);
}

void* Detail::allocatePixels(std::size_t byteCount) {
    const std::align_val_t alignment = getAlignment(byteCount);
    void* const memory = ::operator new(byteCount, alignment);
    if (alignment != std::align_val_t(CACHE_LINE)) {
        Platform::useLargePages(memory, byteCount);
    }
    return memory;
}

void Detail::freePixels(void* memory, std::size_t byteCount) noexcept {
    ::operator delete(memory, getAlignment(byteCount));
}

} // namespace Ostrel
