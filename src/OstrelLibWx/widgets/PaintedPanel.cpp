#include <OstrelLibWx/widgets/PaintedPanel.h>

#include <wx/dcbuffer.h>

namespace Ostrel {

PaintedPanel::PaintedPanel(wxWindow* parent, int id, wxPoint position, wxSize size, long style, const wxString& name)
    : wxPanel(parent, id, position, size, style, name) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
        wxAutoBufferedPaintDC dc(this);
        paint(dc);
    });
}

// NOLINTBEGIN(bugprone-parent-virtual-call): past the level that tells the native window, on purpose

bool PaintedPanel::SetBackgroundColour(const wxColour& colour) {
    const bool changed = wxWindowBase::SetBackgroundColour(colour);
    if (changed) {
        Refresh();
    }
    return changed;
}

bool PaintedPanel::SetForegroundColour(const wxColour& colour) {
    const bool changed = wxWindowBase::SetForegroundColour(colour);
    if (changed) {
        Refresh();
    }
    return changed;
}

// NOLINTEND(bugprone-parent-virtual-call)

} // namespace Ostrel
