#include "Pose.h"

namespace Ostrel::Gallery {

void PosedButton::pose(Pose pose) {
    _posing = true;
    switch (pose) {
    case Pose::NORMAL:
        break;
    case Pose::HOVERED:
        sendMouseEnter(*this);
        break;
    case Pose::PRESSED: {
        sendMouseEnter(*this);
        wxMouseEvent press(wxEVT_LEFT_DOWN);
        ProcessWindowEvent(press);
        break;
    }
    case Pose::TOGGLED:
        setToggled(true);
        break;
    case Pose::TOGGLED_HOVERED:
        setToggled(true);
        sendMouseEnter(*this);
        break;
    case Pose::DISABLED:
        Enable(false);
        break;
    }
    _posing = false;
    ignoreMouse(*this);
}

void sendMouseEnter(wxWindow& window) {
    wxMouseEvent enter(wxEVT_ENTER_WINDOW);
    window.ProcessWindowEvent(enter);
}

void ignoreMouse(wxWindow& window) {
    // What is bound last is asked first, and what it does not skip goes no further.
    for (const auto& type :
         {wxEVT_ENTER_WINDOW, wxEVT_LEAVE_WINDOW, wxEVT_MOTION, wxEVT_LEFT_DOWN, wxEVT_LEFT_UP, wxEVT_LEFT_DCLICK}) {
        window.Bind(type, [](wxMouseEvent&) {});
    }
}

} // namespace Ostrel::Gallery
