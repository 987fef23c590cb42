#pragma once

#include <OstrelLib/Flags.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/widgets/PaintedPanel.h>
#include <OstrelLibWx/widgets/RawaBorderState.h>

namespace Ostrel {

/// A panel with the library's frame, whose inner line turns blue while the mouse is over the enabled control. Base of
/// the button, the combo box, the eye dropper's button and the hexadecimal colour field.
///
/// The panel paints itself completely: its background colour, then the frame. A derived control that paints more
/// overrides `paint`, and has to fill its background as well.
class OSTREL_WX_API RawaBorder : public PaintedPanel {
public:
    /// A control that starts enabled is built with `RawaBorderState::ENABLED`, a flat one with
    /// `ENABLED | FLAT`. The state says how it looks: a control built without `ENABLED` looks disabled although the
    /// toolkit's window is enabled.
    RawaBorder(Flags<RawaBorderState> initialState, wxWindow* parent, int id, const wxString& name);

    /// Enables or disables both the look and the window. True if the window's own state changed.
    bool Enable(bool enable = true) override;

    void paint(wxDC& dc) const override;

    [[nodiscard]] Flags<RawaBorderState> getBorderState() const { return _borderState; }

protected:
    /// Sets or clears one bit, and nothing more: whoever changes the look refreshes the control.
    void setBorderState(RawaBorderState bit, bool on) { _borderState.set(bit, on); }

    /// Two places in which a derived control may keep its inner child windows. They start empty, and the border does
    /// nothing with them; the toolkit owns the windows.
    wxWindow* _firstChild = nullptr;
    wxWindow* _secondChild = nullptr;

private:
    void onActivate(wxActivateEvent& event);
    void setMouseOver(bool over);

    Flags<RawaBorderState> _borderState;
};

} // namespace Ostrel
