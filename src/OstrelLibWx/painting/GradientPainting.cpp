#include "painting/GradientPainting.h"

#include <OstrelLib/Color.h>

#include "painting/ColorPainting.h"
#include "painting/PixelDrawing.h"

#include <wx/dc.h>
#include <wx/image.h>

#include <algorithm>
#include <cmath>

namespace Ostrel::Wx {

namespace {

const wxColour FRAME(37, 37, 37);
constexpr RgbBytes RIM{0, 0, 0};
constexpr RgbBytes RING{200, 200, 200};
constexpr RgbBytes SELECTED_RING{39, 147, 255};

/// How much of a pixel at this distance from the middle of a disc is covered by it.
float getCoverage(float radius, float distance) {
    return std::clamp(radius + 0.5F - distance, 0.0F, 1.0F);
}

unsigned char mix(std::uint8_t below, std::uint8_t above, float coverage) {
    return static_cast<unsigned char>(
        std::lround(static_cast<float>(below) + (static_cast<float>(above) - static_cast<float>(below)) * coverage));
}

RgbBytes mix(RgbBytes below, RgbBytes above, float coverage) {
    return {mix(below.red, above.red, coverage), mix(below.green, above.green, coverage),
            mix(below.blue, above.blue, coverage)};
}

/// A disc in the point's colour within a ring within a rim, so that it stands out from every colour below it. Its
/// pixels are computed here: the systems' own small discs are not round everywhere.
wxBitmap makeHandle(int radius, RgbBytes color, bool selected, int lineWidth) {
    const int size = 2 * radius + 1;
    wxImage image(size, size);
    image.InitAlpha();
    const auto outer = static_cast<float>(radius);
    const auto ring = static_cast<float>(radius - lineWidth);
    const float inner = static_cast<float>(radius - 2 * lineWidth) - (selected ? 0.5F : 0.0F);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const float distance = std::hypot(static_cast<float>(x - radius), static_cast<float>(y - radius));
            const RgbBytes ringColor = mix(selected ? SELECTED_RING : RING, color, getCoverage(inner, distance));
            const RgbBytes pixel = mix(RIM, ringColor, getCoverage(ring, distance));
            image.SetRGB(x, y, pixel.red, pixel.green, pixel.blue);
            image.SetAlpha(x, y, mix(0, 255, getCoverage(outer, distance)));
        }
    }
    return wxBitmap(image);
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
    makeHandles(editing, lineWidth);
    // The last ones first: of handles on each other, the one that a press takes lies on top.
    for (std::size_t i = _handles.size(); i-- > 0;) {
        const Pixel corner =
            track.toPixel(editing.getGradient().getPoints()[i].position) - Pixel{track.radius, track.radius};
        dc.DrawBitmap(_handles[i].bitmap, corner.x, corner.y, true);
    }
}

void GradientPainting::makeHandles(const GradientEditing& editing, int lineWidth) const {
    const Array<ColorGradientPoint>& points = editing.getGradient().getPoints();
    _handles.resize(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        const RgbBytes color = toRgbBytes(hsvToRgb(points[i].color));
        const bool selected = editing.getSelected() == i;
        Handle& handle = _handles[i];
        if (!handle.bitmap.IsOk() || handle.color != color || handle.selected != selected) {
            handle = {makeHandle(editing.getTrack().radius, color, selected, lineWidth), color, selected};
        }
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
