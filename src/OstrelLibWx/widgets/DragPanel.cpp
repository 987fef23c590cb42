#include "widgets/DragPanel.h"

#include <OstrelLibWx/WindowUtils.h>

#include <wx/weakref.h>

namespace Ostrel::Wx {

DragPanel::DragPanel(wxWindow* parent, wxSize size, const wxString& name)
    : PaintedPanel(parent, wxID_ANY, wxDefaultPosition, scaleByDpi(size), wxTAB_TRAVERSAL | wxBORDER_NONE, name) {
    SetMinSize(scaleByDpi(size));
    Bind(wxEVT_LEFT_DOWN, &DragPanel::onLeftDown, this);
    // The second press of a double-click is a press like any other.
    Bind(wxEVT_LEFT_DCLICK, &DragPanel::onLeftDown, this);
    Bind(wxEVT_MOTION, &DragPanel::onMotion, this);
    Bind(wxEVT_LEFT_UP, [this](wxMouseEvent&) { end(); });
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { end(); });
}

DragPanel::~DragPanel() {
    if (HasCapture()) {
        ReleaseMouse();
    }
}

void DragPanel::onLeftDown(wxMouseEvent& event) {
    const wxWeakRef<DragPanel> self(this);
    const wxPoint mouse = event.GetPosition();
    SetFocus();
    if (self && onMousePressed) {
        const auto callback = onMousePressed; // the control, and with it its own, may be destroyed; so below
        callback(event);
    }
    if (self) {
        moveTo(mouse);
    }
    if (self && !HasCapture()) {
        CaptureMouse();
    }
}

void DragPanel::onMotion(wxMouseEvent& event) {
    if (!HasCapture()) {
        event.Skip();
        return;
    }
    moveTo(event.GetPosition());
}

void DragPanel::end() {
    const wxWeakRef<DragPanel> self(this);
    if (onMouseReleased) {
        const auto callback = onMouseReleased;
        callback();
    }
    if (self && HasCapture()) {
        ReleaseMouse();
    }
}

} // namespace Ostrel::Wx
