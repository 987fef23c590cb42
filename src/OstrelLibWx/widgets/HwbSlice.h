#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>

#include "models/ColorSliderLayout.h"
#include "widgets/DragPanel.h"

#include <wx/bitmap.h>

namespace Ostrel::Wx {

/// The field of hue, across, and blackness, down, at the whiteness 0, with a marker that is dragged over it.
///
/// The field is a bitmap that is made once, when it is painted first, for the size that the layout has given the
/// control by then. It is not made anew for another size: this is meant. A marker that moves repaints what it leaves
/// and what it covers.
///
/// Exported for the library's own tests alone.
class OSTREL_WX_API HwbSlice : public DragPanel {
public:
    /// @param size in design pixels
    HwbSlice(wxWindow* parent, wxSize size);

    /// Kept as it is; the marker stays on the field. Calls nothing.
    void setPosition(FieldPosition position);
    [[nodiscard]] FieldPosition getPosition() const { return _position; }

    void paint(wxDC& dc) const override;

    /// The user has moved the marker; takes hue and blackness. May be empty, and may destroy the control.
    Function<void(float hue, float blackness)> onChanged;

private:
    void moveTo(wxPoint mouse) override;
    [[nodiscard]] Pixel getFieldSize() const;
    [[nodiscard]] Bucket getMarker() const;

    FieldPosition _position;
    mutable wxBitmap _field; ///< not valid before it is made
};

} // namespace Ostrel::Wx
