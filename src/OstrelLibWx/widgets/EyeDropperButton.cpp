#include "widgets/EyeDropperButton.h"

#include <OstrelLibWx/BitmapUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

#include "models/ColorConversion.h"
#include "painting/BorderPainting.h"
#include "painting/PixelDrawing.h"

#include <wx/cursor.h>
#include <wx/dc.h>

#include <utility>

namespace Ostrel::Wx {

namespace {

/// Screen pixels, at every scale.
constexpr int FRAME_WIDTH = 2;

} // namespace

EyeDropperButton::EyeDropperButton(wxWindow* parent, const wxBitmap& icon)
    : RawaBorder(RawaBorderState::ENABLED, parent, wxID_ANY, "EyeDropperButton")
    , TooltipWindow(this)
    , _icon(icon) {
    SetMinSize(icon.GetSize() + wxSize(2 * FRAME_WIDTH, 2 * FRAME_WIDTH));
    Bind(wxEVT_LEFT_DOWN, &EyeDropperButton::onLeftDown, this);
    // The second press of a double-click is a press like any other.
    Bind(wxEVT_LEFT_DCLICK, &EyeDropperButton::onLeftDown, this);
    Bind(wxEVT_MOTION, &EyeDropperButton::onMotion, this);
    Bind(wxEVT_LEFT_UP, &EyeDropperButton::onLeftUp, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { endPicking(); });
    Bind(wxEVT_KEY_DOWN, &EyeDropperButton::onKeyDown, this);
    Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        if (_picking && event.GetKeyCode() == WXK_ESCAPE) {
            event.DoAllowNextEvent(); // to this button, and not to the dialog, which would close
        } else {
            event.Skip();
        }
    });
}

EyeDropperButton::~EyeDropperButton() {
    if (HasCapture()) {
        ReleaseMouse();
    }
}

void EyeDropperButton::endPicking() {
    if (!std::exchange(_picking, false)) {
        return;
    }
    _sampled.reset();
    SetCursor(wxCursor(wxCURSOR_ARROW));
    if (HasCapture()) {
        ReleaseMouse();
    }
    const wxWeakRef<EyeDropperButton> self(this);
    if (const auto callback = onPickingEnded) {
        callback();
    }
    if (!self) {
        return;
    }
    const wxWeakRef<wxWindow> focus = std::exchange(_formerFocus, {});
    if (focus) {
        focus->SetFocus();
    }
    if (self) {
        Refresh();
    }
}

void EyeDropperButton::paint(wxDC& dc) const {
    const wxSize size = GetClientSize();
    const Bucket area{{0, 0}, {size.x, size.y}};
    if (_sampled) {
        fillPixels(dc, area, toWxColour(toRgbBytes(*_sampled)));
    } else {
        fillPixels(dc, area, GetBackgroundColour());
    }
    paintBorder(dc, area, getBorderState());
    if (!_sampled && _icon.IsOk()) {
        dc.DrawBitmap(_icon, (size.x - _icon.GetWidth()) / 2, (size.y - _icon.GetHeight()) / 2, true);
    }
}

void EyeDropperButton::onLeftDown(wxMouseEvent& event) {
    if (HasCapture()) {
        event.Skip();
        return;
    }
    _picking = true;
    SetCursor(wxCursor(wxCURSOR_CROSS)); // GTK keeps showing the one that there is at the capture
    CaptureMouse();
    const wxWeakRef<EyeDropperButton> self(this);
    if (const auto callback = onPickingStarted) {
        callback();
    }
    if (self && _picking) {
        _formerFocus = FindFocus();
        // Escape has to arrive here. GTK's windows take no key for themselves where a child window might, for which
        // the toolkit takes the tooltip.
        SetCanFocus(true);
        SetFocus();
    }
}

void EyeDropperButton::onMotion(wxMouseEvent& event) {
    if (!_picking) {
        event.Skip();
        return;
    }
    _sampled = sample(event.GetPosition());
    Refresh();
    Update();
}

void EyeDropperButton::onLeftUp(wxMouseEvent& event) {
    if (!_picking) {
        event.Skip();
        return;
    }
    const wxWeakRef<EyeDropperButton> self(this);
    if (const auto callback = onPicked) {
        callback(sample(event.GetPosition()));
    }
    if (self) {
        endPicking();
    }
}

void EyeDropperButton::onKeyDown(wxKeyEvent& event) {
    if (_picking && event.GetKeyCode() == WXK_ESCAPE) {
        endPicking();
    } else {
        event.Skip();
    }
}

Rgb EyeDropperButton::sample(wxPoint mouse) const {
    const wxPoint middle = ClientToScreen(mouse);
    const BitmapImpl<Rgb> pixels = getScreenRegionColors(getSampleRegion({middle.x, middle.y}, averagingRadius));
    return averageSample({pixels.data(), pixels.size()});
}

} // namespace Ostrel::Wx
