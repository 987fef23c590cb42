#pragma once

#include <OstrelLib/Flags.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/RawaBorderState.h>

#include <wx/bitmap.h>
#include <wx/colour.h>
#include <wx/dc.h>
#include <wx/gdicmn.h>
#include <wx/string.h>

namespace Ostrel::Wx {

/// What a combo box looks like.
struct ComboBoxPicture {
    wxSize size;
    Flags<RawaBorderState> border;
    wxColour background;
    wxColour foreground;   ///< of the text
    const wxString& text;  ///< cut off before the arrow
    const wxBitmap& arrow; ///< at the right, in the middle of the height
    int padding;           ///< left of the text, and on both sides of the arrow
};

/// Draws the closed box in the device's font. Leaves its pen and brush in the device context.
void paintComboBox(wxDC& dc, const ComboBoxPicture& picture);

/// Draws a row of the list over its background, in the device's font. Leaves its pen and brush in the device context.
/// @param textHeight in the device's font, to centre the text
void paintComboBoxRow(wxDC& dc, const Bucket& row, const wxString& text, bool highlighted, int padding, int textHeight,
                      const GuiSkin& skin);

} // namespace Ostrel::Wx
