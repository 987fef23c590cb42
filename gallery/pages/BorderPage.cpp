#include "Page.h"

#include "EventLog.h"
#include "Pose.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/RawaBorder.h>
#include <OstrelLibWx/widgets/StaticBitmap.h>

namespace Ostrel::Gallery {

namespace {

constexpr Flags<RawaBorderState> FRAMED = RawaBorderState::ENABLED;
constexpr Flags<RawaBorderState> FLAT = RawaBorderState::ENABLED | RawaBorderState::FLAT;

/// The frame that buttons, the combo box and the colour fields share.
class BorderPage : public Page {
public:
    explicit BorderPage(const PageContext& context)
        : Page(context, "Border",
               "RawaBorder is the frame of buttons, combo boxes and colour fields. Its inner line turns blue while the "
               "pointer is over the enabled control; a flat one has that line alone.") {
        addStates();
        addMagnified();
        addLive();
    }

private:
    void addStates() {
        constexpr int WIDTH = 160;
        auto* const table =
            new SpecimenTable([this](const wxString& text) { return makeText(TextRole::CAPTION, text); },
                              {"Enabled", "Pointer over it", "Disabled", "Disabled, pointer over it"}, WIDTH);
        for (const auto& [caption, state] : {std::pair{"Framed", FRAMED}, {"Flat", FLAT}}) {
            table->addRow(caption, {makeSpecimen(state, true, false), makeSpecimen(state, true, true),
                                    makeSpecimen(state, false, false), makeSpecimen(state, false, true)});
        }
        addSection("States")->Add(table);
    }

    RawaBorder* makeSpecimen(Flags<RawaBorderState> state, bool enabled, bool hovered) {
        constexpr int HEIGHT = 40;
        auto* const border = new RawaBorder(state, this, wxID_ANY, "Border");
        border->SetMinSize(wxSize(-1, Wx::scaleByDpi(HEIGHT)));
        border->Enable(enabled);
        if (hovered) {
            sendMouseEnter(*border);
        }
        ignoreMouse(*border);
        return border;
    }

    void addMagnified() {
        constexpr int FACTOR = 8;
        const wxSize SIZE_PX{22, 12};
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        for (const auto& [caption, state, hovered] : {std::tuple{"Framed", FRAMED, false},
                                                      {"Framed, pointer over it", FRAMED, true},
                                                      {"Flat", FLAT, false},
                                                      {"Flat, pointer over it", FLAT, true}}) {
            RawaBorder model(state, this, wxID_ANY, "Border");
            model.Hide();
            model.SetSize(SIZE_PX);
            model.SetBackgroundColour(Wx::toWxColour(Wx::GuiSkin().background));
            if (hovered) {
                sendMouseEnter(model);
            }
            const wxBitmap picture =
                paintBitmap(SIZE_PX, *wxBLACK, [&model](wxDC& dc) { static_cast<const RawaBorder&>(model).paint(dc); });
            addToRow(*row,
                     captioned(new Wx::StaticBitmap(this, wxID_ANY, magnify(picture, Wx::scaleByDpi(FACTOR))), caption),
                     4 * GRID);
        }
        addSection("Line by line", "A border of 22 by 12 pixels, each shown eight times as large.")->Add(row);
    }

    void addLive() {
        const wxSize SIZE{392, 40};
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        for (const auto& [name, state] : {std::pair{"Live, framed", FRAMED}, {"Live, flat", FLAT}}) {
            auto* const border = new RawaBorder(state, this, wxID_ANY, name);
            border->SetMinSize(Wx::scaleByDpi(SIZE));
            for (const auto& [type, event] :
                 {std::pair{wxEVT_ENTER_WINDOW, "wxEVT_ENTER_WINDOW"}, {wxEVT_LEAVE_WINDOW, "wxEVT_LEAVE_WINDOW"}}) {
                border->Bind(type, [this, border, event = event](wxMouseEvent& mouse) {
                    mouse.Skip();
                    log().report(border->GetName(), event);
                });
            }
            addToRow(*row, captioned(border, name), CONTENT_WIDTH - 2 * SIZE.x);
        }
        addSection("Live", "Move the pointer over them.")->Add(row);
    }
};

const PageRegistration registration = registerPage<BorderPage>(210, "Border");

} // namespace

} // namespace Ostrel::Gallery
