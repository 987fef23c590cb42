#include <OstrelLibWx/widgets/Tooltip.h>

#include "support/WidgetTest.h"

#include <wx/settings.h>

namespace Ostrel::Wx {
namespace {

constexpr long long SHORT_MS = 20;
constexpr long long NEVER_MS = 1LL << 40;

struct Owner : wxPanel, TooltipWindow {
    explicit Owner(wxWindow* parent)
        : wxPanel(parent, wxID_ANY, wxPoint(40, 40), wxSize(120, 80))
        , TooltipWindow(this) {
        Bind(wxEVT_MOTION, [this](wxMouseEvent&) { moved = true; });
    }
    bool moved = false;
};

class TooltipTest : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        owner = new Owner(&panel());
        giveText("Two\nlines of text");
        showAll();
    }
    void giveText(const String& text) {
        owner->setTooltip(text);
        tooltip = owner->getTooltip();
        tooltip->setDelay(SHORT_MS);
    }

    /// Moves the pointer over the owner until the owner's own handler has been told as well.
    void rest() {
        movePointer(*owner, wxPoint(30, 20));
        movePointer(*owner, wxPoint(40, 20));
        EXPECT_TRUE(pumpUntil([this] { return owner->moved; }));
    }
    /// Tells the owner that the mouse moves over it, wherever the pointer is.
    void sendMotion() {
        wxMouseEvent event(wxEVT_MOTION);
        owner->ProcessWindowEvent(event);
    }
    bool becomes(bool shown) {
        return pumpUntil([this, shown] { return tooltip->IsShown() == shown; });
    }

    wxWeakRef<Owner> owner;
    wxWeakRef<Tooltip> tooltip;
};

TEST_F(TooltipTest, AppearsAtTheMouseInItsExactSizeAndTakesNoFocus) {
    const wxWindow* const focus = wxWindow::FindFocus();
    rest();
    const wxPoint place = wxGetMousePosition() + wxPoint(10, 5);
    ASSERT_TRUE(pumpUntil([&] { return tooltip->IsShown() && tooltip->GetScreenPosition() == place; }));
    const wxSize first = tooltip->GetTextExtent("Two");
    const wxSize second = tooltip->GetTextExtent("lines of text");
    EXPECT_EQ(tooltip->GetSize(), wxSize(second.x + 6, first.y + second.y + 6));
    EXPECT_EQ(tooltip->GetClientSize(), tooltip->GetSize()) << "the system adds no border";
    EXPECT_TRUE(wxWindow::FindFocus() == focus && frame().IsActive());

    const auto shows = [this](wxPoint at, wxSystemColour index) {
        const wxColour colour = wxSystemSettings::GetColour(index);
        const PixelColour expected{colour.Red(), colour.Green(), colour.Blue()};
        return pumpUntil([&] { return pixelAt(capture(*tooltip), at.x, at.y) == expected; });
    };
    EXPECT_TRUE(shows(wxPoint(second.x + 5, first.y + second.y + 5), wxSYS_COLOUR_INFOTEXT));
    EXPECT_TRUE(shows(wxPoint(1, 1), wxSYS_COLOUR_INFOBK));

    giveText("Another text, while the first is shown");
    EXPECT_EQ(tooltip->GetSize().x, tooltip->GetTextExtent("Another text, while the first is shown").x + 6);
    giveText("");
    EXPECT_FALSE(tooltip->IsShown());
}

TEST_F(TooltipTest, HasTheSizeOfItsTextWhenItsOwnerShowsItToo) {
    giveText("One line");
    EXPECT_TRUE(tooltip->Show());
    EXPECT_EQ(tooltip->GetSize(), tooltip->GetTextExtent("One line") + wxSize(6, 6));
    tooltip->Hide();
    giveText("");
    EXPECT_FALSE(tooltip->Show() || tooltip->IsShown());
}

TEST_F(TooltipTest, GoesWhenTheMouseLeavesOrTheButtonComesUp) {
    rest();
    ASSERT_TRUE(becomes(true));
    movePointer(panel(), wxPoint(400, 300));
    EXPECT_TRUE(becomes(false));
    rest();
    ASSERT_TRUE(becomes(true));
    tooltip->setDelay(NEVER_MS);
    pressButton();
    releaseButton();
    EXPECT_TRUE(becomes(false));

    // Every motion arms it anew: a new delay counts from the next one on.
    tooltip->setDelay(0);
    settle();
    EXPECT_FALSE(tooltip->IsShown());
    sendMotion();
    EXPECT_TRUE(becomes(true));
}

TEST_F(TooltipTest, StaysAwayWhileTheMouseIsElsewhere) {
    sendMotion();
    wxTimer after;
    after.StartOnce(3 * SHORT_MS);
    EXPECT_TRUE(pumpUntil([&after] { return !after.IsRunning(); }));
    EXPECT_FALSE(tooltip->IsShown());
}

TEST_F(TooltipTest, GoesWithItsOwnerOrBeforeIt) {
    rest();
    ASSERT_TRUE(becomes(true));
    tooltip->Destroy();
    EXPECT_TRUE(pumpUntil([this] { return owner->getTooltip() == nullptr; }));
    sendMotion();
    giveText("again");
    sendMotion();
    ASSERT_TRUE(becomes(true));
    owner->Destroy();
    EXPECT_TRUE(pumpUntil([this] { return !owner && !tooltip; }));
}

} // namespace
} // namespace Ostrel::Wx
