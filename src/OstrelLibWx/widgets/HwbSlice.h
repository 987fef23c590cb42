#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>

#include "models/ColorSliderLayout.h"
#include "widgets/DragInput.h"

#include <wx/bitmap.h>
#include <wx/panel.h>

namespace Ostrel::Wx {

/// The field of hue, across, and blackness, down, at the whiteness 0, with a marker that is dragged over it. It takes
/// no focus from the keyboard.
///
/// The field is a bitmap that is made once, when it is painted first, for the size that the layout has given the
/// control by then. It is not made anew for another size: this is meant. A marker that moves repaints what it leaves
/// and what it covers.
///
/// Exported for the library's own tests alone.
class OSTREL_WX_API HwbSlice : public wxPanel {
public:
    /// @param size in design pixels
    HwbSlice(wxWindow* parent, wxSize size);

    /// Kept as it is; the marker stays on the field. Calls nothing.
    void setPosition(FieldPosition position);
    [[nodiscard]] FieldPosition getPosition() const { return _position; }

    /// Draws all that the control shows onto a screen's or a bitmap's device context.
    void paint(wxDC& dc) const;

    [[nodiscard]] bool AcceptsFocusFromKeyboard() const override { return false; }

    /// The user has moved the marker; takes hue and blackness. May be empty, and so may the others. Any may destroy the
    /// control.
    Function<void(float hue, float blackness)> onChanged;
    /// The left button went down; before the marker moves.
    Function<void(wxMouseEvent&)> onMousePressed;
    /// It came up, or the mouse was taken away.
    Function<void()> onMouseReleased;

private:
    void moveTo(wxPoint mouse);
    [[nodiscard]] Pixel getFieldSize() const;
    [[nodiscard]] Bucket getMarker() const;

    FieldPosition _position;
    mutable wxBitmap _field; ///< not valid before it is made
    DragInput _input;
};

} // namespace Ostrel::Wx
