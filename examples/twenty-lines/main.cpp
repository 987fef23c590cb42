#include <OstrelLibWx/OstrelLibWx.h>
#include <OstrelLibWx/widgets/Button.h>
#include <wx/frame.h>

using namespace Ostrel;

int main() {
    LibWx::startup(LibWx::ApplicationType::STANDALONE);
    auto* frame = new wxFrame(nullptr, wxID_ANY, "Twenty lines");
    const auto close = [frame] { frame->Close(); };
    auto* button = new Wx::Button(frame, Wx::GuiSkin(), wxID_ANY, "Close", wxBitmap(), wxBitmap(), close,
                                  Wx::Button::PUSH, true, RawaBorderState::ENABLED);
    button->setTooltip("Ends the program");
    frame->Show();
    const int exitCode = LibWx::runEventLoop();
    LibWx::shutdown();
    return exitCode;
}
