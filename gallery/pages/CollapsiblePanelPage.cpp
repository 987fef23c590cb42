#include "Page.h"

#include "EventLog.h"
#include "Pose.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/CheckBox.h>
#include <OstrelLibWx/widgets/CollapsiblePanel.h>
#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/RawaBorder.h>

namespace Ostrel::Gallery {

namespace {

/// The header, which is the panel's first child.
wxWindow& getHeader(const Wx::CollapsiblePanel& panel) {
    return *panel.GetChildren().GetFirst()->GetData();
}

class CollapsiblePanelPage : public Page {
public:
    explicit CollapsiblePanelPage(const PageContext& context)
        : Page(context, "Collapsible panel",
               "CollapsiblePanel opens and closes its content with a click on its header, or with Space or Enter. What "
               "is around it is laid out anew: what follows moves up and down, and the page's scroll bar follows.") {
        addStates();
        addLive();
    }

    void arrangeForPicture() override { _panels[1]->setExpanded(false, true); }

private:
    void addStates() {
        constexpr int WIDTH = 120;
        auto* const table =
            new SpecimenTable([this](const wxString& text) { return makeText(TextRole::CAPTION, text); },
                              {"Normal", "Hovered", "Pressed", "Focused", "Disabled"}, WIDTH);
        Array<Wx::CollapsiblePanel*> panels;
        for (const bool expanded : {false, true}) {
            for (int i = 0; i < 5; ++i) {
                panels.push_back(new Wx::CollapsiblePanel(this, Wx::GuiSkin(), wxID_ANY, "Histogram", expanded));
            }
            const auto* const p = &panels[panels.size() - 5];
            sendMouseEnter(getHeader(*p[1]));
            sendMouseEnter(getHeader(*p[2]));
            wxKeyEvent press(wxEVT_CHAR_HOOK);
            press.m_keyCode = WXK_SPACE;
            getHeader(*p[2]).ProcessWindowEvent(press);
            wxFocusEvent focus(wxEVT_SET_FOCUS);
            getHeader(*p[3]).ProcessWindowEvent(focus);
            p[4]->Enable(false);
            for (int i = 0; i < 5; ++i) {
                ignoreMouse(getHeader(*p[i]));
            }
            table->addRow(expanded ? "Open" : "Closed", {p[0], p[1], p[2], p[3], p[4]});
        }
        addSection("The header's states")->Add(table);
    }

    void addLive() {
        constexpr int WIDTH = 440;
        auto* const column = new wxBoxSizer(wxVERTICAL);
        column->SetMinSize(Wx::scaleByDpi(wxSize(WIDTH, -1)));
        addPanel(*column, "Output", {"Include alpha channel", "Embed the colour profile"});
        addPanel(*column, "Sampling", {"Adaptive", "Clamp fireflies", "Denoise when done"});
        addPanel(*column, "Camera", {"Depth of field", "Motion blur"});
        auto* const nestedSizer = _panels.back()->getContent()->GetSizer();
        auto* const nested =
            new Wx::CollapsiblePanel(_panels.back()->getContent(), Wx::GuiSkin(), wxID_ANY, "Inside another one");
        fill(*nested, {"Nested"});
        nestedSizer->Add(nested, wxSizerFlags().Expand());
        addSection("Live", "Three panels in a sizer, in this scrolled page.")->Add(column);
    }

    void addPanel(wxBoxSizer& column, const char* title, std::initializer_list<const char*> options) {
        auto* const panel = new Wx::CollapsiblePanel(this, Wx::GuiSkin(), wxID_ANY, title);
        panel->setToggleCallback([this, panel](bool expanded) {
            log().report("Collapsible panel",
                         "\"" + panel->GetLabel() +
                             (expanded ? "\": called with true, open" : "\": called with false, closed"));
        });
        fill(*panel, options);
        column.Add(panel, wxSizerFlags().Expand());
        column.AddSpacer(Wx::scaleByDpi(GRID / 2));
        _panels.push_back(panel);
    }

    static void fill(Wx::CollapsiblePanel& panel, std::initializer_list<const char*> options) {
        auto* const sizer = new wxBoxSizer(wxVERTICAL);
        for (const char* const option : options) {
            sizer->Add(new Wx::CheckBox(panel.getContent(), wxID_ANY, option),
                       wxSizerFlags().Border(wxLEFT | wxTOP, Wx::scaleByDpi(GRID)));
        }
        sizer->AddSpacer(Wx::scaleByDpi(GRID));
        panel.getContent()->SetSizer(sizer);
    }

    Array<Wx::CollapsiblePanel*> _panels;
};

const PageRegistration registration = registerPage<CollapsiblePanelPage>(240, "Collapsible panel");

} // namespace

} // namespace Ostrel::Gallery
