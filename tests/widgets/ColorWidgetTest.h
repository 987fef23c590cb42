#pragma once

#include "core/Printing.h"
#include "support/WidgetTest.h"

#include <wx/textctrl.h>

#include <string>
#include <vector>

/// The controls that colours are chosen with write down what they tell; any of it may destroy the one that is tested.
class ColorWidgetTest : public WidgetTest {
protected:
    void dragTo(const wxWindow& window, wxPoint point) {
        movePointer(window, point);
        settle(); // GTK keeps the newest motion back until something else happens
    }
    /// Presses the left button there and waits until something is told.
    void press(const wxWindow& window, wxPoint point) {
        dragTo(window, point);
        log.clear();
        input().MouseDown();
        EXPECT_TRUE(pumpUntil([this] { return !log.empty(); })) << "the press did not arrive";
    }
    void type(wxTextCtrl& field, const char* typed) {
        giveFocus(field);
        field.SelectAll();
        input().Text(typed);
        EXPECT_TRUE(pumpUntil([&] { return field.GetValue() == typed; })) << field.GetValue();
    }
    void heard(const std::string& what) {
        if (log.empty() || log.back() != what) { // a motion may be told twice
            log.push_back(what);
        }
        if (what.starts_with(destroyAt)) {
            tested->Destroy();
        }
    }

    std::vector<std::string> log;
    std::string destroyAt = "never";
    wxWeakRef<wxWindow> tested;
};
