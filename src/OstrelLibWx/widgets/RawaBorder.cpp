#include <OstrelLibWx/widgets/RawaBorder.h>

#include "painting/BorderPainting.h"
#include "painting/PixelDrawing.h"

namespace Ostrel {

RawaBorder::RawaBorder(Flags<RawaBorderState> initialState, wxWindow* parent, int id, const wxString& name)
    : PaintedPanel(parent, id, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, name)
    , _borderState(initialState) {
    Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent& event) {
        setMouseOver(false);
        event.Skip();
    });
    Bind(wxEVT_ENTER_WINDOW, [this](wxMouseEvent& event) {
        setMouseOver(true);
        event.Skip();
    });
    // GTK does not tell a window that the mouse left it while another one had taken all input, as a dialog does. The
    // toolkit takes this away again when either of the two windows is destroyed.
    wxGetTopLevelParent(this)->Bind(wxEVT_ACTIVATE, &RawaBorder::onActivate, this);
}

bool RawaBorder::Enable(bool enable) {
    setBorderState(RawaBorderState::ENABLED, enable);
    // GTK does not tell a disabled window that the mouse left it.
    if (enable && !IsThisEnabled() && !GetScreenRect().Contains(wxGetMousePosition())) {
        setBorderState(RawaBorderState::MOUSE_OVER, false);
    }
    const bool changed = PaintedPanel::Enable(enable);
    Refresh(false);
    return changed;
}

void RawaBorder::paint(wxDC& dc) const {
    const wxSize size = GetClientSize();
    const Bucket area{{0, 0}, {size.x, size.y}};
    fillPixels(dc, area, GetBackgroundColour());
    paintBorder(dc, area, _borderState);
}

void RawaBorder::onActivate(wxActivateEvent& event) {
    if (_borderState.has(RawaBorderState::MOUSE_OVER) && !GetScreenRect().Contains(wxGetMousePosition())) {
        setMouseOver(false);
    }
    event.Skip();
}

void RawaBorder::setMouseOver(bool over) {
    setBorderState(RawaBorderState::MOUSE_OVER, over);
    Refresh();
}

} // namespace Ostrel
