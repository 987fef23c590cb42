#include <OstrelLibWx/widgets/GradientControl.h>

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/ColorPicker.h>

#include "models/GradientEditing.h"
#include "painting/GradientPainting.h"
#include "painting/ToolkitTypes.h"

#include <wx/weakref.h>

#include <utility>

namespace Ostrel::Wx {

namespace {

// Design pixels.
constexpr int HANDLE_DIAMETER = 10;
constexpr int LINE_WIDTH = 1;

} // namespace

struct GradientControl::Impl {
    GradientEditing editing;
    ColorPicker* picker; ///< a child of the control
    OnChange onChange{};
    GradientPainting painting{};
};

GradientControl::GradientControl(wxWindow* parent, wxSize size, float min, float max)
    : PaintedPanel(parent, wxID_ANY, wxDefaultPosition, scaleByDpi(size), wxTAB_TRAVERSAL | wxBORDER_NONE,
                   "GradientControl")
    , _impl(new Impl{.editing = GradientEditing(scaleByDpi(HANDLE_DIAMETER) / 2),
                     .picker =
                         new ColorPicker(this, "Set gradient control point color", wxDefaultPosition, {},
                                         ColorPicker::DialogType::CONFIRM, ColorPicker::ColorFormat::WITHOUT_ALPHA)}) {
    SetMinSize(scaleByDpi(size));
    setMinMaxPosition(min, max);
    const auto followSize = [this] {
        const wxSize client = GetClientSize();
        _impl->editing.setSize({client.x, client.y});
        refreshAll();
    };
    followSize();
    Bind(wxEVT_SIZE, [followSize](wxSizeEvent& event) {
        followSize();
        event.Skip();
    });
    Bind(wxEVT_ERASE_BACKGROUND, [](wxEraseEvent&) {});
    Bind(wxEVT_LEFT_DOWN, &GradientControl::onMouseDown, this);
    Bind(wxEVT_MOTION, &GradientControl::onMouseMove, this);
    Bind(wxEVT_LEFT_UP, &GradientControl::onMouseUp, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, &GradientControl::onCaptureLost, this);
    Bind(wxEVT_RIGHT_UP, &GradientControl::onRightUp, this);
    Bind(wxEVT_LEFT_DCLICK, &GradientControl::onDoubleClick, this);
}

GradientControl::~GradientControl() {
    if (HasCapture()) {
        ReleaseMouse();
    }
}

void GradientControl::setGradient(const ColorGradient& gradient) {
    _impl->editing.setGradient(gradient);
    refreshAll();
}

const ColorGradient& GradientControl::getGradient() const {
    return _impl->editing.getGradient();
}

void GradientControl::setMinMaxPosition(float min, float max) {
    _impl->editing.setRange(min, max);
    refreshAll();
}

void GradientControl::setOnChangeCallback(OnChange onChange) {
    _impl->onChange = std::move(onChange);
}

bool GradientControl::Enable(bool enable) {
    const wxWeakRef<GradientControl> self(this);
    if (!enable && HasCapture()) {
        endDrag(); // a disabled window hears of no release, and would keep the mouse
    }
    return self && PaintedPanel::Enable(enable);
}

void GradientControl::paint(wxDC& dc) const {
    _impl->painting.paint(dc, _impl->editing, GetBackgroundColour(), scaleByDpi(LINE_WIDTH));
}

void GradientControl::onMouseDown(wxMouseEvent& event) {
    if (!_impl->editing.press(toPixel(event.GetPosition()))) {
        event.Skip();
        return;
    }
    if (!HasCapture()) {
        CaptureMouse();
    }
    Refresh();
}

void GradientControl::onMouseMove(wxMouseEvent& event) {
    if (_impl->editing.drag(toPixel(event.GetPosition()))) {
        refreshAll();
    } else {
        event.Skip();
    }
}

void GradientControl::onMouseUp(wxMouseEvent&) {
    // A press beside the handles has captured nothing, and is told to nobody.
    if (HasCapture()) {
        endDrag();
    }
}

void GradientControl::onCaptureLost(wxMouseCaptureLostEvent&) {
    endDrag();
}

void GradientControl::onRightUp(wxMouseEvent& event) {
    if (_impl->editing.remove(toPixel(event.GetPosition()))) {
        refreshAll();
        reportChange();
    }
}

void GradientControl::onDoubleClick(wxMouseEvent& event) {
    const Optional<std::size_t> index = _impl->editing.edit(toPixel(event.GetPosition()));
    refreshAll();
    if (index && !_impl->picker->IsModal()) {
        openPicker(*index);
    }
}

void GradientControl::endDrag() {
    if (HasCapture()) {
        ReleaseMouse();
    }
    _impl->editing.release();
    refreshAll();
    reportChange();
}

void GradientControl::openPicker(std::size_t index) {
    const Hsv original = getGradient().getPoints()[index].color;
    const Rgb reference = hsvToRgb(original);
    ColorPicker& picker = *_impl->picker;
    const wxWeakRef<GradientControl> self(this);
    const auto take = [self, original, reference](const Rgb& color) {
        if (self) {
            // Taken back, a grey gets the hue again that it had.
            self->recolor(color == reference ? original : rgbToHsv(color));
        }
    };
    picker.onColorChanged = take;
    picker.onColorAccepted = take;
    picker.setReferenceColor(reference);
    picker.setSpace(getAccessor().getSpace()); // which other dialogs may have changed since
    picker.setRange(getAccessor().getRange());
    picker.ShowModal();
}

void GradientControl::recolor(const Hsv& color) {
    if (_impl->editing.recolor(color)) {
        refreshAll();
        reportChange();
    }
}

void GradientControl::refreshAll() {
    _impl->painting.forgetStrip();
    Refresh();
}

void GradientControl::reportChange() {
    if (_impl->onChange) {
        const OnChange onChange = _impl->onChange; // the control, and with it its own, may be destroyed
        const ColorGradient gradient = getGradient();
        onChange(gradient);
    }
}

} // namespace Ostrel::Wx
