#include <OstrelLibWx/widgets/CollapsiblePanel.h>

#include "support/WidgetTest.h"

#include <wx/dialog.h>
#include <wx/scrolwin.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int CONTENT_HEIGHT = 70;
constexpr PixelColour NORMAL{68, 68, 68};
constexpr PixelColour PRESSED{0, 73, 112};
constexpr PixelColour FRAME{37, 37, 37};
constexpr PixelColour FRAME_UNDER_MOUSE{0, 114, 188};
constexpr PixelColour TEXT{200, 200, 200};
constexpr PixelColour GREYED_TEXT{110, 110, 110};

class CollapsiblePanelTest : public WidgetTest {
protected:
    /// A panel with a text field of `CONTENT_HEIGHT`, in a column with a mark below it.
    void make(wxWindow& parent, bool expanded = true) {
        collapsible = new CollapsiblePanel(&parent, GuiSkin(), 4711, "HHHH", expanded, [this](bool open) {
            log.push_back(open);
            onToggle();
        });
        text = new wxTextCtrl(collapsible->getContent(), wxID_ANY);
        auto* const inner = new wxBoxSizer(wxVERTICAL);
        inner->Add(text, wxSizerFlags(1).Expand());
        inner->SetMinSize(100, CONTENT_HEIGHT);
        collapsible->getContent()->SetSizer(inner);
        below = new wxPanel(&parent, wxID_ANY, wxDefaultPosition, wxSize(50, 20));
        auto* const column = new wxBoxSizer(wxVERTICAL);
        column->Add(collapsible.get(), wxSizerFlags().Expand());
        column->Add(below);
        parent.SetSizer(column);
        showAll();
        header = collapsible->getHeaderRect();
    }

    wxPoint onHeader() { return {header.width / 2, header.height / 2}; }
    wxWindow& headerWindow() { return *collapsible->GetChildren().GetFirst()->GetData(); }
    wxImage picture() {
        return paintOffScreen(header.GetSize(), [this](wxDC& dc) { collapsible->paintHeader(dc); });
    }
    PixelColour ground() { return pixelAt(picture(), header.width - 10, header.height / 2); }
    bool isToldOf(std::size_t changes) {
        return pumpUntil([this, changes] { return log.size() == changes; });
    }

    wxWeakRef<CollapsiblePanel> collapsible;
    wxTextCtrl* text = nullptr;
    wxPanel* below = nullptr;
    wxRect header;
    std::vector<bool> log;
    std::function<void()> onToggle = [] {};
};

using CollapsibleLayout = CollapsiblePanelTest;
using CollapsibleClick = CollapsiblePanelTest;
using CollapsibleLook = CollapsiblePanelTest;

TEST_F(CollapsibleLayout, FollowsEveryChangeInASizer) {
    make(panel());
    EXPECT_EQ(header.height, scaleByDpi(24));
    EXPECT_EQ(collapsible->GetBestSize().y, header.height + CONTENT_HEIGHT);
    EXPECT_EQ(below->GetPosition().y, header.height + CONTENT_HEIGHT);

    onToggle = [this] { EXPECT_EQ(below->GetPosition().y, header.height) << "laid out before the host is told"; };
    click(*collapsible, onHeader());
    EXPECT_TRUE(isToldOf(1));
    EXPECT_FALSE(collapsible->getContent()->IsShown());
    EXPECT_EQ(collapsible->GetBestSize().y, header.height);
    EXPECT_EQ(collapsible->GetSize().y, header.height);

    onToggle = [] {};
    auto* const added = new wxPanel(collapsible->getContent());
    collapsible->getContent()->GetSizer()->Add(added, wxSizerFlags().Border(wxBOTTOM, 30));
    added->SetMinSize(wxSize(10, 10));
    collapsible->getContent()->GetSizer()->SetMinSize(100, CONTENT_HEIGHT + 40);
    collapsible->setExpanded(true, false);
    EXPECT_EQ(below->GetPosition().y, header.height + CONTENT_HEIGHT + 40) << "with what was added while closed";
    EXPECT_EQ(text->GetSize().x, panel().GetClientSize().x);
    collapsible->setExpanded(true, true);
    EXPECT_THAT(log, ElementsAre(false)) << "neither without notice nor without a change";
}

TEST_F(CollapsibleLayout, BeginsClosedAndReachesThroughNestedPanels) {
    auto* const outer = new CollapsiblePanel(&panel(), GuiSkin(), wxID_ANY, "Outer");
    auto* const after = new wxPanel(&panel(), wxID_ANY, wxDefaultPosition, wxSize(50, 20));
    auto* const column = new wxBoxSizer(wxVERTICAL);
    column->Add(outer, wxSizerFlags().Expand());
    column->Add(after);
    panel().SetSizer(column);
    make(*outer->getContent(), false);
    const int closed = after->GetPosition().y;
    EXPECT_EQ(closed, 2 * header.height + 20);
    collapsible->setExpanded(true, false);
    EXPECT_EQ(after->GetPosition().y, closed + CONTENT_HEIGHT);
    EXPECT_EQ(text->GetSize().y, CONTENT_HEIGHT);
}

TEST_F(CollapsibleLayout, FitsTheRangeOfAScrolledParent) {
    auto* const scrolled = new wxScrolledWindow(&panel(), wxID_ANY, wxPoint(0, 0), wxSize(300, 80));
    scrolled->SetScrollRate(5, 5);
    make(*scrolled, false);
    const int closed = scrolled->GetVirtualSize().y;
    click(*collapsible, onHeader());
    EXPECT_TRUE(isToldOf(1));
    EXPECT_EQ(scrolled->GetVirtualSize().y, header.height + CONTENT_HEIGHT + 20);
    scrolled->Scroll(0, 10);
    EXPECT_GT(scrolled->GetViewStart().y, 0);
    collapsible->setExpanded(false, false);
    EXPECT_EQ(scrolled->GetVirtualSize().y, closed);
    EXPECT_EQ(scrolled->GetViewStart().y, 0) << "nothing is left to scroll";
    EXPECT_EQ(collapsible->GetPosition().y, 0);
}

TEST_F(CollapsibleLayout, SetsItsOwnHeightWhereNoSizerHoldsIt) {
    make(panel());
    panel().SetSizer(nullptr);
    collapsible->SetSize(10, 10, 200, 300);
    collapsible->setExpanded(false, false);
    EXPECT_EQ(collapsible->GetRect(), wxRect(10, 10, 200, header.height));
}

TEST_F(CollapsibleClick, IsAlsoAKeyOnTheHeaderEvenInADialog) {
    wxDialog dialog(&frame(), wxID_ANY, "Dialog");
    bool confirmed = false;
    dialog.Bind(
        wxEVT_BUTTON, [&confirmed](wxCommandEvent&) { confirmed = true; }, wxID_OK);
    auto* const host = new wxPanel(&dialog);
    make(*host);
    (new wxButton(host, wxID_OK, "OK", wxPoint(200, 150)))->SetDefault();
    dialog.SetClientSize(300, 200);
    dialog.Show();
    ASSERT_TRUE(pumpUntil([&dialog] { return dialog.IsActive(); }));
    giveFocus(headerWindow());
    std::size_t changes = 0;
    for (const int key : {WXK_SPACE, WXK_RETURN, WXK_RETURN}) {
        pressKey(key);
        EXPECT_TRUE(isToldOf(++changes)) << key;
    }
    EXPECT_THAT(log, ElementsAre(false, true, false));
    EXPECT_FALSE(confirmed) << "Enter was the header's";
}

TEST_F(CollapsibleClick, TakesTheFocusOutOfAContentThatCloses) {
    make(panel());
    giveFocus(*text);
    pressKey(WXK_SPACE);
    EXPECT_TRUE(pumpUntil([this] { return text->GetValue() == " "; }));
    EXPECT_THAT(log, IsEmpty()) << "the content's keys are its own";
    collapsible->setExpanded(false, false);
    EXPECT_TRUE(hasFocus(headerWindow()));
    collapsible->setExpanded(true, false);
    pressKey(WXK_TAB);
    EXPECT_TRUE(hasFocus(*text));
}

TEST_F(CollapsibleClick, EndsWithThePanel) {
    make(panel());
    for (const bool destroyed : {false, true}) {
        pressOn(headerWindow(), onHeader());
        EXPECT_EQ(ground(), PRESSED);
        destroyed ? collapsible->Destroy() : collapsible->Enable(false);
        EXPECT_EQ(wxWindow::GetCapture(), nullptr);
        releaseButton();
        if (!destroyed) {
            EXPECT_FALSE(text->IsEnabled());
            collapsible->Enable(true);
        }
    }
    settle();
    EXPECT_THAT(log, IsEmpty());

    make(panel());
    onToggle = [this] { collapsible->Destroy(); };
    giveFocus(headerWindow());
    pressKey(WXK_RETURN);
    EXPECT_TRUE(pumpUntil([this] { return !collapsible; }));
}

TEST_F(CollapsibleLook, SaysWhichStateItIsIn) {
    make(panel());
    // The triangle's middle is one gap and half its side from the left.
    const int side = 2 * scaleByDpi(4) - 1;
    const wxPoint triangle(scaleByDpi(8) + side / 2, header.height / 2);
    const auto leftEnd = [&] { return pixelAt(picture(), scaleByDpi(8), triangle.y - scaleByDpi(4) / 2); };
    EXPECT_EQ(leftEnd(), TEXT) << "open: its side is above";
    collapsible->setExpanded(false, false);
    EXPECT_EQ(leftEnd(), NORMAL) << "closed: its side is at the left";
    EXPECT_EQ(pixelAt(picture(), triangle.x, triangle.y), TEXT);

    EXPECT_EQ(pixelAt(picture(), 1, 1), FRAME);
    const wxPoint dot(scaleByDpi(3), scaleByDpi(3));
    EXPECT_EQ(pixelAt(picture(), dot.x, dot.y), NORMAL);
    giveFocus(headerWindow());
    EXPECT_TRUE(pumpUntil([&] { return pixelAt(picture(), dot.x, dot.y) == TEXT; }));
    movePointer(*collapsible, onHeader());
    EXPECT_TRUE(pumpUntil([&] { return pixelAt(picture(), 1, 1) == FRAME_UNDER_MOUSE; }));
    EXPECT_TRUE(pumpUntil([&] { return pixelAt(capture(headerWindow()), 1, 1) == FRAME_UNDER_MOUSE; }));
    const wxImage screen = capture(headerWindow());
    for (const wxPoint at : {wxPoint(0, 0), wxPoint(1, 1), triangle, dot, dot + wxPoint(1, 0)}) {
        EXPECT_EQ(pixelAt(screen, at.x, at.y), pixelAt(picture(), at.x, at.y)) << at.x << ", " << at.y;
    }
    collapsible->Enable(false);
    EXPECT_EQ(pixelAt(picture(), 1, 1), FRAME);
    EXPECT_EQ(pixelAt(picture(), triangle.x, triangle.y), GREYED_TEXT);
}

} // namespace
} // namespace Ostrel::Wx
