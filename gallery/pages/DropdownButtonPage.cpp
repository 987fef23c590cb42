#include "Page.h"

#include "EventLog.h"
#include "Pose.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/DropdownButton.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

namespace Ostrel::Gallery {

namespace {

class DropdownButtonPage : public Page {
public:
    explicit DropdownButtonPage(const PageContext& context)
        : Page(context, "Dropdown button",
               "DropdownButton is a button that opens a row of further buttons, of which one is chosen. The row has "
               "the keyboard: the arrows move, Enter or Space chooses, Escape closes.") {
        addStates();
        addLive();
        Bind(Wx::Button::clickEventType(), [this](wxMouseEvent& event) {
            const auto* const button = static_cast<Wx::Button*>(event.GetEventObject());
            log().report("Dropdown button",
                         "\"" + button->GetLabel() +
                             wxString::Format("\": wxEVT_BUTTON to the parent, id %d", event.GetId()));
        });
    }

    void arrangeForPicture() override { _live.front()->open(); }

    void onPageShown(bool shown) override {
        Page::onPageShown(shown);
        if (!shown) {
            for (Wx::DropdownButton* const button : _live) {
                button->close();
            }
        }
    }

private:
    void addStates() {
        constexpr int WIDTH = 104;
        auto* const table =
            new SpecimenTable([this](const wxString& text) { return makeText(TextRole::CAPTION, text); },
                              {"Normal", "Hovered", "Open", "Disabled"}, WIDTH);
        Array<Wx::DropdownButton*> posed;
        for (int i = 0; i < 4; ++i) {
            posed.push_back(new Wx::DropdownButton(this, Wx::GuiSkin(), wxID_ANY, "Reset", {}));
        }
        sendMouseEnter(*posed[1]);
        afterSkin([open = posed[2]] { open->setToggled(true); });
        posed[3]->Enable(false);
        for (Wx::DropdownButton* const button : posed) {
            ignoreMouse(*button);
        }
        table->addRow("", {posed[0], posed[1], posed[2], posed[3]});
        addSection("States")->Add(table);
    }

    void addLive() {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        for (const auto& [label, entries] :
             {std::pair<const char*, Array<const char*>>{"Reset", {"Reset", "Reset All"}},
              {"Add a layer", {"Colour", "Curve", "Gradient", "Noise"}},
              {"Single", {"The one"}}}) {
            addToRow(*row, makeLive(label, entries));
        }
        addSection("Live", "A click on the button while it is open closes it, as a click anywhere else does.")
            ->Add(row);
    }

    Wx::DropdownButton* makeLive(const wxString& label, const Array<const char*>& labels) {
        Array<Wx::DropdownButton::Entry> entries;
        for (const char* const entry : labels) {
            entries.push_back({static_cast<int>(100 + entries.size()), entry, [this, label, entry] {
                                   log().report("Dropdown button",
                                                "\"" + label + "\": callback of \"" + wxString(entry) + "\" called");
                               }});
        }
        auto* const button = new Wx::DropdownButton(this, Wx::GuiSkin(), wxID_ANY, label, std::move(entries));
        button->setTooltip("Opens a row of buttons.");
        _live.push_back(button);
        return button;
    }

    Array<Wx::DropdownButton*> _live;
};

const PageRegistration registration = registerPage<DropdownButtonPage>(250, "Dropdown button");

} // namespace

} // namespace Ostrel::Gallery
