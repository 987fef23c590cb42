#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>

namespace Ostrel::Wx {

/// A row of equal entries, from left to right. All in screen pixels.
struct DropdownRow {
    int count;
    Pixel entrySize;
    int padding; ///< around the row and between the entries

    [[nodiscard]] Pixel getSize() const;

    /// Where that entry is, counted from the row's top left corner.
    [[nodiscard]] Bucket getEntry(int index) const;
};

/// Where a dropdown of `size` opens: under the button, flush with its left edge; above it where only there is room; in
/// any case within the work area, unless it is larger. Screen coordinates.
[[nodiscard]] Pixel placeDropdown(const Bucket& button, Pixel size, const Bucket& workArea);

/// What an arrow key asks for.
enum class DropdownMove { PREVIOUS, NEXT, FIRST, LAST };

/// Which entry of an open dropdown Enter would choose: the one under the mouse, or the one the keys have moved to. None
/// at first.
class DropdownSelection {
public:
    explicit DropdownSelection(int count)
        : _count(count) {}

    /// The mouse came over the entry, or left it. True if the current entry changed.
    bool enter(int index);
    bool leave(int index);

    /// Stops at both ends; with no current entry, the next one is the first, and the previous one the last. True if the
    /// current entry changed.
    bool move(DropdownMove move);

    [[nodiscard]] Optional<int> getCurrent() const { return _current; }

private:
    bool setCurrent(Optional<int> index);

    int _count;
    Optional<int> _current;
};

/// How often an open dropdown looks whether it still belongs where it is.
constexpr int DROPDOWN_CHECK_MS = 50;

/// When an open dropdown closes by itself.
///
/// A dropdown that loses the focus closes; but a press on its own button takes the focus too, and this press is to
/// close it by the button's click instead of closing and opening it again. Which of the two is told first differs
/// between systems. So while the mouse is over the button, a dropdown without the focus stays a little longer, to see
/// whether a press follows, and as long as one lasts.
class DropdownClosing {
public:
    /// How long it waits for the press, in ms.
    enum { PRESS_WAIT_MS = 250 };

    /// The dropdown has the focus (again).
    void focusGained() { _unfocusedMs = {}; }

    /// True: close now.
    [[nodiscard]] bool focusLost(bool mouseOverButton);

    /// `DROPDOWN_CHECK_MS` have passed. True: close now.
    /// @param buttonGone the button is no longer where it was when the dropdown opened, or not to be seen or clicked
    [[nodiscard]] bool check(bool buttonGone, bool buttonPressed);

private:
    Optional<int> _unfocusedMs; ///< since the focus went; empty while the dropdown has it
};

} // namespace Ostrel::Wx
