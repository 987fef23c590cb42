#include "widgets/HwbSlice.h"

#include <OstrelLibWx/WindowUtils.h>

#include "painting/ColorPainting.h"
#include "painting/ToolkitTypes.h"

namespace Ostrel::Wx {

namespace {

/// Design pixels from the middle of the marker to its outline.
constexpr int MARKER_REACH = 4;

} // namespace

HwbSlice::HwbSlice(wxWindow* parent, wxSize size)
    : DragPanel(parent, size, "HwbSlice") {}

void HwbSlice::setPosition(FieldPosition position) {
    const Bucket before = getMarker();
    const FieldPosition former = _position;
    _position = position;
    if (const Bucket now = getMarker(); now != before || former.hue != position.hue) {
        RefreshRect(toRect(before));
        RefreshRect(toRect(now));
    }
}

void HwbSlice::paint(wxDC& dc) const {
    if (!_field.IsOk()) {
        _field = makeColorField(GetClientSize());
    }
    dc.DrawBitmap(_field, 0, 0);
    paintFieldMarker(dc, getMarker(), scaleByDpi(1), _position.hue);
}

void HwbSlice::moveTo(wxPoint mouse) {
    setPosition(findFieldPosition(toPixel(mouse), getFieldSize()));
    if (const auto callback = onChanged) { // the control, and with it its own, may be destroyed
        callback(_position.hue, _position.blackness);
    }
}

Pixel HwbSlice::getFieldSize() const {
    return toPixel(_field.IsOk() ? _field.GetSize() : GetClientSize());
}

Bucket HwbSlice::getMarker() const {
    return getFieldMarkerArea(computeFieldMarker(_position, getFieldSize()), scaleByDpi(MARKER_REACH));
}

} // namespace Ostrel::Wx
