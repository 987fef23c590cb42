#pragma once

#include "Page.h"

#include <wx/frame.h>

namespace Ostrel::Gallery {

/// The gallery's window: the list of pages at the left, the page at the right, below it what the controls report.
class GalleryFrame : public wxFrame {
public:
    /// `picture` outlives the frame. No page is shown yet.
    explicit GalleryFrame(const Picture& picture);

    /// Shows the page at this place in `getPages()`; builds it the first time.
    void showPage(std::size_t index);

    [[nodiscard]] Page& getCurrentPage() { return *_pages[_current]; }
    [[nodiscard]] EventLog& getLog() { return *_log; }

private:
    void buildList(wxSizer& list);
    void showAbout();
    void onKey(wxKeyEvent& event);
    void showNextPage(bool forward);
    bool scrollPage(bool down);

    const Picture& _picture;
    wxPanel* _ground;            ///< parent of everything
    Array<Wx::Button*> _buttons; ///< one for each page
    wxPanel* _place;             ///< where the page is
    EventLog* _log;
    Array<Page*> _pages; ///< null until a page is shown for the first time
    std::size_t _current = 0;
};

} // namespace Ostrel::Gallery
