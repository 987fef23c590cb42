#include "widgets/ColorSlider.h"

#include <OstrelLibWx/WindowUtils.h>

#include "models/ColorSliderLayout.h"
#include "painting/ColorPainting.h"
#include "painting/ToolkitTypes.h"

#include <utility>

namespace Ostrel::Wx {

namespace {

/// Design pixels.
constexpr int MARKER_THICKNESS = 5;

} // namespace

ColorSlider::ColorSlider(StripColorFunction colors, wxWindow* parent, wxSize size, bool vertical)
    : DragPanel(parent, size, "ColorSlider")
    , _vertical(vertical)
    , _colors(std::move(colors)) {
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        refreshStrip();
        event.Skip();
    });
}

void ColorSlider::setPosition(float position) {
    const Bucket before = getMarker();
    _position = position;
    if (const Bucket now = getMarker(); now != before) {
        RefreshRect(toRect(before));
        RefreshRect(toRect(now));
    }
}

void ColorSlider::refreshStrip() {
    _stripValid = false;
    Refresh();
}

void ColorSlider::paint(wxDC& dc) const {
    if (GetClientSize().x < 1 || GetClientSize().y < 1) {
        return;
    }
    if (!_stripValid) {
        writeStripBitmap();
    }
    dc.DrawBitmap(_strip, 0, 0);
    paintSliderMarker(dc, getMarker());
}

void ColorSlider::moveTo(wxPoint mouse) {
    setPosition(findSliderPosition(_vertical ? mouse.y : mouse.x, getLength(), scaleByDpi(MARKER_THICKNESS)));
    if (const auto callback = onPositionChanged) { // the control, and with it its own, may be destroyed
        callback(_position);
    }
}

void ColorSlider::writeStripBitmap() const {
    const int length = getLength();
    _stripes.resize(static_cast<std::size_t>(length));
    for (int i = 0; i < length; ++i) {
        _stripes[static_cast<std::size_t>(i)] = _colors(getStripPosition(i, length));
    }
    const wxSize size = GetClientSize();
    writeStrip(_strip, _stripes, _vertical ? size.x : size.y, _vertical);
    _stripValid = true;
}

int ColorSlider::getLength() const {
    const wxSize size = GetClientSize();
    return _vertical ? size.y : size.x;
}

Bucket ColorSlider::getMarker() const {
    const wxSize size = GetClientSize();
    const int thickness = scaleByDpi(MARKER_THICKNESS);
    const int begin = computeSliderMarker(_position, getLength(), thickness);
    return _vertical ? Bucket{{0, begin}, {size.x, begin + thickness}}
                     : Bucket{{begin, 0}, {begin + thickness, size.y}};
}

} // namespace Ostrel::Wx
