#include "painting/GradientPainting.h"

#include <OstrelLib/Color.h>

#include "painting/ColorPainting.h"
#include "painting/PixelDrawing.h"
#include "painting/SmoothDrawing.h"

#include <wx/dc.h>

namespace Ostrel::Wx {

namespace {

const wxColour FRAME(37, 37, 37);
const wxColour RIM(0, 0, 0);
const wxColour RING(200, 200, 200);
const wxColour SELECTED_RING(39, 147, 255);

/// A disc in the point's colour within a ring within a rim, so that it stands out from every colour below it.
void paintHandle(wxGraphicsContext& context, Pixel middle, int radius, RgbBytes color, bool selected, int lineWidth) {
    const auto disc = [&](int r, const wxColour& fill) {
        context.SetBrush(context.CreateBrush(wxBrush(fill)));
        context.DrawEllipse(middle.x - r, middle.y - r, 2 * r, 2 * r);
    };
    disc(radius, RIM);
    disc(radius - lineWidth, selected ? SELECTED_RING : RING);
    disc(radius - (selected ? 3 : 2) * lineWidth, {color.red, color.green, color.blue});
}

} // namespace

void GradientPainting::paint(wxDC& dc, const GradientEditing& editing, const wxColour& background,
                             int lineWidth) const {
    const GradientTrack& track = editing.getTrack();
    const Bucket client{{0, 0}, track.size};
    const Bucket strip = track.getStrip();
    fillPixels(dc, client, background);
    if (!strip.isEmpty()) {
        makeStrip(editing);
        dc.DrawBitmap(_strip, strip.min.x, strip.min.y);
        // Around the strip, so that it hides no colour; its upper edge is the control's.
        drawPixelFrame(dc, {strip.min - Pixel{1, 0}, strip.max + Pixel{1, 1}}, FRAME);
    }
    SmoothDrawing context(dc, client);
    context->SetPen(wxNullPen);
    const Array<ColorGradientPoint>& points = editing.getGradient().getPoints();
    // The last ones first: of handles on each other, the one that a press takes lies on top.
    for (std::size_t i = points.size(); i-- > 0;) {
        paintHandle(*context, track.toPixel(points[i].position), track.radius, toRgbBytes(hsvToRgb(points[i].color)),
                    editing.getSelected() == i, lineWidth);
    }
}

void GradientPainting::makeStrip(const GradientEditing& editing) const {
    if (_stripIsCurrent) {
        return;
    }
    const GradientTrack& track = editing.getTrack();
    const Bucket strip = track.getStrip();
    _colors.resize(static_cast<std::size_t>(strip.width()));
    int x = strip.min.x;
    for (Rgb& color : _colors) {
        color = hsvToRgb(editing.getGradient().getColorAt(track.toShownPosition(x++)));
    }
    writeStrip(_strip, _colors, strip.height(), false);
    _stripIsCurrent = true;
}

} // namespace Ostrel::Wx
