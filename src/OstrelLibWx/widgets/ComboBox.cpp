#include <OstrelLibWx/widgets/ComboBox.h>

#include <OstrelLib/Threading.h>

#include "assets/ComboBoxArrow.h"
#include "assets/ComboBoxArrowHovered.h"
#include "models/ComboBoxModel.h"
#include "painting/ComboBoxPainting.h"
#include "painting/EmbeddedBitmaps.h"
#include "painting/ToolkitTypes.h"
#include "platform/Native.h"
#include "widgets/ComboBoxDropdown.h"

#include <wx/weakref.h>

#include <algorithm>

namespace Ostrel::Wx {

namespace {

// Design pixels.
constexpr int HEIGHT = 20;
constexpr int PADDING = 5;

/// The grey that a disabled arrow fades into.
constexpr unsigned char DISABLED_BRIGHTNESS = 68;

struct MoveKey {
    int keyCode;
    ComboBoxMove move;
};
constexpr MoveKey MOVE_KEYS[] = {
    {WXK_UP, ComboBoxMove::PREVIOUS},
    {WXK_DOWN, ComboBoxMove::NEXT},
    {WXK_HOME, ComboBoxMove::FIRST},
    {WXK_END, ComboBoxMove::LAST},
};

} // namespace

struct ComboBox::Impl {
    ComboBoxModel model{};
    Function<void(int)> onSelect;
    Function<void(wxWindow*, WindowEvent)> onWindowEvent;
    wxWeakRef<ComboBoxDropdown> dropdown{};
    wxBitmap arrow = getAsset(Detail::Assets::COMBO_BOX_ARROW, Detail::Assets::COMBO_BOX_ARROW_SIZE);
    wxBitmap hoveredArrow =
        getAsset(Detail::Assets::COMBO_BOX_ARROW_HOVERED, Detail::Assets::COMBO_BOX_ARROW_HOVERED_SIZE);
    wxBitmap disabledArrow = arrow.ConvertToDisabled(DISABLED_BRIGHTNESS);
    wxString shownText{}; ///< of the selected row
    bool open = false;
    bool focused = false;
    Timer sinceTyped{};
};

ComboBox::ComboBox(wxWindow* parent, int id, int width, const Function<void(int)>& onSelect,
                   const Function<void(wxWindow*, WindowEvent)>& onWindowEvent, bool enabled)
    : SkinnableMixin<RawaBorder>(RawaBorderState::ENABLED, parent, id, "ComboBox")
    , _impl(new Impl{.onSelect = onSelect, .onWindowEvent = onWindowEvent}) {
    makeDropdown();
    SetFont(setupStaticTextFont(m_font, {}));
    applySkin(GuiSkin());
    const auto onPress = [this](wxMouseEvent&) { toggle(); };
    Bind(wxEVT_LEFT_DOWN, onPress);
    Bind(wxEVT_LEFT_DCLICK, onPress);
    for (const bool focused : {false, true}) {
        Bind(focused ? wxEVT_SET_FOCUS : wxEVT_KILL_FOCUS, [this, focused](wxFocusEvent& event) {
            _impl->focused = focused;
            Refresh();
            event.Skip();
        });
    }
    Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& event) {
        if (IsEnabled()) {
            turnWheel(event, false); // last: the box may be gone
        }
    });
    Bind(wxEVT_CHAR_HOOK, &ComboBox::onKey, this);
    const wxSize size = scaleByDpi(wxSize(width, HEIGHT));
    SetMinSize(size);
    SetSize(size);
    Enable(enabled);
}

ComboBox::~ComboBox() {
    if (ComboBoxDropdown* const dropdown = _impl->dropdown) {
        dropdown->dismiss();
    }
}

void ComboBox::makeDropdown() {
    _impl->dropdown = new ComboBoxDropdown(*this, _impl->model, getSkin());
}

void ComboBox::setData(ArrayView<const Item> items) {
    _impl->model.setItems(items);
    refreshBox();
    if (!isOpen()) {
        return;
    }
    if (items.empty()) {
        close();
    } else {
        _impl->dropdown->layOut();
    }
}

void ComboBox::selectId(int id, bool notify) {
    if (!_impl->model.selectId(id)) {
        _impl->shownText.clear(); // and no refresh: this is meant
    } else if (!notify || notifySelection()) {
        refreshBox();
    }
}

void ComboBox::selectIndex(int index, bool notify) {
    _impl->model.selectIndex(index);
    if (!notify || notifySelection()) {
        refreshBox();
    }
}

Optional<int> ComboBox::getSelectedId() const {
    const Item* const item = _impl->model.getSelectedItem();
    return item != nullptr ? Optional<int>(item->id) : Optional<int>();
}

Optional<int> ComboBox::getSelectedIndex() const {
    return _impl->model.getSelected();
}

int ComboBox::getCount() const {
    return _impl->model.getCount();
}

void ComboBox::open() {
    if (isOpen() || getCount() == 0 || !IsEnabled()) {
        return;
    }
    _impl->open = true;
    _impl->model.highlight(_impl->model.getSelected());
    if (_impl->dropdown == nullptr) {
        makeDropdown(); // the box stands in another window by now, and its list went with the former one
    }
    _impl->dropdown->layOut();
    _impl->dropdown->present();
    _impl->dropdown->showSelected();
    Refresh();
    tellOfWindow(WindowEvent::SHOWN); // last: the box may be gone
}

void ComboBox::close() {
    if (!isOpen()) {
        return;
    }
    _impl->open = false;
    const bool hadFocus = _impl->dropdown->IsActive();
    _impl->dropdown->conceal();
    if (hadFocus) {
        SetFocus();
    }
    Refresh();
    tellOfWindow(WindowEvent::HIDDEN); // last: the box may be gone
}

bool ComboBox::isOpen() const {
    return _impl->open;
}

bool ComboBox::isInside(wxPoint point) const {
    return GetScreenRect().Contains(point) || (isOpen() && _impl->dropdown->GetScreenRect().Contains(point));
}

void ComboBox::applySkin(const GuiSkin& skin) {
    SkinnableMixin<RawaBorder>::applySkin(skin);
    if (_impl->dropdown != nullptr) {
        _impl->dropdown->applySkin(skin);
    }
}

bool ComboBox::Enable(bool enable) {
    const wxWeakRef<ComboBox> self(this);
    if (!enable) {
        close();
    }
    return self && SkinnableMixin<RawaBorder>::Enable(enable);
}

void ComboBox::paint(wxDC& dc) const {
    const wxColour disabledText(110, 110, 110);
    Flags<RawaBorderState> border = getBorderState();
    const bool hovered = border.has(RawaBorderState::MOUSE_OVER) && border.has(RawaBorderState::ENABLED);
    border.set(RawaBorderState::MOUSE_OVER, hovered || _impl->focused || isOpen());
    dc.SetFont(GetFont());
    paintComboBox(dc, {.size = GetClientSize(),
                       .border = border,
                       .background = GetBackgroundColour(),
                       .foreground = IsEnabled() ? GetForegroundColour() : disabledText,
                       .text = _impl->shownText,
                       .arrow = getArrow(hovered || isOpen()),
                       .padding = scaleByDpi(PADDING)});
}

const wxBitmap& ComboBox::getArrow(bool bright) const {
    if (!IsEnabled()) {
        return _impl->disabledArrow;
    }
    return bright ? _impl->hoveredArrow : _impl->arrow;
}

void ComboBox::onKey(wxKeyEvent& event) {
    event.Skip(!pressKey(event)); // the box may be gone
}

/// False if the key is none of the box's. The box may be gone on return.
bool ComboBox::pressKey(const wxKeyEvent& event) {
    const int keyCode = event.GetKeyCode();
    if (event.ControlDown()) {
        return false;
    }
    if (keyCode == WXK_F4 && !event.AltDown()) {
        isOpen() ? close() : open();
        return true;
    }
    return (isOpen() && !event.AltDown() && pressListKey(event)) || pressEditKey(event);
}

/// A key that the open list alone knows. False if it is none. The box may be gone on return.
bool ComboBox::pressListKey(const wxKeyEvent& event) {
    const Optional<int> highlighted = _impl->model.getHighlighted();
    switch (event.GetKeyCode()) {
    case WXK_ESCAPE:
        close();
        return true;
    case WXK_TAB:
        leave(event.ShiftDown() ? MoveFocusDirection::BACKWARD : MoveFocusDirection::FORWARD);
        return true;
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
        highlighted&& highlighted != getSelectedIndex() ? choose(*highlighted) : close();
        return true;
    default:
        return false;
    }
}

/// A key that may change the selection. False if it is none. The box may be gone on return.
bool ComboBox::pressEditKey(const wxKeyEvent& event) {
    const int keyCode = event.GetKeyCode();
    // With Alt, a character is the menus' and the system's.
    const wchar_t character = event.AltDown() ? L'\0' : Detail::getTypedCharacter(event);
    const auto* const key = std::find_if(std::begin(MOVE_KEYS), std::end(MOVE_KEYS),
                                         [keyCode](const MoveKey& moveKey) { return moveKey.keyCode == keyCode; });
    bool changed = false;
    if (key != std::end(MOVE_KEYS)) {
        changed = _impl->model.move(key->move);
    } else if (character == L' ' && !_impl->model.isTyping(_impl->sinceTyped.elapsedMs())) {
        isOpen() ? close() : open();
        return true;
    } else if (character >= L' ' && character != WXK_DELETE) {
        changed = _impl->model.type(character, _impl->sinceTyped.elapsedMs());
        _impl->sinceTyped.restart();
    } else {
        return false;
    }
    if (!changed || notifySelection()) {
        followSelection();
    }
    return true;
}

void ComboBox::turnWheel(const wxMouseEvent& event, bool inList) {
    if (event.GetWheelAxis() != wxMOUSE_WHEEL_VERTICAL || event.GetWheelRotation() == 0) {
        return;
    }
    const ComboBoxMove move = event.GetWheelRotation() < 0 ? ComboBoxMove::NEXT : ComboBoxMove::PREVIOUS;
    if (!(inList ? _impl->model.moveFromHighlighted(move) : _impl->model.move(move)) || notifySelection()) {
        followSelection();
    }
}

void ComboBox::choose(int index) {
    _impl->model.selectIndex(index);
    if (notifySelection()) {
        close();
    }
}

void ComboBox::leave(MoveFocusDirection direction) {
    const wxWeakRef<ComboBox> self(this);
    close();
    if (self) {
        moveFocus(this, direction);
    }
}

void ComboBox::toggle() {
    if (isOpen()) {
        close();
    } else {
        const wxWeakRef<ComboBox> self(this); // what the focus is taken from may destroy it
        SetFocus();
        if (self) {
            open();
        }
    }
}

void ComboBox::followSelection() {
    if (isOpen()) {
        _impl->dropdown->followSelection();
    }
}

void ComboBox::refreshBox() {
    const Item* const item = _impl->model.getSelectedItem();
    _impl->shownText = item != nullptr ? toWx(item->text) : wxString();
    Refresh();
}

/// Nothing without a selection. False if the box was destroyed by a handler or by the callback.
bool ComboBox::notifySelection() {
    const Item* const selected = _impl->model.getSelectedItem();
    if (selected == nullptr) {
        return true;
    }
    const int id = selected->id; // the handlers may replace the rows
    wxCommandEvent event(wxEVT_COMBOBOX, GetId());
    event.SetEventObject(this);
    event.SetInt(id);
    event.SetExtraLong(*getSelectedIndex());
    event.SetString(toWx(selected->text));
    const wxWeakRef<ComboBox> self(this);
    ProcessWindowEvent(event);
    if (self && _impl->onSelect) {
        const Function<void(int)> onSelect = _impl->onSelect; // goes with the box
        onSelect(id);
    }
    if (self) {
        refreshBox();
    }
    return self != nullptr;
}

void ComboBox::tellOfWindow(WindowEvent event) {
    if (_impl->onWindowEvent) {
        const Function<void(wxWindow*, WindowEvent)> onWindowEvent = _impl->onWindowEvent; // goes with the box
        onWindowEvent(_impl->dropdown, event);
    }
}

} // namespace Ostrel::Wx
