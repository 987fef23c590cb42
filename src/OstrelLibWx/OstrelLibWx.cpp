#include <OstrelLibWx/OstrelLibWx.h>

#include <atomic>
#include <cstdint>
#include <stdexcept>

#include <wx/app.h>
#include <wx/imagbmp.h>
#include <wx/image.h>
#include <wx/imaggif.h>
#include <wx/imagjpeg.h>
#include <wx/imagpng.h>
#include <wx/imagtga.h>
#include <wx/imagtiff.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/socket.h>
#include <wx/timer.h>

#include <OstrelLib/Application.h>
#include <OstrelLib/Exceptions.h>
#include <OstrelLib/TextSerializer.h>

#include "painting/EmbeddedBitmaps.h"
#include "platform/Native.h"

namespace Ostrel {

/// Runs the toolkit's idle processing: deferred deletions, idle events, updates of the user interface. A host's own
/// message loop gives the toolkit no idle time.
class ProcessEventsTimer : public wxTimer {
public:
    ~ProcessEventsTimer() override = default;

    void Notify() override { wxAppConsoleBase::GetInstance()->ProcessIdle(); }
};

namespace LibWx {

namespace {

constexpr int PROCESS_EVENTS_INTERVAL_MS = 2000;

/// The application object of a host that has none of its own.
class Application : public wxApp {
public:
    ~Application() override = default;
};

std::atomic<std::int32_t> startupCount{0};
AutoPtr<ProcessEventsTimer> processEventsTimer;

void createApplication() {
    auto* const application = new Application; // deleted by the toolkit's clean-up
    application->SetClassName("OstrelApp");
    wxAppConsoleBase::SetInstance(application);
}

void addImageHandlers() {
    wxImage::AddHandler(new wxPNGHandler);
    wxImage::AddHandler(new wxJPEGHandler);
    wxImage::AddHandler(new wxICOHandler);
    wxImage::AddHandler(new wxBMPHandler);
    wxImage::AddHandler(new wxGIFHandler);
    wxImage::AddHandler(new wxTIFFHandler);
    wxImage::AddHandler(new wxTGAHandler);
}

/// The check comes after the toolkit's initialisation, on purpose.
void checkType(ApplicationType type) {
    switch (type) {
    case ApplicationType::STANDALONE:
    case ApplicationType::NATIVE_HOST:
    case ApplicationType::WX_HOST:
        return;
    }
    constexpr int LINE = 145; // part of the interface: hosts and their reports know it, wherever this code moves to
    Detail::throwStopException("OstrelLibWx", LINE);
}

} // namespace

bool startup(ApplicationType type) {
    if (++startupCount != 1) {
        return true;
    }
    wxLog::EnableLogging(false);
    const bool hostHasNone = wxAppConsoleBase::GetInstance() == nullptr;
    if (hostHasNone) {
        createApplication();
    }
    addImageHandlers();
    Detail::prepareToolkit();
    wxInitialize();
    if (wxAppConsoleBase::GetInstance() == nullptr) { // the toolkit deletes the application if it cannot be initialised
        throw std::runtime_error("The window system could not be reached.");
    }
    wxSocketBase::Initialize();
    checkType(type);
    wxAppConsole* const application = wxAppConsoleBase::GetInstance();
    if (hostHasNone) {
        // Without a name, the toolkit looks the program's file up for every window that is made. What it makes of a
        // missing name for users to see stays as it is.
        application->SetAppDisplayName(application->GetAppDisplayName());
        application->SetAppName(application->GetAppName());
    }
    if (type != ApplicationType::WX_HOST) {
        application->CallOnInit();
    }
    processEventsTimer = std::make_unique<ProcessEventsTimer>();
    processEventsTimer->Start(PROCESS_EVENTS_INTERVAL_MS, wxTIMER_CONTINUOUS);
    return true;
}

void shutdown() {
    if (startupCount-- != 1) {
        return;
    }
    if (processEventsTimer != nullptr) { // null after a `startup` that threw
        processEventsTimer->Stop();
        processEventsTimer.reset();
    }
    if (wxAppConsole* const application = wxAppConsoleBase::GetInstance()) {
        application->ProcessIdle();
        application->OnExit();
        application->ExitMainLoop();
        wxSocketBase::Shutdown();
    }
    Wx::forgetAssets();
    wxUninitialize();
}

int runEventLoop() {
    return wxAppConsoleBase::GetInstance()->OnRun();
}

void stopEventLoop() {
    wxAppConsoleBase::GetInstance()->ExitMainLoop();
}

void processWxWidgetsPendingEvents() {
    wxAppConsoleBase::GetInstance()->ProcessPendingEvents();
}

void processAllPendingEvents() {
    processWxWidgetsPendingEvents();
    while (Lib::runSingleEventLoopIteration(true)) {
    }
}

} // namespace LibWx

namespace Wx {

namespace {

String toString(const wxString& text) {
    return text.ToStdWstring();
}

} // namespace

Optional<String> formatWxAssertFailure(const wxString& file, int line, const wxString& function,
                                       const wxString& condition, const wxString& message) {
    // Fires in any host that has set a process locale other than the classic one, which is its right.
    if (function == "wxLocale::GetInfo" && condition == "strcmp(setlocale(0, 0), \"C\") == 0") {
        return {};
    }
    SimpleTextSerializer text;
    text.write("An internal error occurred: wxWidgets assertion failure. Please, report this problem to us.\n");
    text.write("File: ").write(toString(file)).write("(").write(line).write(")\n");
    text.write("Function: ").write(toString(function)).write("\n");
    text.write("Condition: ").write(toString(condition)).write("\n");
    text.write("Message: ").write(toString(message));
    return text.getText();
}

} // namespace Wx

} // namespace Ostrel
