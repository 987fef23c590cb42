#include "painting/TextPainting.h"

namespace Ostrel::Wx {

namespace {

constexpr wchar_t HIDDEN_CHARACTER = L'\u2022';
constexpr int NO_ACCELERATOR = -1;

} // namespace

void paintLabel(wxDC& dc, wxSize size, const wxString& label, long alignment, const wxColour& colour) {
    dc.SetTextForeground(colour);
    dc.DrawLabel(label, wxRect(size), static_cast<int>(alignment & wxALIGN_MASK), NO_ACCELERATOR);
}

void paintDisabledText(wxDC& dc, const wxString& value, bool hidden, int indent, const wxColour& colour) {
    dc.SetTextForeground(colour);
    dc.DrawText(hidden ? wxString(HIDDEN_CHARACTER, value.length()) : value, indent, 0);
}

} // namespace Ostrel::Wx
