#include "painting/TooltipPainting.h"

#include "models/TooltipLayout.h"
#include "painting/PixelDrawing.h"
#include "painting/ToolkitTypes.h"

#include <wx/dc.h>
#include <wx/settings.h>

namespace Ostrel::Wx {

namespace {

/// Themes of GTK give tooltips a translucent colour, but the popup is opaque: without this, what was on the screen
/// before would shine through.
wxColour opaqueSystemColour(wxSystemColour index) {
    const wxColour colour = wxSystemSettings::GetColour(index);
    return {colour.Red(), colour.Green(), colour.Blue()};
}

} // namespace

void paintTooltip(wxDC& dc, wxSize size, ArrayView<const String> lines, ArrayView<const Pixel> lineExtents) {
    const wxColour ground = opaqueSystemColour(wxSYS_COLOUR_INFOBK);
    const wxColour ink = opaqueSystemColour(wxSYS_COLOUR_INFOTEXT);
    const Bucket area{{0, 0}, {size.x, size.y}};
    fillPixels(dc, area, ground);
    drawPixelFrame(dc, area, ink);

    dc.SetTextForeground(ink);
    dc.SetTextBackground(ground);
    int y = TOOLTIP_MARGIN_PX;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        dc.DrawText(toWx(lines[i]), TOOLTIP_MARGIN_PX, y);
        y += lineExtents[i].y;
    }
}

} // namespace Ostrel::Wx
