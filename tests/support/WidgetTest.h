#pragma once

#include <functional>
#include <ostream>

#include <OstrelLibWx/WindowUtils.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/colour.h>
#include <wx/dcmemory.h>
#include <wx/frame.h>
#include <wx/image.h>
#include <wx/panel.h>
#include <wx/uiaction.h>
#include <wx/weakref.h>

/// Real windows and real input. The library is up and an event loop is active for the whole program; every test gets a
/// frame of its own, shown and active, and leaves nothing behind.
class WidgetTest : public testing::Test {
public:
    /// How long a condition may take before the test fails. Generous: it is waited for only where something is wrong.
    static constexpr int DEADLINE_MS = 10'000;

    WidgetTest();

    /// Dispatches events until `condition` holds, and then what is still waiting. False when the deadline passed first.
    static bool pumpUntil(const std::function<bool()>& condition, int deadlineMs = DEADLINE_MS);

    /// Whether the window takes input by now; while it does not, it is raised anew now and then: what was closed just
    /// before may get the system to give the focus to somebody else, however late.
    static bool isUp(wxTopLevelWindow& window);

    /// Dispatches all that waits now, idle work and deferred deletions included.
    static void pump();

    /// Waits until what has been asked of the window system so far has been done and told back.
    static void settle();

    /// Waits until the window has stayed where it is while the window system answered: one that has only just been
    /// shown or moved may be moved again by a window manager that is late.
    static void waitForRest(const wxWindow& window);

    /// Where `point`, in client coordinates of `window`, lies on the screen.
    static wxPoint onScreen(const wxWindow& window, wxPoint point);

    /// The middle of the window's client area, in its client coordinates.
    static wxPoint middle(const wxWindow& window);

    /// Waits until the window has the focus; `giveFocus` gives it to the window before.
    static bool hasFocus(const wxWindow& window);
    static void giveFocus(wxWindow& window);

    /// Tells the window that something took the mouse from it.
    static void loseCapture(wxWindow& window);

    /// What the screen shows of the window's client area now.
    static wxImage capture(wxWindow& window);

protected:
    void SetUp() override;
    void TearDown() override;

    /// The frame of this test: 640 × 480 of client area at (120, 100), holding `panel()`.
    wxFrame& frame() { return *_frame; }

    /// The empty panel that fills the frame. Parent of what is tested. It has a sizer only if the test gives it one.
    wxPanel& panel() { return *_panel; }

    /// Shows what was added to the panel since, and waits until it has been painted.
    void showAll();

    /// Moves the pointer there with real input and waits until the window system has seen it there.
    void movePointer(const wxWindow& window, wxPoint point);

    /// Presses or releases the left button (or another) where the pointer is, and dispatches what follows.
    void pressButton(int button = wxMOUSE_BTN_LEFT);
    void releaseButton(int button = wxMOUSE_BTN_LEFT);

    /// Moves there and presses, and waits until the window has captured the mouse.
    void pressOn(const wxWindow& window, wxPoint point);

    /// Moves there, presses and releases.
    void click(const wxWindow& window, wxPoint point, int button = wxMOUSE_BTN_LEFT);

    /// Presses and releases a key, with wxMOD_… modifiers.
    void pressKey(int keyCode, int modifiers = wxMOD_NONE);

    wxUIActionSimulator& input() { return _input; }

private:
    wxFrame* _frame{};
    wxPanel* _panel{};
    wxUIActionSimulator _input;
};

/// A picture painted off screen by `paint`, on a ground of `ground`.
wxImage paintOffScreen(wxSize size, const std::function<void(wxDC&)>& paint, const wxColour& ground = *wxWHITE);

/// The same by the control's own `paint`, in its size.
template <class Control>
wxImage pictureOf(const Control& control) {
    return paintOffScreen(control.GetClientSize(), [&control](wxDC& dc) { control.paint(dc); });
}

/// The colour of one pixel of a picture; comparable, and printed as "(r, g, b)". Outside the picture: a test failure.
struct PixelColour {
    int red{}, green{}, blue{};
    friend bool operator==(const PixelColour&, const PixelColour&) = default;
};
std::ostream& operator<<(std::ostream& stream, const PixelColour& colour);
PixelColour pixelAt(const wxImage& image, int x, int y);

/// Whether `image` shows `colour` anywhere.
bool hasColour(const wxImage& image, PixelColour colour);
