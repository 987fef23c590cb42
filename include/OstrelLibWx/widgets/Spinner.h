#pragma once

#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/PaintedPanel.h>

#include <wx/event.h>
#include <wx/spinctrl.h>
#include <wx/timer.h>

namespace Ostrel::Wx {

// What a spinner tells of an edit and of its field's focus. All four are sent at once, with the spinner's id and the
// spinner as their object, and go up to every ancestor, which the toolkit's own events of these classes do not.

/// An edit begins: an arrow is pressed, or another number was typed and is about to be set. Active.
wxDECLARE_EXPORTED_EVENT(OSTREL_WX_API, CUSTSPINNER_START_EDITING, wxActivateEvent);
/// The edit has ended: the press is over, or the typed number is set. Not active.
wxDECLARE_EXPORTED_EVENT(OSTREL_WX_API, CUSTSPINNER_END_EDITING, wxActivateEvent);
/// The text field has the focus.
wxDECLARE_EXPORTED_EVENT(OSTREL_WX_API, CUSTSPINNER_TEXT_FOCUS_GET, wxFocusEvent);
/// The text field has lost the focus, and what was typed is set.
wxDECLARE_EXPORTED_EVENT(OSTREL_WX_API, CUSTSPINNER_TEXT_FOCUS_LOST, wxFocusEvent);

/// A number between a minimum and a maximum, in a framed text field with two arrows beside it.
///
/// The number is always the one that is shown, rounded to the decimals of the precision; only where a limit itself has
/// more decimals than are shown does the limit stay exact. Limits without an end count as the largest float.
///
/// It is changed
/// - by typing: Enter, the loss of the focus, or a press of an arrow sets what was typed. "." and "," both are the
///   decimal separator, and what follows the number is ignored. A text that is no number, or one beyond what a float
///   holds, is replaced by the number that is there;
/// - by a click on an arrow; a held arrow repeats the step, after 200 ms for the first time and then every 50 ms, and
///   its release is one more step;
/// - by a press of an arrow and a drag up or down, which the screen does not end: from the top of the work area the
///   pointer goes on at the bottom, and from the bottom at the top. What a step is too small to show adds up;
/// - by a right click on an arrow: back to the default value, or, during a drag, to the value before it.
/// A press that loses the mouse ends where it is. So does one whose spinner is disabled.
///
/// A change that is notified sends a `wxSpinDoubleEvent` of type `wxEVT_SPINCTRLDOUBLE` with the id and the value
/// through the spinner, which calls the callback of `callOnValueChange`, and on to its ancestors. Any handler and the
/// callback may destroy the spinner; what would have followed is then left out.
///
/// It looks as the default skin does; `applySkinRecursive` gives it another.
class OSTREL_WX_API Spinner : public PaintedPanel, public Focusable {
public:
    /// The spinner starts with the default value. Before that, the windows around it hear wxEVT_SPINCTRLDOUBLE once,
    /// with 0 or the limit nearest to it.
    /// @param textWidth of the text field, in design pixels
    /// @param precision see `setPrecision`
    /// @param step the change for each design pixel of a drag, click and repeat. 0 or less, or no number: adaptive,
    /// which is 0.004 times the value's magnitude, or 0.004 where that is below 1. A click changes the last decimal
    /// shown by at least one.
    Spinner(wxWindow* parent, int id, int textWidth, float min, float max, float defaultValue, int precision,
            float step);

    /// Releases the mouse if it is held.
    ~Spinner() override;

    /// Replaces everything that the constructor was given but the width. The value is clamped anew; `notify` as in
    /// `setValue`.
    void configure(float min, float max, float defaultValue, int precision, float step, bool notify);

    /// Clamps and rounds; a NaN becomes the maximum. With `notify`, the value is notified whether it changed or not.
    void setValue(float value, bool notify);
    [[nodiscard]] float getValue() const;

    /// The number of decimals shown, 0 to 100. The value is set anew: what the former precision swallowed of the last
    /// change comes back. `notify` as in `setValue`.
    void setPrecision(int decimals, bool notify);

    /// The same, asked for each time that the value is set or an arrow steps.
    void setPrecision(Function<int()> decimals, bool notify);

    /// What, if it returns a number, replaces the step of clicks and repeats, but not of drags. May be empty.
    void setClickSpeedOverride(Function<Optional<float>()> clickSpeedOverride);

    /// Replaces what is called with the new value when a change is notified. May be empty.
    void callOnValueChange(Function<void(float)> onValueChange);

    /// Shows this text in the place of the number, and leaves the value alone, until the value is set again. If the
    /// user gives it the focus and leaves it, it counts as typed.
    void setText(const String& text);

    /// Sets what was typed, as Enter does. A press of a `Button` leaves the focus where it is: who ends a dialog by one
    /// calls this first. The spinner may be destroyed on return.
    void commitText();

    /// Gives the focus to the text field and selects all of its text.
    void SetFocus() override;

    [[nodiscard]] bool AcceptsFocus() const override { return true; }

    /// What the field and the arrows leave free: the background.
    void paint(wxDC& dc) const override;

    /// Disabling ends a press.
    bool Enable(bool enable = true) override;

private:
    class Arrow;
    class Frame;
    struct Impl;

    void onPress(wxMouseEvent& event);
    void onMotion(wxMouseEvent& event);
    void onRelease(wxMouseEvent& event);
    void onRightRelease(wxMouseEvent& event);
    void onCaptureLost(wxMouseCaptureLostEvent& event);
    void onArrowEntered(wxMouseEvent& event);
    void onArrowLeft(wxMouseEvent& event);
    void onTimer(wxTimerEvent& event);
    void onTextEnter(wxCommandEvent& event);
    void onTextFocusGained(wxFocusEvent& event);
    void onTextFocusLost(wxFocusEvent& event);
    void onValueEvent(wxSpinDoubleEvent& event);

    [[nodiscard]] bool commit();
    [[nodiscard]] bool showValue(bool notify);
    [[nodiscard]] bool stepOnce();
    [[nodiscard]] bool send(wxEvent& event);
    [[nodiscard]] bool endPress();
    int wrapPointer(wxWindow& arrow, int distance);

    AutoPtr<Impl> _impl;
};

} // namespace Ostrel::Wx
