#include "painting/BorderPainting.h"

#include "painting/PixelDrawing.h"

#include <wx/colour.h>

namespace Ostrel {

void paintBorder(wxDC& dc, const Bucket& rectangle, Flags<RawaBorderState> state) {
    const wxColour outerFrame(54, 54, 54);
    const wxColour innerFrame(37, 37, 37);
    const wxColour innerFrameUnderMouse(0, 114, 188);
    const wxColour bottomShade(70, 70, 70);
    const wxColour bottomShadeInside(85, 85, 85);

    const auto [left, top] = rectangle.min;
    const auto [right, bottom] = rectangle.max;
    const bool flat = state.has(RawaBorderState::FLAT);
    const bool underMouse = state.has(RawaBorderState::MOUSE_OVER) && state.has(RawaBorderState::ENABLED);

    Bucket inner = rectangle;
    if (!flat) {
        drawPixelFrame(dc, rectangle, outerFrame);
        inner = {{left + 1, top + 1}, {right - 1, bottom - 1}};
    }
    drawPixelFrame(dc, inner, underMouse ? innerFrameUnderMouse : innerFrame);
    if (!flat) {
        // The second end points mix sizes with coordinates. This is meant: at the origin, where every control draws its
        // frame, they are the ends of the bottom edge.
        drawPixelLine(dc, {left, bottom - 1}, {right - left, bottom - top - 1}, bottomShade);
        drawPixelLine(dc, {left + 1, bottom - 1}, {right - left - 1, bottom - top - 1}, bottomShadeInside);
    }
}

} // namespace Ostrel
