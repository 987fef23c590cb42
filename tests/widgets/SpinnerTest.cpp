#include <OstrelLibWx/widgets/Spinner.h>

#include "support/WidgetTest.h"

#include <wx/textctrl.h>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SpinnerTest : public WidgetTest {
protected:
    /// A spinner from 0 to 10000 at 500 that steps by 1 and shows 2 decimals. The log is what its grandparent hears.
    void make() {
        auto* const host = new wxPanel(&panel(), wxID_ANY, wxPoint(0, 0), wxSize(400, 200));
        auto* const parent = new wxPanel(host, wxID_ANY, wxPoint(0, 0), wxSize(400, 100));
        spinner = new Spinner(parent, 4711, 60, 0, 10'000, 500, 2, 1);
        spinner->SetPosition(wxPoint(40, 30));
        const auto heard = [this](const char* name) {
            return [this, name](wxEvent& event) {
                if (event.GetEventObject() == spinner.get() && event.GetId() == 4711) {
                    tell(name, name);
                }
            };
        };
        host->Bind(CUSTSPINNER_START_EDITING, heard("start"));
        host->Bind(CUSTSPINNER_END_EDITING, heard("end"));
        host->Bind(CUSTSPINNER_TEXT_FOCUS_GET, heard("focus"));
        host->Bind(CUSTSPINNER_TEXT_FOCUS_LOST, heard("focus lost"));
        host->Bind(wxEVT_SPINCTRLDOUBLE, heard("event"));
        spinner->callOnValueChange([this](float value) {
            EXPECT_EQ(value, spinner->getValue());
            tell("value", wxString::FromCDouble(static_cast<double>(value)).ToStdString());
        });
        // However slow the machine is, a press repeats only where that is tested.
        spinner->Bind(wxEVT_TIMER, [this](wxTimerEvent& event) {
            intervals.push_back(event.GetInterval());
            event.Skip(repeats);
        });
        other = new wxTextCtrl(&panel(), wxID_ANY, "", wxPoint(20, 300));
        showAll();
    }
    void tell(const std::string& kind, const std::string& what) {
        log.push_back(what);
        if (destroyAt == kind) {
            spinner->Destroy();
        }
    }
    Bucket workArea() { return getMonitorRegionByWindow(spinner, MonitorRegionType::WORK_AREA); }
    wxTextCtrl& text() { return *static_cast<wxTextCtrl*>(child(0)->GetChildren().GetFirst()->GetData()); }
    wxWindow& up() { return *child(1); }
    wxWindow& down() { return *child(2); }
    wxWindow* child(std::size_t index) { return spinner->GetChildren().Item(index)->GetData(); }

    void press(wxWindow& arrow) {
        movePointer(arrow, middle(arrow));
        settle();
        input().MouseDown();
        EXPECT_TRUE(pumpUntil([&] { return !spinner || arrow.HasCapture(); })) << "the press did not arrive";
    }
    void dragBy(int dy) {
        const float before = spinner->getValue();
        input().MouseMove(wxGetMousePosition() + wxPoint(0, dy));
        settle(); // GTK keeps the newest motion back until something else happens
        EXPECT_TRUE(pumpUntil([&] { return !spinner || spinner->getValue() != before; }));
    }
    void type(const char* typed) {
        log.clear();
        spinner->SetFocus();
        input().Text(typed);
        EXPECT_TRUE(pumpUntil([&] { return text().GetValue() == typed; })) << text().GetValue();
    }
    bool logEnds(const std::string& last) {
        return pumpUntil([&] { return !log.empty() && log.back() == last; });
    }

    wxWeakRef<Spinner> spinner;
    wxTextCtrl* other{};
    std::vector<std::string> log;
    std::vector<int> intervals; ///< of the timer's ticks
    bool repeats = false;
    std::string destroyAt;
    const float pixelStep = 1.0F / static_cast<float>(scaleByDpi(1)); ///< the change for a pixel of a drag
};

using SpinnerArrows = SpinnerTest;

TEST_F(SpinnerTest, TellsTheWindowsAroundOfTheNumberBeforeTheDefaultOne) {
    std::vector<double> told;
    panel().Bind(wxEVT_SPINCTRLDOUBLE, [&told](wxSpinDoubleEvent& event) { told.push_back(event.GetValue()); });
    const auto* const made = new Spinner(&panel(), wxID_ANY, 60, 3, 10, 5, 0, 1);
    EXPECT_THAT(told, ElementsAre(3.0)) << "0, clamped";
    EXPECT_EQ(made->getValue(), 5.0F);
}

TEST_F(SpinnerTest, TakesWhatIsTypedByEnterByTheFocusAndByAPress) {
    make();
    type("1,5");
    pressKey(WXK_RETURN);
    EXPECT_TRUE(logEnds("end"));
    EXPECT_THAT(log, ElementsAre("focus", "start", "1.5", "event", "end"));
    EXPECT_EQ(text().GetStringSelection(), text().GetValue()) << "all of it is selected";
    other->SetFocus();
    EXPECT_TRUE(logEnds("focus lost"));
    for (const char* const unchanged : {"1.500", "letters"}) {
        type(unchanged);
        pressKey(WXK_TAB);
        EXPECT_TRUE(logEnds("focus lost"));
        EXPECT_THAT(log, ElementsAre("focus", "focus lost"));
        EXPECT_TRUE(hasFocus(*other)) << "the arrows are passed by";
        EXPECT_EQ(text().GetValue(), "1.50");
    }
    type("50000");
    other->SetFocus();
    EXPECT_TRUE(logEnds("focus lost"));
    EXPECT_THAT(log, ElementsAre("focus", "start", "10000", "event", "end", "focus lost"));
    type("7");
    press(up());
    releaseButton();
    EXPECT_THAT(log, ElementsAre("focus", "start", "7", "event", "end", "start", "8", "event", "end"))
        << "what is typed is set before the step";
    EXPECT_TRUE(text().HasFocus()) << "an arrow takes no focus";
    type("9");
    spinner->Enable(false);
    EXPECT_EQ(spinner->getValue(), 9.0F) << "disabled while typing";
    spinner->Enable(true);
    other->SetFocus();
    EXPECT_TRUE(logEnds("focus lost"));
    EXPECT_THAT(log, ElementsAre("start", "9", "event", "end", "focus lost"));
    log.clear();
    spinner->setText("mixed");
    EXPECT_EQ(spinner->getValue(), 9.0F);
    EXPECT_EQ(text().GetValue(), "mixed");
    spinner->setValue(20'000, false);
    EXPECT_EQ(text().GetValue(), "10000.0");
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(SpinnerArrows, StepOnceForAClickAndRepeatWhileHeld) {
    make();
    press(up());
    releaseButton();
    EXPECT_THAT(log, ElementsAre("start", "501", "event", "end"));
    spinner->setClickSpeedOverride([] { return Optional<float>(20.0F); });
    input().MouseDblClick();
    EXPECT_TRUE(pumpUntil([this] { return spinner->getValue() == 541; })) << "a double-click is two clicks";
    intervals.clear();
    repeats = true;
    press(down());
    EXPECT_TRUE(pumpUntil([this] { return intervals.size() >= 3; }));
    releaseButton();
    EXPECT_EQ(spinner->getValue(), 541 - 20 * static_cast<float>(intervals.size() + 1)) << "and one for the release";
    EXPECT_EQ(log.back(), "end");
    intervals.resize(3);
    EXPECT_THAT(intervals, ElementsAre(200, 50, 50));
}

TEST_F(SpinnerArrows, DragTheValueAndGiveItBack) {
    make();
    spinner->setClickSpeedOverride([] { return Optional<float>(20.0F); }); // not of drags
    press(down());
    dragBy(-30);
    dragBy(10);
    releaseButton();
    EXPECT_EQ(spinner->getValue(), 500 + 20 * pixelStep) << "no click at its end";
    press(up());
    dragBy(-5);
    input().MouseDown(wxMOUSE_BTN_RIGHT);
    input().MouseUp(wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(logEnds("end"));
    EXPECT_EQ(spinner->getValue(), 500 + 20 * pixelStep) << "cancelled";
    EXPECT_FALSE(up().HasCapture());
    log.clear();
    releaseButton();
    click(up(), middle(up()), wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(logEnds("event"));
    EXPECT_THAT(log, ElementsAre("500", "event")) << "the default; the release was no click, and neither is an edit";
    spinner->setValue(700, false);
    log.clear();
    press(up());
    input().MouseDown(wxMOUSE_BTN_RIGHT);
    input().MouseUp(wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(logEnds("end"));
    releaseButton();
    EXPECT_THAT(log, ElementsAre("start", "500", "event", "end")) << "the default, in a press that is no drag";
    for (const bool disabled : {false, true}) {
        log.clear();
        press(up());
        disabled ? static_cast<void>(spinner->Enable(false)) : loseCapture(up());
        EXPECT_FALSE(up().HasCapture());
        releaseButton();
        EXPECT_THAT(log, ElementsAre("start", "end")) << "taken away";
    }
}

TEST_F(SpinnerArrows, DragAcrossTheEndsOfTheScreen) {
    make();
    const Bucket area = workArea();
    for (const int direction : {-1, 1}) {
        spinner->setValue(5000, false);
        press(up());
        const int edge = direction < 0 ? area.min.y : area.max.y - 1;
        const wxPoint target(wxGetMousePosition().x, direction < 0 ? area.max.y - 2 : area.min.y + 1);
        dragBy(edge - 3 * direction - wxGetMousePosition().y);
        const float atEdge = spinner->getValue();
        input().MouseMove(target.x, edge);
        EXPECT_TRUE(pumpUntil([&] { return wxGetMousePosition() == target; })) << "the pointer is warped";
        EXPECT_TRUE(pumpUntil([&] { return spinner->getValue() != atEdge; }));
        EXPECT_FLOAT_EQ(spinner->getValue(), atEdge + 3 * pixelStep * static_cast<float>(direction)) << "inverted once";
        settle();
        dragBy(10 * direction);
        EXPECT_FLOAT_EQ(spinner->getValue(), atEdge - 7 * pixelStep * static_cast<float>(direction));
        releaseButton();
    }
}

TEST_F(SpinnerTest, MayBeDestroyedInAnyOfItsEvents) {
    using Step = std::function<void()>;
    const Step nothing = [] {};
    const Step press = [this] { this->press(up()); };
    const Step drag = [this] { this->press(up()), dragBy(-5); };
    const Step release = [this] { input().MouseUp(); };
    const Step clickRight = [this] { input().MouseClick(wxMOUSE_BTN_RIGHT); };
    const Step losePress = [this] { loseCapture(up()); };
    const Step type = [this] { this->type("3"); };
    const Step leave = [this] { other->SetFocus(); };
    const Step disable = [this] { spinner->Enable(false); };
    const std::tuple<const char*, Step, Step> ways[] = {
        {"start", nothing, press},
        {"value", press, release},
        {"end", press, release},
        {"value", nothing, [&] { repeats = true, press(); }},
        {"value", press, [this] { dragBy(-9); }},
        {"value", [&] { drag(), dragBy(workArea().min.y + 3 - wxGetMousePosition().y); },
         [this] { input().MouseMove(wxGetMousePosition().x, workArea().min.y); }},
        {"value", [this] { movePointer(up(), middle(up())); }, clickRight},
        {"value", drag, clickRight},
        {"end", drag, clickRight},
        {"end", press, losePress},
        {"end", drag, losePress},
        {"end", press, disable},
        {"value", type, disable},
        {"start", type, [this] { pressKey(WXK_RETURN); }},
        {"end", type, [this] { pressKey(WXK_RETURN); }},
        {"value", type, leave},
        {"focus", nothing, [this] { spinner->SetFocus(); }},
        {"focus lost", [this] { this->type("500"); }, leave},
    };
    int row = 0;
    for (const auto& [event, prepare, act] : ways) {
        SCOPED_TRACE(std::to_string(++row) + ": " + event);
        panel().DestroyChildren();
        repeats = false;
        make();
        other->SetFocus();
        prepare();
        destroyAt = event;
        act();
        EXPECT_TRUE(pumpUntil([this] { return !spinner; }));
        EXPECT_EQ(wxWindow::GetCapture(), nullptr);
        releaseButton();
        destroyAt.clear();
    }
}

TEST_F(SpinnerTest, LooksAsItsStateIs) {
    make();
    const auto shows = [](wxWindow& window, int at, PixelColour colour) {
        return pumpUntil([&] { return pixelAt(capture(window), at, at) == colour; });
    };
    movePointer(up(), middle(up()));
    EXPECT_TRUE(shows(up(), 0, {80, 80, 80})) << "hovered";
    press(up());
    EXPECT_TRUE(shows(up(), 0, {0, 73, 112})) << "pressed";
    EXPECT_TRUE(shows(down(), 0, {68, 68, 68}));
    dragBy(-3);
    EXPECT_TRUE(shows(down(), 0, {0, 73, 112})) << "dragged: both";
    releaseButton();
    EXPECT_TRUE(shows(up(), 0, {68, 68, 68})) << "normal";
    movePointer(text(), middle(text()));
    EXPECT_TRUE(shows(*child(0), 1, {0, 114, 188})) << "under the mouse";
    movePointer(panel(), wxPoint(500, 400));
    EXPECT_TRUE(shows(*child(0), 1, {37, 37, 37}));
}

} // namespace
} // namespace Ostrel::Wx
