#include "ScreenshotRun.h"

#include "EventLog.h"
#include "platform/Screen.h"

#include <wx/dcmemory.h>

#include <cstring>
#include <filesystem>

namespace Ostrel::Gallery {

namespace {

constexpr int LOOK_INTERVAL_MS = 40;
/// Generous: it passes only where something keeps the window from being shown, or a page from being ready.
constexpr long DEADLINE_MS = 60'000;

/// What the screen shows where the window's client area is.
wxImage captureFromScreen(const wxWindow& window) {
    const wxPoint origin = window.ClientToScreen(wxPoint(0, 0));
    const wxSize size = window.GetClientSize();
    wxBitmap bitmap(size, 24);
    wxMemoryDC memory(bitmap);
    wxScreenDC screen;
    discardScreenCache(screen);
    memory.Blit(wxPoint(0, 0), size, &screen, origin);
    memory.SelectObject(wxNullBitmap);
    return bitmap.ConvertToImage();
}

bool isSame(const wxImage& a, const wxImage& b) {
    return a.IsOk() && b.IsOk() && a.GetSize() == b.GetSize() &&
           std::memcmp(a.GetData(), b.GetData(),
                       3 * static_cast<std::size_t>(a.GetWidth()) * static_cast<std::size_t>(a.GetHeight())) == 0;
}

} // namespace

ScreenshotRun::ScreenshotRun(GalleryFrame& frame, Path folder, Array<std::size_t> pages,
                             Function<void(const String&)> whenDone)
    : _frame(frame)
    , _folder(std::move(folder))
    , _pages(std::move(pages))
    , _whenDone(std::move(whenDone))
    , _timer(this) {
    Bind(wxEVT_TIMER, &ScreenshotRun::onTimer, this);
}

void ScreenshotRun::start() {
    CallAfter([this] {
        std::error_code error;
        std::filesystem::create_directories(_folder.native(), error);
        if (!std::filesystem::is_directory(_folder.native(), error)) {
            finish("The folder \"" + _folder.nativeStr() + "\" could not be made.");
            return;
        }
        _frame.Raise();
        // In the margin, where nothing answers to it.
        _frame.WarpPointer(1, 1);
        beginPage();
        _timer.Start(LOOK_INTERVAL_MS);
    });
}

void ScreenshotRun::beginPage() {
    _frame.showPage(_pages[_next]);
    _frame.getLog().clear();
    _frame.getCurrentPage().forgetPainting();
    _frame.Refresh();
    _arranged = false;
    _watch.Start();
}

void ScreenshotRun::arrangePage() {
    _frame.getCurrentPage().arrangeForPicture();
    _frame.getCurrentPage().forgetPainting();
    _frame.Refresh();
    _before = {};
    _arranged = true;
}

void ScreenshotRun::onTimer(wxTimerEvent&) {
    if (_watch.Time() > DEADLINE_MS) {
        finish("The page \"" + getPages()[_pages[_next]].title + "\" did not come to rest on the screen.");
        return;
    }
    if (!_frame.getCurrentPage().wasPainted()) {
        return;
    }
    if (!_arranged) {
        // Only what has been painted is laid out for good.
        arrangePage();
        return;
    }
    if (!_frame.getCurrentPage().isArrangedForPicture()) {
        return;
    }
    const wxImage now = captureFromScreen(_frame);
    if (!isSame(now, _before)) {
        _before = now;
        return;
    }
    savePage(now);
}

void ScreenshotRun::savePage(const wxImage& image) {
    const std::size_t index = _pages[_next];
    const wxString name = wxString::Format("%02u-%s.png", static_cast<unsigned>(index + 1),
                                           wxString(getPages()[index].getFileName().toWide()));
    const Path file = _folder / Path(String(name.ToStdWstring()));
    if (!image.SaveFile(wxString(file.nativeStr().toWide()), wxBITMAP_TYPE_PNG)) {
        finish("The picture \"" + file.nativeStr() + "\" could not be written.");
        return;
    }
    if (++_next == _pages.size()) {
        finish({});
        return;
    }
    beginPage();
}

void ScreenshotRun::finish(const String& error) {
    _timer.Stop();
    _whenDone(error);
}

} // namespace Ostrel::Gallery
