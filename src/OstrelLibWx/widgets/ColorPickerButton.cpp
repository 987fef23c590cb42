#include <OstrelLibWx/widgets/ColorPickerButton.h>

#include <OstrelLib/Application.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/ColorPicker.h>
#include <OstrelLibWx/widgets/RgbDataObject.h>

#include "painting/SwatchPainting.h"
#include "painting/ToolkitTypes.h"
#include "platform/Native.h"

#include <wx/app.h>
#include <wx/dnd.h>
#include <wx/frame.h>
#include <wx/utils.h>
#include <wx/weakref.h>

#include <utility>

namespace Ostrel::Wx {

namespace {

/// Where the picker was that was closed last; at first, where the system puts it.
wxPoint lastPickerPosition = wxDefaultPosition;

/// What the system takes for the origin of a drag. A window of its own: on Linux the drag would never end if its origin
/// were destroyed meanwhile, as a callback may do with any button.
class DragOrigin {
public:
    DragOrigin()
        : _frame(new wxFrame(nullptr, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                             wxFRAME_NO_TASKBAR | wxFRAME_TOOL_WINDOW))
        , _window(new wxWindow(_frame, wxID_ANY)) {
        static_cast<void>(Detail::requireNativeHandle(*_window)); // nothing else makes a native window: it is not shown
    }
    DragOrigin(const DragOrigin&) = delete;
    DragOrigin& operator=(const DragOrigin&) = delete;
    ~DragOrigin() { _frame->Destroy(); }

    wxWindow* getWindow() { return _window; }

private:
    wxFrame* _frame;
    wxWindow* _window;
};

} // namespace

/// Takes colours that are dropped on a button.
class ColorPickerButtonDropTarget : public wxDropTarget {
public:
    explicit ColorPickerButtonDropTarget(ColorPickerButton& button)
        : wxDropTarget(new RgbDataObject)
        , _button(&button) {
        SetDefaultAction(wxDragCopy);
    }

    wxDragResult OnEnter(wxCoord x, wxCoord y, wxDragResult proposed) override { return OnDragOver(x, y, proposed); }
    wxDragResult OnDragOver(wxCoord, wxCoord, wxDragResult proposed) override {
        return acceptsDrop() ? proposed : wxDragNone;
    }
    bool OnDrop(wxCoord, wxCoord) override { return acceptsDrop(); }
    wxDragResult OnData(wxCoord x, wxCoord y, wxDragResult proposed) override;

    /// While a colour is being delivered the toolkit goes on with this object, even if the button is destroyed.
    [[nodiscard]] bool isDelivering() const { return _isDelivering; }

private:
    [[nodiscard]] bool acceptsDrop() const;

    wxWeakRef<ColorPickerButton> _button;
    bool _isDelivering = false;
};

struct ColorPickerButton::Impl {
    Rgb color{};
    Rgb displayedColor{};
    String label;
    bool enabled = true;
    OnColor onPreview{};
    OnColor onCommit{};
    wxWeakRef<ColorPicker> picker{};           ///< while it is open
    ColorPickerButtonDropTarget* dropTarget{}; ///< the window's
    bool hasLeft = false;                      ///< the mouse, since the press
    bool isDragged = false;
};

ColorPickerButton::ColorPickerButton(wxWindow* parent, const String& label, wxSize size, bool enabled)
    : PaintedPanel(parent, wxID_ANY, wxDefaultPosition, scaleByDpi(size), wxTAB_TRAVERSAL | wxBORDER_NONE,
                   "ColorPickerButton")
    , _impl(new Impl{.label = label}) {
    SetMinSize(scaleByDpi(size));
    Bind(wxEVT_ERASE_BACKGROUND, [](wxEraseEvent&) {});
    Bind(wxEVT_LEFT_DOWN, &ColorPickerButton::onMouseDown, this);
    // The second press of a double-click is a press like any other.
    Bind(wxEVT_LEFT_DCLICK, &ColorPickerButton::onMouseDown, this);
    Bind(wxEVT_LEAVE_WINDOW, &ColorPickerButton::onMouseLeft, this);
    Bind(wxEVT_MOTION, &ColorPickerButton::onMouseMove, this);
    Bind(wxEVT_LEFT_UP, &ColorPickerButton::onMouseUp, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, &ColorPickerButton::onCaptureLost, this);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        Refresh(); // the outline moves
        event.Skip();
    });
    _impl->dropTarget = new ColorPickerButtonDropTarget(*this);
    SetDropTarget(_impl->dropTarget);
    Enable(enabled);
}

ColorPickerButton::~ColorPickerButton() {
    if (HasCapture()) {
        ReleaseMouse();
    }
    if (_impl->dropTarget->isDelivering()) {
        m_dropTarget = nullptr; // it destroys itself later
    }
}

Rgb ColorPickerButton::getColor() const {
    return _impl->color;
}

void ColorPickerButton::setColor(const Rgb& color, bool notify) {
    const Rgb kept = color; // may be the host's, which its callback changes
    _impl->color = kept;
    showColor(kept);
    if (!notify) {
        return;
    }
    const wxWeakRef<ColorPickerButton> self(this);
    if (_impl->onCommit) {
        const OnColor onCommit = _impl->onCommit; // the button, and with it its own, may be destroyed
        onCommit(kept);
    }
    if (self && _impl->onPreview) {
        const OnColor onPreview = _impl->onPreview;
        onPreview(kept);
    }
}

void ColorPickerButton::setPreviewCallback(OnColor onPreview) {
    _impl->onPreview = std::move(onPreview);
}

void ColorPickerButton::setCommitCallback(OnColor onCommit) {
    _impl->onCommit = std::move(onCommit);
}

bool ColorPickerButton::Enable(bool enable) {
    _impl->enabled = enable;
    if (!enable) {
        endPress(); // a disabled window hears of no release, and would keep the mouse
    }
    Refresh();
    return PaintedPanel::Enable(enable);
}

void ColorPickerButton::paint(wxDC& dc) const {
    const wxSize size = GetClientSize();
    paintSwatch(dc, {size.x, size.y}, _impl->displayedColor, !_impl->enabled);
}

void ColorPickerButton::onMouseDown(wxMouseEvent&) {
    _impl->hasLeft = false;
    if (!HasCapture()) {
        CaptureMouse();
    }
}

void ColorPickerButton::onMouseLeft(wxMouseEvent& event) {
    _impl->hasLeft = true;
    event.Skip();
}

void ColorPickerButton::onMouseMove(wxMouseEvent& event) {
    // The move that has left the window. Not within the event that says so: there the toolkit goes on with the window
    // when the drag is over, and it may be gone by then.
    if (HasCapture() && _impl->hasLeft) {
        drag();
    } else {
        event.Skip();
    }
}

void ColorPickerButton::onMouseUp(wxMouseEvent& event) {
    if (!HasCapture()) {
        event.Skip();
        return;
    }
    endPress();
    if (isInside(event.GetPosition())) {
        openPicker();
    }
}

void ColorPickerButton::onCaptureLost(wxMouseCaptureLostEvent&) {
    endPress();
}

void ColorPickerButton::endPress() {
    if (HasCapture()) {
        ReleaseMouse();
    }
    _impl->hasLeft = false;
}

bool ColorPickerButton::isInside(wxPoint mouse) const {
    return GetClientRect().Contains(mouse);
}

void ColorPickerButton::drag() {
    endPress(); // the drag has a hold of the mouse of its own
    const wxWeakRef<ColorPickerButton> self(this);
    RgbDataObject data(_impl->color);
    DragOrigin origin;
    wxDropSource source(data, origin.getWindow());
    _impl->isDragged = true;
    source.DoDragDrop(wxDrag_CopyOnly);
    if (!self) {
        return;
    }
    _impl->isDragged = false;
    const wxMouseState mouse = wxGetMouseState();
    // Back here and let go: a click. With the button still down the drag was cancelled.
    if (_impl->enabled && !mouse.LeftIsDown() && isInside(ScreenToClient(mouse.GetPosition()))) {
        openPicker();
    }
}

void ColorPickerButton::openPicker() {
    if (_impl->picker) {
        return;
    }
    const wxWeakRef<ColorPicker> picker =
        new ColorPicker(this, "Color Selector: " + _impl->label, wxDefaultPosition, _impl->color,
                        ColorPicker::DialogType::CONFIRM, ColorPicker::ColorFormat::WITHOUT_ALPHA);
    _impl->picker = picker;
    if (lastPickerPosition != wxDefaultPosition) {
        smartPositionWindow(picker, toPixel(lastPickerPosition)); // that screen may be gone
    }
    const wxWeakRef<ColorPickerButton> self(this);
    picker->onColorChanged = [self](const Rgb& color) {
        if (self) {
            self->preview(color);
        }
    };
    picker->onColorAccepted = [self](const Rgb& color) {
        if (self) {
            self->commit(color);
        }
    };
    // While it is still shown: later the toolkit may not know where it was.
    picker->onClose = [picker] { lastPickerPosition = picker->GetPosition(); };
    picker->ShowModal();
    if (self) {
        _impl->picker = nullptr;
        showColor(_impl->color); // which the host may have set meanwhile
    }
    if (picker) {
        picker->Destroy();
    }
}

void ColorPickerButton::preview(const Rgb& color) {
    const wxWeakRef<ColorPickerButton> self(this);
    if (_impl->onPreview) {
        const OnColor onPreview = _impl->onPreview;
        onPreview(color);
    }
    if (self) {
        showColor(color);
        if (isMainThread()) {
            Update();
        }
    }
}

void ColorPickerButton::commit(const Rgb& color) {
    _impl->color = color;
    showColor(color);
    if (_impl->onCommit) {
        const OnColor onCommit = _impl->onCommit;
        onCommit(color);
    }
}

void ColorPickerButton::showColor(const Rgb& color) {
    _impl->displayedColor = color;
    Refresh();
}

bool ColorPickerButtonDropTarget::acceptsDrop() const {
    return _button && _button->IsEnabled() && !_button->_impl->isDragged;
}

wxDragResult ColorPickerButtonDropTarget::OnData(wxCoord, wxCoord, wxDragResult proposed) {
    auto& data = static_cast<RgbDataObject&>(*GetDataObject());
    data.clear();
    // The toolkit tells not on every system that the data have been refused.
    if (!acceptsDrop() || !GetData() || !data.getColor()) {
        return wxDragNone;
    }
    const bool isOuter = !std::exchange(_isDelivering, true); // a callback may let another drop happen meanwhile
    _button->setColor(*data.getColor(), true);
    _isDelivering = !isOuter;
    if (isOuter && !_button) {
        wxTheApp->CallAfter([this] { delete this; });
    }
    return proposed;
}

} // namespace Ostrel::Wx
