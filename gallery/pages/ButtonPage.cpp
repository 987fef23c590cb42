#include "Page.h"

#include "EventLog.h"
#include "Pose.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/AutoSizedButton.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

namespace Ostrel::Gallery {

namespace {

constexpr Flags<RawaBorderState> FRAMED = RawaBorderState::ENABLED;
constexpr Flags<RawaBorderState> FLAT = RawaBorderState::ENABLED | RawaBorderState::FLAT;

/// As high as fits into the frame of a button of the least height.
constexpr int BITMAP_SIZE = 20;

struct Look {
    const char* caption;
    const char* label;
    bool hasBitmap;
    Flags<RawaBorderState> border;
};

constexpr Look LOOKS[] = {
    {"Framed", "Button", false, FRAMED},    {"Flat", "Button", false, FLAT},    {"Bitmap", "Button", true, FRAMED},
    {"Flat, bitmap", "Button", true, FLAT}, {"Bitmap alone", "", true, FRAMED},
};

class ButtonPage : public Page {
public:
    explicit ButtonPage(const PageContext& context)
        : Page(context, "Button",
               "Button is a push or a toggle button with a label, a bitmap or both. It tells its parent by "
               "wxEVT_BUTTON, "
               "and then calls its callable.")
        , _bitmap(makeSampleBitmap(wxSize(BITMAP_SIZE, BITMAP_SIZE) * Wx::scaleByDpi(1)))
        , _disabledBitmap(makeDisabledSampleBitmap(wxSize(BITMAP_SIZE, BITMAP_SIZE) * Wx::scaleByDpi(1))) {
        addStates();
        addLive();
        addAutoSized();
        Bind(Wx::Button::clickEventType(), [this](wxMouseEvent& event) {
            const auto* const button = static_cast<Wx::Button*>(event.GetEventObject());
            log().report("Button \"" + button->GetLabel() + "\"",
                         wxString::Format("wxEVT_BUTTON to the parent, at (%d, %d), %s", event.GetX(), event.GetY(),
                                          button->isToggled() ? "toggled" : "not toggled"));
        });
    }

    void arrangeForPicture() override {
        for (Wx::Button* const button : {_live[0], _live[1]}) {
            button->doClick(wxPoint(0, 0) + button->GetSize() / 2);
        }
    }

private:
    void addStates() {
        constexpr int WIDTH = 104;
        auto* const table =
            new SpecimenTable([this](const wxString& text) { return makeText(TextRole::CAPTION, text); },
                              {"Normal", "Hovered", "Pressed", "Toggled", "Disabled", "Built disabled"}, WIDTH);
        for (const Look& look : LOOKS) {
            table->addRow(look.caption, {makePosed(look, Pose::NORMAL), makePosed(look, Pose::HOVERED),
                                         makePosed(look, Pose::PRESSED), makePosed(look, Pose::TOGGLED),
                                         makePosed(look, Pose::DISABLED), makePosed(look, Pose::NORMAL, false)});
        }
        addSection("States", "A button that is built disabled ignores the pointer, while its label stays bright: only "
                             "Enable(false) greys it.")
            ->Add(table);
    }

    PosedButton* makePosed(const Look& look, Pose pose, bool enabled = true) {
        auto* const button =
            new PosedButton(this, Wx::GuiSkin(), wxID_ANY, look.label, look.hasBitmap ? _disabledBitmap : wxNullBitmap,
                            look.hasBitmap ? _bitmap : wxNullBitmap, {}, Wx::Button::TOGGLE, enabled, look.border);
        afterSkin([button, pose] { button->pose(pose); });
        return button;
    }

    void addLive() {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        _live = {makeLive("Push", wxNullBitmap, Wx::Button::PUSH, FRAMED),
                 makeLive("Toggle", wxNullBitmap, Wx::Button::TOGGLE, FRAMED),
                 makeLive("Flat toggle", wxNullBitmap, Wx::Button::TOGGLE, FLAT),
                 makeLive("Landscape", _bitmap, Wx::Button::PUSH, FRAMED)};
        for (Wx::Button* const button : _live) {
            addToRow(*row, button);
        }
        _enable = makeButton(
            "Enabled",
            [this] {
                for (Wx::Button* const button : _live) {
                    button->Enable(_enable->isToggled());
                }
            },
            Wx::Button::TOGGLE);
        addToRow(*row, _enable);
        afterSkin([this] { _enable->setToggled(true); });
        addSection("Live", "Press, drag out and release: nothing is reported. A double-click is two clicks. The last "
                           "button enables and disables the others.")
            ->Add(row);
    }

    Wx::Button* makeLive(const wxString& label, const wxBitmap& bitmap, Wx::Button::Behavior behavior,
                         Flags<RawaBorderState> border) {
        constexpr int WIDTH = 136;
        auto* const button = new Wx::Button(
            this, Wx::GuiSkin(), wxID_ANY, label, bitmap.IsOk() ? _disabledBitmap : wxNullBitmap, bitmap,
            [this, label] { log().report("Button \"" + label + "\"", "onClick called"); }, behavior, true, border);
        button->SetMinSize(wxSize(Wx::scaleByDpi(WIDTH), button->GetMinHeight()));
        button->setTooltip("A click is reported twice: as an event to the parent, then to the callable.");
        return button;
    }

    void addAutoSized() {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        for (const char* const label : {"OK", "Cancel", "Don't save", "As wide as what it says"}) {
            addToRow(*row, new Wx::AutoSizedButton(this, label));
        }
        addToRow(*row, new Wx::AutoSizedButton(this, "Narrow", GRID, 0));
        addToRow(*row, new Wx::AutoSizedButton(this, "Roomy", 4 * GRID, 0));
        addSection("AutoSizedButton",
                   "As large as the label asks, from a least width on; the last two have a padding and "
                   "a least width of their own.")
            ->Add(row);
    }

    wxBitmap _bitmap;
    wxBitmap _disabledBitmap;
    Array<Wx::Button*> _live;
    Wx::Button* _enable{};
};

const PageRegistration registration = registerPage<ButtonPage>(220, "Button");

} // namespace

} // namespace Ostrel::Gallery
