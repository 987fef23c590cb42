#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/evtloop.h>

#include <OstrelLibWx/OstrelLibWx.h>

namespace {

/// A failed assertion of the toolkit is a failed test, told in the library's own words.
void failOnAssertion(const wxString& file, int line, const wxString& function, const wxString& condition,
                     const wxString& message) {
    if (const auto text = Ostrel::Wx::formatWxAssertFailure(file, line, function, condition, message)) {
        ADD_FAILURE() << text->toUtf8();
    }
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    wxSetAssertHandler(failOnAssertion);
    Ostrel::LibWx::startup(Ostrel::LibWx::ApplicationType{0});
    int result = 0;
    {
        wxTheApp->SetExitOnFrameDelete(false);
        wxGUIEventLoop loop;
        const wxEventLoopActivator active(&loop);
        result = RUN_ALL_TESTS();
    }
    Ostrel::LibWx::shutdown();
    return result;
}
