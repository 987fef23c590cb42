#include "painting/ButtonPainting.h"

#include "models/ButtonModel.h"
#include "painting/BorderPainting.h"
#include "painting/PixelDrawing.h"

#include <wx/dc.h>

namespace Ostrel::Wx {

namespace {

/// Where the bitmap begins, right inside the frame's lines.
constexpr int BITMAP_INSET_PX = 2;
constexpr int FLAT_BITMAP_INSET_PX = 1;

} // namespace

void paintButton(wxDC& dc, const ButtonPicture& button) {
    const Bucket area{{0, 0}, {button.size.x, button.size.y}};
    fillPixels(dc, area, button.background);
    paintBorder(dc, area, button.border);

    int bitmapWidth = 0;
    if (button.bitmap.IsOk()) {
        const int inset = button.border.has(RawaBorderState::FLAT) ? FLAT_BITMAP_INSET_PX : BITMAP_INSET_PX;
        dc.DrawBitmap(button.bitmap, inset, inset, false);
        bitmapWidth = button.bitmap.GetWidth();
    }

    if (!button.label.empty()) {
        const wxColour disabledText(110, 110, 110);
        const Pixel at = computeLabelPosition(area.max, bitmapWidth, {button.labelExtent.x, button.labelExtent.y},
                                              button.designPixel);
        dc.SetTextForeground(button.labelGreyed ? disabledText : button.foreground);
        dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
        dc.DrawText(button.label, at.x, at.y);
    }
}

} // namespace Ostrel::Wx
