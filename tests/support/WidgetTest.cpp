#include "support/WidgetTest.h"

#include "support/Foreground.h"
#include "support/ScreenPicture.h"

#include <wx/app.h>
#include <wx/dcscreen.h>
#include <wx/evtloop.h>
#include <wx/stopwatch.h>
#include <wx/utils.h>

namespace {

constexpr int WAIT_STEP_MS = 5;

wxEventLoopBase& activeLoop() {
    wxEventLoopBase* loop = wxEventLoopBase::GetActive();
    if (loop == nullptr) {
        throw std::logic_error("no event loop is active; link support/WidgetTestMain.cpp");
    }
    return *loop;
}

} // namespace

WidgetTest::WidgetTest() = default;

void WidgetTest::pump() {
    wxEventLoopBase& loop = activeLoop();
    while (loop.Pending()) {
        loop.Dispatch();
    }
    wxTheApp->ProcessPendingEvents();
    while (loop.ProcessIdle() && loop.Pending()) {
        loop.Dispatch();
    }
}

bool WidgetTest::pumpUntil(const std::function<bool()>& condition, int deadlineMs) {
    wxStopWatch watch;
    while (!condition()) {
        if (watch.Time() > deadlineMs) {
            return false;
        }
        activeLoop().DispatchTimeout(WAIT_STEP_MS);
        pump();
    }
    pump();
    return true;
}

void WidgetTest::settle() {
    // A window that the window system shows and paints has, by then, seen everything asked before it.
    wxFrame* probe = new wxFrame(nullptr, wxID_ANY, "settle", wxPoint(0, 0), wxSize(4, 4),
                                 wxBORDER_NONE | wxFRAME_NO_TASKBAR | wxFRAME_TOOL_WINDOW);
    bool painted = false;
    probe->Bind(wxEVT_PAINT, [&painted, probe](wxPaintEvent&) {
        const wxPaintDC dc(probe);
        painted = true;
    });
    probe->ShowWithoutActivating();
    EXPECT_TRUE(pumpUntil([&painted] { return painted; })) << "the window system did not answer";
    probe->Destroy();
    pump();
}

void WidgetTest::waitForRest(const wxWindow& window) {
    constexpr int ROUNDS = 3;
    int round = 0;
    EXPECT_TRUE(pumpUntil([&window, &round] {
        const wxRect before = window.GetScreenRect();
        settle();
        round = window.GetScreenRect() == before ? round + 1 : 0;
        return round == ROUNDS;
    })) << "the window did not come to rest";
}

wxPoint WidgetTest::onScreen(const wxWindow& window, wxPoint point) {
    return window.ClientToScreen(point);
}

wxPoint WidgetTest::middle(const wxWindow& window) {
    const wxSize size = window.GetClientSize();
    return {size.x / 2, size.y / 2};
}

bool WidgetTest::hasFocus(const wxWindow& window) {
    return pumpUntil([&window] { return window.HasFocus(); });
}

void WidgetTest::giveFocus(wxWindow& window) {
    window.SetFocus();
    EXPECT_TRUE(hasFocus(window)) << "no focus for " << window.GetName();
}

void WidgetTest::loseCapture(wxWindow& window) {
    wxMouseCaptureLostEvent lost(window.GetId());
    window.ProcessWindowEvent(lost);
}

wxImage WidgetTest::capture(wxWindow& window) {
    pump();
    const wxPoint origin = window.ClientToScreen(wxPoint(0, 0));
    const wxSize size = window.GetClientSize();
    wxBitmap bitmap(size.x, size.y, 24);
    wxMemoryDC memory(bitmap);
    wxScreenDC screen;
    dropKeptScreenPicture(screen);
    memory.Blit(0, 0, size.x, size.y, &screen, origin.x, origin.y);
    memory.SelectObject(wxNullBitmap);
    return bitmap.ConvertToImage();
}

void WidgetTest::SetUp() {
    _frame = new wxFrame(nullptr, wxID_ANY, "Test", wxPoint(120, 100));
    _panel = new wxPanel(_frame);
    _frame->SetClientSize(640, 480);
    bool painted = false;
    const auto markPainted = [&painted](wxPaintEvent& event) {
        painted = true;
        event.Skip();
    };
    _panel->Bind(wxEVT_PAINT, markPainted);
    _frame->Show();
    _frame->Raise();
    ASSERT_TRUE(pumpUntil([this, &painted] { return painted && isUp(*_frame); })) << "the test's frame did not come up";
    _panel->Unbind(wxEVT_PAINT, markPainted);
}

void WidgetTest::TearDown() {
    for (const int button : {wxMOUSE_BTN_LEFT, wxMOUSE_BTN_RIGHT}) {
        const wxMouseState state = wxGetMouseState();
        if (button == wxMOUSE_BTN_LEFT ? state.LeftIsDown() : state.RightIsDown()) {
            _input.MouseUp(button);
        }
    }
    // The next test finds the pointer where no window will be, so that nothing is entered by chance.
    _input.MouseMove(1, 1);
    pump();
    if (_frame != nullptr) {
        bool gone = false;
        _frame->Bind(wxEVT_DESTROY, [this, &gone](wxWindowDestroyEvent& event) {
            gone = gone || event.GetEventObject() == _frame;
            event.Skip();
        });
        _frame->Destroy();
        EXPECT_TRUE(pumpUntil([&gone] { return gone; })) << "the test's frame could not be destroyed";
        _frame = nullptr;
    }
}

bool WidgetTest::isUp(wxTopLevelWindow& window) {
    constexpr long INTERVAL_MS = 300;
    static wxStopWatch sinceRaised;
    const auto isActive = [&window] { return window.IsActive() && hasForeground(window); };
    if (!isActive() && sinceRaised.Time() > INTERVAL_MS) {
        window.Raise();
        sinceRaised.Start();
    }
    return isActive();
}

void WidgetTest::showAll() {
    _panel->Layout();
    _frame->Refresh();
    _frame->Update();
    settle();
}

void WidgetTest::movePointer(const wxWindow& window, wxPoint point) {
    const wxPoint target = onScreen(window, point);
    _input.MouseMove(target);
    EXPECT_TRUE(pumpUntil([target] { return wxGetMousePosition() == target; })) << "the pointer did not arrive";
}

void WidgetTest::pressButton(int button) {
    _input.MouseDown(button);
    pump();
}

void WidgetTest::releaseButton(int button) {
    _input.MouseUp(button);
    pump();
}

void WidgetTest::pressOn(const wxWindow& window, wxPoint point) {
    movePointer(window, point);
    pressButton();
    EXPECT_TRUE(pumpUntil([&window] { return window.HasCapture(); })) << "the press did not arrive";
}

void WidgetTest::click(const wxWindow& window, wxPoint point, int button) {
    movePointer(window, point);
    pressButton(button);
    releaseButton(button);
}

void WidgetTest::pressKey(int keyCode, int modifiers) {
    _input.Char(keyCode, modifiers);
    pump();
}

wxImage paintOffScreen(wxSize size, const std::function<void(wxDC&)>& paint, const wxColour& ground) {
    wxBitmap bitmap(size.x, size.y, 24);
    wxMemoryDC dc(bitmap);
    dc.SetBackground(wxBrush(ground));
    dc.Clear();
    paint(dc);
    dc.SelectObject(wxNullBitmap);
    return bitmap.ConvertToImage();
}

std::ostream& operator<<(std::ostream& stream, const PixelColour& colour) {
    return stream << '(' << colour.red << ", " << colour.green << ", " << colour.blue << ')';
}

PixelColour pixelAt(const wxImage& image, int x, int y) {
    if (!image.IsOk() || x < 0 || y < 0 || x >= image.GetWidth() || y >= image.GetHeight()) {
        ADD_FAILURE() << "(" << x << ", " << y << ") is outside the picture";
        return {-1, -1, -1};
    }
    return {image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y)};
}

bool hasColour(const wxImage& image, PixelColour colour) {
    for (int y = 0; y < image.GetHeight(); ++y) {
        for (int x = 0; x < image.GetWidth(); ++x) {
            if (pixelAt(image, x, y) == colour) {
                return true;
            }
        }
    }
    return false;
}
