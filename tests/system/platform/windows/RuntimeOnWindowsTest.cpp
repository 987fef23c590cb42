// Windows alone: DPI awareness and module handles are its notions.
#include <windows.h>

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/msw/private.h>

#include <OstrelLibWx/OstrelLibWx.h>

namespace {

using namespace Ostrel;

TEST(Lifecycle, UsesTheLibrarysOwnModuleForResources) {
    LibWx::startup(LibWx::ApplicationType::STANDALONE);
    wchar_t path[MAX_PATH]{};
    ASSERT_GT(GetModuleFileNameW(wxGetInstance(), path, MAX_PATH), 0U);
    EXPECT_NE(wxString(path).Lower().Find("ostrellibwx"), wxNOT_FOUND) << wxString(path).utf8_string();
    LibWx::shutdown();
}

TEST(Lifecycle, LeavesTheDpiAwarenessAlone) {
    for (const DPI_AWARENESS_CONTEXT context : {DPI_AWARENESS_CONTEXT_UNAWARE, DPI_AWARENESS_CONTEXT_SYSTEM_AWARE}) {
        const DPI_AWARENESS_CONTEXT before = SetThreadDpiAwarenessContext(context);
        const BOOL awareProcess = IsProcessDPIAware();
        LibWx::startup(LibWx::ApplicationType::STANDALONE);
        EXPECT_TRUE(AreDpiAwarenessContextsEqual(GetThreadDpiAwarenessContext(), context));
        EXPECT_EQ(IsProcessDPIAware(), awareProcess);
        LibWx::shutdown();
        SetThreadDpiAwarenessContext(before);
    }
}

} // namespace
