#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>

namespace Ostrel::Wx {

/// What a number may be, and by how much it changes.
struct SpinnerLimits {
    float min;
    float max;
    float defaultValue;
    float step; ///< per design pixel of a drag, per click and per repeat; 0 or less: adaptive
};

/// The number with this many decimals, as a spinner shows it: `decimalPoint` for the point, and one trailing zero kept
/// of several, which is the look that is wanted and no forgotten trim. With 0 decimals nothing is taken away.
[[nodiscard]] String formatSpinnerNumber(float value, int decimals, wchar_t decimalPoint);

/// What is to be done with a text that was typed.
struct SpinnerEntry {
    enum class Kind {
        SAME,   ///< the number that is there already, perhaps written differently
        OTHER,  ///< another one
        NOTHING ///< no number
    };
    Kind kind;
    float number; ///< as it was typed; meaningful with `OTHER`
};

/// The number of a spinner: its limits, its rounding to what is shown, and the part of a change that rounding swallows.
class SpinnerNumber {
public:
    /// The limits alone; the number is clamped when it is set next, or by `reapply`. An infinite limit counts as the
    /// largest float, and so does one that is no number, for the minimum the lowest: the number is always finite.
    void configure(const SpinnerLimits& limits);

    /// An empty callable and numbers below 0 count as 0 decimals, more than 100 as 100.
    void setPrecision(Function<int()> precision) { _precision = std::move(precision); }

    /// Clamped and rounded to the decimals that are shown. A NaN becomes the maximum. The residue is dropped.
    void setValue(float value);

    /// Sets the number anew with what rounding had swallowed of it, for other limits or another precision.
    void reapply() { change(0.0); }

    /// Adds `amount` and what earlier changes left over, and keeps what rounding swallows this time, so that many small
    /// changes lose nothing. At a limit nothing is left over.
    void change(double amount);

    /// One arrow step. A finite `stepOverride` replaces the step rule. A step below the last decimal shown moves by
    /// that decimal, and if even that is lost in the float, to the next float.
    void stepOnce(bool up, Optional<float> stepOverride);

    void reset() { setValue(_limits.defaultValue); }

    /// The step rule: the limits' step, or else 0.004 of the number's magnitude, which counts as 1 at least.
    [[nodiscard]] float getStep() const;

    /// Reads a number from the beginning of a text, as a stream does, with "." or ",".
    [[nodiscard]] SpinnerEntry read(const String& typed) const;

    [[nodiscard]] float getValue() const { return _value; }

    /// The number as it is shown.
    [[nodiscard]] const String& getText() const { return _text; }

private:
    [[nodiscard]] double clamp(double value) const;
    [[nodiscard]] int getPrecision() const;

    SpinnerLimits _limits{0.0F, 1.0F, 0.0F, 0.0F};
    Function<int()> _precision;
    float _value = 0.0F;
    double _residue = 0.0; ///< a double, or changes below the float's own spacing would be lost
    String _text;
};

/// How long an arrow is held before the number changes again: the first time, and every other time.
enum { SPINNER_FIRST_REPEAT_MS = 200, SPINNER_REPEAT_MS = 50 };

/// Where the pointer goes when a drag reaches the top or the bottom of `region` and moves on by `distance` (downwards
/// positive): a row near the other end. Empty: nowhere. All in rows of the screen.
[[nodiscard]] Optional<int> findSpinnerWrap(int mouseY, int distance, const Bucket& region);

/// A press of an arrow: a click or a hold at first, a drag once the mouse moves.
class SpinnerPress {
public:
    /// @param value of the spinner now, for `getValueBefore`
    /// @param mouse in the coordinates that `move` is given
    void begin(bool up, float value, Pixel mouse);
    void end() { _pressed = _dragging = false; }

    /// The mouse is there. While pressed, makes the press a drag and says how many pixels it moved down; empty if it
    /// did not move at all (systems send such events), if the event had been under way before the pointer was warped,
    /// and without a press.
    [[nodiscard]] Optional<int> move(Pixel mouse);

    /// The pointer has just been sent to that row.
    void warp(int y);

    [[nodiscard]] bool isPressed() const { return _pressed; }
    [[nodiscard]] bool isDragging() const { return _dragging; }
    [[nodiscard]] bool isUp() const { return _up; }
    [[nodiscard]] float getValueBefore() const { return _valueBefore; }

private:
    bool _pressed = false;
    bool _dragging = false;
    bool _up = false;
    float _valueBefore = 0.0F;
    Pixel _mouse;
    Optional<int> _warpedFrom; ///< the row, until the mouse has been seen where it was sent
};

} // namespace Ostrel::Wx
