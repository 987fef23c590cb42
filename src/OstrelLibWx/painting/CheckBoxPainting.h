#pragma once

#include <OstrelLib/Flags.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

#include "models/CheckBoxLayout.h"
#include "models/ToggleModel.h"

#include <wx/colour.h>
#include <wx/gdicmn.h>
#include <wx/string.h>

class wxDC;

namespace Ostrel::Wx {

/// A check box as it looks now.
struct CheckBoxPicture {
    wxSize size;
    const CheckBoxLayout& layout;
    Flags<ToggleState> state;
    wxColour background;
    wxColour foreground;
    const wxString& label;
    const GuiSkin& skin; ///< for the inside of the box
};

/// Draws a check box over its whole area, the label in the device context's font. The box has the frame and the colours
/// of a small toggle button. Leaves its pen, brush and text colour in the device context.
void paintCheckBox(wxDC& dc, const CheckBoxPicture& checkBox);

} // namespace Ostrel::Wx
