#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Types.h>

#include "models/GradientEditing.h"

#include <wx/bitmap.h>
#include <wx/colour.h>

class wxDC;

namespace Ostrel::Wx {

/// Paints a gradient with its handles. The strip of colours is kept, and made anew only when the gradient, its range or
/// the control's size has changed; a handle is kept as long as its look is the same.
class GradientPainting {
public:
    /// Has the strip made anew at the next painting.
    void forgetStrip() { _stripIsCurrent = false; }

    /// @param lineWidth screen pixels, of the handles' rims
    void paint(wxDC& dc, const GradientEditing& editing, const wxColour& background, int lineWidth) const;

private:
    struct Handle {
        wxBitmap bitmap;
        RgbBytes color;
        bool selected = false;
    };

    void makeHandles(const GradientEditing& editing, int lineWidth) const;
    void makeStrip(const GradientEditing& editing) const;

    mutable bool _stripIsCurrent = false;
    mutable Array<Rgb> _colors; ///< one for each column of the strip
    mutable wxBitmap _strip;
    mutable Array<Handle> _handles; ///< one for each point
};

} // namespace Ostrel::Wx
