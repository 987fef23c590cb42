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
    EXPECT_NE(library, nullptr);
    EXPECT_NE(WinApi::getMyModuleHandle(), library);
    int onTheStack = 0;
    EXPECT_EQ(Detail::getModuleHandleFromAddress(&onTheStack), nullptr);
    EXPECT_EQ(Detail::getModuleHandleFromAddress(nullptr), nullptr);
}

TEST(WindowDisabling, IgnoresHandlesOfNoWindow) {
    const WindowDisabler none{WindowHandle()};
    const WindowDisabler unknown{WindowHandle(0x7FFFFFF1)};
    EXPECT_EQ(getFontScale(), getFontScale());
}

} // namespace
