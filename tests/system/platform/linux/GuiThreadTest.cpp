#include <OstrelLibWx/MessageDialog.h>
#include <OstrelLibWx/OstrelLibWx.h>

#include <gtest/gtest.h>

#include <future>
#include <thread>

#include <wx/app.h>

// What another thread asks of the one that may use GTK. On Windows it shows its message box itself.

namespace {

using namespace Ostrel;

TEST(GuiThread, LetsNobodyWaitForAMessageBoxWhenTheLibraryGoesDown) {
    ASSERT_TRUE(LibWx::startup(LibWx::ApplicationType::STANDALONE));
    std::future<bool> answer = std::async(
        std::launch::async, [] { return Wx::showOkDialog({}, "Title", "Message", Wx::MessageDialogIcon::NO_ICON); });
    while (!wxTheApp->HasPendingEvents()) {
        std::this_thread::yield();
    }
    LibWx::shutdown();
    EXPECT_THROW(answer.get(), std::future_error);
}

} // namespace
