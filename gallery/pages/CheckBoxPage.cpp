#include "Page.h"

#include "EventLog.h"
#include "Pose.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/CheckBox.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

namespace Ostrel::Gallery {

namespace {

enum class CheckBoxPose { NORMAL, HOVERED, PRESSED, FOCUSED, DISABLED };

/// A check box that keeps a state for show.
Wx::CheckBox* makePosed(wxWindow* parent, const String& label, bool value, CheckBoxPose pose) {
    auto* const box = new Wx::CheckBox(parent, wxID_ANY, label, wxDefaultPosition, wxDefaultSize, value);
    switch (pose) {
    case CheckBoxPose::NORMAL:
        break;
    case CheckBoxPose::HOVERED:
        sendMouseEnter(*box);
        break;
    case CheckBoxPose::PRESSED: {
        sendMouseEnter(*box);
        wxKeyEvent press(wxEVT_CHAR_HOOK);
        press.m_keyCode = WXK_SPACE;
        box->ProcessWindowEvent(press);
        break;
    }
    case CheckBoxPose::FOCUSED: {
        wxFocusEvent focus(wxEVT_SET_FOCUS);
        box->ProcessWindowEvent(focus);
        break;
    }
    case CheckBoxPose::DISABLED:
        box->Enable(false);
        break;
    }
    ignoreMouse(*box);
    return box;
}

class CheckBoxPage : public Page {
public:
    explicit CheckBoxPage(const PageContext& context)
        : Page(context, "Check box",
               "CheckBox shows a value that is true or false, and inverts it with a click or with Space. Its box is a "
               "small toggle button: the same frame, the same colours.") {
        addStates();
        addLive();
        addSkin();
    }

    void arrangeForPicture() override { _live.front()->setValue(true, true); }

private:
    void addStates() {
        constexpr int WIDTH = 104;
        auto* const table =
            new SpecimenTable([this](const wxString& text) { return makeText(TextRole::CAPTION, text); },
                              {"Normal", "Hovered", "Pressed", "Focused", "Disabled"}, WIDTH);
        for (const bool value : {false, true}) {
            for (const char* const label : {"sRGB", ""}) {
                const auto posed = [&](CheckBoxPose pose) { return makePosed(this, label, value, pose); };
                table->addRow(value ? "On" : "Off",
                              {posed(CheckBoxPose::NORMAL), posed(CheckBoxPose::HOVERED), posed(CheckBoxPose::PRESSED),
                               posed(CheckBoxPose::FOCUSED), posed(CheckBoxPose::DISABLED)});
            }
        }
        addSection("States", "The dots are around what has the keyboard's focus.")->Add(table);
    }

    void addLive() {
        auto* const column = new wxBoxSizer(wxVERTICAL);
        _live = {makeLive("Show the histogram", false), makeLive("Include alpha channel", true),
                 makeLive("Save & close: an ampersand is an ampersand", false)};
        for (Wx::CheckBox* const box : _live) {
            column->Add(box);
            column->AddSpacer(Wx::scaleByDpi(GRID / 2));
        }
        auto* const enable =
            new Wx::CheckBox(this, wxID_ANY, "Enabled", wxDefaultPosition, wxDefaultSize, true, [this](bool value) {
                for (Wx::CheckBox* const box : _live) {
                    box->Enable(value);
                }
            });
        column->Add(enable);
        addSection("Live", "Tab goes from one to the next. Press, drag out and release: nothing happens. The last one "
                           "enables and disables the others.")
            ->Add(column);
    }

    Wx::CheckBox* makeLive(const String& label, bool value) {
        auto* const box = new Wx::CheckBox(this, wxID_ANY, label, wxDefaultPosition, wxDefaultSize, value);
        box->setToggleCallback([this, box](bool on) {
            log().report("Check box", "\"" + box->GetLabel() + (on ? "\": called with true" : "\": called with false"));
        });
        box->setTooltip("The callback gets the new value.");
        return box;
    }

    void addSkin() {
        Wx::GuiSkin paper;
        paper.text = {40, 40, 40};
        paper.background = {225, 220, 205};
        paper.toggledBackground = {214, 128, 48};
        paper.toggledText = {255, 255, 255};
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        for (const bool value : {false, true}) {
            auto* const box = new Wx::CheckBox(this, wxID_ANY, "On paper", wxDefaultPosition, wxDefaultSize, value);
            afterSkin([box, paper] { box->applySkin(paper); });
            addToRow(*row, box);
        }
        addSection("Another skin")->Add(row);
    }

    Array<Wx::CheckBox*> _live;
};

const PageRegistration registration = registerPage<CheckBoxPage>(230, "Check box");

} // namespace

} // namespace Ostrel::Gallery
