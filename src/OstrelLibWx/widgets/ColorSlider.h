#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>

#include "widgets/DragPanel.h"

#include <wx/bitmap.h>

namespace Ostrel::Wx {

/// The colour at a position, 0 to 1, of a strip.
using StripColorFunction = Function<Rgb(float position)>;

/// A strip of colours with a marker that is dragged along it. It keeps one position and knows nothing of what it means:
/// the colours come from its owner.
///
/// The strip is kept as a bitmap, which is written anew when it is painted for the first time after `refreshStrip`; the
/// bitmap itself is replaced only when the size changes. A marker that moves repaints what it leaves and what it
/// covers.
///
/// Exported for the library's own tests alone.
class OSTREL_WX_API ColorSlider : public DragPanel {
public:
    /// @param colors not empty
    /// @param size in design pixels
    /// @param vertical whether the positions run from the top to the bottom, and not from the left to the right
    ColorSlider(StripColorFunction colors, wxWindow* parent, wxSize size, bool vertical = false);

    /// Kept as it is; the marker stays on the strip. Calls nothing.
    void setPosition(float position);
    [[nodiscard]] float getPosition() const { return _position; }

    /// The colour function gives other colours now.
    void refreshStrip();

    void paint(wxDC& dc) const override;

    /// The user has moved the marker; takes the new position. May be empty, and may destroy the control.
    Function<void(float)> onPositionChanged;

private:
    void moveTo(wxPoint mouse) override;
    void writeStripBitmap() const;
    [[nodiscard]] int getLength() const;
    [[nodiscard]] Bucket getMarker() const;

    float _position = 0.0F;
    bool _vertical;
    StripColorFunction _colors;
    mutable wxBitmap _strip;     ///< what was painted last
    mutable Array<Rgb> _stripes; ///< of it
    mutable bool _stripValid = false;
};

} // namespace Ostrel::Wx
