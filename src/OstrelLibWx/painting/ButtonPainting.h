#pragma once

#include <OstrelLib/Flags.h>
#include <OstrelLibWx/widgets/RawaBorderState.h>

#include <wx/bitmap.h>
#include <wx/colour.h>
#include <wx/string.h>

class wxDC;

namespace Ostrel::Wx {

/// A button as it looks now.
struct ButtonPicture {
    wxSize size;
    Flags<RawaBorderState> border;
    wxColour background;
    wxColour foreground;
    const wxBitmap& bitmap; ///< invalid: none
    const wxString& label;
    wxSize labelExtent; ///< of `label` in the device context's font
    bool labelGreyed;   ///< the label is in the grey of disabled text, not in `foreground`
    int designPixel;    ///< one design pixel in screen pixels
};

/// Draws a button over its whole area. Leaves its pen, brush and text colour in the device context.
void paintButton(wxDC& dc, const ButtonPicture& button);

} // namespace Ostrel::Wx
