#include <OstrelLibWx/widgets/Spinner.h>

#include <OstrelLibWx/widgets/RawaBorder.h>
#include <OstrelLibWx/widgets/StaticBitmap.h>
#include <OstrelLibWx/widgets/TextControl.h>

#include "assets/SpinnerDown.h"
#include "assets/SpinnerDownHovered.h"
#include "assets/SpinnerDownPressed.h"
#include "assets/SpinnerUp.h"
#include "assets/SpinnerUpHovered.h"
#include "assets/SpinnerUpPressed.h"
#include "models/SpinnerModel.h"
#include "painting/BorderPainting.h"
#include "painting/EmbeddedBitmaps.h"
#include "painting/PixelDrawing.h"
#include "painting/ToolkitTypes.h"

#include <wx/sizer.h>
#include <wx/timer.h>
#include <wx/weakref.h>

#include <utility>

namespace Ostrel::Wx {

wxDEFINE_EVENT(CUSTSPINNER_START_EDITING, wxActivateEvent);
wxDEFINE_EVENT(CUSTSPINNER_END_EDITING, wxActivateEvent);
wxDEFINE_EVENT(CUSTSPINNER_TEXT_FOCUS_GET, wxFocusEvent);
wxDEFINE_EVENT(CUSTSPINNER_TEXT_FOCUS_LOST, wxFocusEvent);

namespace {

// Design pixels.
constexpr int TEXT_HEIGHT = 14;
constexpr int TEXT_HEIGHT_IN_DOUBLED_PIXELS = 16;

/// The grey that a disabled arrow fades into.
constexpr unsigned char DISABLED_BRIGHTNESS = 68;

/// Screen pixels, at every scale.
constexpr int FRAME_WIDTH = 2;

enum ArrowLook { NORMAL, HOVERED, PRESSED, ARROW_LOOK_COUNT };

using ArrowBitmaps = std::array<wxBitmap, ARROW_LOOK_COUNT>;

ArrowBitmaps getUpArrow() {
    using namespace Detail::Assets;
    return {getAsset(SPINNER_UP, SPINNER_UP_SIZE), getAsset(SPINNER_UP_HOVERED, SPINNER_UP_HOVERED_SIZE),
            getAsset(SPINNER_UP_PRESSED, SPINNER_UP_PRESSED_SIZE)};
}

ArrowBitmaps getDownArrow() {
    using namespace Detail::Assets;
    return {getAsset(SPINNER_DOWN, SPINNER_DOWN_SIZE), getAsset(SPINNER_DOWN_HOVERED, SPINNER_DOWN_HOVERED_SIZE),
            getAsset(SPINNER_DOWN_PRESSED, SPINNER_DOWN_PRESSED_SIZE)};
}

} // namespace

/// One of the two pictures beside the field. It leaves the focus where it is.
class Spinner::Arrow : public StaticBitmap {
public:
    Arrow(wxWindow* parent, ArrowBitmaps bitmaps)
        : StaticBitmap(parent, wxID_ANY, bitmaps[NORMAL])
        , _bitmaps(std::move(bitmaps)) {
        SetCanFocus(false);
    }

    void show(ArrowLook look) {
        if (look != std::exchange(_look, look)) {
            setBitmap(_bitmaps[look]);
        }
    }

    void showEnabled(bool enabled) {
        setBitmap(enabled ? _bitmaps[NORMAL] : _bitmaps[NORMAL].ConvertToDisabled(DISABLED_BRIGHTNESS));
        _look = NORMAL;
    }

    /// The spinner's shows through, and a native window without colours of its own is made sooner.
    // NOLINTBEGIN(bugprone-parent-virtual-call): past the level that tells the native window, on purpose
    bool SetBackgroundColour(const wxColour& colour) override { return wxWindowBase::SetBackgroundColour(colour); }
    bool SetForegroundColour(const wxColour& colour) override { return wxWindowBase::SetForegroundColour(colour); }
    // NOLINTEND(bugprone-parent-virtual-call)

    [[nodiscard]] bool AcceptsFocus() const override { return false; }
    [[nodiscard]] bool AcceptsFocusFromKeyboard() const override { return false; }

private:
    ArrowBitmaps _bitmaps;
    ArrowLook _look = NORMAL;
};

/// The frame around the field: blue as well while the field has the focus.
class Spinner::Frame : public RawaBorder {
public:
    explicit Frame(wxWindow* parent)
        : RawaBorder(RawaBorderState::ENABLED, parent, wxID_ANY, "SpinnerFrame") {}

    void setMouseOverText(bool over) {
        setBorderState(RawaBorderState::MOUSE_OVER, over);
        Refresh();
    }

    void setFocused(bool focused) {
        _focused = focused;
        Refresh();
    }

    void paint(wxDC& dc) const override {
        const wxSize size = GetClientSize();
        const Bucket area{{0, 0}, {size.x, size.y}};
        fillPixels(dc, area, GetBackgroundColour());
        Flags<RawaBorderState> state = getBorderState();
        if (_focused) {
            state.set(RawaBorderState::MOUSE_OVER);
        }
        paintBorder(dc, area, state);
    }

private:
    bool _focused = false;
};

struct Spinner::Impl {
    SpinnerNumber number{};
    Function<Optional<float>()> clickSpeedOverride{};
    Function<void(float)> onValueChange{};
    SpinnerPress press{};
    wxTimer repeatTimer{};
    Bucket workArea{}; ///< in which the pointer was seen last during this drag
    Frame* frame = nullptr;
    TextControl* text = nullptr;
    Arrow* up = nullptr;
    Arrow* down = nullptr;
};

Spinner::Spinner(wxWindow* parent, int id, int textWidth, float min, float max, float defaultValue, int precision,
                 float step)
    : PaintedPanel(parent, id, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_NONE, "Spinner")
    , _impl(new Impl) {
    auto* const frame = _impl->frame = new Frame(this);
    const int textHeight = scaleByDpi(1) == 1 ? TEXT_HEIGHT : TEXT_HEIGHT_IN_DOUBLED_PIXELS;
    auto* const text = _impl->text =
        new TextControl(frame, wxID_ANY, String(), wxBORDER_NONE | wxTE_PROCESS_ENTER | wxTE_NO_VSCROLL,
                        TextFlag::ITALIC, wxSize(textWidth, textHeight));
    auto* const frameSizer = new wxBoxSizer(wxHORIZONTAL);
    frameSizer->Add(text, 1, wxALL | wxEXPAND, FRAME_WIDTH);
    frame->SetSizerAndFit(frameSizer);

    _impl->up = new Arrow(this, getUpArrow());
    _impl->down = new Arrow(this, getDownArrow());
    auto* const arrowSizer = new wxBoxSizer(wxVERTICAL);
    arrowSizer->Add(_impl->up);
    arrowSizer->Add(_impl->down);
    auto* const sizer = new wxBoxSizer(wxHORIZONTAL);
    sizer->Add(frame, 0, wxALIGN_CENTER);
    sizer->Add(arrowSizer);
    SetSizerAndFit(sizer);
    applySkinRecursive(this, GuiSkin());

    for (Arrow* const arrow : {_impl->up, _impl->down}) {
        arrow->Bind(wxEVT_LEFT_DOWN, &Spinner::onPress, this);
        // The second press of a double-click is a press like any other.
        arrow->Bind(wxEVT_LEFT_DCLICK, &Spinner::onPress, this);
        arrow->Bind(wxEVT_MOTION, &Spinner::onMotion, this);
        arrow->Bind(wxEVT_LEFT_UP, &Spinner::onRelease, this);
        arrow->Bind(wxEVT_RIGHT_UP, &Spinner::onRightRelease, this);
        arrow->Bind(wxEVT_MOUSE_CAPTURE_LOST, &Spinner::onCaptureLost, this);
        arrow->Bind(wxEVT_ENTER_WINDOW, &Spinner::onArrowEntered, this);
        arrow->Bind(wxEVT_LEAVE_WINDOW, &Spinner::onArrowLeft, this);
    }
    text->Bind(wxEVT_TEXT_ENTER, &Spinner::onTextEnter, this);
    text->Bind(wxEVT_KILL_FOCUS, &Spinner::onTextFocusLost, this);
    text->Bind(wxEVT_SET_FOCUS, &Spinner::onTextFocusGained, this);
    for (const bool over : {false, true}) {
        // The field covers most of the frame.
        text->Bind(over ? wxEVT_ENTER_WINDOW : wxEVT_LEAVE_WINDOW, [frame, over](wxMouseEvent& event) {
            frame->setMouseOverText(over);
            event.Skip();
        });
    }
    Bind(wxEVT_TIMER, &Spinner::onTimer, this);
    Bind(wxEVT_SPINCTRLDOUBLE, &Spinner::onValueEvent, this);

    _impl->repeatTimer.SetOwner(this);
    _impl->number.configure({min, max, defaultValue, step});
    setPrecision(precision, true); // told to the windows around: the number before the default one
    setValue(defaultValue, false);
}

Spinner::~Spinner() {
    for (Arrow* const arrow : {_impl->up, _impl->down}) {
        if (arrow->HasCapture()) {
            arrow->ReleaseMouse();
        }
    }
    // The field goes after this part of the spinner, and may lose the focus by that.
    _impl->text->Unbind(wxEVT_KILL_FOCUS, &Spinner::onTextFocusLost, this);
}

void Spinner::configure(float min, float max, float defaultValue, int precision, float step, bool notify) {
    _impl->number.configure({min, max, defaultValue, step});
    setPrecision(precision, notify);
}

void Spinner::setValue(float value, bool notify) {
    _impl->number.setValue(value);
    (void)showValue(notify);
}

float Spinner::getValue() const {
    return _impl->number.getValue();
}

void Spinner::setPrecision(int decimals, bool notify) {
    setPrecision([decimals] { return decimals; }, notify);
}

void Spinner::setPrecision(Function<int()> decimals, bool notify) {
    _impl->number.setPrecision(std::move(decimals));
    _impl->number.reapply();
    (void)showValue(notify);
}

void Spinner::setClickSpeedOverride(Function<Optional<float>()> clickSpeedOverride) {
    _impl->clickSpeedOverride = std::move(clickSpeedOverride);
}

void Spinner::callOnValueChange(Function<void(float)> onValueChange) {
    _impl->onValueChange = std::move(onValueChange);
}

void Spinner::setText(const String& text) {
    _impl->text->ChangeValue(toWx(text));
}

void Spinner::commitText() {
    (void)commit();
}

void Spinner::SetFocus() {
    const wxWeakRef<Spinner> self(this);
    _impl->text->SetFocus();
    if (self) {
        _impl->text->SelectAll();
    }
}

void Spinner::paint(wxDC& dc) const {
    const wxSize size = GetClientSize();
    fillPixels(dc, {{0, 0}, {size.x, size.y}}, GetBackgroundColour());
}

bool Spinner::Enable(bool enable) {
    if (!enable && ((_impl->press.isPressed() && !endPress()) || (_impl->text->HasFocus() && !commit()))) {
        return false;
    }
    _impl->frame->Enable(enable);
    for (Arrow* const arrow : {_impl->up, _impl->down}) {
        arrow->showEnabled(enable);
    }
    return PaintedPanel::Enable(enable);
}

void Spinner::onPress(wxMouseEvent& event) {
    if (_impl->press.isPressed()) {
        return;
    }
    // The field keeps the focus, so nothing else would set what was typed before the step replaces it.
    auto* const arrow = static_cast<Arrow*>(event.GetEventObject());
    const wxPoint mouse = event.GetPosition();
    if (_impl->text->HasFocus() && _impl->text->GetValue() != toWx(_impl->number.getText()) && !commit()) {
        return;
    }
    arrow->CaptureMouse();
    _impl->press.begin(arrow == _impl->up, _impl->number.getValue(), {mouse.x, mouse.y});
    _impl->workArea = {};
    arrow->show(PRESSED);
    _impl->repeatTimer.Start(SPINNER_FIRST_REPEAT_MS);
    wxActivateEvent start(CUSTSPINNER_START_EDITING, true, GetId());
    (void)send(start);
}

void Spinner::onMotion(wxMouseEvent& event) {
    auto* const arrow = static_cast<Arrow*>(event.GetEventObject());
    const wxPoint mouse = event.GetPosition();
    const bool wasDragging = _impl->press.isDragging();
    const Optional<int> distance = _impl->press.move({mouse.x, mouse.y});
    if (!distance) {
        return;
    }
    _impl->repeatTimer.Stop(); // a press that moves is a drag
    // The one motion that warps the pointer counts the other way round. This is meant.
    const int sign = wrapPointer(*arrow, *distance);
    _impl->number.change(-static_cast<double>(sign * *distance) * static_cast<double>(_impl->number.getStep()) /
                         scaleByDpi(1));
    if (showValue(true) && !wasDragging && _impl->press.isDragging()) {
        _impl->up->show(PRESSED);
        _impl->down->show(PRESSED);
    }
}

void Spinner::onRelease(wxMouseEvent&) {
    if (!_impl->press.isPressed() || (!_impl->press.isDragging() && !stepOnce())) {
        return;
    }
    (void)endPress();
}

void Spinner::onRightRelease(wxMouseEvent&) {
    if (_impl->press.isDragging()) {
        _impl->number.setValue(_impl->press.getValueBefore());
    } else {
        _impl->number.reset();
    }
    if (showValue(true) && endPress()) {
        Refresh();
    }
}

void Spinner::onCaptureLost(wxMouseCaptureLostEvent&) {
    (void)endPress();
}

void Spinner::onArrowEntered(wxMouseEvent& event) {
    if (!_impl->press.isPressed()) {
        static_cast<Arrow*>(event.GetEventObject())->show(HOVERED);
    }
    event.Skip();
}

void Spinner::onArrowLeft(wxMouseEvent& event) {
    if (!_impl->press.isPressed()) {
        static_cast<Arrow*>(event.GetEventObject())->show(NORMAL);
    }
    event.Skip();
}

void Spinner::onTimer(wxTimerEvent& event) {
    if (!_impl->press.isPressed()) {
        return; // the tick had been under way when the press ended
    }
    if (event.GetInterval() == SPINNER_FIRST_REPEAT_MS) {
        _impl->repeatTimer.Stop();
        _impl->repeatTimer.Start(SPINNER_REPEAT_MS);
    }
    (void)stepOnce();
}

void Spinner::onTextEnter(wxCommandEvent&) {
    // Once the key has been dealt with: GTK's field does not survive being destroyed by a handler of its own key.
    CallAfter([this] {
        if (commit()) {
            _impl->text->SelectAll();
        }
    });
}

void Spinner::onTextFocusGained(wxFocusEvent& event) {
    event.Skip();
    _impl->frame->setFocused(true);
    wxFocusEvent gained(CUSTSPINNER_TEXT_FOCUS_GET, GetId());
    if (!send(gained)) {
        event.Skip(false); // the field is gone as well, and nothing may touch it
    }
}

void Spinner::onTextFocusLost(wxFocusEvent& event) {
    _impl->frame->setFocused(false);
    if (!commit()) {
        return;
    }
    event.Skip();
    wxFocusEvent lost(CUSTSPINNER_TEXT_FOCUS_LOST, GetId());
    if (!send(lost)) {
        event.Skip(false);
    }
}

void Spinner::onValueEvent(wxSpinDoubleEvent& event) {
    const wxWeakRef<Spinner> self(this);
    if (_impl->onValueChange) {
        const Function<void(float)> onValueChange = _impl->onValueChange; // may be replaced or destroyed meanwhile
        onValueChange(static_cast<float>(event.GetValue()));
    }
    event.Skip(self != nullptr);
}

/// Sets what was typed. False if the spinner was destroyed by a handler.
bool Spinner::commit() {
    const SpinnerEntry entry = _impl->number.read(String(_impl->text->GetValue().ToStdWstring()));
    switch (entry.kind) {
    case SpinnerEntry::Kind::SAME:
        _impl->number.setValue(_impl->number.getValue());
        return showValue(false);
    case SpinnerEntry::Kind::NOTHING:
        _impl->number.reapply();
        return showValue(false);
    case SpinnerEntry::Kind::OTHER:
        break;
    }
    wxActivateEvent start(CUSTSPINNER_START_EDITING, true, GetId());
    if (!send(start)) {
        return false;
    }
    _impl->number.setValue(entry.number);
    if (!showValue(true)) {
        return false;
    }
    wxActivateEvent end(CUSTSPINNER_END_EDITING, false, GetId());
    return send(end);
}

/// Shows the number and notifies it if asked to. False if the spinner was destroyed by a handler.
bool Spinner::showValue(bool notify) {
    const wxString text = toWx(_impl->number.getText());
    if (_impl->text->GetValue() != text) {
        _impl->text->ChangeValue(text);
    }
    Refresh();
    if (!notify) {
        return true;
    }
    wxSpinDoubleEvent event(wxEVT_SPINCTRLDOUBLE, GetId(), static_cast<double>(getValue()));
    return send(event);
}

/// False if the spinner was destroyed by a handler.
bool Spinner::stepOnce() {
    const auto clickSpeedOverride = _impl->clickSpeedOverride; // may be replaced meanwhile
    _impl->number.stepOnce(_impl->press.isUp(), clickSpeedOverride ? clickSpeedOverride() : Optional<float>());
    return showValue(true);
}

/// False if the spinner was destroyed by a handler.
bool Spinner::send(wxEvent& event) {
    const wxWeakRef<Spinner> self(this);
    event.SetEventObject(this);
    event.ResumePropagation(wxEVENT_PROPAGATE_MAX);
    ProcessWindowEvent(event);
    return self != nullptr;
}

/// Nothing without a press. False if the spinner was destroyed by a handler.
bool Spinner::endPress() {
    if (!_impl->press.isPressed()) {
        return true;
    }
    _impl->press.end();
    _impl->repeatTimer.Stop();
    for (Arrow* const arrow : {_impl->up, _impl->down}) {
        if (arrow->HasCapture()) {
            arrow->ReleaseMouse();
        }
        arrow->show(NORMAL);
    }
    wxActivateEvent end(CUSTSPINNER_END_EDITING, false, GetId());
    return send(end);
}

/// Sends the pointer to the other end of the screen if a drag has come to one. -1 if it did, else 1.
int Spinner::wrapPointer(wxWindow& arrow, int distance) {
    const wxPoint mouse = wxGetMousePosition();
    if (!_impl->workArea.contains({mouse.x, mouse.y})) {
        _impl->workArea = getMonitorRegionByPoint({mouse.x, mouse.y}, MonitorRegionType::WORK_AREA);
    }
    const Optional<int> row = findSpinnerWrap(mouse.y, distance, _impl->workArea);
    if (!row) {
        return 1;
    }
    const wxPoint target = arrow.ScreenToClient(wxPoint(mouse.x, *row));
    arrow.WarpPointer(target.x, target.y);
    if (wxGetMousePosition().y != *row) {
        return 1; // some remote desktops allow no program to do that
    }
    _impl->press.warp(target.y);
    return -1;
}

} // namespace Ostrel::Wx
