#include <OstrelLibWx/widgets/Tooltip.h>

#include "support/WidgetTest.h"

#include <wx/settings.h>

namespace Ostrel::Wx {
namespace {

constexpr long long SHORT_MS = 20;
constexpr long long NEVER_MS = 1LL << 40;

class Owner : public wxPanel, public TooltipWindow {
public:
    explicit Owner(wxWindow* parent)
        : wxPanel(parent, wxID_ANY, wxPoint(40, 40), wxSize(120, 80))
        , TooltipWindow(this) {
        Bind(wxEVT_MOTION, [this](wxMouseEvent&) { ++motions; });
    }

    int motions = 0;
};

class TooltipTest : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        owner = new Owner(&panel());
        EXPECT_EQ(owner->getTooltip(), nullptr);
        owner->setTooltip("Two\nlines of text");
        tooltip = owner->getTooltip();
        tooltip->setDelay(SHORT_MS);
        showAll();
    }

    /// Moves the pointer over the owner until the owner has been told.
    void rest(wxPoint point) {
        movePointer(*owner, point - wxPoint(5, 0));
        movePointer(*owner, point);
        EXPECT_TRUE(pumpUntil([this] { return owner->motions > 0; })) << "the owner's own handlers are not asked";
    }

    bool appears() {
        return pumpUntil([this] { return tooltip->IsShown(); });
    }

    /// Tells the owner that the mouse moves over it, wherever the pointer is.
    void sendMotion() {
        wxMouseEvent event(wxEVT_MOTION);
        owner->ProcessWindowEvent(event);
    }

    wxWeakRef<Owner> owner;
    wxWeakRef<Tooltip> tooltip;
};

PixelColour systemColour(wxSystemColour index) {
    const wxColour colour = wxSystemSettings::GetColour(index);
    return {colour.Red(), colour.Green(), colour.Blue()};
}

TEST_F(TooltipTest, AppearsAtTheMouseInItsExactSizeAndTakesNoFocus) {
    const wxWindow* const focus = wxWindow::FindFocus();
    rest(wxPoint(30, 20));
    ASSERT_TRUE(appears());
    EXPECT_EQ(tooltip->GetScreenPosition(), wxGetMousePosition() + wxPoint(10, 5));
    const wxSize first = tooltip->GetTextExtent("Two");
    const wxSize second = tooltip->GetTextExtent("lines of text");
    EXPECT_EQ(tooltip->GetSize(), wxSize(second.x + 6, first.y + second.y + 6));
    EXPECT_EQ(tooltip->GetClientSize(), tooltip->GetSize()) << "the system adds no border";

    const PixelColour ink = systemColour(wxSYS_COLOUR_INFOTEXT);
    EXPECT_TRUE(pumpUntil([&] { return pixelAt(capture(*tooltip), 0, 0) == ink; }));
    const wxImage shown = capture(*tooltip);
    EXPECT_EQ(pixelAt(shown, shown.GetWidth() - 1, shown.GetHeight() - 1), ink);
    EXPECT_EQ(pixelAt(shown, 1, 1), systemColour(wxSYS_COLOUR_INFOBK));
    EXPECT_EQ(wxWindow::FindFocus(), focus);
    EXPECT_TRUE(frame().IsActive());

    owner->setTooltip("Another text, while the first is shown");
    EXPECT_EQ(tooltip->GetSize().x, tooltip->GetTextExtent("Another text, while the first is shown").x + 6);
    EXPECT_TRUE(tooltip->IsShown());
    owner->setTooltip("");
    EXPECT_FALSE(tooltip->IsShown());
}

TEST_F(TooltipTest, GoesWhenTheMouseLeavesOrTheButtonComesUp) {
    movePointer(*owner, middle(*owner));
    ASSERT_TRUE(appears());
    movePointer(panel(), wxPoint(400, 300));
    EXPECT_TRUE(pumpUntil([this] { return !tooltip->IsShown(); }));

    movePointer(*owner, middle(*owner));
    ASSERT_TRUE(appears());
    tooltip->setDelay(NEVER_MS);
    pressButton();
    releaseButton();
    EXPECT_TRUE(pumpUntil([this] { return !tooltip->IsShown(); }));
}

TEST_F(TooltipTest, EveryMotionArmsItAnew) {
    tooltip->setDelay(NEVER_MS);
    rest(middle(*owner));
    tooltip->setDelay(0); // counts when it is armed next
    settle();
    EXPECT_FALSE(tooltip->IsShown());
    sendMotion();
    EXPECT_TRUE(appears());
}

TEST_F(TooltipTest, StaysAwayFromAMouseElsewhereAndWithoutText) {
    sendMotion();
    wxTimer after;
    after.StartOnce(3 * SHORT_MS);
    EXPECT_TRUE(pumpUntil([&after] { return !after.IsRunning(); }));
    EXPECT_FALSE(tooltip->IsShown()) << "the pointer is outside the owner";

    owner->setTooltip("");
    movePointer(*owner, middle(*owner));
    sendMotion();
    after.StartOnce(3 * SHORT_MS);
    EXPECT_TRUE(pumpUntil([&after] { return !after.IsRunning(); }));
    EXPECT_FALSE(tooltip->IsShown()) << "there is no line to show";
}

TEST_F(TooltipTest, IsBrokenAt250DesignPixels) {
    String text;
    for (int i = 0; i < 40; ++i) {
        text += L"word ";
    }
    tooltip->setText(text);
    ASSERT_GT(tooltip->getLines().size(), 1u);
    EXPECT_LE(tooltip->GetTextExtent(wxString(tooltip->getLines().front().toWide())).x, tooltip->FromDIP(250));
    EXPECT_GT(tooltip->GetTextExtent(wxString(tooltip->getLines().front().toWide())).x, tooltip->FromDIP(200));
}

TEST_F(TooltipTest, GoesWithItsOwnerOrBeforeIt) {
    movePointer(*owner, middle(*owner));
    ASSERT_TRUE(appears());
    tooltip->Destroy();
    EXPECT_TRUE(pumpUntil([this] { return !tooltip; }));
    EXPECT_EQ(owner->getTooltip(), nullptr);
    sendMotion();

    owner->setTooltip("again");
    tooltip = owner->getTooltip();
    tooltip->setDelay(SHORT_MS);
    sendMotion();
    ASSERT_TRUE(appears());
    owner->Destroy();
    EXPECT_TRUE(pumpUntil([this] { return !owner && !tooltip; }));
}

} // namespace
} // namespace Ostrel::Wx
