#pragma once

#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/RawaBorder.h>
#include <OstrelLibWx/widgets/Tooltip.h>

#include <wx/bitmap.h>
#include <wx/event.h>

namespace Ostrel::Wx {

/// A push or toggle button with an optional bitmap at its left and a centred label. It is skinned when it is built: its
/// colours say whether it is normal, toggled or pressed. It is worked with the mouse and takes no focus from the
/// keyboard.
///
/// A click is reported twice, in this order, and the button may be destroyed in either:
/// 1. an event of type `wxEVT_BUTTON` is processed by the parent window's event handler (it does not go further up);
/// 2. the callable given at construction is called, if there is one and the button still exists.
///
/// WARNING: that event is a `wxMouseEvent`, not the `wxCommandEvent` that the toolkit's own buttons send under this
/// type. The toolkit does not check: a handler that was bound to `wxEVT_BUTTON` and takes a `wxCommandEvent&` is called
/// with an object that is none. It may use what every `wxEvent` has (id, event object, skipping) and nothing else.
/// Bind with the tag below, which admits only handlers of the right kind:
///
///     parent->Bind(Button::clickEventType(), [](wxMouseEvent& event) { … }, button->GetId());
class OSTREL_WX_API Button : public RawaBorder, public TooltipWindow {
public:
    /// What a click does to the button itself. Values other than these are push.
    enum Behavior {
        PUSH = 0,
        TOGGLE = 1, ///< each click inverts the toggle state before it is reported
    };

    /// `wxEVT_BUTTON`, tagged with the class that the event really has.
    [[nodiscard]] static wxEventTypeTag<wxMouseEvent> clickEventType() {
        return wxEventTypeTag<wxMouseEvent>(wxEVT_BUTTON);
    }

    /// `disabledBitmap` and `bitmap` are shown as they are, without scaling and without their mask; either may be
    /// invalid, for none. `borderState` is the frame's (flat or not); its bit `ENABLED` is then set to `enabled`.
    /// `enabled` false makes a button that looks disabled and ignores presses, while its window stays enabled, and with
    /// it the label's colour: the label is greyed by `Enable(false)` alone. Any width is allowed; the minimum height is
    /// 24 design pixels.
    Button(wxWindow* parent, const GuiSkin& skin, int id, const wxString& label, const wxBitmap& disabledBitmap,
           const wxBitmap& bitmap, Function<void()> onClick, Behavior behavior, bool enabled,
           Flags<RawaBorderState> borderState);

    /// Releases the mouse if it is held.
    ~Button() override;

    /// Disabling a pressed button cancels the press.
    bool Enable(bool enable = true) override;

    /// The text is shown as it stands, on one line: '&' is an ordinary character.
    void SetLabel(const wxString& label) override;
    [[nodiscard]] wxString GetLabel() const override;

    bool SetFont(const wxFont& font) override;

    /// False: Tab passes a button by.
    [[nodiscard]] bool AcceptsFocusFromKeyboard() const override { return false; }

    /// Changes the look of the button, whichever its behaviour; reports nothing.
    void setToggled(bool toggled);
    [[nodiscard]] bool isToggled() const;

    /// Performs a click as if the mouse had come up at `position` (client coordinates, which the event carries):
    /// inverts the toggle state of a toggle button, then reports. Whether the button is enabled does not matter. The
    /// button may be gone on return.
    void doClick(wxPoint position);

    void paint(wxDC& dc) const override;

protected:
    void onMouseDown(wxMouseEvent& event);
    void onMouseUp(wxMouseEvent& event);
    void onCaptureLost(wxMouseCaptureLostEvent& event);

    /// Width and height of the label in the button's font, pixels; zero for an empty label.
    [[nodiscard]] wxSize getLabelExtent() const;

private:
    struct Impl;

    void applyColours();
    void cancelPress();
    void measureLabel();

    AutoPtr<Impl> _impl;
};

} // namespace Ostrel::Wx
