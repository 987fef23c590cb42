#include "models/DropdownModel.h"

#include "models/DisplayPlacement.h"

#include <algorithm>

namespace Ostrel::Wx {

Pixel DropdownRow::getSize() const {
    return {count * (entrySize.x + padding) + padding, entrySize.y + 2 * padding};
}

Bucket DropdownRow::getEntry(int index) const {
    const Pixel at{index * (entrySize.x + padding) + padding, padding};
    return {at, at + entrySize};
}

Pixel placeDropdown(const Bucket& button, Pixel size, const Bucket& workArea) {
    const bool fitsBelow = button.max.y + size.y <= workArea.max.y;
    const bool fitsAbove = button.min.y - size.y >= workArea.min.y;
    const int y = !fitsBelow && fitsAbove ? button.min.y - size.y : button.max.y;
    return Detail::placeInWorkArea(workArea, size, {button.min.x, y});
}

bool DropdownSelection::enter(int index) {
    return setCurrent(index);
}

bool DropdownSelection::leave(int index) {
    return _current == index && setCurrent({});
}

bool DropdownSelection::move(DropdownMove move) {
    if (_count <= 0) {
        return false;
    }
    const int last = _count - 1;
    switch (move) {
    case DropdownMove::PREVIOUS:
        return setCurrent(std::max(_current.value_or(_count) - 1, 0));
    case DropdownMove::NEXT:
        return setCurrent(std::min(_current.value_or(-1) + 1, last));
    case DropdownMove::FIRST:
        return setCurrent(0);
    case DropdownMove::LAST:
        return setCurrent(last);
    }
    return false;
}

bool DropdownSelection::setCurrent(Optional<int> index) {
    const bool changed = index != _current;
    _current = index;
    return changed;
}

bool DropdownClosing::focusLost(bool mouseOverButton) {
    if (!mouseOverButton) {
        return true;
    }
    _unfocusedMs = _unfocusedMs.value_or(0);
    return false;
}

bool DropdownClosing::check(bool buttonGone, bool buttonPressed) {
    if (buttonGone) {
        return true;
    }
    if (_unfocusedMs && !buttonPressed) {
        *_unfocusedMs += DROPDOWN_CHECK_MS;
        return *_unfocusedMs >= PRESS_WAIT_MS;
    }
    return false;
}

} // namespace Ostrel::Wx
