#include <OstrelLibWx/widgets/Tooltip.h>

#include <OstrelLibWx/WindowUtils.h>

#include "models/TooltipLayout.h"
#include "painting/ToolkitTypes.h"
#include "painting/TooltipPainting.h"

#include <wx/dcbuffer.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace Ostrel::Wx {

namespace {

constexpr int POPUP_STYLE = 6;
/// Design pixels.
constexpr int MAXIMUM_LINE_WIDTH = 250;
/// From the mouse to the popup, in screen pixels: the size of a pointer does not follow the DPI.
constexpr Pixel OFFSET_FROM_MOUSE_PX{10, 5};

} // namespace

Tooltip::Tooltip(wxWindow* owner, const String& text)
    : wxPopupWindow(owner, POPUP_STYLE)
    , _owner(owner) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Bind(wxEVT_PAINT, &Tooltip::onPaint, this);
    Bind(wxEVT_TIMER, &Tooltip::onTimer, this);
    Hide();
    _timer.SetOwner(this);
    // The toolkit takes these away again when either of the two windows is destroyed.
    _owner->Bind(wxEVT_LEAVE_WINDOW, &Tooltip::onHide, this);
    _owner->Bind(wxEVT_LEFT_UP, &Tooltip::onHide, this);
    _owner->Bind(wxEVT_ENTER_WINDOW, &Tooltip::onArm, this);
    _owner->Bind(wxEVT_MOTION, &Tooltip::onArm, this);
    setText(text);
}

void Tooltip::setDelay(long long ms) {
    _delay = ms;
}

void Tooltip::setText(const String& text) {
    _text = text;
    _broken = false;
    if (!IsShown()) {
        return; // most are never shown, and measuring takes long
    }
    fitToLines();
    if (_lines.empty()) {
        Hide();
    }
    Refresh();
}

ArrayView<const String> Tooltip::getLines() const {
    breakText();
    return _lines;
}

bool Tooltip::Show(bool show) {
    if (show && !IsShown()) {
        fitToLines();
        if (_lines.empty()) {
            return false;
        }
    }
    return wxPopupWindow::Show(show);
}

void Tooltip::breakText() const {
    if (!std::exchange(_broken, true)) {
        _lines = breakTooltipLines(_text, scaleByDpi(MAXIMUM_LINE_WIDTH),
                                   [this](const String& line) { return GetTextExtent(toWx(line)).x; });
    }
}

void Tooltip::fitToLines() {
    breakText();
    _lineExtents.clear();
    for (const String& line : _lines) {
        const wxSize extent = GetTextExtent(toWx(line));
        _lineExtents.push_back({extent.x, extent.y});
    }
    const Pixel size = computeTooltipSize(_lineExtents);
    SetSize(size.x, size.y);
}

void Tooltip::onPaint(wxPaintEvent&) {
    wxAutoBufferedPaintDC dc(this);
    dc.SetFont(GetFont());
    paintTooltip(dc, GetClientSize(), _lines, _lineExtents);
}

void Tooltip::onTimer(wxTimerEvent&) {
    const wxPoint mouse = wxGetMousePosition();
    fitToLines();
    if (_lines.empty() || !_owner->GetScreenRect().Contains(mouse)) {
        return;
    }
    smartPositionWindow(this, Pixel{mouse.x, mouse.y} + OFFSET_FROM_MOUSE_PX);
    Show();
    Refresh();
}

void Tooltip::onArm(wxMouseEvent& event) {
    _timer.StartOnce(static_cast<int>(std::clamp<long long>(_delay, 1, std::numeric_limits<int>::max())));
    event.Skip();
}

void Tooltip::onHide(wxMouseEvent& event) {
    Hide();
    _timer.Stop();
    event.Skip();
}

TooltipWindow::TooltipWindow(wxWindow* owner)
    : _owner(owner) {}

TooltipWindow::~TooltipWindow() = default;

void TooltipWindow::setTooltip(const String& text) {
    if (_tooltip) {
        _tooltip->setText(text);
    } else {
        _tooltip = new Tooltip(_owner, text);
    }
}

} // namespace Ostrel::Wx
