#pragma once

#include <OstrelLib/Flags.h>
#include <OstrelLib/Geometry.h>

#include <cstdint>

namespace Ostrel::Wx {

/// What a control that is on or off looks like now.
enum class ToggleState : std::uint32_t {
    ON = 1,
    MOUSE_OVER = 2,
    ENABLED = 4,
    PRESSED = 8,
    FOCUSED = 16,
};

/// What the mouse and the keys have done to a control that is clicked, and what that means. A press of the mouse or of
/// a key is a click once it ends well; one press excludes another. Positions are client coordinates.
class ToggleModel {
public:
    /// What the end of a press meant.
    struct Release {
        bool pressEnded = false; ///< there was such a press, and it is over
        bool clicked = false;
    };

    /// The left button went down. False, and nothing happened, on a disabled control and during another press.
    constexpr bool pressMouse() noexcept { return press(MOUSE); }

    /// The key went down. False, and nothing happened, on a disabled control and during another press, of which a
    /// key's repeating is a part.
    constexpr bool pressKey(int key) noexcept { return press(key); }

    /// The left button came up at `position` of a control of this size: a click if that is inside.
    constexpr Release releaseMouse(Pixel position, int width, int height) noexcept {
        const bool ended = end(MOUSE);
        return {ended, ended && Bucket{{0, 0}, {width, height}}.contains(position)};
    }

    /// The key came up: a click if it is the one that went down.
    constexpr Release releaseKey(int key) noexcept {
        const bool ended = end(key);
        return {ended, ended};
    }

    /// The press ends without a click. False if there was none.
    constexpr bool cancel() noexcept { return end(_pressedBy); }

    /// The focus came or went. A key that is down when the focus goes is not heard coming up: its press is cancelled.
    /// A press of the mouse stays: losing the mouse is told by itself.
    constexpr void setFocused(bool focused) noexcept {
        _state.set(ToggleState::FOCUSED, focused);
        if (!focused && _pressedBy != MOUSE) {
            cancel();
        }
    }

    constexpr void setMouseOver(bool over) noexcept { _state.set(ToggleState::MOUSE_OVER, over); }

    /// Disabling cancels a press.
    constexpr void setEnabled(bool enabled) noexcept {
        _state.set(ToggleState::ENABLED, enabled);
        if (!enabled) {
            cancel();
        }
    }

    /// True if that is a change.
    constexpr bool setOn(bool on) noexcept {
        const bool changed = on != isOn();
        _state.set(ToggleState::ON, on);
        return changed;
    }

    [[nodiscard]] constexpr bool isOn() const noexcept { return _state.has(ToggleState::ON); }
    [[nodiscard]] constexpr Flags<ToggleState> getState() const noexcept { return _state; }

private:
    // What a press was made with; else a key code, which is above zero.
    static constexpr int NOTHING = 0;
    static constexpr int MOUSE = -1;

    constexpr bool press(int by) noexcept {
        if (!_state.has(ToggleState::ENABLED) || _pressedBy != NOTHING) {
            return false;
        }
        _pressedBy = by;
        _state.set(ToggleState::PRESSED);
        return true;
    }

    constexpr bool end(int by) noexcept {
        if (by == NOTHING || by != _pressedBy) {
            return false;
        }
        _pressedBy = NOTHING;
        _state.clear(ToggleState::PRESSED);
        return true;
    }

    Flags<ToggleState> _state = ToggleState::ENABLED;
    int _pressedBy = NOTHING;
};

} // namespace Ostrel::Wx

namespace Ostrel {

template <>
struct IsFlag<Wx::ToggleState> : std::true_type {};

} // namespace Ostrel
