#pragma once

#include <OstrelLib/Types.h>

#include "models/DropdownModel.h"

#include <wx/event.h>
#include <wx/gdicmn.h>
#include <wx/timer.h>
#include <wx/weakref.h>

class wxTopLevelWindow;
class wxWindow;

namespace Ostrel::Wx {

/// Looks after an open dropdown, and says when it is to close by itself: when the focus goes elsewhere, and when the
/// window that it belongs to is moved, hidden or disabled, by itself or with the windows that it is in.
class DropdownWatch : public wxEvtHandler {
public:
    /// Both outlive the watch. `close` is called again until it stops the watch; it may destroy what it likes.
    DropdownWatch(wxTopLevelWindow& dropdown, Function<void()> close);

    /// The dropdown is about to be shown, where it is now, for `anchor`, the window that a click on opens and closes
    /// it.
    void start(wxWindow& anchor);

    /// The dropdown has been moved, and is to stay there.
    void followPlace();

    /// The dropdown is closed; nothing happens any more.
    void stop();

private:
    void onActivate(wxActivateEvent& event);
    void onMoved(wxMoveEvent& event);
    void onOwnerMoved(wxMoveEvent& event);
    void onOwnerShown(wxShowEvent& event);
    void onOwnerIconized(wxIconizeEvent& event);
    void check();
    void watchOwner(wxWindow& owner);

    wxTopLevelWindow& _dropdown;
    Function<void()> _close;
    wxWindow* _anchor = nullptr; ///< null while stopped
    wxWeakRef<wxWindow> _owner;  ///< the anchor's top-level window
    wxRect _anchorRect;          ///< on the screen, when the dropdown opened
    wxPoint _place;              ///< of the dropdown, when it opened
    int _corrections = 0;        ///< of its place, since it opened
    bool _active = false;        ///< the dropdown has had the focus since it opened, and has it still
    DropdownClosing _closing;
    wxTimer _timer;
};

} // namespace Ostrel::Wx
