#pragma once

#include <OstrelLib/String.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/Skinnable.h>
#include <OstrelLibWx/widgets/Tooltip.h>

#include <wx/textctrl.h>

namespace Ostrel::Wx {

/// A skinnable text field. It keeps the default skin from the start, but is shown in the toolkit's colours until
/// `applySkin` gives it the skin's: `background` and `text`.
///
/// While it is disabled it shows its value in the skin's `grey` instead of the system's disabled look, and a password
/// as dots. On Windows the value then begins 3 design pixels from the left, at the top, whatever the style says of its
/// alignment; on Linux GTK draws it where it always is.
class OSTREL_WX_API TextControl : public SkinnableMixin<wxTextCtrl>, public TooltipWindow {
public:
    /// `style` is a set of wxTextCtrl's bits. `flags` make the font, see `setupStaticTextFont`. `size` is in design
    /// pixels; a component of -1 is the toolkit's choice. On Linux a field has next to no margins, so that it can be as
    /// low as on Windows.
    TextControl(wxWindow* parent, int id, const String& text, unsigned int style, Flags<TextFlag> flags, wxSize size);

    void applySkin(const GuiSkin& skin) override;
    bool SetForegroundColour(const wxColour& colour) override;
    bool SetBackgroundColour(const wxColour& colour) override;

    /// True unless the style has `wxTE_READONLY`: Tab passes a read-only field by. A click gives it the focus all the
    /// same.
    [[nodiscard]] bool AcceptsFocusFromKeyboard() const override;

private:
    void onPaint(wxPaintEvent& event);
};

} // namespace Ostrel::Wx
