#include "widgets/ColorDisplay.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

#include "painting/PixelDrawing.h"

#include <utility>

namespace Ostrel::Wx {

ColorDisplay::ColorDisplay(wxWindow* parent, wxSize size)
    : PaintedPanel(parent, wxID_ANY, wxDefaultPosition, scaleByDpi(size), wxTAB_TRAVERSAL | wxBORDER_NONE,
                   "ColorDisplay") {
    SetMinSize(scaleByDpi(size));
}

void ColorDisplay::setColor(const Rgb& color) {
    const Rgb before = std::exchange(_color, color);
    if (toRgbBytes(before) != toRgbBytes(color)) {
        Refresh();
    }
}

void ColorDisplay::paint(wxDC& dc) const {
    const wxSize size = GetClientSize();
    fillPixels(dc, {{0, 0}, {size.x, size.y}}, toWxColour(toRgbBytes(_color)));
}

} // namespace Ostrel::Wx
