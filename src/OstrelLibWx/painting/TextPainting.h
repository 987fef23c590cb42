#pragma once

#include <wx/colour.h>
#include <wx/dc.h>
#include <wx/gdicmn.h>
#include <wx/string.h>

class wxWindow;

namespace Ostrel::Wx {

/// What a text of one or more lines takes in the window's font, line by line as it is drawn.
[[nodiscard]] wxSize measureText(const wxWindow& window, const wxString& text);

/// Draws a label of one or more lines into a window of this size, in the device's font and without a background.
/// `alignment` is a set of wxALIGN_… bits; others are ignored. No character is an accelerator.
void paintLabel(wxDC& dc, wxSize size, const wxString& label, long alignment, const wxColour& colour);

/// Draws the value of a text field that is disabled, in the device's font: `indent` pixels from the left, at the top.
/// With `hidden`, each character is a dot.
void paintDisabledText(wxDC& dc, const wxString& value, bool hidden, int indent, const wxColour& colour);

} // namespace Ostrel::Wx
