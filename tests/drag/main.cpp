// Shows color picker buttons between which colours are dragged with the pointer: tools/check-drag.
// Usage: swatch-window CASE X END-FILE. The window is X pixels from the left. Writes one line for each thing that
// happens, and ends when END-FILE exists. CASE: "plain"; "disabled", the second button is; "destroy", both are
// destroyed by what the second one tells; "odd", the first one has no colour that can be shown.

#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>

#include <wx/app.h>
#include <wx/filename.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/timer.h>
#include <wx/weakref.h>

#include <OstrelLibWx/OstrelLibWx.h>
#include <OstrelLibWx/widgets/ColorPicker.h>
#include <OstrelLibWx/widgets/ColorPickerButton.h>

namespace {

using namespace Ostrel;

constexpr int LOOK_AGAIN_MS = 20;

void say(const std::string& what, const Rgb& color) {
    const auto bits = [](float channel) { return static_cast<unsigned>(std::bit_cast<std::uint32_t>(channel)); };
    std::printf("%s %08x %08x %08x %08x\n", what.c_str(), bits(color.red), bits(color.green), bits(color.blue),
                bits(color.alpha));
    std::fflush(stdout);
}

wxWeakRef<Wx::ColorPickerButton> makeButton(wxWindow* parent, const std::string& name, int y, const Rgb& color) {
    auto* const button = new Wx::ColorPickerButton(parent, String::fromUtf8(name), wxSize(80, 40), true);
    button->Move(40, y);
    button->setColor(color, false);
    button->setCommitCallback([name](const Rgb& told) { say("commit " + name, told); });
    button->setPreviewCallback([name](const Rgb& told) { say("preview " + name, told); });
    return button;
}

wxPoint getMiddle(const wxWindow& window) {
    return window.ClientToScreen(wxPoint(0, 0)) + window.GetClientSize() / 2;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        return 2;
    }
    const std::string name = argv[1];
    const wxString end = wxString::FromUTF8(argv[3]);
    LibWx::startup(LibWx::ApplicationType::STANDALONE);
    auto* const frame = new wxFrame(nullptr, wxID_ANY, "swatch-window", wxPoint(std::atoi(argv[2]), 100));
    auto* const panel = new wxPanel(frame);
    frame->SetClientSize(320, 240);
    constexpr float ENDLESS = std::numeric_limits<float>::infinity();
    const Rgb odd{std::bit_cast<float>(std::uint32_t{0x7FC01234}), ENDLESS, -ENDLESS, -0.0F};
    const auto first = makeButton(panel, "first", 40, name == "odd" ? odd : Rgb{2.5F, -0.25F, 0.1F, 0.75F});
    const auto second = makeButton(panel, "second", 140, {});
    second->Enable(name != "disabled");
    if (name == "destroy") {
        second->setCommitCallback([&](const Rgb& told) {
            say("commit second", told);
            first->Destroy();
            second->Destroy();
        });
    }
    frame->Show();
    bool ready = false;
    wxTimer timer;
    timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
        if (!ready && frame->IsActive()) { // placed, and it takes input from now on
            ready = true;
            const wxPoint a = getMiddle(*first);
            const wxPoint b = getMiddle(*second);
            std::printf("ready %d %d %d %d\n", a.x, a.y, b.x, b.y);
            std::fflush(stdout);
        } else if (!ready) {
            frame->Raise();
        }
        for (wxWindow* const window : wxTopLevelWindows) {
            auto* const picker = dynamic_cast<Wx::ColorPicker*>(window);
            if (picker != nullptr && picker->IsModal()) {
                std::puts("picker");
                std::fflush(stdout);
                picker->EndModal(wxID_OK);
            }
        }
        if (wxFileName::FileExists(end)) {
            LibWx::stopEventLoop();
        }
    });
    timer.Start(LOOK_AGAIN_MS);
    LibWx::runEventLoop();
    frame->Destroy();
    LibWx::processAllPendingEvents();
    LibWx::shutdown();
    return 0;
}
