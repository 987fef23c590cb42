#pragma once

#include "LibraryUp.h"

#include <OstrelLib/Types.h>

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/frame.h>

/// A frame with one window on the screen, and an event loop for it, so that a benchmark can wait for what it paints:
/// GTK paints when its clock says so, not when asked.
template <class Window>
class ShownWindow {
public:
    /// @param make makes the window in its parent
    ShownWindow(wxSize size, const Ostrel::Function<Window*(wxWindow*)>& make)
        : _active(&_loop)
        , _frame(new wxFrame(nullptr, wxID_ANY, "Benchmark", wxPoint(0, 0)))
        , _window(make(_frame)) {
        _window->Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
            ++_paintCount;
            event.Skip();
        });
        _frame->SetClientSize(size);
        _frame->Show();
        dispatchUntilPainted(0);
    }
    ~ShownWindow() {
        _frame->Destroy();
        Ostrel::LibWx::processAllPendingEvents();
    }
    ShownWindow(const ShownWindow&) = delete;
    ShownWindow& operator=(const ShownWindow&) = delete;

    Window& window() { return *_window; }

    /// Makes the screen show the window as it is now. Something of it must have been refreshed.
    void paintOnScreen() {
        const int before = _paintCount;
        _window->Update();
        dispatchUntilPainted(before);
    }

private:
    void dispatchUntilPainted(int before) {
        while (_paintCount == before) {
            _loop.Dispatch();
        }
    }

    LibraryUp _library;
    wxGUIEventLoop _loop;
    wxEventLoopActivator _active;
    wxFrame* _frame;
    Window* _window;
    int _paintCount = 0;
};
