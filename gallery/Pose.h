#pragma once

#include <OstrelLibWx/widgets/Button.h>

namespace Ostrel::Gallery {

/// A state in which a control is shown, brought about by the events that would bring it about in use.
enum class Pose {
    NORMAL,
    HOVERED,
    PRESSED,
    TOGGLED,
    TOGGLED_HOVERED,
    DISABLED,
};

/// A real button that keeps a state for show: once posed, it hears nothing of the mouse.
class PosedButton : public Wx::Button {
public:
    using Wx::Button::Button;

    /// Once, after the button has its skin.
    void pose(Pose pose);

    /// While it is posed it claims to hold the mouse, so that a press takes it from nobody.
    [[nodiscard]] bool HasCapture() const override { return _posing || Wx::Button::HasCapture(); }

private:
    bool _posing = false;
};

/// Tells the window that the mouse has entered it.
void sendMouseEnter(wxWindow& window);

/// From now on the window hears nothing of the mouse, and stays as it is.
void ignoreMouse(wxWindow& window);

} // namespace Ostrel::Gallery
