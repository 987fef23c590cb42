#include <OstrelLibWx/widgets/AutoSizedButton.h>

#include "support/WidgetTest.h"

#include <algorithm>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;

constexpr PixelColour NORMAL{68, 68, 68};
constexpr PixelColour TOGGLED{39, 147, 255};
constexpr PixelColour PRESSED{0, 73, 112};
constexpr PixelColour RED{255, 0, 0};
constexpr PixelColour GREEN{0, 255, 0};

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

    wxImage picture() { return pictureOf(*button); }
    /// The background where neither frame nor bitmap nor label is.
    PixelColour ground() { return pixelAt(picture(), 30, 50); }

    /// Presses in the middle and waits until the button has seen it.
    void press() {
        pressOn(*button, middle(*button));
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
    EXPECT_TRUE(pumpUntil([this] { return pixelAt(capture(*button), 30, 50) == PRESSED; })) << "on the screen";
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
    const std::pair<bool, std::function<void()>> ways[] = {
        {false, [this] { movePointer(panel(), wxPoint(300, 300)); }},
        {true, [this] { loseCapture(*button); }},
        {true, [this] { button->Enable(false); }},
    };
    for (const auto& [atOnce, takeAway] : ways) {
        press();
        takeAway();
        EXPECT_FALSE(atOnce && button->HasCapture());
        button->Enable(true);
        releaseButton();
        EXPECT_TRUE(pumpUntil([this] { return !button->HasCapture() && ground() == TOGGLED; }));
    }
    settle();
    EXPECT_THAT(log, ElementsAre());
}

TEST_F(ButtonClick, MayDestroyTheButton) {
    wxPanel* parent = nullptr;
    const auto destroyButton = [this] { button->Destroy(); };
    const auto clickUntilGone = [&] {
        log.clear();
        panel().DestroyChildren();
        parent = new wxPanel(&panel(), wxID_ANY, wxPoint(0, 0), wxSize(300, 100));
        make(*parent, Button::PUSH);
        click(*button, middle(*button));
        EXPECT_TRUE(pumpUntil([this] { return !button; }));
    };
    onCall = destroyButton;
    clickUntilGone();
    EXPECT_THAT(log, ElementsAre("event", "call"));
    const std::function<void()> ways[] = {destroyButton, [&] { parent->Destroy(); }};
    for (const std::function<void()>& destroy : ways) {
        onEvent = destroy;
        clickUntilGone();
        EXPECT_THAT(log, ElementsAre("event")) << "what is gone is not called";
    }
    make(panel(), Button::PUSH);
    press();
    button->Destroy();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(ButtonLook, OfOneBuiltDisabledIsDisabledButForItsLabel) {
    const auto brightest = [this] {
        const wxImage label = picture().GetSubImage(wxRect(10, 10, 140, 40));
        return int{*std::max_element(label.GetData(), label.GetData() + 3 * 140 * 40)};
    };
    make(panel(), Button::PUSH, false);
    click(*button, middle(*button));
    settle();
    EXPECT_THAT(log, ElementsAre()) << "presses are ignored";
    EXPECT_EQ(pixelAt(picture(), 9, 7), RED);
    EXPECT_GT(brightest(), 150);
    button->Enable(false);
    EXPECT_LE(brightest(), 110);
    EXPECT_GT(brightest(), 80) << "a label is there";
    button->SetLabel("");
    EXPECT_EQ(brightest(), 68);
    EXPECT_EQ(pixelAt(picture(), 9, 7), RED);

    make(panel(), Button::PUSH, true, RawaBorderState::ENABLED | RawaBorderState::FLAT);
    EXPECT_EQ(pixelAt(picture(), 1, 1), GREEN);
    EXPECT_EQ(pixelAt(picture(), 9, 7), NORMAL) << "a flat button's bitmap begins one pixel earlier";
}

TEST_F(ButtonLook, CentresAllLinesOfTheLabel) {
    make(panel(), Button::PUSH);
    button->SetLabel("HH\n\nHHHH\nHH");
    button->SetSize(200, 8 * button->GetCharHeight());
    wxImage shown;
    EXPECT_TRUE(pumpUntil([&] {
        shown = capture(*button);
        return pixelAt(shown, 190, shown.GetHeight() - 12) == NORMAL;
    })) << "painted in its new size";
    wxRect ink;
    for (int y = 10; y < shown.GetHeight() - 10; ++y) {
        for (int x = 10; x < shown.GetWidth() - 10; ++x) {
            if (shown.GetRed(x, y) > 120) {
                ink.Union(wxRect(x, y, 1, 1));
            }
        }
    }
    const int line = button->GetTextExtent("H").y;
    EXPECT_GT(ink.height, 3 * line) << "four lines are there";
    EXPECT_NEAR(ink.y + ink.GetBottom(), shown.GetHeight(), line);
    EXPECT_NEAR(ink.width, button->GetTextExtent("HHHH").x, button->GetCharWidth());
    EXPECT_NEAR(ink.x + ink.GetRight(), 8 + shown.GetWidth(), button->GetCharWidth()) << "the bitmap is 8 wide";
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
