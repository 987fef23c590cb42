#pragma once

#include <OstrelLib/Types.h>

#include <wx/event.h>
#include <wx/window.h>

namespace Ostrel::Wx {

/// Works a window on which a point is dragged with the left button: captures and releases the mouse, and gives the
/// window the focus with a press, so that a text that is being typed elsewhere is set first.
class DragInput : public wxEvtHandler {
public:
    /// Any of these may destroy the window, and this object with it.
    struct Callbacks {
        Function<void(wxMouseEvent&)> onPressed; ///< before the first `onMoved`
        Function<void(wxPoint)> onMoved;         ///< client coordinates, beyond the window too
        Function<void()> onReleased;             ///< also when the mouse is taken away
    };

    /// @param window outlives this object, or is being destroyed with it
    DragInput(wxWindow& window, Callbacks callbacks);

    /// Releases the mouse if it is held.
    ~DragInput() override;

private:
    void onLeftDown(wxMouseEvent& event);
    void onMotion(wxMouseEvent& event);
    void onLeftUp(wxMouseEvent& event);
    void onCaptureLost(wxMouseCaptureLostEvent& event);

    void end();

    wxWindow& _window;
    Callbacks _callbacks;
};

} // namespace Ostrel::Wx
