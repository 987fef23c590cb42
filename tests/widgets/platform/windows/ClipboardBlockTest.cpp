// Windows alone: the block on the clipboard, and who holds it open.
#include "support/WidgetTest.h"

#include <algorithm>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <thread>
#include <vector>

#include <windows.h>

#include <wx/mstream.h>

#include <OstrelLibWx/BitmapUtils.h>

#include "widgets/ClipboardPicture.h"

namespace {

using namespace Ostrel;
using Wx::SetClipboardData;
using Bytes = std::vector<unsigned char>;

class ClipboardBlock : public WidgetTest {};

Bytes takeBlock() {
    Bytes bytes;
    if (OpenClipboard(nullptr) != FALSE) {
        if (HANDLE const block = GetClipboardData(CF_DIB)) {
            const void* const memory = GlobalLock(block);
            bytes.resize(GlobalSize(block));
            std::memcpy(bytes.data(), memory, bytes.size());
            GlobalUnlock(block);
        }
        CloseClipboard();
    }
    return bytes;
}

} // namespace

wxImage takePictureFromClipboard() {
    const Bytes block = takeBlock();
    if (block.empty()) {
        return {};
    }
    Bytes file{'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0}; // what a BMP file has before the block
    file.insert(file.end(), block.begin(), block.end());
    wxMemoryInputStream stream(file.data(), file.size());
    return wxImage(stream, wxBITMAP_TYPE_BMP);
}

namespace {

TEST_F(ClipboardBlock, StaysAsItIsWhileAnotherWindowHoldsTheClipboardOpen) {
    const BitmapImpl<Rgb> image(1, 1, {1.0F, 0.0F, 0.0F});
    ASSERT_TRUE(Wx::setClipboardData(image));
    const Bytes before = takeBlock();
    const Bytes expected{40, 0, 0,  0, 1, 0, 0,  0, 1, 0, 0, 0, 1, 0, 24, 0, 0, 0, 0, 0, 0,   0, //
                         0,  0, 96, 0, 0, 0, 96, 0, 0, 0, 0, 0, 0, 0, 0,  0, 0, 0, 0, 0, 255, 0};
    ASSERT_GE(before.size(), expected.size()); // the system may round a block's size up
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), before.begin()));
    std::mutex mutex;
    std::condition_variable changed;
    bool held = false;
    bool done = false;
    std::thread holder([&] {
        const HWND window = CreateWindowExW(0, L"STATIC", L"holder", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                            GetModuleHandleW(nullptr), nullptr);
        EXPECT_NE(OpenClipboard(window), FALSE);
        std::unique_lock lock(mutex);
        held = true;
        changed.notify_all();
        changed.wait(lock, [&] { return done; });
        CloseClipboard();
        DestroyWindow(window);
    });
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [&] { return held; });
        EXPECT_FALSE(Wx::setClipboardData(BitmapImpl<Rgb>(2, 2)));
        EXPECT_FALSE(Wx::setClipboardData(String("text")));
        done = true;
    }
    changed.notify_all();
    holder.join();
    EXPECT_EQ(takeBlock(), before);
    EXPECT_TRUE(Wx::setClipboardData(String("text")));
}

} // namespace
