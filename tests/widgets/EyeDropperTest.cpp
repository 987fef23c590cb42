#include "widgets/EyeDropperButton.h"

#include "widgets/ColorWidgetTest.h"

#include <wx/display.h>
#include <wx/popupwin.h>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;

const wxColour BLUE(0, 102, 255);

class EyeDropperTest : public ColorWidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        target = new wxPanel(&panel(), wxID_ANY, wxPoint(200, 50), wxSize(80, 80));
        target->SetBackgroundColour(wxColour(255, 0, 0));
        (new wxPanel(target, wxID_ANY, wxPoint(40, 0), wxSize(40, 80)))->SetBackgroundColour(BLUE);
        makeButton();
    }
    void makeButton() {
        tested = button = new EyeDropperButton(&panel(), wxBitmap(wxImage(20, 20)));
        button->SetSize(20, 20, 40, 40);
        button->setTooltip("A tooltip");
        button->onPickingStarted = [this] { heard("started"); };
        button->onPicked = [this](const Rgb& color) {
            picked = color;
            heard("picked");
        };
        button->onPickingEnded = [this] { heard("ended"); };
        text = new wxTextCtrl(&panel(), wxID_ANY, "", wxPoint(20, 200));
        showAll();
        giveFocus(*text);
    }
    void expectOver(const char* how) {
        EXPECT_EQ(wxWindow::GetCapture(), nullptr) << how;
        EXPECT_TRUE(hasFocus(*text)) << "the focus is given back: " << how;
    }

    EyeDropperButton* button{};
    wxTextCtrl* text{};
    wxPanel* target{};
    Rgb picked;
};

TEST_F(EyeDropperTest, PicksTheMeanOfASquareAroundThePointer) {
    struct Case {
        int radius, x;
        float blue; ///< the share of the square's columns that are
    };
    for (const auto& [radius, x, blue] : {Case{0, 39, 0}, {1, 39, 1.0F / 3}, {15, 24, 0}, {15, 25, 1.0F / 31}}) {
        button->averagingRadius = radius;
        press(*button, wxPoint(10, 10));
        dragTo(*target, wxPoint(x, 40));
        const wxImage shown = pictureOf(*button);
        releaseButton();
        EXPECT_NEAR(picked.red, 1 - blue, 1e-4F) << radius << ", " << x;
        EXPECT_NEAR(picked.green, 0.4F * blue, 1e-4F);
        EXPECT_EQ(pixelAt(shown, 20, 20).blue, std::lround(255 * blue)) << "the button shows it meanwhile";
        EXPECT_THAT(log, ElementsAre("started", "picked", "ended"));
        expectOver("picked");
    }
}

TEST_F(EyeDropperTest, LeavesOutWhatIsOffTheScreen) {
    const wxRect screen = wxDisplay(0u).GetGeometry();
    for (const bool atEnd : {false, true}) {
        const wxPoint corner = atEnd ? screen.GetBottomRight() : screen.GetTopLeft();
        auto* const popup = new wxPopupWindow(&frame(), wxBORDER_NONE);
        popup->SetSize(wxRect(atEnd ? corner - wxPoint(39, 39) : corner, wxSize(40, 40)));
        popup->SetBackgroundColour(wxColour(255, 0, 0));
        // Half of what is left of the largest square.
        (new wxPanel(popup, wxID_ANY, wxPoint(atEnd ? 32 : 0, 0), wxSize(8, 40)))->SetBackgroundColour(BLUE);
        popup->Show();
        settle();
        for (const auto& [radius, blue] : {std::pair{0, 1.0F}, {15, 0.5F}}) {
            button->averagingRadius = radius;
            press(*button, wxPoint(10, 10));
            input().MouseMove(corner);
            EXPECT_TRUE(pumpUntil([corner] { return wxGetMousePosition() == corner; }));
            releaseButton();
            EXPECT_NEAR(picked.red, 1 - blue, 1e-4F) << radius;
            EXPECT_NEAR(picked.green, 0.4F * blue, 1e-4F) << radius;
        }
        popup->Destroy();
    }
}

TEST_F(EyeDropperTest, EndsWithoutAColour) {
    for (const char* const how : {"Escape", "capture lost"}) {
        press(*button, wxPoint(10, 10));
        dragTo(*target, wxPoint(5, 5));
        if (how == std::string("Escape")) {
            pressKey(WXK_ESCAPE);
        } else {
            loseCapture(*button);
        }
        EXPECT_TRUE(pumpUntil([this] { return !button->isPicking(); })) << how;
        expectOver(how);
        releaseButton();
        EXPECT_THAT(log, ElementsAre("started", "ended")) << how;
    }
}

TEST_F(EyeDropperTest, MayBeDestroyedWhileItPicks) {
    for (const char* const when : {"started", "picked", "ended", "never"}) {
        destroyAt = when;
        press(*button, wxPoint(10, 10));
        text->Destroy(); // what had the focus is gone
        if (destroyAt == "never") {
            button->Destroy();
        }
        releaseButton();
        EXPECT_FALSE(tested) << when;
        EXPECT_EQ(wxWindow::GetCapture(), nullptr) << when;
        makeButton();
    }
}

} // namespace
} // namespace Ostrel::Wx
