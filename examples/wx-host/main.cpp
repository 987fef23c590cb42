// A wxWidgets application that uses the library's controls. Application object and event loop are its own, and it tells
// the library so.
// Usage: wx-host [--quit-after-shown]
//   --quit-after-shown   presses the button once the window has been painted, and ends
// What the button reports is written to the standard output.

#include <iostream>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <OstrelLibWx/OstrelLibWx.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/Button.h>
#include <OstrelLibWx/widgets/StaticLine.h>

using Ostrel::Wx::scaleByDpi;

namespace {

class HostFrame : public wxFrame {
public:
    explicit HostFrame(bool quitAfterShown);

private:
    void addControls();
    void onButtonClicked(wxMouseEvent& event);
    void countClick();
    void pressOnceShown(wxPaintEvent& event);

    Ostrel::Wx::Button* _button = nullptr;
    wxStaticText* _count = nullptr;
    int _clicks = 0;
    bool _quitAfterShown;
};

HostFrame::HostFrame(bool quitAfterShown)
    : wxFrame(nullptr, wxID_ANY, "wxWidgets host")
    , _quitAfterShown(quitAfterShown) {
    addControls();
    Ostrel::Wx::setNimbraIcon(this);
    if (_quitAfterShown) {
        _button->Bind(wxEVT_PAINT, &HostFrame::pressOnceShown, this);
    }
}

void HostFrame::addControls() {
    auto* panel = new wxPanel(this);
    _count = new wxStaticText(panel, wxID_ANY, "Not pressed yet");
    _count->SetFont(Ostrel::Wx::setupStaticTextFont(_count->GetFont(), {}));
    auto* line = new Ostrel::Wx::StaticLine(panel, wxHORIZONTAL);
    _button = new Ostrel::Wx::Button(
        panel, Ostrel::Wx::GuiSkin(), wxID_ANY, "Press", wxBitmap(), wxBitmap(), [this] { countClick(); },
        Ostrel::Wx::Button::PUSH, true, Ostrel::RawaBorderState::ENABLED);
    _button->setTooltip("Counts how often it is pressed");
    panel->Bind(Ostrel::Wx::Button::clickEventType(), &HostFrame::onButtonClicked, this, _button->GetId());
    Ostrel::Wx::applySkinRecursive(panel, Ostrel::Wx::GuiSkin());

    const int gap = scaleByDpi(12);
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(_count, wxSizerFlags().Expand().Border(wxALL, gap));
    column->Add(line, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, gap));
    column->Add(_button, wxSizerFlags().Expand().Border(wxALL, gap));
    panel->SetSizer(column);
    panel->SetMinSize(scaleByDpi(wxSize(260, -1)));
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(panel, wxSizerFlags(1).Expand());
    SetSizerAndFit(whole);
}

/// The first of the two ways in which a button reports a click: an event for its parent.
void HostFrame::onButtonClicked(wxMouseEvent& event) {
    const bool fromButton = event.GetEventObject() == _button;
    std::cout << "event from " << (fromButton ? "the button" : "elsewhere") << std::endl;
}

/// The second: a call.
void HostFrame::countClick() {
    ++_clicks;
    std::cout << "pressed " << _clicks << std::endl;
    _count->SetLabel(wxString::Format("Pressed %d times", _clicks));
    if (_quitAfterShown) {
        Close();
    }
}

void HostFrame::pressOnceShown(wxPaintEvent& event) {
    event.Skip();
    _button->Unbind(wxEVT_PAINT, &HostFrame::pressOnceShown, this);
    CallAfter([this] {
        std::cout << "shown" << std::endl;
        _button->doClick(wxPoint(0, 0));
    });
}

class WxHost : public wxApp {
public:
    WxHost() { SetClassName("WxHost"); }

    bool OnInit() override {
        Ostrel::LibWx::startup(Ostrel::LibWx::ApplicationType::WX_HOST);
        std::cout << "started in " << wxTheApp->GetClassName().utf8_string() << std::endl;
        (new HostFrame(argc > 1 && argv[1] == "--quit-after-shown"))->Show();
        return true;
    }

    int OnRun() override {
        const int exitCode = wxApp::OnRun();
        Ostrel::LibWx::shutdown(); // here and not in OnExit, which it calls
        std::cout << "stopped" << std::endl;
        return exitCode;
    }
};

} // namespace

wxIMPLEMENT_APP(WxHost);
