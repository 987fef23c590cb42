#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>

#include <algorithm>
#include <string>

namespace Ostrel::Wx {

/// Positions in a text, in the native control's own counting; `to` is exclusive.
struct TextRange {
    int from = 0;
    int to = 0;

    friend constexpr bool operator==(const TextRange&, const TextRange&) = default;
};

/// A line as the control shows it: with wrapping, one of a paragraph's rows.
struct TextLine {
    int first = 0;      ///< its first character
    Optional<int> next; ///< the first character of the line after it; none after the last

    friend constexpr bool operator==(const TextLine&, const TextLine&) = default;
};

/// Where a drag selection counts the mouse: at the nearest pixel of a client area of this size, and at 0 where there
/// is no pixel at all.
[[nodiscard]] constexpr Pixel clampDragPoint(Pixel mouse, Pixel clientSize) noexcept {
    return {std::max(0, std::min(mouse.x, clientSize.x - 1)), std::max(0, std::min(mouse.y, clientSize.y - 1))};
}

/// What a double-click on the line selects: all of it but the line break's last character. The last line has no break
/// and is selected up to `textEnd`, the last position of the text.
[[nodiscard]] constexpr TextRange selectLine(const TextLine& line, int textEnd) noexcept {
    return {line.first, line.next ? *line.next - 1 : textEnd};
}

/// Whether the view moves on to text that is appended: only if the user has left the caret alone. Without the focus
/// any caret without a selection counts as untouched; with it, only the one at `oldEnd`, the end before appending.
[[nodiscard]] constexpr bool followsAppendedText(bool hasFocus, TextRange selection, int oldEnd) noexcept {
    return selection.from == selection.to && (!hasFocus || selection.from == oldEnd);
}

/// The least number from `floor` on whose low 16 bits are `low`. Win32's EM_CHARFROMPOS answers with 16 bits each for
/// the character and the line; what lies before both is known in full.
[[nodiscard]] constexpr int widenIndex(unsigned low, int floor) noexcept {
    constexpr unsigned MASK = 0xFFFF;
    return floor + static_cast<int>((low - static_cast<unsigned>(floor)) & MASK);
}

/// The text as a native control can hold it: a NUL, at which it would end, and a surrogate without its other half,
/// for which it could be refused altogether, are replaced by U+FFFD.
[[nodiscard]] std::wstring replaceUnshowable(std::wstring text);

/// Which of its three colours a link shows.
enum class LinkLook { NORMAL, HOVERED, VISITED };

/// What a link remembers of the mouse and of its past.
struct LinkState {
    bool visited = false;
    bool hovered = false;

    /// Hovered goes before visited.
    [[nodiscard]] constexpr LinkLook getLook() const noexcept {
        if (hovered) {
            return LinkLook::HOVERED;
        }
        return visited ? LinkLook::VISITED : LinkLook::NORMAL;
    }
};

} // namespace Ostrel::Wx
