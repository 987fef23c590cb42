#include "Page.h"

#include "EventLog.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/RawaBorder.h>
#include <OstrelLibWx/widgets/StaticBitmap.h>

#include <wx/dcbuffer.h>
#include <wx/display.h>
#include <wx/popupwin.h>
#include <wx/timer.h>

namespace Ostrel::Gallery {

namespace {

/// A field that takes the keyboard focus and shows that it has it.
class FocusField : public RawaBorder {
public:
    FocusField(wxWindow* parent, const wxString& name)
        : RawaBorder(RawaBorderState::ENABLED, parent, wxID_ANY, name) {
        SetFont(makeFont(*this, TextRole::BODY));
        Bind(wxEVT_SET_FOCUS, &FocusField::onFocus, this);
        Bind(wxEVT_KILL_FOCUS, &FocusField::onFocus, this);
        Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent&) { SetFocus(); });
    }

    void paint(wxDC& dc) const override {
        const Wx::GuiSkin skin;
        RawaBorder::paint(dc);
        dc.SetFont(GetFont());
        dc.SetTextForeground(Wx::toWxColour(IsThisEnabled() ? skin.text : skin.grey));
        dc.DrawLabel(GetName(), GetClientRect(), wxALIGN_CENTRE);
        if (_focused) {
            dc.SetPen(wxPen(Wx::toWxColour(skin.toggledBackground), Wx::scaleByDpi(2)));
            dc.SetBrush(*wxTRANSPARENT_BRUSH);
            dc.DrawRectangle(GetClientRect().Deflate(Wx::scaleByDpi(3)));
        }
    }

    /// Called when the focus has come.
    Function<void()> onFocused;

private:
    void onFocus(wxFocusEvent& event) {
        _focused = event.GetEventType() == wxEVT_SET_FOCUS;
        Refresh();
        event.Skip();
        if (_focused && onFocused) {
            onFocused();
        }
    }

    bool _focused = false;
};

/// A field that `moveFocus` knows.
class MarkedFocusField : public FocusField, public Wx::Focusable {
public:
    using FocusField::FocusField;
};

wxRect toRect(const Bucket& bucket) {
    return {bucket.min.x, bucket.min.y, bucket.width(), bucket.height()};
}

wxString describe(const wxRect& rect) {
    return wxString::Format(L"%d \u00d7 %d at (%d, %d)", rect.width, rect.height, rect.x, rect.y);
}

/// The displays as a map, drawn to fit, with the gallery's window in it.
class DisplayMap : public wxPanel {
public:
    /// As large as fits into `room`.
    DisplayMap(wxWindow* parent, wxSize room)
        : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE) {
        for (unsigned i = 0; i < wxDisplay::GetCount(); ++i) {
            _all.Union(wxDisplay(i).GetGeometry());
        }
        _scale = std::min(static_cast<double>(room.x) / std::max(1, _all.width),
                          static_cast<double>(room.y) / std::max(1, _all.height));
        SetMinSize(toMap(_all).GetSize());
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        SetFont(makeFont(*this, TextRole::CAPTION));
        Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
            wxAutoBufferedPaintDC dc(this);
            paint(dc);
        });
    }

private:
    void paint(wxDC& dc) const {
        const Wx::GuiSkin skin;
        dc.SetBackground(GetBackgroundColour());
        dc.Clear();
        dc.SetFont(GetFont());
        for (unsigned i = 0; i < wxDisplay::GetCount(); ++i) {
            const wxRect whole = wxDisplay(i).GetGeometry();
            const Pixel middle{whole.x + whole.width / 2, whole.y + whole.height / 2};
            const wxRect work = toRect(Wx::getMonitorRegionByPoint(middle, Wx::MonitorRegionType::WORK_AREA));
            dc.SetPen(Wx::toWxColour(skin.grey));
            dc.SetBrush(Wx::toWxColour(skin.darkGrey));
            dc.DrawRectangle(toMap(whole));
            dc.SetPen(*wxTRANSPARENT_PEN);
            dc.SetBrush(wxColour(52, 52, 52));
            dc.DrawRectangle(toMap(work).Deflate(1));
        }
        dc.SetPen(Wx::toWxColour(skin.toggledBackground));
        dc.SetBrush(Wx::toWxColour(skin.pressedBackground));
        dc.DrawRectangle(toMap(wxGetTopLevelParent(const_cast<DisplayMap*>(this))->GetScreenRect()));
        for (unsigned i = 0; i < wxDisplay::GetCount(); ++i) {
            dc.SetTextForeground(getTextColour(TextRole::SECTION));
            dc.DrawText(wxString::Format("%u", i + 1),
                        toMap(wxDisplay(i).GetGeometry()).GetTopLeft() + wxPoint(1, 1) * Wx::scaleByDpi(GRID));
        }
    }

    [[nodiscard]] wxRect toMap(const wxRect& rect) const {
        const auto map = [this](int value) { return static_cast<int>(value * _scale); };
        const wxPoint first(map(rect.x - _all.x), map(rect.y - _all.y));
        const wxPoint end(map(rect.x - _all.x + rect.width), map(rect.y - _all.y + rect.height));
        return {first, wxSize(end.x - first.x, end.y - first.y)};
    }

    wxRect _all;   ///< all displays together
    double _scale; ///< from the screen to the map
};

class WindowsPage : public Page {
public:
    explicit WindowsPage(const PageContext& context)
        : Page(context, "Windows and screens",
               "Free functions for windows, screens and the focus. What they answer here is about this very window.") {
        addDisplays();
        addFinder();
        addPlacing();
        addFocus();
        _timer.SetOwner(this);
        Bind(wxEVT_TIMER, [this](wxTimerEvent&) { lookUnderPointer(); });
    }

    void onPageShown(bool shown) override {
        constexpr int LOOK_INTERVAL_MS = 100;
        if (shown) {
            lookUnderPointer();
            _timer.Start(LOOK_INTERVAL_MS);
        } else {
            _timer.Stop();
            closePlaced();
        }
    }

    void arrangeForPicture() override { _focusFields.front()->SetFocus(); }

private:
    void addDisplays() {
        const wxSize MAP{208, 128};
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        addToRow(*row, new DisplayMap(this, Wx::scaleByDpi(MAP)));
        auto* const list = new wxFlexGridSizer(3, Wx::scaleByDpi(wxSize(3 * GRID, GRID)));
        for (const char* const header : {"Display", "Whole monitor", "Work area"}) {
            list->Add(makeText(TextRole::CAPTION, header));
        }
        for (unsigned i = 0; i < wxDisplay::GetCount(); ++i) {
            const wxRect whole = wxDisplay(i).GetGeometry();
            const Pixel middle{whole.x + whole.width / 2, whole.y + whole.height / 2};
            list->Add(makeText(TextRole::BODY, wxString::Format("%u", i + 1)));
            for (const auto type : {Wx::MonitorRegionType::WHOLE_MONITOR, Wx::MonitorRegionType::WORK_AREA}) {
                list->Add(makeText(TextRole::BODY, describe(toRect(Wx::getMonitorRegionByPoint(middle, type)))));
            }
        }
        addToRow(*row, list, 3 * GRID);
        addSection("Displays", "getMonitorRegionByPoint. In blue, where the gallery's window is.")->Add(row);
    }

    void addFinder() {
        auto* const section = addSection("The window under the pointer",
                                         "findWindowByPosition, ten times a second while this page is shown.");
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        _includeHidden = makeButton("Hidden ones too", {}, Wx::Button::TOGGLE, 120);
        _includeDisabled = makeButton("Disabled ones too", {}, Wx::Button::TOGGLE, 120);
        _found = makeText(TextRole::BODY, wxString());
        addToRow(*row, _includeHidden, GRID);
        addToRow(*row, _includeDisabled, GRID);
        row->AddSpacer(Wx::scaleByDpi(3 * GRID));
        row->Add(_found, wxSizerFlags().CenterVertical());
        section->Add(row);
    }

    void lookUnderPointer() {
        Flags<Wx::FindWindowFlag> flags;
        flags.set(Wx::FindWindowFlag::INCLUDE_HIDDEN, _includeHidden->isToggled());
        flags.set(Wx::FindWindowFlag::INCLUDE_DISABLED, _includeDisabled->isToggled());
        const wxPoint mouse = wxGetMousePosition();
        const wxWindow* const found = Wx::findWindowByPosition(wxGetTopLevelParent(this), {mouse.x, mouse.y}, flags);
        const wxString text = found == nullptr
                                  ? wxString("None of this window's")
                                  : wxString::Format("%s, %s", found->GetName(), describe(found->GetScreenRect()));
        if (_found->GetLabelText() != text) {
            _found->SetLabelText(text);
        }
    }

    void addPlacing() {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        const auto region = [this] {
            return toRect(Wx::getMonitorRegionByWindow(this, Wx::MonitorRegionType::WHOLE_MONITOR));
        };
        constexpr int BEYOND = 500;
        const auto add = [this, row](const wxString& label, const Function<wxPoint()>& getPoint) {
            addToRow(*row, makeButton(label, [this, getPoint] { place(getPoint()); }), GRID);
        };
        add("Top left", [region] { return region().GetTopLeft() - wxPoint(BEYOND, BEYOND); });
        add("Top right", [region] { return region().GetTopRight() + wxPoint(BEYOND, -BEYOND); });
        add("Bottom left", [region] { return region().GetBottomLeft() + wxPoint(-BEYOND, BEYOND); });
        add("Bottom right", [region] { return region().GetBottomRight() + wxPoint(BEYOND, BEYOND); });
        add("Here", [this] { return ClientToScreen(wxPoint(Wx::scaleByDpi(3 * GRID), Wx::scaleByDpi(3 * GRID))); });
        addToRow(*row, makeButton("Close it", [this] { closePlaced(); }), GRID);
        addSection("Smart placing", "smartPositionWindow moves a small window towards a point 500 pixels outside the "
                                    "screen; it stays inside the work area.")
            ->Add(row);
    }

    void place(wxPoint point) {
        const wxSize SIZE{200, 80};
        if (!_placed) {
            // A popup, because a window manager has its own mind about where a frame goes.
            _placed = new wxPopupWindow(wxGetTopLevelParent(this));
            auto* const button = new Wx::Button(
                _placed, Wx::GuiSkin(), wxID_ANY, "Placed here. Click to close.", wxNullBitmap, wxNullBitmap,
                [this] { closePlaced(); }, Wx::Button::PUSH, true, RawaBorderState::ENABLED);
            button->SetSize(Wx::scaleByDpi(SIZE));
            _placed->SetSize(button->GetSize());
            Wx::applySkinRecursive(_placed, Wx::GuiSkin());
        }
        Wx::smartPositionWindow(_placed, {point.x, point.y});
        _placed->Show();
        log().report("smartPositionWindow", wxString::Format("asked for (%d, %d), placed at (%d, %d)", point.x, point.y,
                                                             _placed->GetPosition().x, _placed->GetPosition().y));
    }

    void closePlaced() {
        if (_placed) {
            _placed->Hide();
        }
    }

    void addFocus() {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        const wxSize FIELD{104, 32};
        const auto add = [&](FocusField* field) {
            field->SetMinSize(Wx::scaleByDpi(FIELD));
            field->onFocused = [this, field] {
                _lastFocused = field;
                log().report("Field \"" + field->GetName() + "\"", "has the focus");
            };
            addToRow(*row, field, GRID);
            _focusFields.push_back(field);
        };
        add(new MarkedFocusField(this, "First"));
        add(new MarkedFocusField(this, "Second"));
        add(new FocusField(this, "Unmarked"));
        add(new MarkedFocusField(this, "Disabled"));
        _focusFields.back()->Enable(false);
        add(new MarkedFocusField(this, "Last"));
        _lastFocused = _focusFields.front();
        row->AddSpacer(Wx::scaleByDpi(GRID));
        for (const auto& [label, direction] :
             {std::pair{"Backward", Wx::MoveFocusDirection::BACKWARD}, {"Forward", Wx::MoveFocusDirection::FORWARD}}) {
            Wx::Button* const button = makeButton(
                label, [this, direction = direction] { Wx::moveFocus(_lastFocused, direction); }, Wx::Button::PUSH, 88);
            button->SetMinSize(wxSize(button->GetMinWidth(), Wx::scaleByDpi(FIELD.y)));
            addToRow(*row, button, GRID);
        }
        addSection("Focus", "moveFocus goes from sibling to sibling, past those that are disabled or not marked as "
                            "Focusable, and round at the ends.")
            ->Add(row);
    }

    wxTimer _timer;
    Wx::Button* _includeHidden{};
    Wx::Button* _includeDisabled{};
    wxStaticText* _found{};
    wxPopupWindow* _placed{}; ///< null until it is asked for
    Array<FocusField*> _focusFields;
    FocusField* _lastFocused{};
};

const PageRegistration registration = registerPage<WindowsPage>(400, "Windows and screens");

} // namespace

} // namespace Ostrel::Gallery
