#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/widgets/RawaBorder.h>
#include <OstrelLibWx/widgets/Tooltip.h>

#include <wx/bitmap.h>
#include <wx/weakref.h>

namespace Ostrel::Wx {

/// A button that takes a colour from the screen: it is pressed, the pointer is dragged to anywhere, and the colour
/// under the pointer is reported when the left button comes up. Meanwhile the button shows that colour in the place of
/// its icon. Escape, and the loss of the mouse, end the picking without a colour. It takes no focus from the keyboard,
/// but has it while it picks; the window that had it before gets it back.
///
/// Exported for the library's own tests alone.
class OSTREL_WX_API EyeDropperButton : public RawaBorder, public TooltipWindow {
public:
    /// @param icon shown as it is, without scaling
    EyeDropperButton(wxWindow* parent, const wxBitmap& icon);

    /// Ends the picking without a word.
    ~EyeDropperButton() override;

    /// The mean of a square of 2 × radius + 1 screen pixels around the pointer is picked. At least 0.
    int averagingRadius = 0;

    /// A colour has been picked. May be empty, and so may the others. Any may destroy the button.
    Function<void(const Rgb&)> onPicked;
    Function<void()> onPickingStarted;
    /// After `onPicked`, if a colour has been picked.
    Function<void()> onPickingEnded;

    [[nodiscard]] bool isPicking() const { return _picking; }

    /// Ends the picking without a colour. Nothing if there is none.
    void endPicking();

    void paint(wxDC& dc) const override;

    [[nodiscard]] bool AcceptsFocusFromKeyboard() const override { return false; }

private:
    void onLeftDown(wxMouseEvent& event);
    void onMotion(wxMouseEvent& event);
    void onLeftUp(wxMouseEvent& event);
    void onKeyDown(wxKeyEvent& event);

    [[nodiscard]] Rgb sample(wxPoint mouse) const;

    wxBitmap _icon;
    bool _picking = false;
    Optional<Rgb> _sampled; ///< last, during this picking
    wxWeakRef<wxWindow> _formerFocus;
};

} // namespace Ostrel::Wx
