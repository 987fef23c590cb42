#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>

#include "widgets/DragInput.h"

#include <wx/bitmap.h>
#include <wx/panel.h>

namespace Ostrel::Wx {

/// The colour at a position, 0 to 1, of a strip.
using StripColorFunction = Function<Rgb(float position)>;

/// A strip of colours with a marker that is dragged along it. It keeps one position and knows nothing of what it means:
/// the colours come from its owner. It takes no focus from the keyboard.
///
/// The strip is kept as a bitmap, which is written anew when it is painted for the first time after `refreshStrip`; the
/// bitmap itself is replaced only when the size changes. A marker that moves repaints what it leaves and what it
/// covers.
///
/// Exported for the library's own tests alone.
class OSTREL_WX_API ColorSlider : public wxPanel {
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

    /// Draws all that the control shows onto a screen's or a bitmap's device context.
    void paint(wxDC& dc) const;

    [[nodiscard]] bool AcceptsFocusFromKeyboard() const override { return false; }

    /// The user has moved the marker; takes the new position. May be empty, and so may the others. Any may destroy the
    /// control.
    Function<void(float)> onPositionChanged;
    /// The left button went down; before the position changes.
    Function<void(wxMouseEvent&)> onMousePressed;
    /// It came up, or the mouse was taken away.
    Function<void()> onMouseReleased;

private:
    void moveTo(wxPoint mouse);
    void writeStripBitmap() const;
    [[nodiscard]] int getLength() const;
    [[nodiscard]] Bucket getMarker() const;

    float _position = 0.0F;
    bool _vertical;
    StripColorFunction _colors;
    DragInput _input;
    mutable wxBitmap _strip;     ///< what was painted last
    mutable Array<Rgb> _stripes; ///< of it
    mutable bool _stripValid = false;
};

} // namespace Ostrel::Wx
