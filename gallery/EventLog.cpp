#include "EventLog.h"

#include "Look.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

#include <wx/dcbuffer.h>

namespace Ostrel::Gallery {

namespace {

constexpr std::size_t VISIBLE_ENTRIES = 5;

// Design pixels.
constexpr int LINE_SPACING = 4;
constexpr int NUMBER_COLUMN = 24;
constexpr int SOURCE_COLUMN = 72;
constexpr int WHAT_COLUMN = 248;

constexpr RgbBytes GROUND{37, 37, 37};
constexpr RgbBytes NEWEST{235, 235, 235};
constexpr RgbBytes EARLIER{150, 150, 150};

} // namespace

EventLog::EventLog(wxWindow* parent)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Bind(wxEVT_PAINT, &EventLog::onPaint, this);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        Refresh();
        event.Skip();
    });
    SetFont(makeFont(*this, TextRole::BODY));
}

bool EventLog::SetFont(const wxFont& font) {
    const bool changed = wxPanel::SetFont(font);
    SetMinSize({-1, static_cast<int>(VISIBLE_ENTRIES) * getLineHeight() + Wx::scaleByDpi(2 * GRID)});
    return changed;
}

void EventLog::report(const wxString& source, const wxString& what) {
    ++_reportCount;
    if (!_entries.empty() && _entries.front().source == source && _entries.front().what == what) {
        _entries.front().number = _reportCount;
        ++_entries.front().count;
    } else {
        _entries.push_front({_reportCount, 1, source, what});
        if (_entries.size() > VISIBLE_ENTRIES) {
            _entries.pop_back();
        }
    }
    Refresh();
}

void EventLog::clear() {
    _entries.clear();
    _reportCount = 0;
    Refresh();
}

void EventLog::onPaint(wxPaintEvent&) {
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(Wx::toWxColour(GROUND));
    dc.Clear();
    dc.SetFont(GetFont());
    int y = Wx::scaleByDpi(GRID) + Wx::scaleByDpi(LINE_SPACING) / 2;
    if (_entries.empty()) {
        dc.SetTextForeground(Wx::toWxColour(EARLIER));
        dc.DrawText("Every event and callback that the controls report appears here.", Wx::scaleByDpi(NUMBER_COLUMN),
                    y);
        return;
    }
    dc.SetTextForeground(Wx::toWxColour(NEWEST));
    for (const Entry& entry : _entries) {
        dc.DrawText(wxString::Format("%u", entry.number), Wx::scaleByDpi(NUMBER_COLUMN), y);
        dc.DrawText(entry.source, Wx::scaleByDpi(SOURCE_COLUMN), y);
        const wxString times = entry.count > 1 ? wxString::Format(L"   (%u times)", entry.count) : wxString();
        dc.DrawText(entry.what + times, Wx::scaleByDpi(WHAT_COLUMN), y);
        dc.SetTextForeground(Wx::toWxColour(EARLIER));
        y += getLineHeight();
    }
}

int EventLog::getLineHeight() const {
    return GetCharHeight() + Wx::scaleByDpi(LINE_SPACING);
}

} // namespace Ostrel::Gallery
