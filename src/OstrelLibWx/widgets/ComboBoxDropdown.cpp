#include "widgets/ComboBoxDropdown.h"

#include <OstrelLib/Threading.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/ComboBox.h>

#include "painting/ComboBoxPainting.h"
#include "painting/PixelDrawing.h"
#include "painting/ToolkitTypes.h"
#include "platform/PopupNative.h"

#include <wx/dcbuffer.h>
#include <wx/scrolwin.h>
#include <wx/sizer.h>

#include <utility>

namespace Ostrel::Wx {

namespace {

// Design pixels.
constexpr int SCROLL_UNIT = 6;
constexpr int ROW_HEIGHT = 18;
constexpr int PADDING = 5;

constexpr int SLOW_CONSTRUCTION_MS = 1000;

/// What the system's frame takes of a window on one side.
int getSystemFrame(const wxWindow& window) {
    return (window.GetSize().x - window.GetClientSize().x) / 2;
}

} // namespace

/// The rows, of which those in view are painted, and no other is touched.
class ComboBoxDropdown::Canvas : public wxScrolledWindow {
public:
    explicit Canvas(ComboBoxDropdown& list)
        : wxScrolledWindow(&list, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxWANTS_CHARS)
        , _list(list) {
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        SetScrollRate(0, _list._rows.getScrollUnit());
        ShowScrollbars(wxSHOW_SB_NEVER, wxSHOW_SB_DEFAULT);
        SetFont(setupStaticTextFont(m_font, {}));
        Bind(wxEVT_PAINT, &Canvas::onPaint, this);
        Bind(wxEVT_MOTION, &Canvas::onMotion, this);
        Bind(wxEVT_LEFT_UP, &Canvas::onMouseUp, this);
    }

    /// The mouse counts as where it is until it moves, whatever appears under it.
    void ignoreStillMouse() { _lastMouse = wxGetMousePosition(); }

    [[nodiscard]] int getScrollPosition() const { return GetViewStart().y; }

    void refreshRow(Optional<int> index) {
        if (index) {
            const Bucket row = getRow(*index);
            RefreshRect(wxRect(row.min.x, row.min.y, row.width(), row.height()));
        }
    }

private:
    /// From the top of the rows to the top of what is seen.
    [[nodiscard]] int getHiddenHeight() const { return getScrollPosition() * _list._rows.getScrollUnit(); }

    [[nodiscard]] Optional<int> findRow(int mouseY) const {
        return _list._rows.findRow(mouseY + getHiddenHeight(), _list._model.getCount());
    }

    /// A row in this window.
    [[nodiscard]] Bucket getRow(int index) const {
        const int top = _list._rows.getTop(index) - getHiddenHeight();
        return {{0, top}, {GetClientSize().x, top + _list._rows.getRowHeight()}};
    }

    void onPaint(wxPaintEvent&) {
        wxAutoBufferedPaintDC dc(this);
        const wxSize size = GetClientSize();
        fillPixels(dc, {{0, 0}, {size.x, size.y}}, toWxColour(_list._skin.background));
        if (_list._box == nullptr) {
            return;
        }
        dc.SetFont(GetFont());
        const wxRect dirty = GetUpdateRegion().GetBox();
        const Array<ComboBoxItem>& items = _list._model.getItems();
        const int textHeight = dc.GetCharHeight();
        const int padding = scaleByDpi(PADDING);
        const int count = static_cast<int>(items.size());
        for (int i = findRow(dirty.GetTop()).value_or(count); i < count; ++i) {
            const Bucket row = getRow(i);
            if (row.min.y > dirty.GetBottom()) {
                break;
            }
            paintComboBoxRow(dc, row, toWx(items[static_cast<std::size_t>(i)].text), _list._model.getHighlighted() == i,
                             padding, textHeight, _list._skin);
        }
    }

    void onMotion(wxMouseEvent& event) {
        // Rows that scroll under a mouse that rests do not take the highlight.
        const wxPoint mouse = ClientToScreen(event.GetPosition());
        if (_list._box == nullptr || mouse == std::exchange(_lastMouse, mouse)) {
            return;
        }
        const Optional<int> before = _list._model.getHighlighted();
        if (const Optional<int> row = findRow(event.GetY()); row && _list._model.highlight(row)) {
            refreshRow(before);
            refreshRow(row);
        }
    }

    void onMouseUp(wxMouseEvent& event) {
        const Optional<int> row = _list._box != nullptr ? findRow(event.GetY()) : Optional<int>();
        if (row && event.GetX() >= 0 && event.GetX() < GetClientSize().x) {
            _list._box->choose(*row); // last: the box may be gone
        }
    }

    ComboBoxDropdown& _list;
    wxPoint _lastMouse; ///< on the screen, at the last motion that counted
};

ComboBoxDropdown::ComboBoxDropdown(ComboBox& box, ComboBoxModel& model, const GuiSkin& skin)
    : _box(&box)
    , _model(model)
    , _rows(scaleByDpi(SCROLL_UNIT), scaleByDpi(ROW_HEIGHT))
    , _skin(skin)
    , _watch(*this, [this] {
        if (_box != nullptr) {
            _box->close();
        }
    }) {
    const FunctionElapsedTime elapsedTime(SLOW_CONSTRUCTION_MS,
                                          "Function call:", "Ostrel::Wx::ComboBoxDropdown::ComboBoxDropdown");
    Create(wxGetTopLevelParent(&box), wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
           wxBORDER_SIMPLE | wxSTAY_ON_TOP | wxFRAME_NO_TASKBAR, "ComboBoxDropdown");
    _ownFrame = getSystemFrame(*this) > 0 ? 0 : 1;
    _canvas = new Canvas(*this);
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(_canvas, 1, wxEXPAND | wxALL, _ownFrame);
    SetSizer(sizer);
    applySkin(skin);
    if (_ownFrame > 0) {
        Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
            const wxColour frame(37, 37, 37);
            wxPaintDC dc(this);
            const wxSize size = GetClientSize();
            drawPixelFrame(dc, {{0, 0}, {size.x, size.y}}, frame);
        });
    }
    Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        event.Skip(_box == nullptr);
        if (_box != nullptr) {
            _box->onKey(event); // last: the box may be gone
        }
    });
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
        event.Veto();
        if (_box != nullptr) {
            _box->close();
        }
    });
    // On the canvas, where a wheel event arrives first, before the toolkit scrolls by it.
    for (wxWindow* const window : {static_cast<wxWindow*>(_canvas), static_cast<wxWindow*>(this)}) {
        window->Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& event) {
            if (_box != nullptr) {
                _box->turnWheel(event, true); // last: the box may be gone
            }
        });
    }
    Detail::letTakeInputBesideModalDialog(*this);
}

void ComboBoxDropdown::layOut() {
    const int frame = _ownFrame + getSystemFrame(*this);
    const ComboBoxPlace place = placeComboBoxList(toBucket(_box->GetScreenRect()), _rows, _model.getCount(), frame,
                                                  getMonitorRegionByWindow(_box, MonitorRegionType::WORK_AREA));
    SetSize(place.window.min.x, place.window.min.y, place.window.width(), place.window.height());
    _watch.followPlace();
    Layout();
    _shownHeight = _rows.getHeight(place.rows);
    _canvas->SetVirtualSize(place.window.width() - 2 * frame, _rows.getHeight(_model.getCount()));
    _canvas->Refresh();
}

void ComboBoxDropdown::present() {
    _canvas->ignoreStillMouse();
    const WindowHandle owner = getWindowNativeHandle(wxGetTopLevelParent(_box));
    if (owner != std::exchange(_owner, owner)) {
        setOwnerFromNativeHandle(getWindowNativeHandle(this), owner); // waits for the window system
    }
    _watch.start(*_box);
    Show();
    Raise();
    _canvas->SetFocus();
}

void ComboBoxDropdown::conceal() {
    _watch.stop();
    Hide();
}

void ComboBoxDropdown::dismiss() {
    _box = nullptr;
    conceal();
    Destroy();
}

void ComboBoxDropdown::showSelected() {
    if (const Optional<int> selected = _model.getSelected()) {
        if (const Optional<int> position =
                _rows.scrollIntoView(*selected, _canvas->getScrollPosition(), _shownHeight)) {
            _canvas->Scroll(wxDefaultCoord, *position);
        }
    }
}

void ComboBoxDropdown::followSelection() {
    const Optional<int> before = _model.getHighlighted();
    const int scrollPosition = _canvas->getScrollPosition();
    _model.highlight(_model.getSelected());
    showSelected();
    if (_canvas->getScrollPosition() != scrollPosition) {
        _canvas->Refresh();
    } else {
        _canvas->refreshRow(before);
        _canvas->refreshRow(_model.getHighlighted());
    }
}

void ComboBoxDropdown::applySkin(const GuiSkin& skin) {
    _skin = skin;
    SetBackgroundColour(toWxColour(skin.background));
    _canvas->Refresh();
    Refresh();
}

} // namespace Ostrel::Wx
