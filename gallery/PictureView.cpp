#include "PictureView.h"

#include "lab/Tones.h"

#include <OstrelLibWx/BitmapUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

#include <wx/dcbuffer.h>

#include <utility>

namespace Ostrel::Gallery {

namespace {

constexpr Rgb GROUND{0.13F, 0.13F, 0.13F};

Pixel toPixel(wxPoint point) {
    return {point.x, point.y};
}

} // namespace

PictureView::PictureView(wxWindow* parent, Picks picks, Function<void()> onShown)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE)
    , _picks(std::move(picks))
    , _onShown(std::move(onShown))
    , _shading(std::make_shared<ToneTables>(ColorCurve(), PictureValues::STORED)) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    bindScrollAndZoomEvents(this);
    Bind(wxEVT_PAINT, &PictureView::onPaint, this);
    Bind(wxEVT_IDLE, &PictureView::onIdle, this);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        updatePlacement();
        event.Skip();
    });
    for (const auto& type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_DCLICK, wxEVT_MIDDLE_DOWN}) {
        Bind(type, &PictureView::onButtonDown, this);
    }
    for (const auto& type : {wxEVT_LEFT_UP, wxEVT_MIDDLE_UP}) {
        Bind(type, &PictureView::onButtonUp, this);
    }
    Bind(wxEVT_MOTION, &PictureView::onMotion, this);
    // The system tells of pinches in this way; the base wants to hear of them in the other.
    EnableTouchEvents(wxTOUCH_ZOOM_GESTURE);
    Bind(wxEVT_GESTURE_ZOOM, &PictureView::onPinch, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { endDrag(); });
    updateCursor();
}

PictureView::~PictureView() {
    if (HasCapture()) {
        ReleaseMouse();
    }
}

void PictureView::setPicture(SharedPtr<const BitmapImpl<Rgb>> picture) {
    _picture = std::move(picture);
    updatePlacement();
}

void PictureView::setShading(SharedPtr<const Shading> shading) {
    _shading = std::move(shading);
    _isStale = true;
}

void PictureView::setPicking(bool picking) {
    _isPicking = picking;
    updateCursor();
}

void PictureView::fit() {
    _placement.fit();
    _isStale = true;
}

void PictureView::showUnscaled() {
    _placement.showUnscaled();
    _isStale = true;
}

Optional<Pixel> PictureView::getPixel(Pixel position) const {
    return _picture ? _placement.toPicture(position) : Optional<Pixel>();
}

Rgb PictureView::getShownColor(Pixel pixel) const {
    Rgb shown = (*_picture)(pixel.x, pixel.y);
    _shading->apply({&shown, 1}, {&shown, 1});
    return shown;
}

void PictureView::onScrollOrZoom(const wxMouseEvent& event, int amount) {
    if (amount != 0) {
        _placement.zoomAbout(toPixel(event.GetPosition()), amount > 0 ? 1 : -1);
        _isStale = true;
    }
}

void PictureView::onButtonDown(wxMouseEvent& event) {
    if (_drag == Drag::NONE) {
        beginDrag(_isPicking && !event.MiddleDown() ? Drag::PICK : Drag::PAN, toPixel(event.GetPosition()));
    }
}

void PictureView::beginDrag(Drag drag, Pixel position) {
    _drag = drag;
    _lastPosition = position;
    CaptureMouse();
    updateCursor();
    if (drag == Drag::PICK) {
        _picks.begin(position);
    }
}

void PictureView::onButtonUp(wxMouseEvent&) {
    if (HasCapture()) {
        ReleaseMouse();
    }
    endDrag();
}

void PictureView::endDrag() {
    if (std::exchange(_drag, Drag::NONE) == Drag::PICK) {
        _picks.end();
    }
    updateCursor();
}

void PictureView::onMotion(wxMouseEvent& event) {
    const Pixel position = toPixel(event.GetPosition());
    const Pixel distance = position - std::exchange(_lastPosition, position);
    if (_drag == Drag::PAN) {
        _placement.pan(distance);
        _isStale = true;
    } else if (_drag == Drag::PICK) {
        _picks.move(position);
    }
}

void PictureView::onPinch(wxZoomGestureEvent& event) {
    if (event.IsGestureStart()) {
        _pinchFactor = 1.0;
    }
    wxMouseEvent magnify(wxEVT_MAGNIFY);
    magnify.SetEventObject(this);
    magnify.SetPosition(event.GetPosition());
    // The factor is that since the start; what closes a pinch is a magnification of 0, and nothing else may be.
    const double factor = event.GetZoomFactor();
    if (const double change = factor - std::exchange(_pinchFactor, factor); change != 0.0) {
        magnify.m_magnification = static_cast<float>(change);
        ProcessWindowEvent(magnify);
    }
    if (event.IsGestureEnd()) {
        magnify.m_magnification = 0.0F;
        ProcessWindowEvent(magnify);
    }
}

void PictureView::onIdle(wxIdleEvent& event) {
    event.Skip();
    if (!_isStale || !IsShownOnScreen()) {
        return;
    }
    _isStale = false;
    if (_picture) {
        showPicture(*_picture, *_shading, _placement, GROUND, _shown);
        _bitmap = Wx::toWxBitmap(_shown, false);
    } else {
        _bitmap = wxBitmap();
    }
    Refresh();
    _onShown();
}

void PictureView::onPaint(wxPaintEvent&) {
    wxAutoBufferedPaintDC dc(this);
    // A view that has just grown shows the smaller bitmap until the next one is there.
    dc.SetBackground(Wx::toWxColour(toRgbBytes(GROUND)));
    dc.Clear();
    if (_bitmap.IsOk()) {
        dc.DrawBitmap(_bitmap, 0, 0);
    }
}

void PictureView::updatePlacement() {
    const wxSize size = GetClientSize();
    const Pixel picture = _picture ? Pixel{_picture->getWidth(), _picture->getHeight()} : Pixel{};
    _placement.setSizes(picture, {size.x, size.y});
    _isStale = true;
}

void PictureView::updateCursor() {
    SetCursor(_drag == Drag::PAN ? wxCURSOR_SIZING : (_isPicking ? wxCURSOR_CROSS : wxCURSOR_HAND));
}

} // namespace Ostrel::Gallery
