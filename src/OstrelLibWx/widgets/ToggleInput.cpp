#include "widgets/ToggleInput.h"

#include <wx/utils.h>

#include <algorithm>

namespace Ostrel::Wx {

namespace {

/// As far as the window and its parents within the same top-level window are concerned: that one is disabled while a
/// dialog is shown, and looks as ever.
bool isEnabledWithinTopLevel(const wxWindow& window) {
    for (const wxWindow* w = &window; w != nullptr && !w->IsTopLevel(); w = w->GetParent()) {
        if (!w->IsThisEnabled()) {
            return false;
        }
    }
    return true;
}

} // namespace

ToggleInput::ToggleInput(wxWindow& window, ArrayView<const int> keys, Function<void()> onClick)
    : _window(window)
    , _keys(keys)
    , _onClick(std::move(onClick)) {
    // The toolkit takes these away again when this object is destroyed.
    _window.Bind(wxEVT_LEFT_DOWN, &ToggleInput::onMouseDown, this);
    // The second press of a double-click is a press like any other.
    _window.Bind(wxEVT_LEFT_DCLICK, &ToggleInput::onMouseDown, this);
    _window.Bind(wxEVT_LEFT_UP, &ToggleInput::onMouseUp, this);
    _window.Bind(wxEVT_MOUSE_CAPTURE_LOST, &ToggleInput::onCaptureLost, this);
    _window.Bind(wxEVT_ENTER_WINDOW, &ToggleInput::onMouseEntered, this);
    _window.Bind(wxEVT_LEAVE_WINDOW, &ToggleInput::onMouseLeft, this);
    // Before the key is taken for a dialog's default button.
    _window.Bind(wxEVT_CHAR_HOOK, &ToggleInput::onKeyDown, this);
    _window.Bind(wxEVT_KEY_UP, &ToggleInput::onKeyUp, this);
    _window.Bind(wxEVT_SET_FOCUS, &ToggleInput::onFocusGained, this);
    _window.Bind(wxEVT_KILL_FOCUS, &ToggleInput::onFocusLost, this);
    wxGetTopLevelParent(&_window)->Bind(wxEVT_ACTIVATE, &ToggleInput::onActivate, this);
}

ToggleInput::~ToggleInput() {
    releaseMouse();
}

bool ToggleInput::setOn(bool on) {
    const bool changed = _model.setOn(on);
    if (changed) {
        _window.Refresh();
    }
    return changed;
}

Flags<ToggleState> ToggleInput::getState() const {
    Flags<ToggleState> state = _model.getState();
    if (!isEnabledWithinTopLevel(_window)) {
        state.clear(ToggleState::ENABLED);
        state.clear(ToggleState::PRESSED);
    }
    return state;
}

void ToggleInput::followEnabled() {
    const bool enabled = isEnabledWithinTopLevel(_window);
    if (enabled == _model.getState().has(ToggleState::ENABLED)) {
        return;
    }
    if (enabled) {
        forgetMouseElsewhere();
    }
    _model.setEnabled(enabled);
    if (!enabled) {
        releaseMouse();
    }
    _window.Refresh();
}

void ToggleInput::onMouseDown(wxMouseEvent& event) {
    followEnabled();
    if (!_model.pressMouse()) {
        event.Skip();
        return;
    }
    _window.SetFocus();
    if (!_window.HasCapture()) {
        _window.CaptureMouse();
    }
    _window.Refresh();
}

void ToggleInput::onMouseUp(wxMouseEvent& event) {
    followEnabled();
    const wxPoint position = event.GetPosition();
    const wxSize size = _window.GetSize();
    const ToggleModel::Release release = _model.releaseMouse({position.x, position.y}, size.x, size.y);
    if (!release.pressEnded) {
        event.Skip();
        return;
    }
    finish(release);
}

void ToggleInput::onCaptureLost(wxMouseCaptureLostEvent&) {
    releaseMouse();
    _model.cancel();
    _window.Refresh();
}

void ToggleInput::onMouseEntered(wxMouseEvent& event) {
    _model.setMouseOver(true);
    _window.Refresh();
    event.Skip();
}

void ToggleInput::onMouseLeft(wxMouseEvent& event) {
    _model.setMouseOver(false);
    _window.Refresh();
    event.Skip();
}

void ToggleInput::onKeyDown(wxKeyEvent& event) {
    followEnabled();
    if (!isClickKey(event) || !_model.getState().has(ToggleState::ENABLED)) {
        event.Skip();
        return;
    }
    if (_model.pressKey(event.GetKeyCode())) {
        _window.Refresh();
    }
}

void ToggleInput::onKeyUp(wxKeyEvent& event) {
    followEnabled();
    const ToggleModel::Release release = _model.releaseKey(event.GetKeyCode());
    if (!release.pressEnded) {
        event.Skip();
        return;
    }
    finish(release);
}

void ToggleInput::onFocusGained(wxFocusEvent& event) {
    _model.setFocused(true);
    _window.Refresh();
    event.Skip();
}

void ToggleInput::onFocusLost(wxFocusEvent& event) {
    _model.setFocused(false);
    _window.Refresh();
    event.Skip();
}

void ToggleInput::onActivate(wxActivateEvent& event) {
    forgetMouseElsewhere();
    event.Skip();
}

/// GTK tells neither a disabled window nor one behind a dialog that the mouse left it.
void ToggleInput::forgetMouseElsewhere() {
    if (_model.getState().has(ToggleState::MOUSE_OVER) && !_window.GetScreenRect().Contains(wxGetMousePosition())) {
        _model.setMouseOver(false);
        _window.Refresh();
    }
}

void ToggleInput::finish(ToggleModel::Release release) {
    releaseMouse();
    _window.Refresh();
    if (release.clicked) {
        const Function<void()> onClick = _onClick; // this object may be destroyed, and its own callable with it
        onClick();
    }
}

void ToggleInput::releaseMouse() {
    if (_window.HasCapture()) {
        _window.ReleaseMouse();
    }
}

bool ToggleInput::isClickKey(const wxKeyEvent& event) const {
    return !event.HasAnyModifiers() && std::find(_keys.begin(), _keys.end(), event.GetKeyCode()) != _keys.end();
}

} // namespace Ostrel::Wx
