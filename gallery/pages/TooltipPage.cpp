#include "Page.h"

#include "EventLog.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/RawaBorder.h>
#include <OstrelLibWx/widgets/Tooltip.h>

namespace Ostrel::Gallery {

namespace {

/// An area that has a tooltip.
class TooltipArea : public RawaBorder, public Wx::TooltipWindow {
public:
    TooltipArea(wxWindow* parent, const wxString& label)
        : RawaBorder(RawaBorderState::ENABLED, parent, wxID_ANY, label)
        , TooltipWindow(this) {
        SetFont(makeFont(*this, TextRole::BODY));
    }

    void paint(wxDC& dc) const override {
        RawaBorder::paint(dc);
        dc.SetFont(GetFont());
        dc.SetTextForeground(GetForegroundColour());
        dc.DrawLabel(GetName(), GetClientRect(), wxALIGN_CENTRE);
    }
};

class TooltipPage : public Page {
public:
    explicit TooltipPage(const PageContext& context)
        : Page(context, "Tooltip",
               "Tooltip appears when the pointer has rested over its owner for a delay, and goes when the pointer "
               "leaves "
               "or the left button comes up. It is placed beside the pointer, inside the work area. TooltipWindow is "
               "the "
               "base through which a control gets one.") {
        auto* const table = new wxFlexGridSizer(2, Wx::scaleByDpi(wxSize(4 * GRID, GRID)));
        addArea(*table, "Short", "Opens the picture");
        addArea(*table, "Wrapped",
                "A text is broken at spaces where a line would become wider than 250 design pixels, so that a long "
                "explanation is a block that can be read.");
        addArea(*table, "No spaces", "C:/renders/2026/autumn/night-scene/frame-000147-beauty-denoised.exr");
        addArea(*table, "Line feeds", "First line\nSecond line\nThird line");
        addArea(*table, "After 100 ms", "This one is quick: its delay is 100 milliseconds.")->setDelay(100);
        addArea(*table, "After 2000 ms", "This one takes its time: its delay is 2000 milliseconds.")->setDelay(2000);
        addSection("Rest the pointer over them",
                   "Moving on starts the delay anew. Without a word about it, the delay is "
                   "600 milliseconds.")
            ->Add(table);
        auto* const all = addSection("All at once");
        _showAll = makeButton(
            "Show them", [this] { showAll(_showAll->isToggled()); }, Wx::Button::TOGGLE);
        all->Add(_showAll);

        wxWindow* const frame = wxGetTopLevelParent(context.parent);
        frame->Bind(wxEVT_MOVE, &TooltipPage::onFrameMoved, this);
        frame->Bind(wxEVT_ACTIVATE, &TooltipPage::onFrameActivated, this);
    }

    void arrangeForPicture() override { _showAll->doClick({}); }

    void onPageShown(bool shown) override {
        if (!shown) {
            hideAll();
        }
    }

private:
    Wx::Tooltip* addArea(wxSizer& table, const wxString& name, const String& text) {
        const wxSize AREA{168, 40};
        const wxSize PLACE{600, 56};
        auto* const area = new TooltipArea(this, name);
        area->SetMinSize(Wx::scaleByDpi(AREA));
        area->setTooltip(text);
        Wx::Tooltip* const tooltip = area->getTooltip();
        tooltip->Bind(wxEVT_SHOW, [this, name](wxShowEvent& event) {
            log().report("Tooltip \"" + name + "\"", event.IsShown() ? "shown" : "hidden");
            event.Skip();
        });
        _areas.push_back(area);
        table.Add(area, wxSizerFlags().CenterVertical());
        table.Add(Wx::scaleByDpi(PLACE.x), Wx::scaleByDpi(PLACE.y));
        return tooltip;
    }

    /// Each beside its owner.
    void showAll(bool show) {
        for (TooltipArea* const area : _areas) {
            Wx::Tooltip* const tooltip = area->getTooltip();
            tooltip->Show(show);
            if (show) { // it has its size now
                const wxSize size = area->GetSize();
                tooltip->Move(area->ClientToScreen(
                    wxPoint(size.x + Wx::scaleByDpi(4 * GRID), (size.y - tooltip->GetSize().y) / 2)));
            }
        }
    }

    void hideAll() {
        showAll(false);
        _showAll->setToggled(false);
    }

    /// Popups do not follow the window.
    void onFrameMoved(wxMoveEvent& event) {
        hideAll();
        event.Skip();
    }

    void onFrameActivated(wxActivateEvent& event) {
        if (!event.GetActive()) {
            hideAll();
        }
        event.Skip();
    }

    Array<TooltipArea*> _areas;
    Wx::Button* _showAll{};
};

const PageRegistration registration = registerPage<TooltipPage>(300, "Tooltip");

} // namespace

} // namespace Ostrel::Gallery
