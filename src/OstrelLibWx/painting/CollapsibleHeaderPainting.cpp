#include "painting/CollapsibleHeaderPainting.h"

#include "painting/BorderPainting.h"
#include "painting/MarkPainting.h"
#include "painting/PixelDrawing.h"

#include <wx/dc.h>

namespace Ostrel::Wx {

void paintCollapsibleHeader(wxDC& dc, const CollapsibleHeaderPicture& header) {
    const wxColour disabledText(110, 110, 110);
    const Bucket area{{0, 0}, {header.size.x, header.size.y}};
    const bool enabled = header.state.has(ToggleState::ENABLED);
    const wxColour ink = enabled ? header.foreground : disabledText;
    Flags<RawaBorderState> border;
    border.set(RawaBorderState::MOUSE_OVER, header.state.has(ToggleState::MOUSE_OVER));
    border.set(RawaBorderState::ENABLED, enabled);

    fillPixels(dc, area,
               header.state.has(ToggleState::PRESSED) ? toWxColour(header.skin.pressedBackground) : header.background);
    paintBorder(dc, area, border);
    paintTriangle(dc, header.layout.triangle, header.triangleDepth,
                  header.state.has(ToggleState::ON) ? TriangleDirection::DOWN : TriangleDirection::RIGHT, ink);
    if (!header.title.empty()) {
        dc.SetTextForeground(ink);
        dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
        dc.DrawText(header.title, header.layout.title.x, header.layout.title.y);
    }
    if (header.state.has(ToggleState::FOCUSED)) {
        paintFocusFrame(dc, header.layout.focus, ink);
    }
}

} // namespace Ostrel::Wx
