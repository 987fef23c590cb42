#include <OstrelLibWx/widgets/Spinner.h>

#include <OstrelLibWx/widgets/TextControl.h>

#include "support/WidgetTest.h"

#include <gmock/gmock.h>
#include <wx/timer.h>
#include <wx/weakref.h>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int ID = 4711;

class SpinnerTest : public WidgetTest {
protected:
    /// A spinner from 0 to 1000 at 500 that steps by 1 and shows 2 decimals. The log is what its grandparent hears.
    void make() {
        host = new wxPanel(&panel(), wxID_ANY, wxPoint(0, 0), wxSize(400, 200));
        auto* const parent = new wxPanel(host, wxID_ANY, wxPoint(0, 0), wxSize(400, 100));
        spinner = new Spinner(parent, ID, 60, 0, 1000, 500, 2, 1);
        spinner->SetPosition(wxPoint(40, 30));
        const auto heard = [this](const char* name) {
            return [this, name](wxEvent& event) {
                event.Skip(event.GetEventObject() != spinner.get());
                if (event.GetSkipped()) {
                    return; // another spinner's
                }
                EXPECT_EQ(event.GetId(), ID);
                log.push_back(name);
                if (destroyAt == name) {
                    spinner->Destroy();
                    return;
                }
                event.Skip();
            };
        };
        host->Bind(CUSTSPINNER_START_EDITING, heard("start"));
        host->Bind(CUSTSPINNER_END_EDITING, heard("end"));
        host->Bind(CUSTSPINNER_TEXT_FOCUS_GET, heard("focus"));
        host->Bind(CUSTSPINNER_TEXT_FOCUS_LOST, heard("focus lost"));
        host->Bind(wxEVT_SPINCTRLDOUBLE, [this](wxSpinDoubleEvent& event) {
            EXPECT_EQ(static_cast<float>(event.GetValue()), spinner->getValue());
            log.push_back("event");
        });
        spinner->callOnValueChange([this](float value) {
            EXPECT_EQ(value, spinner->getValue());
            log.push_back(wxString::FromCDouble(static_cast<double>(value)).ToStdString());
            if (destroyAt == "value") {
                spinner->Destroy();
            }
        });
        other = new wxTextCtrl(&panel(), wxID_ANY, "", wxPoint(20, 300));
        showAll();
    }
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
    void dragBy(wxWindow& arrow, int dy) {
        const float before = spinner->getValue();
        const wxPoint target = wxGetMousePosition() + wxPoint(0, dy);
        input().MouseMove(target);
        settle(); // GTK keeps the newest motion back until something else happens
        EXPECT_TRUE(pumpUntil([&] { return !spinner || spinner->getValue() != before; })) << arrow.GetName();
    }
    /// Keeps only the last of the values told one after the other.
    std::vector<std::string> told() {
        std::vector<std::string> kept;
        for (const std::string& entry : log) {
            if (entry == "event") {
                continue;
            }
            const bool number = std::isdigit(entry[0]) != 0;
            if (number && !kept.empty() && std::isdigit(kept.back()[0]) != 0) {
                kept.pop_back();
            }
            kept.push_back(entry);
        }
        return kept;
    }
    void focusText() {
        spinner->SetFocus();
        EXPECT_TRUE(pumpUntil([this] { return text().HasFocus(); }));
    }
    void type(const char* typed) {
        focusText();
        input().Text(typed);
        EXPECT_TRUE(pumpUntil([&] { return text().GetValue() == typed; })) << text().GetValue();
        log.clear();
    }
    bool logEnds(const std::string& last) {
        return pumpUntil([&] { return !log.empty() && log.back() == last; });
    }

    wxPanel* host{};
    wxWeakRef<Spinner> spinner;
    wxTextCtrl* other{};
    std::vector<std::string> log;
    std::string destroyAt;
};

using SpinnerTyped = SpinnerTest;
using SpinnerArrows = SpinnerTest;
using SpinnerDestroyed = SpinnerTest;

TEST_F(SpinnerTyped, IsSetByEnterByTheFocusAndByAPress) {
    make();
    type("1,5");
    EXPECT_EQ(text().GetStringSelection(), "");
    pressKey(WXK_RETURN);
    EXPECT_TRUE(logEnds("end"));
    EXPECT_THAT(log, ElementsAre("start", "1.5", "event", "end"));
    EXPECT_EQ(text().GetStringSelection(), text().GetValue()) << "all of it is selected";

    type("1.500");
    pressKey(WXK_RETURN);
    EXPECT_TRUE(pumpUntil([this] { return text().GetValue() == "1.50"; }));
    type("letters");
    other->SetFocus();
    EXPECT_TRUE(logEnds("focus lost"));
    EXPECT_THAT(log, ElementsAre("focus lost")) << "neither was a change";
    EXPECT_EQ(text().GetValue(), "1.50");

    type("5000");
    other->SetFocus();
    EXPECT_TRUE(logEnds("focus lost"));
    EXPECT_THAT(log, ElementsAre("start", "1000", "event", "end", "focus lost"));
    EXPECT_EQ(text().GetValue(), "1000.0");

    type("7");
    press(up());
    releaseButton();
    EXPECT_THAT(log, ElementsAre("start", "7", "event", "end", "start", "8", "event", "end")) << "before the step";
    EXPECT_TRUE(text().HasFocus()) << "an arrow takes no focus";

    log.clear();
    spinner->setText("mixed\n");
    EXPECT_EQ(spinner->getValue(), 8.0F);
    EXPECT_TRUE(text().GetValue().StartsWith("mixed"));
    spinner->setValue(2000, false);
    EXPECT_EQ(text().GetValue(), "1000.0");
    EXPECT_THAT(log, IsEmpty());
    spinner->configure(0, 10, 5, 0, 1, true);
    EXPECT_THAT(log, ElementsAre("10", "event"));
    EXPECT_EQ(text().GetValue(), "10");
}

TEST_F(SpinnerTyped, IsReachedByTabAndByMoveFocus) {
    make();
    auto* const second = new Spinner(spinner->GetParent(), wxID_ANY, 60, 0, 1, 0, 1, 0);
    second->SetPosition(wxPoint(40, 70));
    showAll();
    const auto focusIsIn = [](wxWindow* window) {
        return pumpUntil([window] { return window->IsDescendant(wxWindow::FindFocus()); });
    };
    focusText();
    EXPECT_THAT(log, ElementsAre("focus"));
    pressKey(WXK_TAB);
    EXPECT_TRUE(focusIsIn(second)) << "the arrows are passed by";
    pressKey(WXK_TAB, wxMOD_SHIFT);
    EXPECT_TRUE(focusIsIn(spinner));
    moveFocus(spinner, MoveFocusDirection::FORWARD);
    EXPECT_TRUE(focusIsIn(second));
    spinner->Enable(false);
    moveFocus(second, MoveFocusDirection::FORWARD);
    EXPECT_TRUE(focusIsIn(second));
}

TEST_F(SpinnerArrows, StepOnceForAClickAndRepeatWhileHeld) {
    make();
    press(up());
    releaseButton();
    EXPECT_THAT(log, ElementsAre("start", "501", "event", "end"));
    spinner->setClickSpeedOverride([] { return Optional<float>(20.0F); });
    press(down());
    releaseButton();
    EXPECT_EQ(spinner->getValue(), 481);
    input().MouseDblClick();
    EXPECT_TRUE(pumpUntil([this] { return spinner->getValue() == 441; })) << "a double-click is two clicks";

    std::vector<int> intervals;
    spinner->Bind(wxEVT_TIMER, [&](wxTimerEvent& event) {
        intervals.push_back(event.GetInterval());
        event.Skip();
    });
    log.clear();
    press(down());
    EXPECT_TRUE(pumpUntil([&] { return intervals.size() >= 3; }));
    releaseButton();
    EXPECT_FALSE(down().HasCapture());
    const std::size_t ticks = intervals.size();
    ASSERT_GE(ticks, 3u);
    EXPECT_EQ(intervals[0], 200);
    EXPECT_EQ(intervals[1], 50);
    EXPECT_EQ(intervals[2], 50);
    EXPECT_EQ(spinner->getValue(), 441 - 20 * static_cast<float>(ticks + 1)) << "and one step for the release";
    EXPECT_EQ(log.front(), "start");
    EXPECT_EQ(log.back(), "end");
}

TEST_F(SpinnerArrows, DragTheValueAndGiveItBack) {
    make();
    press(down());
    dragBy(down(), -30);
    EXPECT_EQ(spinner->getValue(), 530 + 30.0F / static_cast<float>(scaleByDpi(1)) - 30);
    dragBy(down(), 10);
    releaseButton();
    EXPECT_EQ(spinner->getValue(), 500 + 20.0F / static_cast<float>(scaleByDpi(1))) << "no click at its end";
    EXPECT_EQ(told().front(), "start");
    EXPECT_EQ(told().size(), 3u);
    EXPECT_EQ(told().back(), "end");

    log.clear();
    const float before = spinner->getValue();
    press(up());
    dragBy(up(), -5);
    input().MouseDown(wxMOUSE_BTN_RIGHT);
    input().MouseUp(wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(logEnds("end"));
    EXPECT_EQ(spinner->getValue(), before) << "cancelled";
    EXPECT_FALSE(up().HasCapture());
    log.clear();
    releaseButton();
    settle();
    EXPECT_THAT(log, IsEmpty()) << "the press was over";

    spinner->setValue(1, false);
    click(up(), middle(up()), wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(logEnds("event"));
    EXPECT_THAT(log, ElementsAre("500", "event")) << "the default, without an edit";
}

TEST_F(SpinnerArrows, DragAcrossTheEndsOfTheScreen) {
    make();
    const Bucket area = getMonitorRegionByWindow(spinner, MonitorRegionType::WORK_AREA);
    spinner->configure(0, 10000, 5000, 1, 1, false);
    for (const bool upwards : {true, false}) {
        spinner->setValue(5000, false);
        press(up());
        const int edge = upwards ? area.min.y : area.max.y - 1;
        const int target = upwards ? area.max.y - 2 : area.min.y + 1;
        const int direction = upwards ? -1 : 1;
        dragBy(up(), edge + -3 * direction - wxGetMousePosition().y);
        const float atEdge = spinner->getValue();
        const int x = wxGetMousePosition().x;
        input().MouseMove(x, edge);
        EXPECT_TRUE(pumpUntil([&] { return wxGetMousePosition() == wxPoint(x, target); })) << "the pointer is warped";
        EXPECT_TRUE(pumpUntil([&] { return spinner->getValue() != atEdge; }));
        const float unit = 1.0F / static_cast<float>(scaleByDpi(1));
        EXPECT_FLOAT_EQ(spinner->getValue(), atEdge + 3 * unit * static_cast<float>(direction))
            << "the other way, once";
        settle();
        const float after = spinner->getValue();
        dragBy(up(), 10 * direction);
        EXPECT_FLOAT_EQ(spinner->getValue(), after - 10 * unit * static_cast<float>(direction));
        releaseButton();
    }
}

TEST_F(SpinnerArrows, EndAPressThatIsTakenAway) {
    make();
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"capture lost",
         [this] {
             wxMouseCaptureLostEvent lost(up().GetId());
             lost.SetEventObject(&up());
             up().ProcessWindowEvent(lost);
         }},
        {"disabled", [this] { spinner->Enable(false); }},
    };
    for (const auto& [name, takeAway] : ways) {
        SCOPED_TRACE(name);
        log.clear();
        press(up());
        takeAway();
        EXPECT_FALSE(up().HasCapture());
        releaseButton();
        settle();
        EXPECT_THAT(log, ElementsAre("start", "end"));
    }
}

TEST_F(SpinnerDestroyed, InAnyOfItsEvents) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"start", [this] { press(up()); }},
        {"value", [this] { press(up()), input().MouseUp(); }},
        {"end", [this] { press(up()), input().MouseUp(); }},
        {"value", [this] { press(up()); }}, // by the first repeat
        {"value", [this] { press(up()), dragBy(up(), -9); }},
        {"value", [this] { click(up(), middle(up()), wxMOUSE_BTN_RIGHT); }},
        {"start", [this] { type("3"), pressKey(WXK_RETURN); }},
        {"value", [this] { type("3"), pressKey(WXK_RETURN); }},
        {"end", [this] { type("3"), pressKey(WXK_RETURN); }},
        {"value", [this] { type("3"), other->SetFocus(); }},
        {"focus", [this] { spinner->SetFocus(); }},
        {"focus lost", [this] { focusText(), other->SetFocus(); }},
        {"value", [this] { spinner->setValue(3, true); }},
    };
    for (const auto& [event, act] : ways) {
        SCOPED_TRACE(event);
        panel().DestroyChildren();
        make();
        other->SetFocus();
        EXPECT_TRUE(pumpUntil([this] { return other->HasFocus(); }));
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
    movePointer(up(), middle(up()));
    wxImage shown[3];
    const auto differs = [&](int index) {
        return pumpUntil([&] {
            shown[index] = capture(up());
            for (int i = 0; i < index; ++i) {
                if (pixelAt(shown[i], 0, 0) == pixelAt(shown[index], 0, 0)) {
                    return false;
                }
            }
            return true;
        });
    };
    EXPECT_TRUE(differs(0)) << "hovered";
    press(up());
    EXPECT_TRUE(differs(1)) << "pressed";
    releaseButton();
    EXPECT_TRUE(differs(2)) << "normal";
    movePointer(text(), middle(text()));
    const auto frameIs = [this](PixelColour colour) {
        return pumpUntil([&] { return pixelAt(capture(*child(0)), 1, 1) == colour; });
    };
    EXPECT_TRUE(frameIs({0, 114, 188})) << "under the mouse";
    movePointer(panel(), wxPoint(500, 400));
    EXPECT_TRUE(frameIs({37, 37, 37}));
    focusText();
    EXPECT_TRUE(frameIs({0, 114, 188})) << "focused";
    EXPECT_EQ(text().GetBackgroundColour(), wxColour(68, 68, 68));
}

} // namespace
} // namespace Ostrel::Wx
