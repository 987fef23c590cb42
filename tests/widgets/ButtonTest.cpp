#include <OstrelLibWx/widgets/AutoSizedButton.h>

#include <OstrelLibWx/WindowUtils.h>

#include "support/WidgetTest.h"

#include <gmock/gmock.h>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;

constexpr PixelColour NORMAL{68, 68, 68};
constexpr PixelColour TOGGLED{39, 147, 255};
constexpr PixelColour PRESSED{0, 73, 112};
constexpr PixelColour RED{255, 0, 0};
constexpr PixelColour GREEN{0, 255, 0};
const Flags<RawaBorderState> FLAT = RawaBorderState::ENABLED | RawaBorderState::FLAT;

class ButtonTest : public WidgetTest {
protected:
    /// A button of 160 × 60 pixels with a green bitmap, red while disabled, of 8 × 6; its clicks are noted in `log`.
    void make(wxWindow& parent, Button::Behavior behavior, bool enabled = true,
              Flags<RawaBorderState> border = RawaBorderState::ENABLED) {
        wxImage red(8, 6), green(8, 6);
        red.SetRGB(wxRect(0, 0, 8, 6), 255, 0, 0);
        green.SetRGB(wxRect(0, 0, 8, 6), 0, 255, 0);
        const auto called = [this] {
            log.push_back("call");
            onCall();
        };
        button = new Button(&parent, GuiSkin(), 4711, "MHMH", red, green, called, behavior, enabled, border);
        button->SetSize(20, 20, 160, 60);
        parent.Bind(Button::clickEventType(), [this](wxMouseEvent& event) {
            log.push_back(button->isToggled() ? "event, toggled" : "event");
            EXPECT_EQ(event.GetPosition(), wxPoint(80, 30));
            EXPECT_EQ(event.GetId(), 4711);
            EXPECT_EQ(event.GetEventObject(), button.get());
            onEvent();
        });
        showAll();
    }

    wxImage picture() {
        return paintOffScreen(button->GetSize(), [this](wxDC& dc) { button->paint(dc); });
    }
    /// The background where neither frame nor bitmap nor label is.
    PixelColour ground() { return pixelAt(picture(), 30, 50); }

    /// Presses in the middle and waits until the button has seen it.
    void press() {
        movePointer(*button, middle(*button));
        pressButton();
        EXPECT_TRUE(pumpUntil([this] { return button->HasCapture(); })) << "the press did not arrive";
        EXPECT_EQ(ground(), PRESSED);
    }
    bool isToldOf(std::size_t entries) {
        return pumpUntil([this, entries] { return log.size() == entries; });
    }

    wxWeakRef<Button> button;
    std::vector<std::string> log;
    std::function<void()> onEvent = [] {}, onCall = [] {};
};

using ButtonClick = ButtonTest;
using ButtonLook = ButtonTest;

TEST_F(ButtonClick, TogglesThenTellsTheParentThenTheCallable) {
    make(panel(), Button::TOGGLE);
    press();
    EXPECT_THAT(log, ElementsAre());
    releaseButton();
    EXPECT_TRUE(isToldOf(2));
    EXPECT_THAT(log, ElementsAre("event, toggled", "call"));
    EXPECT_FALSE(button->HasCapture());
    EXPECT_EQ(ground(), TOGGLED);

    input().MouseDblClick();
    EXPECT_TRUE(isToldOf(6)) << "a double-click is two clicks";
    EXPECT_TRUE(button->isToggled());
    button->setToggled(false);
    EXPECT_EQ(ground(), NORMAL);
    EXPECT_EQ(log.size(), 6u) << "setting is not clicking";
}

TEST_F(ButtonClick, IsNoneWhenThePressIsTakenAway) {
    make(panel(), Button::TOGGLE);
    button->setToggled(true);
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"released outside", [this] { movePointer(panel(), wxPoint(300, 300)); }},
        {"capture lost",
         [this] {
             wxMouseCaptureLostEvent lost(button->GetId());
             button->ProcessWindowEvent(lost);
             EXPECT_FALSE(button->HasCapture());
         }},
        {"disabled while pressed",
         [this] {
             button->Enable(false);
             EXPECT_FALSE(button->HasCapture());
             button->Enable(true);
         }},
    };
    for (const auto& [name, takeAway] : ways) {
        SCOPED_TRACE(name);
        press();
        takeAway();
        releaseButton();
        EXPECT_TRUE(pumpUntil([this] { return !button->HasCapture() && ground() == TOGGLED; }));
    }
    settle();
    EXPECT_THAT(log, ElementsAre());
}

TEST_F(ButtonClick, IsIgnoredWhileItLooksDisabled) {
    make(panel(), Button::PUSH, false);
    click(*button, middle(*button));
    settle();
    EXPECT_THAT(log, ElementsAre());
    EXPECT_TRUE(button->IsEnabled()) << "built disabled, only the look is";
}

TEST_F(ButtonClick, MayDestroyTheButton) {
    wxPanel* parent = nullptr;
    const auto clickUntilGone = [&] {
        log.clear();
        panel().DestroyChildren();
        parent = new wxPanel(&panel(), wxID_ANY, wxPoint(0, 0), wxSize(300, 100));
        make(*parent, Button::PUSH);
        click(*button, middle(*button));
        EXPECT_TRUE(pumpUntil([this] { return !button; }));
    };
    onCall = [this] { button->Destroy(); };
    clickUntilGone();
    EXPECT_THAT(log, ElementsAre("event", "call"));
    onEvent = [this] { button->Destroy(); };
    clickUntilGone();
    EXPECT_THAT(log, ElementsAre("event")) << "what is gone is not called";
    onEvent = [&parent] { parent->Destroy(); };
    clickUntilGone();
    EXPECT_THAT(log, ElementsAre("event"));

    make(panel(), Button::PUSH);
    press();
    button->Destroy();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(ButtonLook, GreysTheLabelOnlyForTheWindowsOwnState) {
    const auto brightest = [this] {
        const wxImage shown = picture();
        int best = 0;
        for (int y = 10; y < 50; ++y) {
            for (int x = 10; x < 150; ++x) {
                best = std::max(best, pixelAt(shown, x, y).green);
            }
        }
        return best;
    };
    make(panel(), Button::PUSH, false);
    EXPECT_EQ(pixelAt(picture(), 9, 7), RED) << "all else looks disabled";
    EXPECT_GT(brightest(), 150);
    button->Enable(false);
    EXPECT_LE(brightest(), 110);
    EXPECT_GT(brightest(), 80) << "a label is there";
    button->SetLabel("");
    EXPECT_EQ(brightest(), 68);
    EXPECT_EQ(pixelAt(picture(), 9, 7), RED);

    make(panel(), Button::PUSH, true, FLAT);
    EXPECT_EQ(pixelAt(picture(), 1, 1), GREEN);
    EXPECT_EQ(pixelAt(picture(), 9, 7), NORMAL) << "a flat button's bitmap begins one pixel earlier";
}

TEST_F(ButtonLook, OnTheScreenIsTheOneOffTheScreen) {
    make(panel(), Button::PUSH);
    press();
    EXPECT_TRUE(pumpUntil([this] { return pixelAt(capture(*button), 30, 50) == PRESSED; }));
    const wxImage screen = capture(*button);
    const wxImage offScreen = picture();
    for (const wxPoint at : {wxPoint(0, 0), {1, 1}, {3, 3}, {158, 58}, {30, 59}, {159, 59}}) {
        EXPECT_EQ(pixelAt(screen, at.x, at.y), pixelAt(offScreen, at.x, at.y)) << at.x << ", " << at.y;
    }
}

TEST_F(ButtonLook, FollowsTheLabelOfAnAutoSizedButton) {
    auto* const sized = new AutoSizedButton(&panel(), "OK", 10, 80);
    EXPECT_EQ(sized->GetSize(), scaleByDpi(wxSize(80, 24)));
    const wxString longLabel = "A label that is wider than the minimum";
    sized->SetLabel(longLabel);
    const int width = sized->GetTextExtent(longLabel).x + 2 * scaleByDpi(10);
    EXPECT_EQ(sized->GetMinSize(), wxSize(width, scaleByDpi(24)));
    sized->SetSize(width + 50, 40);
    sized->Enable(false);
    EXPECT_EQ(sized->GetSize(), wxSize(width + 50, 40)) << "what a layout gave it stays";
}

} // namespace
} // namespace Ostrel::Wx
