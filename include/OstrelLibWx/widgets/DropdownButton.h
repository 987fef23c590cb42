#pragma once

#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/widgets/Button.h>

namespace Ostrel::Wx {

/// A button that opens a small row of further buttons under itself, of which one is chosen; a triangle at its right
/// says so. While the row is open the button looks toggled.
///
/// A click opens the row, flush with the button's left edge: above it where there is no room below, and moved as far as
/// it takes to lie within the work area. The row has the focus. It closes
/// - when an entry is chosen: by a click, or by Enter or Space on the one that is framed in blue, which is the one
///   under the mouse or the one that the arrow keys, Home and End have moved to;
/// - on Escape, on a click on the button or anywhere else, and when the focus goes elsewhere;
/// - when the button is moved, hidden, disabled or destroyed, by itself or with the windows that it is in.
///
/// The choice of an entry is reported like a click of a `Button`, after the row has closed: first an event of type
/// `clickEventType()` with the entry's id and this button as its object, at (0, 0), is processed by the parent window's
/// event handler; then, if the button still exists, the entry's callback is called. Either may destroy the button. A
/// click of the button itself is reported by an event with the button's own id before the row opens or closes.
class OSTREL_WX_API DropdownButton : public Button {
public:
    /// A button of the row.
    struct Entry {
        int id; ///< of the event that reports the choice
        wxString label;
        Function<void()> onChosen; ///< may be empty
    };

    /// The row has the entries in their order, from left to right, each 73 × 24 design pixels; a longer label is cut
    /// off. Without entries there is nothing to open. The button itself is at least as large as an entry, and wide
    /// enough for its label beside the triangle.
    DropdownButton(wxWindow* parent, const GuiSkin& skin, int id, const wxString& label, Array<Entry> entries);

    /// Closes the row.
    ~DropdownButton() override;

    /// Opens the row as a click does, without an event; nothing if it is open. The button has to be on the screen.
    void open();

    /// Closes the row without a choice; nothing if it is closed.
    void close();
    [[nodiscard]] bool isOpen() const;

    bool Enable(bool enable = true) override;
    void SetLabel(const wxString& label) override;
    bool SetFont(const wxFont& font) override;

    void paint(wxDC& dc) const override;

private:
    class EntryButton;
    class Popup;
    struct Impl;

    void choose(int index);
    void updateMinimumSize();

    AutoPtr<Impl> _impl;
};

} // namespace Ostrel::Wx
