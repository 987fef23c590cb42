#include <OstrelLibWx/widgets/AutoSizedButton.h>
#include <OstrelLibWx/widgets/Button.h>

#include <OstrelLibWx/WindowUtils.h>

#include "support/WidgetTest.h"

#include <wx/weakref.h>

#include <gmock/gmock.h>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;

constexpr PixelColour NORMAL{68, 68, 68};
constexpr PixelColour TOGGLED{39, 147, 255};
constexpr PixelColour PRESSED{0, 73, 112};
constexpr PixelColour BLUE_FRAME{0, 114, 188};
constexpr PixelColour DARK_FRAME{37, 37, 37};
constexpr PixelColour RED{255, 0, 0};
constexpr PixelColour GREEN{0, 255, 0};

wxBitmap filled(PixelColour colour) {
    wxImage image(8, 6);
    image.SetRGB(wxRect(0, 0, 8, 6), static_cast<unsigned char>(colour.red), static_cast<unsigned char>(colour.green),
                 static_cast<unsigned char>(colour.blue));
    return wxBitmap(image);
}

class ButtonTest : public WidgetTest {
protected:
    struct Options {
        wxString label{};
        Button::Behavior behavior = Button::PUSH;
        bool enabled = true;
        Flags<RawaBorderState> border = RawaBorderState::ENABLED;
        bool bitmaps = false;
    };

    /// A button of 160 × 60 pixels at (20, 20) of `parent`; its clicks are noted in `log`.
    Button& make(const Options& options, wxWindow& parent) {
        button = new Button(
            &parent, GuiSkin(), 4711, options.label, options.bitmaps ? filled(RED) : wxNullBitmap,
            options.bitmaps ? filled(GREEN) : wxNullBitmap,
            [this] {
                log.push_back("call");
                if (onCall) {
                    onCall();
                }
            },
            options.behavior, options.enabled, options.border);
        button->SetSize(20, 20, 160, 60);
        parent.Bind(Button::clickEventType(), [this](wxMouseEvent& event) {
            log.push_back("event");
            position = event.GetPosition();
            EXPECT_EQ(event.GetId(), 4711);
            EXPECT_EQ(event.GetEventObject(), button.get());
            toggledAtEvent = button->isToggled();
            if (onEvent) {
                onEvent();
            }
        });
        showAll();
        return *button;
    }
    Button& make(const Options& options) { return make(options, panel()); }
    Button& make() { return make(Options{}); }

    /// What the button paints, off screen; (30, 50) is clear of frame, bitmap and label.
    wxImage picture() {
        return paintOffScreen(button->GetSize(), [this](wxDC& dc) { button->paint(dc); });
    }
    PixelColour ground() { return pixelAt(picture(), 30, 50); }

    /// Presses where the pointer is and waits until the button has seen it.
    void press() {
        pressButton();
        EXPECT_TRUE(pumpUntil([this] { return button->HasCapture(); })) << "the press did not arrive";
    }

    wxWeakRef<Button> button;
    std::vector<std::string> log;
    wxPoint position;
    bool toggledAtEvent = false;
    std::function<void()> onEvent, onCall;
};

using ButtonClick = ButtonTest;
using ButtonPicture = ButtonTest;
using ButtonDestroyed = ButtonTest;
using ButtonSize = ButtonTest;

TEST_F(ButtonClick, TellsTheParentThenTheCallable) {
    make();
    movePointer(*button, wxPoint(7, 9));
    press();
    EXPECT_EQ(ground(), PRESSED);
    EXPECT_THAT(log, ElementsAre());
    releaseButton();
    EXPECT_TRUE(pumpUntil([this] { return log.size() == 2; }));
    EXPECT_THAT(log, ElementsAre("event", "call"));
    EXPECT_EQ(position, wxPoint(7, 9));
    EXPECT_FALSE(button->HasCapture());
    EXPECT_EQ(ground(), NORMAL);
}

TEST_F(ButtonClick, ReleasedOutsideIsNone) {
    make({.behavior = Button::TOGGLE});
    button->setToggled(true);
    movePointer(*button, middle(*button));
    press();
    movePointer(panel(), wxPoint(300, 300));
    releaseButton();
    EXPECT_TRUE(pumpUntil([this] { return !button->HasCapture(); }));
    EXPECT_EQ(ground(), TOGGLED);
    EXPECT_THAT(log, ElementsAre());
}

TEST_F(ButtonClick, DoubleClickIsTwo) {
    make({.behavior = Button::TOGGLE});
    movePointer(*button, middle(*button));
    input().MouseDblClick();
    EXPECT_TRUE(pumpUntil([this] { return log.size() == 4; }));
    EXPECT_THAT(log, ElementsAre("event", "call", "event", "call"));
    EXPECT_FALSE(button->isToggled());
}

TEST_F(ButtonClick, TogglesBeforeItIsTold) {
    make({.behavior = Button::TOGGLE});
    button->doClick(wxPoint(1, 1));
    EXPECT_TRUE(toggledAtEvent);
    EXPECT_EQ(ground(), TOGGLED);
    log.clear();
    button->setToggled(false);
    EXPECT_EQ(ground(), NORMAL);
    EXPECT_THAT(log, ElementsAre()) << "setting is not clicking";
}

TEST_F(ButtonClick, IsIgnoredWhileDisabled) {
    make({.enabled = false});
    click(*button, middle(*button));
    settle();
    EXPECT_TRUE(button->IsEnabled()) << "built disabled, only the look is";
    button->Enable(true);
    button->Enable(false);
    click(*button, middle(*button));
    settle();
    EXPECT_THAT(log, ElementsAre());
    EXPECT_FALSE(button->HasCapture());
}

TEST_F(ButtonClick, EndsWithTheCapture) {
    make();
    movePointer(*button, middle(*button));
    press();
    wxMouseCaptureLostEvent lost(button->GetId());
    button->ProcessWindowEvent(lost);
    EXPECT_FALSE(button->HasCapture());
    EXPECT_EQ(ground(), NORMAL);
    releaseButton();
    settle();
    EXPECT_THAT(log, ElementsAre());

    press();
    button->Enable(false);
    EXPECT_FALSE(button->HasCapture()) << "disabled while pressed";
    button->Enable(true);
    releaseButton();
    settle();
    EXPECT_THAT(log, ElementsAre());
    EXPECT_EQ(ground(), NORMAL);
}

TEST_F(ButtonDestroyed, ByItsCallable) {
    make();
    onCall = [this] { button->Destroy(); };
    click(*button, middle(*button));
    EXPECT_TRUE(pumpUntil([this] { return !button; }));
    EXPECT_THAT(log, ElementsAre("event", "call"));
}

TEST_F(ButtonDestroyed, ByTheParentsHandlerIsNotCalledAnyMore) {
    make();
    onEvent = [this] { button->Destroy(); };
    click(*button, middle(*button));
    EXPECT_TRUE(pumpUntil([this] { return !button; }));
    settle();
    EXPECT_THAT(log, ElementsAre("event"));
}

TEST_F(ButtonDestroyed, WithItsParentInTheParentsHandler) {
    auto* const parent = new wxPanel(&panel(), wxID_ANY, wxPoint(0, 0), wxSize(200, 100));
    make({}, *parent);
    onEvent = [parent] { parent->Destroy(); };
    click(*button, middle(*button));
    EXPECT_TRUE(pumpUntil([this] { return !button; }));
    settle();
    EXPECT_THAT(log, ElementsAre("event"));
}

TEST_F(ButtonDestroyed, WhilePressedReleasesTheMouse) {
    make();
    movePointer(*button, middle(*button));
    press();
    button->Destroy();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    releaseButton();
}

TEST_F(ButtonPicture, ShowsTheBitmapOfItsState) {
    make({.bitmaps = true});
    EXPECT_EQ(pixelAt(picture(), 2, 2), GREEN);
    EXPECT_EQ(pixelAt(picture(), 9, 7), GREEN);
    EXPECT_EQ(pixelAt(picture(), 10, 8), NORMAL);
    button->Enable(false);
    EXPECT_EQ(pixelAt(picture(), 2, 2), RED);

    make({.border = RawaBorderState::ENABLED | RawaBorderState::FLAT, .bitmaps = true});
    EXPECT_EQ(pixelAt(picture(), 0, 0), DARK_FRAME);
    EXPECT_EQ(pixelAt(picture(), 1, 1), GREEN);
    EXPECT_EQ(pixelAt(picture(), 9, 7), NORMAL);
}

TEST_F(ButtonPicture, OnlyTheWindowsOwnStateGreysTheLabel) {
    const auto brightest = [this] {
        const wxImage shown = picture().GetSubImage(wxRect(3, 3, 154, 52));
        int best = 0;
        for (int y = 0; y < shown.GetHeight(); ++y) {
            for (int x = 0; x < shown.GetWidth(); ++x) {
                best = std::max(best, static_cast<int>(shown.GetGreen(x, y)));
            }
        }
        return best;
    };
    make({.label = "MHMH", .enabled = false, .bitmaps = true});
    EXPECT_EQ(pixelAt(picture(), 2, 2), RED) << "all else looks disabled";
    button->SetLabel("MHMH");
    EXPECT_EQ(button->GetLabel(), "MHMH");
    EXPECT_GT(brightest(), 150);
    button->Enable(false);
    EXPECT_LE(brightest(), 110);
    EXPECT_GT(brightest(), 80) << "a label is there";
    button->SetLabel("");
    EXPECT_EQ(brightest(), 68);
}

TEST_F(ButtonPicture, OnTheScreenIsTheOneOffTheScreen) {
    make({.label = "Label", .bitmaps = true});
    movePointer(*button, middle(*button));
    EXPECT_TRUE(pumpUntil([this] { return pixelAt(capture(*button), 1, 1) == BLUE_FRAME; }));
    const wxImage screen = capture(*button);
    const wxImage offScreen = picture();
    for (const wxPoint at : {wxPoint(0, 0), {1, 1}, {3, 3}, {30, 50}, {158, 58}, {30, 59}, {159, 59}}) {
        EXPECT_EQ(pixelAt(screen, at.x, at.y), pixelAt(offScreen, at.x, at.y)) << at.x << ", " << at.y;
    }
    press();
    EXPECT_TRUE(pumpUntil([this] { return pixelAt(capture(*button), 30, 50) == PRESSED; }));
    releaseButton();
    EXPECT_TRUE(pumpUntil([this] { return pixelAt(capture(*button), 30, 50) == NORMAL; }));
}

TEST_F(ButtonSize, FollowsTheLabelOfAnAutoSizedButton) {
    make();
    EXPECT_EQ(button->GetMinSize(), wxSize(-1, scaleByDpi(24)));
    EXPECT_FALSE(button->AcceptsFocusFromKeyboard());

    auto* const sized = new AutoSizedButton(&panel(), "OK", 10, 80);
    EXPECT_EQ(sized->GetSize(), scaleByDpi(wxSize(80, 24)));
    const wxString longLabel = "A label that is wider than the minimum";
    sized->SetLabel(longLabel);
    const int width = sized->GetTextExtent(longLabel).x + 2 * scaleByDpi(10);
    EXPECT_GT(width, scaleByDpi(80));
    EXPECT_EQ(sized->GetSize(), wxSize(width, scaleByDpi(24)));
    EXPECT_EQ(sized->GetMinSize(), sized->GetSize());

    sized->SetSize(width + 50, 40);
    sized->Enable(false);
    EXPECT_EQ(sized->GetSize(), wxSize(width + 50, 40)) << "what a layout gave it stays";
}

} // namespace
} // namespace Ostrel::Wx
