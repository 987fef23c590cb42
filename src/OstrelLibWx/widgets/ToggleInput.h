#pragma once

#include <OstrelLib/Types.h>

#include "models/ToggleModel.h"

#include <wx/event.h>
#include <wx/window.h>

namespace Ostrel::Wx {

/// Works a window that is clicked by mouse and keys: binds its events, keeps their state in a model, captures and
/// releases the mouse and refreshes the window. A press of the mouse gives the window the focus.
class ToggleInput : public wxEvtHandler {
public:
    /// @param window outlives this object, or is being destroyed with it
    /// @param keys the codes of the keys that click; what they point to outlives this object
    /// @param onClick called last: it may destroy the window
    ToggleInput(wxWindow& window, ArrayView<const int> keys, Function<void()> onClick);

    /// Releases the mouse if it is held.
    ~ToggleInput() override;

    /// The state with what the window's parents, of whose disabling nobody tells, make of it.
    [[nodiscard]] Flags<ToggleState> getState() const;
    [[nodiscard]] bool isOn() const { return _model.isOn(); }

    /// True if that is a change.
    bool setOn(bool on);

    /// To be called after the window, or a parent that knows of it, was enabled or disabled.
    void followEnabled();

private:
    void onMouseDown(wxMouseEvent& event);
    void onMouseUp(wxMouseEvent& event);
    void onCaptureLost(wxMouseCaptureLostEvent& event);
    void onMouseEntered(wxMouseEvent& event);
    void onMouseLeft(wxMouseEvent& event);
    void onKeyDown(wxKeyEvent& event);
    void onKeyUp(wxKeyEvent& event);
    void onFocusGained(wxFocusEvent& event);
    void onFocusLost(wxFocusEvent& event);
    void onActivate(wxActivateEvent& event);

    void finish(ToggleModel::Release release);
    void forgetMouseElsewhere();
    void releaseMouse();
    [[nodiscard]] bool isClickKey(const wxKeyEvent& event) const;

    wxWindow& _window;
    ArrayView<const int> _keys;
    Function<void()> _onClick;
    ToggleModel _model;
};

} // namespace Ostrel::Wx
