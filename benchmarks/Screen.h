#pragma once

#include <OstrelLib/Threading.h>
#include <OstrelLib/Types.h>

#include <stdexcept>

#include <wx/frame.h>

#include "LibraryUp.h"

/// The library, and a frame with the focus for the control that is measured.
struct Screen {
    Screen() {
        frame->Show();
        awaitFocus();
    }
    ~Screen() {
        frame->Destroy();
        Ostrel::LibWx::processAllPendingEvents();
    }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// Handles events until the window has been painted once more.
    static void awaitPaint(wxWindow& window) {
        bool painted = false;
        const auto mark = [&painted](wxPaintEvent& event) {
            painted = true;
            event.Skip();
        };
        window.Bind(wxEVT_PAINT, mark);
        window.Refresh();
        await([&painted] { return painted; });
        window.Unbind(wxEVT_PAINT, mark);
    }

    /// Handles events until the condition holds.
    static void await(const Ostrel::Function<bool()>& condition) {
        constexpr double LIMIT_MS = 5000;
        const Ostrel::Timer timer;
        while (!condition()) {
            Ostrel::LibWx::processAllPendingEvents();
            if (timer.elapsedMs() > LIMIT_MS) {
                throw std::runtime_error("the window system did not follow");
            }
        }
    }

    /// Handles events until the frame has the focus (back).
    void awaitFocus() const {
        await([this] { return frame->IsActive(); });
        Ostrel::LibWx::processAllPendingEvents();
    }

    LibraryUp library{};
    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "Benchmark", wxPoint(100, 100), wxSize(300, 200));
};
