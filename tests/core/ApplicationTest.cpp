#include <OstrelLib/Application.h>
#include <OstrelLib/Memory.h>

#include <gtest/gtest.h>

#include <thread>

using namespace Ostrel;

namespace {

TEST(MainThread, IsTheOneThatTheProgramBeganWith) {
    EXPECT_TRUE(isMainThread());
    bool elsewhere = true;
    std::thread([&] { elsewhere = isMainThread(); }).join();
    EXPECT_FALSE(elsewhere);
}

TEST(ModuleHandle, NamesTheModuleOfTheCaller) {
    static const int ownData = 0;
    EXPECT_NE(WinApi::getMyModuleHandle(), nullptr);
    EXPECT_EQ(WinApi::getMyModuleHandle(), Detail::getModuleHandleFromAddress(&ownData));
    void* library = Detail::getModuleHandleFromAddress(reinterpret_cast<const void*>(&ostrelMalloc));
    EXPECT_NE(WinApi::getMyModuleHandle(), library);
    EXPECT_EQ(Detail::getModuleHandleFromAddress(nullptr), nullptr);
}

TEST(WindowDisabling, IgnoresHandlesOfNoWindow) {
    for (const WindowHandle handle : {WindowHandle(), WindowHandle(0x7FFFFFF1)}) {
        EXPECT_NO_THROW(const WindowDisabler disabler{handle});
    }
}

} // namespace
