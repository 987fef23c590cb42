#include "painting/SwatchPainting.h"

#include <OstrelLibWx/widgets/GuiSkin.h>

#include "models/SwatchHatch.h"
#include "painting/PixelDrawing.h"

#include <wx/dc.h>

namespace Ostrel::Wx {

void paintSwatch(wxDC& dc, Pixel size, const Rgb& color, bool hatched) {
    const Bucket outline{{0, 0}, size};
    const Bucket inside{{1, 1}, size - Pixel{1, 1}};
    const RgbBytes bytes = toRgbBytes(color);
    drawPixelFrame(dc, outline, *wxBLACK);
    fillPixels(dc, inside, toWxColour(bytes));
    if (hatched) {
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(wxBrush(toWxColour(getHatchColor(bytes))));
        visitHatchRuns(inside,
                       [&dc](const Bucket& run) { dc.DrawRectangle(run.min.x, run.min.y, run.width(), run.height()); });
    }
}

} // namespace Ostrel::Wx
