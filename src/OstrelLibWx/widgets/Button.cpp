#include <OstrelLibWx/widgets/Button.h>

#include <OstrelLibWx/WindowUtils.h>

#include "models/ButtonModel.h"
#include "painting/ButtonPainting.h"
#include "painting/TextPainting.h"

#include <wx/dc.h>
#include <wx/weakref.h>

namespace Ostrel::Wx {

namespace {

/// Design pixels.
constexpr int MINIMUM_HEIGHT = 24;

} // namespace

struct Button::Impl {
    wxString label;
    wxBitmap disabledBitmap;
    wxBitmap bitmap;
    ButtonModel model; ///< pressed, toggle behaviour, toggled
    GuiSkin skin;
    Function<void()> onClick;
    wxSize labelExtent{0, 0}; ///< kept since the label or the font changed last
};

Button::Button(wxWindow* parent, const GuiSkin& skin, int id, const wxString& label, const wxBitmap& disabledBitmap,
               const wxBitmap& bitmap, Function<void()> onClick, Behavior behavior, bool enabled,
               Flags<RawaBorderState> borderState)
    : RawaBorder(borderState, parent, id, "Button")
    , TooltipWindow(this)
    , _impl(new Impl{label, disabledBitmap, bitmap, ButtonModel(behavior == TOGGLE), skin, std::move(onClick)}) {
    SetFont(setupStaticTextFont(m_font, {}));
    applyColours();
    Bind(wxEVT_LEFT_UP, &Button::onMouseUp, this);
    Bind(wxEVT_LEFT_DOWN, &Button::onMouseDown, this);
    // The second press of a double-click is a press like any other.
    Bind(wxEVT_LEFT_DCLICK, &Button::onMouseDown, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, &Button::onCaptureLost, this);
    Bind(wxEVT_DPI_CHANGED, [this](wxDPIChangedEvent& event) {
        measureLabel();
        event.Skip();
    });
    SetMinSize(wxSize(wxDefaultCoord, scaleByDpi(MINIMUM_HEIGHT)));
    setBorderState(RawaBorderState::ENABLED, enabled);
}

Button::~Button() {
    if (HasCapture()) {
        ReleaseMouse();
    }
}

bool Button::Enable(bool enable) {
    if (!enable && _impl->model.isPressed()) {
        cancelPress(); // a disabled window hears of no release, and would keep the mouse
    }
    return RawaBorder::Enable(enable);
}

void Button::SetLabel(const wxString& label) {
    _impl->label = label;
    measureLabel();
    Refresh();
}

wxString Button::GetLabel() const {
    return _impl->label;
}

bool Button::SetFont(const wxFont& font) {
    const bool changed = RawaBorder::SetFont(font);
    measureLabel();
    return changed;
}

void Button::setToggled(bool toggled) {
    _impl->model.setToggled(toggled);
    applyColours();
}

bool Button::isToggled() const {
    return _impl->model.isToggled();
}

void Button::doClick(wxPoint position) {
    wxMouseEvent event(wxEVT_BUTTON);
    event.SetId(GetId());
    event.SetEventObject(this);
    event.SetPosition(position);
    if (_impl->model.click()) {
        applyColours();
    }
    const wxWeakRef<Button> self(this);
    GetParent()->GetEventHandler()->ProcessEvent(event);
    if (self && _impl->onClick) {
        // The callable may destroy the button, and with it the one that is kept.
        const Function<void()> onClick = _impl->onClick;
        onClick();
    }
}

void Button::paint(wxDC& dc) const {
    const Flags<RawaBorderState> state = getBorderState();
    dc.SetFont(GetFont());
    // The label follows the window's own state, all else the border's: a button built disabled keeps a bright label.
    // This is meant.
    paintButton(dc, {.size = GetClientSize(),
                     .border = state,
                     .background = GetBackgroundColour(),
                     .foreground = GetForegroundColour(),
                     .bitmap = state.has(RawaBorderState::ENABLED) ? _impl->bitmap : _impl->disabledBitmap,
                     .label = _impl->label,
                     .labelExtent = _impl->labelExtent,
                     .labelGreyed = !IsThisEnabled(),
                     .designPixel = scaleByDpi(1)});
}

void Button::onMouseDown(wxMouseEvent& event) {
    if (!_impl->model.press(getBorderState().has(RawaBorderState::ENABLED))) {
        event.Skip();
        return;
    }
    applyColours();
    if (!HasCapture()) {
        CaptureMouse();
    }
}

void Button::onMouseUp(wxMouseEvent& event) {
    const wxPoint position = event.GetPosition();
    const wxSize size = GetSize();
    const ButtonModel::Release release = _impl->model.release({position.x, position.y}, size.x, size.y);
    if (!release.pressEnded) {
        event.Skip();
        return;
    }
    if (HasCapture()) {
        ReleaseMouse();
    }
    applyColours();
    if (release.clicked) {
        doClick(position); // last: the button may be gone
    }
}

void Button::onCaptureLost(wxMouseCaptureLostEvent&) {
    cancelPress();
}

wxSize Button::getLabelExtent() const {
    return _impl->labelExtent;
}

void Button::applyColours() {
    const GuiSkin& skin = _impl->skin;
    RgbBytes background = skin.background;
    RgbBytes foreground = skin.text;
    switch (_impl->model.getLook()) {
    case ButtonLook::NORMAL:
        break;
    case ButtonLook::TOGGLED:
        background = skin.toggledBackground;
        foreground = skin.toggledText;
        break;
    case ButtonLook::PRESSED:
        background = skin.pressedBackground;
        break;
    }
    SetBackgroundColour(toWxColour(background));
    SetForegroundColour(toWxColour(foreground));
    Refresh();
}

void Button::cancelPress() {
    if (HasCapture()) {
        ReleaseMouse();
    }
    _impl->model.cancel();
    applyColours();
}

void Button::measureLabel() {
    _impl->labelExtent = _impl->label.empty() ? wxSize(0, 0) : measureText(*this, _impl->label);
}

} // namespace Ostrel::Wx
