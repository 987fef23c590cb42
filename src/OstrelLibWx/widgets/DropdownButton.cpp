#include <OstrelLibWx/widgets/DropdownButton.h>

#include <OstrelLibWx/WindowUtils.h>

#include "models/DropdownModel.h"
#include "painting/BorderPainting.h"
#include "painting/MarkPainting.h"
#include "painting/PixelDrawing.h"
#include "painting/ToolkitTypes.h"
#include "platform/PopupNative.h"
#include "widgets/DropdownWatch.h"

#include <wx/dcbuffer.h>
#include <wx/frame.h>
#include <wx/weakref.h>

#include <algorithm>
#include <utility>

namespace Ostrel::Wx {

namespace {

// Design pixels.
constexpr int ENTRY_WIDTH = 73;
constexpr int ENTRY_HEIGHT = 24;
constexpr int ROW_PADDING = 3;
constexpr int TRIANGLE_DEPTH = 4;
/// From the button's right edge to the middle of the triangle.
constexpr int TRIANGLE_DISTANCE = 11;
/// What the triangle takes of the width; the centred label leaves as much at the left.
constexpr int TRIANGLE_ROOM = 23;

struct MoveKey {
    int keyCode;
    DropdownMove move;
};
constexpr MoveKey MOVE_KEYS[] = {
    {WXK_LEFT, DropdownMove::PREVIOUS}, {WXK_UP, DropdownMove::PREVIOUS}, {WXK_RIGHT, DropdownMove::NEXT},
    {WXK_DOWN, DropdownMove::NEXT},     {WXK_HOME, DropdownMove::FIRST},  {WXK_END, DropdownMove::LAST},
};
constexpr int CHOOSE_KEYS[] = {WXK_RETURN, WXK_NUMPAD_ENTER, WXK_SPACE};

} // namespace

/// An entry, framed in blue while it is the current one.
class DropdownButton::EntryButton : public Button {
public:
    using Button::Button;

    void showCurrent(bool current) {
        setBorderState(RawaBorderState::MOUSE_OVER, current);
        Refresh();
    }
};

/// The window with the row. It belongs to the top-level window and not to the button, whose destruction in a callback
/// it outlives until it has handled the event that called.
class DropdownButton::Popup : public wxFrame {
public:
    Popup(wxWindow* parent, DropdownButton& button, const GuiSkin& skin, const Array<Entry>& entries)
        : wxFrame(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                  wxBORDER_NONE | wxFRAME_NO_TASKBAR | wxFRAME_FLOAT_ON_PARENT, "DropdownButtonPopup")
        , _button(&button)
        , _selection(static_cast<int>(entries.size())) {
        const DropdownRow row{static_cast<int>(entries.size()), scaleByDpi(Pixel{ENTRY_WIDTH, ENTRY_HEIGHT}),
                              scaleByDpi(ROW_PADDING)};
        makeRow(row, skin, entries);
        const Pixel size = row.getSize();
        SetClientSize(size.x, size.y);
        const Pixel place = placeDropdown(toBucket(button.GetScreenRect()), size,
                                          getMonitorRegionByWindow(&button, MonitorRegionType::WORK_AREA));
        SetPosition(wxPoint(place.x, place.y));

        Bind(wxEVT_CHAR_HOOK, &Popup::onKey, this);
        Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { closeButton(); });
        _watch.start(button);
        Detail::letTakeInputBesideModalDialog(*this);
    }

    void present() {
        Show();
        Raise();
        _row->SetFocus();
    }

    /// Hides the window and has it destroyed as soon as no event of its is under way. It knows its button no more.
    void dismiss() {
        _button = nullptr;
        _watch.stop();
        Hide();
        Destroy();
    }

private:
    void makeRow(const DropdownRow& row, const GuiSkin& skin, const Array<Entry>& entries) {
        _row = new wxPanel(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS | wxBORDER_NONE);
        _row->SetBackgroundStyle(wxBG_STYLE_PAINT);
        _row->SetBackgroundColour(toWxColour(skin.background));
        _row->Bind(wxEVT_PAINT, [panel = _row](wxPaintEvent&) {
            wxAutoBufferedPaintDC dc(panel);
            const wxSize size = panel->GetClientSize();
            const Bucket area{{0, 0}, {size.x, size.y}};
            fillPixels(dc, area, panel->GetBackgroundColour());
            paintBorder(dc, area, RawaBorderState::FLAT);
        });
        for (int i = 0; i < row.count; ++i) {
            const Entry& entry = entries[static_cast<std::size_t>(i)];
            auto* const button = new EntryButton(
                _row, skin, entry.id, entry.label, wxNullBitmap, wxNullBitmap, [this, i] { choose(i); }, PUSH, true,
                RawaBorderState::ENABLED);
            const Bucket place = row.getEntry(i);
            button->SetSize(place.min.x, place.min.y, place.width(), place.height());
            // After the entry's own handlers: what is bound last is asked first.
            button->Bind(wxEVT_ENTER_WINDOW, [this, i](wxMouseEvent&) { showCurrent(_selection.enter(i)); });
            button->Bind(wxEVT_LEAVE_WINDOW, [this, i](wxMouseEvent&) { showCurrent(_selection.leave(i)); });
            _entries.push_back(button);
        }
    }

    void showCurrent(bool changed) {
        if (!changed) {
            return;
        }
        for (int i = 0; i < static_cast<int>(_entries.size()); ++i) {
            _entries[static_cast<std::size_t>(i)]->showCurrent(_selection.getCurrent() == i);
        }
    }

    void onKey(wxKeyEvent& event) {
        const int keyCode = event.GetKeyCode();
        const auto* const move = std::find_if(std::begin(MOVE_KEYS), std::end(MOVE_KEYS),
                                              [keyCode](const MoveKey& key) { return key.keyCode == keyCode; });
        if (move != std::end(MOVE_KEYS)) {
            showCurrent(_selection.move(move->move));
        } else if (keyCode == WXK_ESCAPE) {
            closeButton();
        } else if (std::find(std::begin(CHOOSE_KEYS), std::end(CHOOSE_KEYS), keyCode) != std::end(CHOOSE_KEYS)) {
            if (const Optional<int> current = _selection.getCurrent()) {
                choose(*current);
            }
        } else {
            event.Skip();
        }
    }

    void closeButton() {
        if (_button != nullptr) {
            _button->close();
        }
    }

    void choose(int index) {
        if (_button != nullptr) {
            _button->choose(index); // last: the button may be gone
        }
    }

    DropdownButton* _button; ///< null once dismissed
    wxPanel* _row = nullptr;
    Array<EntryButton*> _entries;
    DropdownSelection _selection;
    DropdownWatch _watch{*this, [this] { closeButton(); }};
};

struct DropdownButton::Impl {
    GuiSkin skin;
    Array<Entry> entries;
    wxWeakRef<Popup> popup{}; ///< null while the row is closed
};

DropdownButton::DropdownButton(wxWindow* parent, const GuiSkin& skin, int id, const wxString& label,
                               Array<Entry> entries)
    : Button(
          parent, skin, id, label, wxNullBitmap, wxNullBitmap, [this] { isOpen() ? close() : open(); }, PUSH, true,
          RawaBorderState::ENABLED)
    , _impl(new Impl{skin, std::move(entries)}) {
    updateMinimumSize();
}

DropdownButton::~DropdownButton() {
    if (Popup* const popup = _impl->popup) {
        popup->dismiss();
    }
}

void DropdownButton::open() {
    if (isOpen() || _impl->entries.empty()) {
        return;
    }
    _impl->popup = new Popup(wxGetTopLevelParent(this), *this, _impl->skin, _impl->entries);
    setToggled(true);
    _impl->popup->present();
}

void DropdownButton::close() {
    if (Popup* const popup = _impl->popup) {
        _impl->popup = nullptr;
        setToggled(false);
        popup->dismiss();
    }
}

bool DropdownButton::isOpen() const {
    return _impl->popup != nullptr;
}

void DropdownButton::SetLabel(const wxString& label) {
    Button::SetLabel(label);
    updateMinimumSize();
}

bool DropdownButton::SetFont(const wxFont& font) {
    const bool changed = Button::SetFont(font);
    updateMinimumSize();
    return changed;
}

void DropdownButton::paint(wxDC& dc) const {
    Button::paint(dc);
    const wxColour disabledText(110, 110, 110);
    const wxSize size = GetClientSize();
    paintTriangle(dc, {size.x - scaleByDpi(TRIANGLE_DISTANCE), size.y / 2}, scaleByDpi(TRIANGLE_DEPTH),
                  TriangleDirection::DOWN, IsThisEnabled() ? GetForegroundColour() : disabledText);
}

bool DropdownButton::Enable(bool enable) {
    if (!enable) {
        close();
    }
    return Button::Enable(enable);
}

void DropdownButton::choose(int index) {
    // Copied: the button, and with it its entries, may be destroyed.
    const Entry entry = _impl->entries[static_cast<std::size_t>(index)];
    close();
    wxMouseEvent event(wxEVT_BUTTON);
    event.SetId(entry.id);
    event.SetEventObject(this);
    const wxWeakRef<DropdownButton> self(this);
    GetParent()->GetEventHandler()->ProcessEvent(event);
    if (self && entry.onChosen) {
        entry.onChosen();
    }
}

void DropdownButton::updateMinimumSize() {
    const int width = std::max(scaleByDpi(ENTRY_WIDTH), getLabelExtent().x + 2 * scaleByDpi(TRIANGLE_ROOM));
    SetMinSize(wxSize(width, scaleByDpi(ENTRY_HEIGHT)));
}

} // namespace Ostrel::Wx
