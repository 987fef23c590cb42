#pragma once

#include "support/WidgetTest.h"

#include <OstrelLibWx/widgets/Button.h>

#include <stdexcept>
#include <utility>
#include <vector>

/// What a dialog's host has been asked and told, a word or two each. It may do something in its answer.
struct HostLog {
    void call(const wxString& what) {
        text += what.ToStdString() + "; ";
        ++count;
        onCall();
    }
    std::string take() { return std::exchange(text, {}); }

    std::string text;
    std::size_t count = 0;
    std::function<void()> onCall = [] {};
};

/// The first child of that class, with that label if one is given; null if there is none.
template <class Control>
Control* findChild(const wxWindow& parent, const wxString& label = {}) {
    for (wxWindow* const child : parent.GetChildren()) {
        auto* const control = dynamic_cast<Control*>(child);
        if (control != nullptr && (label.empty() || control->GetLabel() == label)) {
            return control;
        }
    }
    return nullptr;
}

/// A window of a class that destroys itself, over the test's frame.
template <class Dialog>
class DialogTest : public WidgetTest {
protected:
    virtual Dialog* create() = 0;
    void make() {
        dialog = create();
        dialog->Raise();
        EXPECT_TRUE(pumpUntil([this] { return isUp(*dialog) && isInFront(); })) << "the dialog did not come up";
        settle();
        log.take();
    }
    /// Where the window manager has it: it may still be behind the frame, and miss clicks.
    bool isInFront() { return pixelAt(capture(*dialog), 2, 2) == PixelColour{68, 68, 68}; }
    void TearDown() override {
        delete dialog.get();
        WidgetTest::TearDown();
    }

    template <class Control>
    Control* find(const wxString& label = {}) {
        return findChild<Control>(*dialog, label);
    }
    void clickOn(const wxString& label) {
        auto* const button = find<Ostrel::Wx::Button>(label);
        click(*button, middle(*button));
    }
    void pressIn(wxWindow& control, int key) {
        giveFocus(control);
        pressKey(key);
    }

    /// Each action makes calls; the host destroys the dialog in the first of them, and in the second.
    void checkDestruction(const std::vector<std::function<void()>>& actions) {
        for (std::size_t i = 0; i < 2 * actions.size(); ++i) {
            log.onCall = [] {};
            make();
            log.count = 0;
            log.onCall = [this, i] {
                if (log.count > i % 2) {
                    delete dialog.get();
                }
            };
            actions[i / 2]();
            pump();
            EXPECT_TRUE(!dialog || log.count <= i % 2) << i / 2;
            EXPECT_GE(log.count, 1u) << i / 2;
            delete dialog.get();
        }
    }

    HostLog log;
    wxWeakRef<Dialog> dialog;
};
