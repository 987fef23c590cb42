#include "widgets/DropdownWatch.h"

#include <wx/toplevel.h>
#include <wx/utils.h>

#include <utility>

namespace Ostrel::Wx {

namespace {

/// Of the dropdown's place, each time that it opens: a window manager that insists has its way.
constexpr int MOST_CORRECTIONS = 3;

} // namespace

DropdownWatch::DropdownWatch(wxTopLevelWindow& dropdown, Function<void()> close)
    : _dropdown(dropdown)
    , _close(std::move(close)) {
    // The toolkit takes the bindings away again when either side is destroyed.
    _dropdown.Bind(wxEVT_ACTIVATE, &DropdownWatch::onActivate, this);
    _dropdown.Bind(wxEVT_MOVE, &DropdownWatch::onMoved, this);
    Bind(wxEVT_TIMER, [this](wxTimerEvent&) { check(); });
    _timer.SetOwner(this);
}

void DropdownWatch::start(wxWindow& anchor) {
    _anchor = &anchor;
    _anchorRect = anchor.GetScreenRect();
    _closing = {};
    _place = _dropdown.GetPosition();
    _active = false;
    _corrections = 0;
    watchOwner(*wxGetTopLevelParent(&anchor));
    _timer.Start(DROPDOWN_CHECK_MS);
}

void DropdownWatch::followPlace() {
    _place = _dropdown.GetPosition();
    _corrections = 0;
}

void DropdownWatch::stop() {
    _timer.Stop();
    _anchor = nullptr;
}

/// Stays bound while nothing is open: the toolkit does not bear to lose handlers in the middle of nested events, and
/// those that close a dropdown are.
void DropdownWatch::watchOwner(wxWindow& owner) {
    if (_owner == &owner) {
        return;
    }
    if (_owner) {
        _owner->Unbind(wxEVT_MOVE, &DropdownWatch::onOwnerMoved, this);
        _owner->Unbind(wxEVT_SHOW, &DropdownWatch::onOwnerShown, this);
        _owner->Unbind(wxEVT_ICONIZE, &DropdownWatch::onOwnerIconized, this);
    }
    _owner = &owner;
    owner.Bind(wxEVT_MOVE, &DropdownWatch::onOwnerMoved, this);
    owner.Bind(wxEVT_SHOW, &DropdownWatch::onOwnerShown, this);
    owner.Bind(wxEVT_ICONIZE, &DropdownWatch::onOwnerIconized, this);
}

void DropdownWatch::onActivate(wxActivateEvent& event) {
    event.Skip();
    // A loss that is told before the focus has come is of the last time that the dropdown was open.
    const bool wasActive = std::exchange(_active, event.GetActive());
    if (event.GetActive()) {
        _closing.focusGained();
    } else if (wasActive && _anchor != nullptr &&
               _closing.focusLost(_anchor->GetScreenRect().Contains(wxGetMousePosition()))) {
        _close();
    }
}

/// A window manager that takes the window in may report it somewhere else at first, and Wine believes that for good.
void DropdownWatch::onMoved(wxMoveEvent& event) {
    event.Skip();
    CallAfter([this] {
        if (_anchor != nullptr && _dropdown.GetPosition() != _place && _corrections < MOST_CORRECTIONS) {
            ++_corrections;
            _dropdown.SetPosition(_place);
        }
    });
}

void DropdownWatch::onOwnerMoved(wxMoveEvent& event) {
    event.Skip();
    check();
}

void DropdownWatch::onOwnerShown(wxShowEvent& event) {
    event.Skip();
    if (_anchor != nullptr && event.GetEventObject() == _owner && !event.IsShown()) {
        _close();
    }
}

void DropdownWatch::onOwnerIconized(wxIconizeEvent& event) {
    event.Skip();
    if (_anchor != nullptr) {
        _close();
    }
}

void DropdownWatch::check() {
    if (_anchor == nullptr) {
        return;
    }
    const bool gone = !_anchor->IsShownOnScreen() || !_anchor->IsEnabled();
    if (_closing.check(gone || _anchor->GetScreenRect() != _anchorRect, _anchor->HasCapture())) {
        _close();
    }
}

} // namespace Ostrel::Wx
