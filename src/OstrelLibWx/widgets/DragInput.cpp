#include "widgets/DragInput.h"

#include <wx/weakref.h>

#include <utility>

namespace Ostrel::Wx {

DragInput::DragInput(wxWindow& window, Callbacks callbacks)
    : _window(window)
    , _callbacks(std::move(callbacks)) {
    // The toolkit takes these away again when this object is destroyed.
    _window.Bind(wxEVT_LEFT_DOWN, &DragInput::onLeftDown, this);
    // The second press of a double-click is a press like any other.
    _window.Bind(wxEVT_LEFT_DCLICK, &DragInput::onLeftDown, this);
    _window.Bind(wxEVT_MOTION, &DragInput::onMotion, this);
    _window.Bind(wxEVT_LEFT_UP, &DragInput::onLeftUp, this);
    _window.Bind(wxEVT_MOUSE_CAPTURE_LOST, &DragInput::onCaptureLost, this);
}

DragInput::~DragInput() {
    if (_window.HasCapture()) {
        _window.ReleaseMouse();
    }
}

void DragInput::onLeftDown(wxMouseEvent& event) {
    const wxWeakRef<DragInput> self(this);
    const wxPoint mouse = event.GetPosition();
    _window.SetFocus();
    if (self) {
        _callbacks.onPressed(event);
    }
    if (self) {
        _callbacks.onMoved(mouse);
    }
    if (self && !_window.HasCapture()) {
        _window.CaptureMouse();
    }
}

void DragInput::onMotion(wxMouseEvent& event) {
    if (!_window.HasCapture()) {
        event.Skip();
        return;
    }
    _callbacks.onMoved(event.GetPosition());
}

void DragInput::onLeftUp(wxMouseEvent&) {
    end();
}

void DragInput::onCaptureLost(wxMouseCaptureLostEvent&) {
    end();
}

void DragInput::end() {
    const wxWeakRef<DragInput> self(this);
    _callbacks.onReleased();
    if (self && _window.HasCapture()) {
        _window.ReleaseMouse();
    }
}

} // namespace Ostrel::Wx
