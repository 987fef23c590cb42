#pragma once

#include <OstrelLib/Flags.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

#include "models/CollapsibleHeaderLayout.h"
#include "models/ToggleModel.h"

#include <wx/colour.h>
#include <wx/gdicmn.h>
#include <wx/string.h>

class wxDC;

namespace Ostrel::Wx {

/// The header of a collapsible panel as it looks now.
struct CollapsibleHeaderPicture {
    wxSize size;
    const CollapsibleHeaderLayout& layout;
    int triangleDepth;        ///< screen pixels
    Flags<ToggleState> state; ///< on: expanded
    wxColour background;
    wxColour foreground;
    const wxString& title;
    const GuiSkin& skin; ///< for the colour of a pressed header
};

/// Draws the header over its whole area, framed as a button is, the title in the device context's font. Leaves its pen,
/// brush and text colour in the device context.
void paintCollapsibleHeader(wxDC& dc, const CollapsibleHeaderPicture& header);

} // namespace Ostrel::Wx
