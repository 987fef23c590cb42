#pragma once

#include <OstrelLib/Geometry.h>

namespace Ostrel::Wx {

/// Which of the three pairs of colours a button wears.
enum class ButtonLook { NORMAL, TOGGLED, PRESSED };

/// What the mouse has done to a button, and what that means. Positions are client coordinates.
class ButtonModel {
public:
    /// What the left button's coming up meant.
    struct Release {
        bool pressEnded = false; ///< there was a press, and it is over
        bool clicked = false;    ///< it ended inside the control
    };

    /// `toggles`: a click inverts the toggle state.
    constexpr explicit ButtonModel(bool toggles) noexcept
        : _toggles(toggles) {}

    /// The left button went down. False, and nothing happened, on a button that does not look enabled.
    constexpr bool press(bool enabled) noexcept {
        _pressed = _pressed || enabled;
        return enabled;
    }

    /// The left button came up at `position` of a control of this size.
    constexpr Release release(Pixel position, int width, int height) noexcept {
        const bool ended = cancel();
        return {ended, ended && Bucket{{0, 0}, {width, height}}.contains(position)};
    }

    /// The press ends without a click. False if there was none.
    constexpr bool cancel() noexcept {
        const bool ended = _pressed;
        _pressed = false;
        return ended;
    }

    /// A click is about to be reported. True if the toggle state changed.
    constexpr bool click() noexcept {
        _toggled = _toggled != _toggles;
        return _toggles;
    }

    constexpr void setToggled(bool toggled) noexcept { _toggled = toggled; }
    [[nodiscard]] constexpr bool isToggled() const noexcept { return _toggled; }
    [[nodiscard]] constexpr bool isPressed() const noexcept { return _pressed; }

    /// Pressed goes before toggled.
    [[nodiscard]] constexpr ButtonLook getLook() const noexcept {
        if (_pressed) {
            return ButtonLook::PRESSED;
        }
        return _toggled ? ButtonLook::TOGGLED : ButtonLook::NORMAL;
    }

private:
    bool _pressed = false;
    bool _toggles;
    bool _toggled = false;
};

/// Where a button's label begins: centred in what the bitmap leaves of the width, and lifted on screens of twice the
/// design resolution or more. All pixels; the halves are truncated towards zero, also where the label is too large.
/// `designPixel` is one design pixel in screen pixels.
[[nodiscard]] constexpr Pixel computeLabelPosition(Pixel buttonSize, int bitmapWidth, Pixel labelSize,
                                                   int designPixel) noexcept {
    constexpr int LIFT_PX = 2;
    const int lift = designPixel >= 2 ? LIFT_PX : 0;
    return {bitmapWidth + (buttonSize.x - labelSize.x - bitmapWidth) / 2, (buttonSize.y - labelSize.y) / 2 - lift};
}

} // namespace Ostrel::Wx
