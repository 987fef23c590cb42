#pragma once

#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/WindowUtils.h>

#include <wx/textctrl.h>

namespace Ostrel::Wx {

/// A text to be read, for logs and reports. It can be selected with the mouse, takes nothing from the keyboard, and
/// follows text that is appended. Positions are wxTextCtrl's: on Windows a line break counts two in a text of several
/// lines, elsewhere one.
///
/// - Dragging selects from where the button went down to the character nearest to the mouse; outside the control, the
///   nearest point inside counts. A drag whose button came up elsewhere ends when the mouse comes back. Losing the
///   mouse capture alone does not end a drag.
/// - A double-click selects the line under the mouse, one row of a paragraph that is wrapped: up to the position before
///   the first character of the next line, or to the end of the text.
/// - Ctrl+A selects all. No other key reaches the control; this is meant, it is a viewer: no typing, no moving of the
///   caret, no clipboard shortcuts. Tab moves the focus on unless the style has `wxTE_PROCESS_TAB`.
class OSTREL_WX_API TextCtrl : public wxTextCtrl, public Focusable {
public:
    /// `style` is a set of wxTextCtrl's bits, of which those that make a rich control (`wxTE_RICH`, `wxTE_RICH2`, and
    /// `wxTE_AUTO_URL`, which needs one) are left out: only a plain one tells which character is where. `pos` and
    /// `size` are pixels of the screen.
    TextCtrl(wxWindow* parent, int id, const wxString& value, const wxPoint& pos, const wxSize& size, long style);

    /// Releases the mouse if it is held.
    ~TextCtrl() override;

    /// Appends the text. The control scrolls to its end, and the caret moves there, if nothing is selected and the
    /// caret is at the end or the control has not the focus. Else caret, selection and what is seen stay.
    void AppendText(const wxString& text) override;

private:
    void onLeftDown(wxMouseEvent& event);
    void onLeftDoubleClick(wxMouseEvent& event);
    void onLeftUp(wxMouseEvent& event);
    void onMotion(wxMouseEvent& event);
    void onEnter(wxMouseEvent& event);
    void onKeyDown(wxKeyEvent& event);
    void releaseCapture();

    bool _selecting = false; ///< a drag selection is under way
    int _anchor = 0;         ///< where it began
};

} // namespace Ostrel::Wx
