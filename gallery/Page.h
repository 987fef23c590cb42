#pragma once

#include "Look.h"
#include "PageRegistry.h"

#include <OstrelLibWx/widgets/Button.h>

#include <wx/scrolwin.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <initializer_list>

namespace Ostrel::Gallery {

/// A page: a title, an introduction, and below them sections, in one column that scrolls when it is too high.
///
/// A page builds its controls in its constructor. The gallery then gives all of them the library's skin, and after that
/// runs what the page has put off with `afterSkin`: states that a skin would wipe off.
class Page : public wxScrolledWindow {
public:
    Page(const PageContext& context, const wxString& title, const wxString& introduction);

    /// Gives the page the library's skin. Once, after it has been built.
    void dress();

    /// Puts the page into the state in which it tells most, before its picture is taken. Whatever appears is shown by
    /// the controls' own means.
    virtual void arrangeForPicture() {}

    /// Whether the page is in that state yet; asked until it is.
    [[nodiscard]] virtual bool isArrangedForPicture() const { return true; }

    /// Called when the page is shown and when another takes its place.
    virtual void onPageShown(bool shown);

    /// A key without modifiers that no control has taken. True if the page has done something with it.
    virtual bool onKey(int key);

    /// Whether the page has been painted since `forgetPainting`.
    [[nodiscard]] bool wasPainted() const { return _painted; }
    void forgetPainting() { _painted = false; }

protected:
    /// The widest that texts run, and what the sections fill.
    static constexpr int CONTENT_WIDTH = 808;

    /// A text of that role. Wrapped at `wrapWidth`, if it is above 0.
    wxStaticText* makeText(TextRole role, const wxString& text, int wrapWidth = 0);
    wxStaticText* makeText(wxWindow* parent, TextRole role, const wxString& text, int wrapWidth = 0);

    /// A section with a heading and an optional note below it; what is added to the returned sizer stands below both.
    /// Without `column` it is added to the page.
    wxBoxSizer* addSection(const wxString& heading, const wxString& note = {}, wxBoxSizer* column = nullptr,
                           int width = CONTENT_WIDTH);

    /// Columns side by side, added to the page, for sections of half the width.
    std::pair<wxBoxSizer*, wxBoxSizer*> addColumns();
    static constexpr int COLUMN_WIDTH = (CONTENT_WIDTH - 4 * GRID) / 2;

    /// A specimen with its caption below it.
    wxSizer* captioned(wxWindow* specimen, const wxString& caption, int captionWidth = 0);

    /// Adds to the end of a row, at a distance from what is in it already.
    static void addToRow(wxBoxSizer& row, wxWindow* item, int gap = 2 * GRID);
    static void addToRow(wxBoxSizer& row, wxSizer* item, int gap = 2 * GRID);

    /// The button as a page has it for its own use: framed, push, `minimumWidth` wide.
    Wx::Button* makeButton(const wxString& label, Function<void()> onClick,
                           Wx::Button::Behavior behavior = Wx::Button::PUSH, int minimumWidth = 104);

    /// Puts off until the page has its skin.
    void afterSkin(Function<void()> action) { _afterSkin.push_back(std::move(action)); }

    [[nodiscard]] EventLog& log() { return _log; }

    /// The page's column, for what is no section.
    [[nodiscard]] wxBoxSizer& content() { return *_content; }

private:
    EventLog& _log;
    wxBoxSizer* _content;
    Array<Function<void()>> _afterSkin;
    bool _painted = false;
};

/// Specimens in rows and columns, with captions above the columns and at the left of the rows.
class SpecimenTable : public wxFlexGridSizer {
public:
    /// `makeCaption` makes the captions' texts. `columnWidth` is the specimens', in design pixels.
    SpecimenTable(Function<wxStaticText*(const wxString&)> makeCaption, std::initializer_list<wxString> columns,
                  int columnWidth);

    /// One specimen, or null, for each column.
    void addRow(const wxString& caption, std::initializer_list<wxWindow*> specimens);

private:
    Function<wxStaticText*(const wxString&)> _makeCaption;
    int _columnWidth;
};

} // namespace Ostrel::Gallery
