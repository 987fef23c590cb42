#include "Page.h"

#include "EventLog.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/RawaBorder.h>

#include <utility>

namespace Ostrel::Gallery {

namespace {

// Design pixels.
constexpr int MARGIN = 3 * GRID;
constexpr int SECTION_GAP = 3 * GRID;
constexpr int SCROLL_STEP = 2 * GRID;
constexpr int ROW_CAPTION_WIDTH = 88;

} // namespace

Page::Page(const PageContext& context, const wxString& title, const wxString& introduction)
    : wxScrolledWindow(context.parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       wxVSCROLL | wxHSCROLL | wxTAB_TRAVERSAL | wxBORDER_NONE)
    , _log(context.log)
    , _content(new wxBoxSizer(wxVERTICAL)) {
    Hide();
    SetScrollRate(Wx::scaleByDpi(SCROLL_STEP), Wx::scaleByDpi(SCROLL_STEP));
    Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
        _painted = true;
        event.Skip();
    });
    // A click beside the controls takes the keys away from them; a panel that has children cannot hold the focus.
    Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent&) { _log.SetFocus(); });
    auto* const margin = new wxBoxSizer(wxVERTICAL);
    margin->Add(_content, wxSizerFlags(1).Expand().Border(wxALL, Wx::scaleByDpi(MARGIN)));
    _content->Add(makeText(TextRole::TITLE, title));
    _content->AddSpacer(Wx::scaleByDpi(GRID));
    _content->Add(makeText(TextRole::BODY, introduction, CONTENT_WIDTH));
    SetSizer(margin);
}

void Page::dress() {
    Wx::applySkinRecursive(this, Wx::GuiSkin());
    for (const Function<void()>& action : std::exchange(_afterSkin, {})) {
        action();
    }
    FitInside();
}

void Page::onPageShown(bool) {}

bool Page::onKey(int) {
    return false;
}

wxStaticText* Page::makeText(TextRole role, const wxString& text, int wrapWidth) {
    return makeText(this, role, text, wrapWidth);
}

wxStaticText* Page::makeText(wxWindow* parent, TextRole role, const wxString& text, int wrapWidth) {
    auto* const control = new wxStaticText(parent, wxID_ANY, wxString());
    control->SetFont(makeFont(*control, role));
    control->SetLabelText(text);
    if (wrapWidth > 0) {
        control->Wrap(Wx::scaleByDpi(wrapWidth));
    }
    afterSkin([control, role] { control->SetForegroundColour(getTextColour(role)); });
    return control;
}

wxBoxSizer* Page::addSection(const wxString& heading, const wxString& note, wxBoxSizer* column, int width) {
    wxBoxSizer* const target = column != nullptr ? column : _content;
    auto* const section = new wxBoxSizer(wxVERTICAL);
    section->Add(makeText(TextRole::SECTION, heading));
    if (!note.empty()) {
        section->AddSpacer(Wx::scaleByDpi(GRID / 2));
        section->Add(makeText(TextRole::CAPTION, note, width));
    }
    section->AddSpacer(Wx::scaleByDpi(GRID + GRID / 2));
    target->AddSpacer(Wx::scaleByDpi(SECTION_GAP));
    target->Add(section, wxSizerFlags().Expand());
    return section;
}

std::pair<wxBoxSizer*, wxBoxSizer*> Page::addColumns() {
    auto* const columns = new wxBoxSizer(wxHORIZONTAL);
    auto* const left = new wxBoxSizer(wxVERTICAL);
    auto* const right = new wxBoxSizer(wxVERTICAL);
    for (wxBoxSizer* const column : {left, right}) {
        column->SetMinSize(Wx::scaleByDpi(wxSize(COLUMN_WIDTH, -1)));
    }
    columns->Add(left);
    columns->AddSpacer(Wx::scaleByDpi(CONTENT_WIDTH - 2 * COLUMN_WIDTH));
    columns->Add(right);
    _content->Add(columns);
    return {left, right};
}

wxSizer* Page::captioned(wxWindow* specimen, const wxString& caption, int captionWidth) {
    auto* const cell = new wxBoxSizer(wxVERTICAL);
    cell->Add(specimen);
    cell->AddSpacer(Wx::scaleByDpi(GRID / 2));
    cell->Add(makeText(TextRole::CAPTION, caption, captionWidth));
    return cell;
}

void Page::addToRow(wxBoxSizer& row, wxWindow* item, int gap) {
    if (!row.IsEmpty()) {
        row.AddSpacer(Wx::scaleByDpi(gap));
    }
    row.Add(item, wxSizerFlags().Top());
}

void Page::addToRow(wxBoxSizer& row, wxSizer* item, int gap) {
    if (!row.IsEmpty()) {
        row.AddSpacer(Wx::scaleByDpi(gap));
    }
    row.Add(item, wxSizerFlags().Top());
}

Wx::Button* Page::makeButton(const wxString& label, Function<void()> onClick, Wx::Button::Behavior behavior,
                             int minimumWidth) {
    auto* const button = new Wx::Button(this, Wx::GuiSkin(), wxID_ANY, label, wxNullBitmap, wxNullBitmap,
                                        std::move(onClick), behavior, true, RawaBorderState::ENABLED);
    button->SetMinSize(wxSize(Wx::scaleByDpi(minimumWidth), button->GetMinHeight()));
    return button;
}

SpecimenTable::SpecimenTable(Function<wxStaticText*(const wxString&)> makeCaption,
                             std::initializer_list<wxString> columns, int columnWidth)
    : wxFlexGridSizer(static_cast<int>(columns.size()) + 1, Wx::scaleByDpi(wxSize(2 * GRID, GRID)))
    , _makeCaption(std::move(makeCaption))
    , _columnWidth(columnWidth) {
    Add(Wx::scaleByDpi(ROW_CAPTION_WIDTH), 0);
    for (const wxString& column : columns) {
        Add(_makeCaption(column));
    }
}

void SpecimenTable::addRow(const wxString& caption, std::initializer_list<wxWindow*> specimens) {
    Add(_makeCaption(caption), wxSizerFlags().CenterVertical());
    for (wxWindow* const specimen : specimens) {
        if (specimen == nullptr) {
            Add(Wx::scaleByDpi(_columnWidth), 0);
            continue;
        }
        specimen->SetMinSize(wxSize(Wx::scaleByDpi(_columnWidth), specimen->GetMinHeight()));
        Add(specimen, wxSizerFlags().CenterVertical());
    }
}

} // namespace Ostrel::Gallery
