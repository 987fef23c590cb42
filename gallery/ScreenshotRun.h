#pragma once

#include "GalleryFrame.h"

#include <OstrelLib/Path.h>

#include <wx/image.h>
#include <wx/stopwatch.h>
#include <wx/timer.h>

namespace Ostrel::Gallery {

/// Saves pages as pictures of what the screen shows of the gallery's window, one after the other, from inside the event
/// loop. A page is saved once it has been painted and the screen has stopped changing.
class ScreenshotRun : public wxEvtHandler {
public:
    /// @param pages places in `getPages()`
    /// @param whenDone is called once, in the event loop, with an error for the user or an empty text
    ScreenshotRun(GalleryFrame& frame, Path folder, Array<std::size_t> pages, Function<void(const String&)> whenDone);

    /// The first page is shown when the event loop runs.
    void start();

private:
    void beginPage();
    void arrangePage();
    void onTimer(wxTimerEvent& event);
    void savePage(const wxImage& image);
    void finish(const String& error);

    GalleryFrame& _frame;
    Path _folder;
    Array<std::size_t> _pages;
    Function<void(const String&)> _whenDone;
    std::size_t _next = 0;
    wxTimer _timer;
    wxStopWatch _watch;
    bool _arranged = false; ///< the page has been shown as it is, and then as it is to be saved
    wxImage _before;        ///< what the screen showed last time
};

} // namespace Ostrel::Gallery
