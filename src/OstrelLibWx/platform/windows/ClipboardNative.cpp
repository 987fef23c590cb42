#include "platform/ClipboardNative.h"

#include <cstddef>
#include <memory>

#include <windows.h>

#include <wx/clipbrd.h>

#include "models/PixelConversion.h"

namespace Ostrel::Detail {

namespace {

struct MemoryFreer {
    void operator()(void* block) const { GlobalFree(block); }
};
using GlobalBlock = std::unique_ptr<void, MemoryFreer>;

/// Null if memory runs out.
GlobalBlock makeDib(const BitmapImpl<Rgb>& image, bool spoilGrey) {
    const std::size_t size = getDibSize(image.getWidth(), image.getHeight());
    // Zeros, so that the bytes that pad the rows tell nothing of what was in the memory before.
    GlobalBlock block(GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size));
    void* const memory = block == nullptr ? nullptr : GlobalLock(block.get());
    if (memory == nullptr) {
        return {};
    }
    writeDib(image, spoilGrey, {static_cast<unsigned char*>(memory), size});
    GlobalUnlock(block.get());
    return block;
}

} // namespace

bool putOnClipboard(const BitmapImpl<Rgb>& image, bool spoilGrey, WindowHandle owner) {
    if (OpenClipboard(static_cast<HWND>(owner.toPointer())) == FALSE) {
        return false;
    }
    bool done = false;
    if (EmptyClipboard() != FALSE) {
        GlobalBlock block = makeDib(image, spoilGrey);
        if (block != nullptr && ::SetClipboardData(CF_DIB, block.get()) != nullptr) {
            static_cast<void>(block.release()); // the system's now
            done = true;
        }
    }
    CloseClipboard();
    return done;
}

void storeClipboardText() {
    wxTheClipboard->Flush();
}

} // namespace Ostrel::Detail
