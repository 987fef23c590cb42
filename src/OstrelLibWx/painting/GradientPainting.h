#pragma once

#include <OstrelLib/Types.h>

#include "models/GradientEditing.h"

#include <wx/bitmap.h>
#include <wx/colour.h>

class wxDC;

namespace Ostrel::Wx {

/// Paints a gradient with its handles. The strip of colours is kept, and made anew only when the gradient, its range or
/// the control's size has changed.
class GradientPainting {
public:
    /// Has the strip made anew at the next painting.
    void forgetStrip() { _stripIsCurrent = false; }

    /// @param lineWidth screen pixels, of the handles' rims
    void paint(wxDC& dc, const GradientEditing& editing, const wxColour& background, int lineWidth) const;

private:
    void makeStrip(const GradientEditing& editing) const;

    mutable bool _stripIsCurrent = false;
    mutable Array<Rgb> _colors; ///< one for each column of the strip
    mutable wxBitmap _strip;
};

} // namespace Ostrel::Wx
