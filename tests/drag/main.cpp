// Shows color picker buttons between which colors are dragged with the pointer: tools/check-drag.
// Usage: swatch-window CASE X END-FILE. The window is X pixels from the left. Writes one line for each thing that
// happens, and ends when END-FILE exists. CASE: "plain"; "disabled", the second button is; "destroy", both are
// destroyed by what the second one tells.

#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
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

void say(const std::string& line) {
    std::puts(line.c_str());
    std::fflush(stdout);
}

std::string describe(const Rgb& color) {
    char text[64];
    std::snprintf(text, sizeof text, "%08x %08x %08x %08x", std::bit_cast<std::uint32_t>(color.red),
                  std::bit_cast<std::uint32_t>(color.green), std::bit_cast<std::uint32_t>(color.blue),
                  std::bit_cast<std::uint32_t>(color.alpha));
    return text;
}

class Swatches : public wxFrame {
public:
    Swatches(const std::string& name, int x, const wxString& end)
        : wxFrame(nullptr, wxID_ANY, "swatch-window", wxPoint(x, 100))
        , _panel(new wxPanel(this))
        , _destroys(name == "destroy")
        , _end(end) {
        SetClientSize(320, 240);
        _first = make("first", wxPoint(40, 40), {2.5F, -0.25F, 0.1F, 0.75F});
        _second = make("second", wxPoint(40, 140), {});
        _second->Enable(name != "disabled");
        _timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { look(); });
        _timer.Start(LOOK_AGAIN_MS);
        Show();
    }

    /// Where the buttons' middles are on the screen.
    void tellPlaces() {
        const auto middle = [](const wxWindow& window) {
            const wxPoint point = window.ClientToScreen(wxPoint(0, 0)) + window.GetClientSize() / 2;
            return std::to_string(point.x) + " " + std::to_string(point.y);
        };
        say("ready " + middle(*_first) + " " + middle(*_second));
    }

private:
    Wx::ColorPickerButton* make(const std::string& name, wxPoint place, const Rgb& color) {
        auto* const button = new Wx::ColorPickerButton(_panel, String::fromUtf8(name), wxSize(80, 40), true);
        button->Move(place);
        button->setColor(color, false);
        button->setCommitCallback([this, name](const Rgb& told) {
            say("commit " + name + " " + describe(told));
            if (_destroys) {
                _first->Destroy();
                _second->Destroy();
            }
        });
        button->setPreviewCallback([name](const Rgb& told) { say("preview " + name + " " + describe(told)); });
        return button;
    }

    void look() {
        for (wxWindow* const window : wxTopLevelWindows) {
            auto* const picker = dynamic_cast<Wx::ColorPicker*>(window);
            if (picker != nullptr && picker->IsModal()) {
                say("picker");
                picker->EndModal(wxID_OK);
            }
        }
        if (wxFileName::FileExists(_end)) {
            LibWx::stopEventLoop();
        }
    }

    wxPanel* _panel;
    bool _destroys;
    wxString _end;
    wxTimer _timer;
    wxWeakRef<Wx::ColorPickerButton> _first;
    wxWeakRef<Wx::ColorPickerButton> _second;
};

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        return 2;
    }
    LibWx::startup(LibWx::ApplicationType::STANDALONE);
    auto* const window = new Swatches(argv[1], std::atoi(argv[2]), wxString::FromUTF8(argv[3]));
    wxTimer shown;
    shown.Bind(wxEVT_TIMER, [window, &shown](wxTimerEvent&) {
        // Placed and active: it takes input from now on.
        if (window->IsActive()) {
            shown.Stop();
            window->tellPlaces();
        } else {
            window->Raise();
        }
    });
    shown.Start(LOOK_AGAIN_MS);
    LibWx::runEventLoop();
    window->Destroy();
    LibWx::processAllPendingEvents();
    LibWx::shutdown();
    return 0;
}
