// A program with a native window and message loop of its own, and no wxWidgets application: it starts the library,
// shows one of the library's windows in front of its own, and gives the library time from its loop. Usage: native-host
// [--quit-after-shown]
//   --quit-after-shown   clicks the button with the mouse once the window has been painted, and ends
// What happens is written to the standard output.

#include <chrono>
#include <iostream>
#include <string_view>

#include <wx/frame.h>
#include <wx/uiaction.h>

#include <OstrelLibWx/OstrelLibWx.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/Button.h>

#include "HostWindow.h"

namespace {

constexpr int TICK_MS = 20;
constexpr std::chrono::seconds DEADLINE{20}; ///< for what happens by itself after --quit-after-shown

/// A window of the library's with one button.
class ToolFrame : public wxFrame {
public:
    /// Owned by the window `owner`. `onClose` is called when the user closes it; it stays there until destroyed.
    ToolFrame(Ostrel::WindowHandle owner, const std::function<void()>& onClose)
        : wxFrame(nullptr, wxID_ANY, "The library's window", wxDefaultPosition, wxDefaultSize,
                  wxCAPTION | wxCLOSE_BOX | wxFRAME_NO_TASKBAR) {
        _button = new Ostrel::Wx::Button(
            this, Ostrel::Wx::GuiSkin(), wxID_ANY, "Press", wxBitmap(), wxBitmap(), [this] { ++_clicks; },
            Ostrel::Wx::Button::PUSH, true, Ostrel::RawaBorderState::ENABLED);
        _button->Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
            _painted = true;
            event.Skip();
        });
        Bind(wxEVT_CLOSE_WINDOW, [onClose](wxCloseEvent&) { onClose(); });
        Ostrel::Wx::setNimbraIcon(this);
        Ostrel::Wx::setOwnerFromNativeHandle(Ostrel::Wx::getWindowNativeHandle(this), owner);
        SetClientSize(Ostrel::Wx::scaleByDpi(wxSize(220, 48)));
    }

    [[nodiscard]] bool isPainted() const { return _painted; }
    [[nodiscard]] int clicks() const { return _clicks; }

    void clickWithMouse() {
        const wxSize size = _button->GetClientSize();
        wxUIActionSimulator mouse;
        mouse.MouseMove(_button->ClientToScreen(wxPoint(size.x / 2, size.y / 2)));
        mouse.MouseClick();
    }

private:
    Ostrel::Wx::Button* _button;
    bool _painted = false;
    int _clicks = 0;
};

/// Shows the library's window and runs the host's loop. True if all was seen that the host waits for.
bool runHost(HostWindow& host, bool quitAfterShown) {
    auto* tool = new ToolFrame(host.handle(), [&host] { host.quit(); });
    tool->Show();

    const auto started = std::chrono::steady_clock::now();
    bool owned = false;
    bool clicked = false;
    host.run(TICK_MS, [&] {
        Ostrel::LibWx::processAllPendingEvents();
        if (!quitAfterShown) {
            return;
        }
        if (!clicked && tool->isPainted()) {
            owned = Ostrel::Wx::getOwnerAsNativeHandle(Ostrel::Wx::getWindowNativeHandle(tool)) == host.handle();
            std::cout << "owned by " << (owned ? "the host's window" : "something else") << std::endl;
            clicked = true;
            tool->clickWithMouse();
        }
        if (tool->clicks() > 0 || std::chrono::steady_clock::now() - started > DEADLINE) {
            host.quit();
        }
    });

    const int clicks = tool->clicks();
    std::cout << "pressed " << clicks << std::endl;
    tool->Destroy(); // takes effect in the library's next idle processing, at the latest in its shutdown
    return !quitAfterShown || (owned && clicks == 1);
}

} // namespace

int main(int argc, char** argv) {
    HostWindow host("Native host", 480, 320);
    Ostrel::LibWx::startup(Ostrel::LibWx::ApplicationType::NATIVE_HOST);
    std::cout << "started" << std::endl;
    const bool good = runHost(host, argc > 1 && std::string_view(argv[1]) == "--quit-after-shown");
    Ostrel::LibWx::shutdown();
    std::cout << "stopped, windows left " << wxTopLevelWindows.size() << std::endl;
    return good ? 0 : 1; // the host's window goes last: on Windows a window takes those that it owns with it
}
