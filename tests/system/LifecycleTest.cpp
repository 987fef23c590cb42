#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/frame.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/stopwatch.h>

#include <OstrelLib/Application.h>
#include <OstrelLib/Exceptions.h>
#include <OstrelLibWx/OstrelLibWx.h>

namespace {

using namespace Ostrel;
using LibWx::ApplicationType;

constexpr int DEADLINE_MS = 10'000;

using Calls = std::vector<std::string>;

/// A host's own application, which notes what the library calls. The toolkit deletes it in the end.
class HostApplication : public wxApp {
public:
    static void create(Calls& calls) { SetInstance(new HostApplication(calls)); }
    ~HostApplication() override { note("deleted"); }
    bool CallOnInit() override { return note("CallOnInit"); } // the library ignores that it fails
    bool ProcessIdle() override { return note("ProcessIdle") || wxApp::ProcessIdle(); }
    int OnExit() override { return note("OnExit") || wxApp::OnExit(); }
    void ExitMainLoop() override { note("ExitMainLoop"), wxApp::ExitMainLoop(); }
    int OnRun() override { return 42; }

private:
    explicit HostApplication(Calls& calls)
        : _calls(calls) {
        SetClassName("Host");
    }
    bool note(const char* call) {
        _calls.emplace_back(call);
        return false;
    }

    Calls& _calls;
};

std::vector<wxBitmapType> registeredImageTypes() {
    std::vector<wxBitmapType> types;
    for (const wxObject* const handler : wxImage::GetHandlers()) {
        types.push_back(static_cast<const wxImageHandler*>(handler)->GetType());
    }
    return types;
}

TEST(Lifecycle, BringsUpAnApplicationOfItsOwnAndTakesItDown) {
    ASSERT_TRUE(LibWx::startup(ApplicationType::STANDALONE));
    EXPECT_EQ(wxTheApp->GetClassName(), "OstrelApp");
    EXPECT_FALSE(wxTheApp->GetAppName().empty());
    EXPECT_EQ(wxTheApp->GetAppDisplayName(), wxTheApp->GetAppName().Capitalize()) << "as without a name";
    EXPECT_FALSE(wxLog::IsEnabled());
    EXPECT_EQ(registeredImageTypes(),
              (std::vector{wxBITMAP_TYPE_PNG, wxBITMAP_TYPE_JPEG, wxBITMAP_TYPE_ICO, wxBITMAP_TYPE_BMP,
                           wxBITMAP_TYPE_GIF, wxBITMAP_TYPE_TIFF, wxBITMAP_TYPE_TGA}));
    LibWx::shutdown();
    EXPECT_EQ(wxApp::GetInstance(), nullptr);
    EXPECT_TRUE(registeredImageTypes().empty());
}

TEST(Lifecycle, CallsTheHostsApplicationInOrder) {
    for (int type = 0; type <= 2; ++type) {
        Calls calls;
        HostApplication::create(calls);
        EXPECT_TRUE(LibWx::startup(static_cast<ApplicationType>(type)));
        EXPECT_EQ(wxTheApp->GetClassName(), "Host");
        EXPECT_EQ(calls, type == 2 ? Calls{} : Calls{"CallOnInit"}) << type;
        EXPECT_EQ(LibWx::runEventLoop(), 42);
        LibWx::stopEventLoop();
        EXPECT_EQ(calls.back(), "ExitMainLoop");
        calls.clear();
        LibWx::shutdown();
        EXPECT_EQ(calls, (Calls{"ProcessIdle", "OnExit", "ExitMainLoop", "deleted"})) << type;
    }
}

TEST(Lifecycle, LeavesTheToolkitToAHostThatInitialisedIt) {
    Calls calls;
    HostApplication::create(calls);
    ASSERT_TRUE(wxInitialize());
    LibWx::startup(ApplicationType::WX_HOST);
    LibWx::shutdown();
    EXPECT_EQ(calls, (Calls{"ProcessIdle", "OnExit", "ExitMainLoop"}));
    EXPECT_EQ(registeredImageTypes().size(), 7U) << "the toolkit's own BMP is not there twice";
    wxUninitialize();
    EXPECT_EQ(calls.back(), "deleted");
}

TEST(Lifecycle, RejectsAnUnknownTypeAfterTheInitialisation) {
    try {
        LibWx::startup(static_cast<ApplicationType>(3));
        FAIL() << "not rejected";
    } catch (const Detail::StopException& exception) {
        EXPECT_EQ(exception.getPath(), "OstrelLibWx");
        EXPECT_EQ(exception.getLine(), 145);
    }
    EXPECT_EQ(registeredImageTypes().size(), 7U);
    EXPECT_TRUE(LibWx::startup(static_cast<ApplicationType>(3))) << "a nested call is not checked";
    LibWx::shutdown();
    EXPECT_NE(wxApp::GetInstance(), nullptr);
    LibWx::shutdown(); // no timer to stop
    EXPECT_EQ(wxApp::GetInstance(), nullptr);
}

TEST(Lifecycle, CountsWithoutAGuard) {
    LibWx::shutdown();
    EXPECT_TRUE(LibWx::startup(ApplicationType::STANDALONE)) << "makes up for the call too many";
    EXPECT_EQ(wxApp::GetInstance(), nullptr);
    EXPECT_TRUE(LibWx::startup(ApplicationType::STANDALONE));
    EXPECT_NE(wxApp::GetInstance(), nullptr);
    LibWx::shutdown();
}

TEST(Lifecycle, StartsAnewAHundredTimes) {
    Calls calls;
    for (int i = 0; i < 100; ++i) {
        if (i % 2 != 0) {
            HostApplication::create(calls);
        }
        ASSERT_TRUE(LibWx::startup(ApplicationType::STANDALONE)) << i;
        ASSERT_EQ(registeredImageTypes().size(), 7U) << i;
        wxFrame* const frame = new wxFrame(nullptr, wxID_ANY, "Again");
        frame->Show();
        frame->Destroy(); // idle processing deletes it, at the latest that of `shutdown`
        LibWx::shutdown();
        ASSERT_EQ(wxApp::GetInstance(), nullptr) << i;
        ASSERT_TRUE(wxTopLevelWindows.empty()) << i;
    }
}

TEST(IdleTimer, RunsUntilTheLastShutdownWithoutAnIdleLoop) {
    Calls calls;
    HostApplication::create(calls);
    LibWx::startup(ApplicationType::NATIVE_HOST);
    LibWx::startup(ApplicationType::NATIVE_HOST);
    LibWx::shutdown();
    LibWx::processAllPendingEvents(); // what the start itself left to do
    // A host's loop, which knows no idle time. A tick may bring several rounds of idle processing with it.
    std::vector<long> ticks;
    for (const wxStopWatch watch; ticks.size() < 3 && watch.Time() < DEADLINE_MS;) {
        calls.clear();
        Lib::runSingleEventLoopIteration(true);
        if (!calls.empty() && (ticks.empty() || watch.Time() - ticks.back() > 1000)) {
            ticks.push_back(watch.Time());
        }
    }
    ASSERT_EQ(ticks.size(), 3U) << "the timer does not repeat";
    EXPECT_NEAR(static_cast<double>(ticks[2] - ticks[1]), 2000, 500);
    LibWx::shutdown();
    EXPECT_EQ(calls.back(), "deleted");
}

TEST(EventLoop, RunsUntilStoppedAndIsPumpedByHand) {
    LibWx::startup(ApplicationType::STANDALONE);
    wxTheApp->CallAfter([] { LibWx::stopEventLoop(); });
    EXPECT_EQ(LibWx::runEventLoop(), 0);
    bool dispatched = false;
    wxTheApp->CallAfter([&dispatched] { dispatched = true; });
    LibWx::processWxWidgetsPendingEvents();
    EXPECT_TRUE(dispatched);

    bool painted = false;
    wxFrame* const frame = new wxFrame(nullptr, wxID_ANY, "Pending");
    frame->Bind(wxEVT_PAINT, [&painted](wxPaintEvent& event) {
        painted = true;
        event.Skip();
    });
    frame->Show();
    for (const wxStopWatch watch; !painted && watch.Time() < DEADLINE_MS;) {
        LibWx::processAllPendingEvents();
    }
    EXPECT_TRUE(painted) << "native messages were not dispatched";
    frame->Destroy();
    LibWx::shutdown();
}

TEST(AssertFailure, IsToldInFiveLinesButForTheLocaleCheck) {
    const wxString function = "wxLocale::GetInfo";
    const wxString condition = "strcmp(setlocale(0, 0), \"C\") == 0";
    const auto text = Wx::formatWxAssertFailure("src/a", 12, "f", "x > 0", "bad");
    ASSERT_TRUE(text);
    EXPECT_EQ(text->toUtf8(),
              "An internal error occurred: wxWidgets assertion failure. Please, report this problem to us.\n"
              "File: src/a(12)\nFunction: f\nCondition: x > 0\nMessage: bad");
    EXPECT_FALSE(Wx::formatWxAssertFailure("f", 1, function, condition, ""));
    EXPECT_TRUE(Wx::formatWxAssertFailure("f", 1, function, condition + " ", ""));
    EXPECT_TRUE(Wx::formatWxAssertFailure("f", 1, function.Upper(), condition, L"\u20AC"));
}

} // namespace
