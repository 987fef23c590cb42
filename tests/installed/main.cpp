// A host outside the tree: it has only what was installed.
#include <OstrelLib/Curve.h>
#include <OstrelLibWx/OstrelLibWx.h>
#include <OstrelLibWx/widgets/Button.h>

#include <wx/frame.h>

int main() {
    Ostrel::LibWx::startup(Ostrel::LibWx::ApplicationType::STANDALONE);
    int clicks = 0;
    {
        auto* frame = new wxFrame(nullptr, wxID_ANY, "Outside");
        auto* button = new Ostrel::Wx::Button(
            frame, Ostrel::Wx::GuiSkin(), wxID_ANY, "Press", wxNullBitmap, wxNullBitmap, [&clicks] { ++clicks; },
            Ostrel::Wx::Button::PUSH, true, Ostrel::RawaBorderState::ENABLED);
        button->doClick({1, 1});
        frame->Destroy();
        Ostrel::LibWx::processAllPendingEvents();
    }
    Ostrel::LibWx::shutdown();
    const Ostrel::Curve identity;
    return clicks == 1 && identity(0.5f) == 0.5f ? 0 : 1;
}
