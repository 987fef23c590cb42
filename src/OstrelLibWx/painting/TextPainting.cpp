#include "painting/TextPainting.h"

#include <wx/arrstr.h>
#include <wx/window.h>

#include <algorithm>

namespace Ostrel::Wx {

namespace {

constexpr wchar_t HIDDEN_CHARACTER = L'\u2022';
constexpr int NO_ACCELERATOR = -1;

} // namespace

wxSize measureText(const wxWindow& window, const wxString& text) {
    // GTK finds out the style of a window that measures, and again when it is shown: the same one measures for all.
    const wxWindow* const top = wxGetTopLevelParent(const_cast<wxWindow*>(&window));
    const wxWindow& measure = top != nullptr ? *top : window;
    const wxFont font = window.GetFont();
    wxSize size(0, 0);
    for (const wxString& line : wxSplit(text, '\n', '\0')) {
        wxSize extent;
        measure.GetTextExtent(line.empty() ? wxString("W") : line, &extent.x, &extent.y, nullptr, nullptr, &font);
        size.x = std::max(size.x, line.empty() ? 0 : extent.x);
        size.y += extent.y;
    }
    return size;
}

void paintLabel(wxDC& dc, wxSize size, const wxString& label, long alignment, const wxColour& colour) {
    dc.SetTextForeground(colour);
    dc.DrawLabel(label, wxRect(size), static_cast<int>(alignment & wxALIGN_MASK), NO_ACCELERATOR);
}

void paintDisabledText(wxDC& dc, const wxString& value, bool hidden, int indent, const wxColour& colour) {
    dc.SetTextForeground(colour);
    dc.DrawText(hidden ? wxString(HIDDEN_CHARACTER, value.length()) : value, indent, 0);
}

} // namespace Ostrel::Wx
