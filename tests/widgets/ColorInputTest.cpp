#include "widgets/EyeDropperButton.h"

#include <OstrelLibWx/widgets/TextControl.h>

#include "core/Printing.h"
#include "support/WidgetTest.h"
#include "widgets/HexColorEdit.h"

#include <gmock/gmock.h>
#include <wx/dcclient.h>
#include <wx/display.h>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;

class EyeDropperTest : public WidgetTest {
protected:
    static constexpr int EDGE = 80;

    void SetUp() override {
        WidgetTest::SetUp();
        // The left half is (255, 0, 0), the right one (0, 102, 255).
        auto* const target = _target = new wxPanel(&panel(), wxID_ANY, wxPoint(200, 50), wxSize(EDGE, EDGE));
        target->Bind(wxEVT_PAINT, [target](wxPaintEvent&) {
            wxPaintDC dc(target);
            dc.SetPen(*wxTRANSPARENT_PEN);
            dc.SetBrush(wxBrush(wxColour(255, 0, 0)));
            dc.DrawRectangle(0, 0, EDGE / 2, EDGE);
            dc.SetBrush(wxBrush(wxColour(0, 102, 255)));
            dc.DrawRectangle(EDGE / 2, 0, EDGE / 2, EDGE);
        });
        text = new wxTextCtrl(&panel(), wxID_ANY, "", wxPoint(20, 200));
        makeButton();
    }
    void makeButton() {
        button = new EyeDropperButton(&panel(), wxBitmap(wxImage(20, 20)));
        button->SetSize(20, 20, 40, 40);
        button->setTooltip("A tooltip");
        const auto heard = [this](const char* what) {
            log.push_back(what);
            if (destroyAt == what) {
                button->Destroy();
            }
        };
        button->onPickingStarted = [=] { heard("started"); };
        button->onPicked = [this, heard](const Rgb& color) {
            picked = color;
            heard("picked");
        };
        button->onPickingEnded = [=] { heard("ended"); };
        showAll();
        text->SetFocus();
        EXPECT_TRUE(pumpUntil([this] { return text->HasFocus(); }));
        log.clear();
    }
    void press() {
        dragTo(*button, wxPoint(10, 10));
        input().MouseDown();
        EXPECT_TRUE(pumpUntil([this] { return !log.empty(); })) << "the press did not arrive";
    }
    void dragTo(const wxWindow& window, wxPoint point) {
        movePointer(window, point);
        settle(); // GTK keeps the newest motion back until something else happens
    }
    void expectOver(const char* how) {
        EXPECT_EQ(wxWindow::GetCapture(), nullptr) << how;
        EXPECT_TRUE(pumpUntil([this] { return text->HasFocus(); })) << "the focus is given back: " << how;
    }
    const wxWindow& target() { return *_target; }

    wxWeakRef<EyeDropperButton> button;
    wxTextCtrl* text{};
    Rgb picked;
    std::vector<std::string> log;
    std::string destroyAt;

private:
    wxPanel* _target{};
};

TEST_F(EyeDropperTest, PicksTheMeanOfASquareAroundThePointer) {
    struct Case {
        int radius;
        wxPoint point;
        float blueShare; ///< of the square's columns
    };
    for (const auto& [radius, point, share] : {Case{0, {39, 40}, 0},
                                               {0, {40, 40}, 1},
                                               {1, {39, 40}, 1.0F / 3},
                                               {15, {40, 40}, 16.0F / 31},
                                               {15, {24, 40}, 0},
                                               {15, {25, 40}, 1.0F / 31}}) {
        button->averagingRadius = radius;
        press();
        EXPECT_TRUE(button->isPicking() && button->HasFocus());
        dragTo(target(), point);
        const wxImage shown = paintOffScreen(button->GetSize(), [this](wxDC& dc) { button->paint(dc); });
        releaseButton();
        const Rgb expected{1 - share, 0.4F * share, share};
        EXPECT_NEAR(picked.red, expected.red, 1e-4F) << radius << ", " << point.x;
        EXPECT_NEAR(picked.green, expected.green, 1e-4F);
        EXPECT_NEAR(picked.blue, expected.blue, 1e-4F);
        EXPECT_NEAR(picked.alpha, 1, 1e-4F);
        EXPECT_EQ(pixelAt(shown, 20, 20).red, std::lround(255 * expected.red)) << "the button shows it meanwhile";
        EXPECT_THAT(log, ElementsAre("started", "picked", "ended"));
        log.clear();
        expectOver("picked");
    }
}

TEST_F(EyeDropperTest, LeavesOutWhatIsOffTheScreen) {
    button->averagingRadius = 15;
    const wxRect screen = wxDisplay(0u).GetGeometry();
    for (const wxPoint corner : {screen.GetTopLeft(), screen.GetBottomRight()}) {
        press();
        input().MouseMove(corner);
        EXPECT_TRUE(pumpUntil([corner] { return wxGetMousePosition() == corner; }));
        releaseButton();
        EXPECT_NEAR(picked.alpha, 1, 1e-4F) << "the mean is not darkened by what is not there";
    }
}

TEST_F(EyeDropperTest, EndsWithoutAColour) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"Escape", [this] { pressKey(WXK_ESCAPE); }},
        {"capture lost",
         [this] {
             wxMouseCaptureLostEvent lost;
             button->ProcessWindowEvent(lost);
         }},
        {"asked to", [this] { button->endPicking(); }},
    };
    for (const auto& [how, end] : ways) {
        press();
        dragTo(target(), wxPoint(5, 5));
        end();
        EXPECT_TRUE(pumpUntil([this] { return !button->isPicking(); })) << how;
        expectOver(how);
        releaseButton();
        EXPECT_THAT(log, ElementsAre("started", "ended")) << how;
        log.clear();
    }
}

TEST_F(EyeDropperTest, MayBeDestroyedWhileItPicks) {
    for (const char* const when : {"started", "picked", "ended", "never"}) {
        destroyAt = when;
        press();
        if (destroyAt == "never") {
            button->GetParent()->RemoveChild(text); // what had the focus goes first
            text->Reparent(&frame());
            text->Destroy();
            button->Destroy();
        }
        releaseButton();
        EXPECT_FALSE(button) << when;
        EXPECT_EQ(wxWindow::GetCapture(), nullptr) << when;
        if (destroyAt != "never") {
            makeButton();
        }
    }
}

class HexColorEditTest : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        edit = new HexColorEdit(&panel(), 100);
        edit->SetPosition(wxPoint(20, 20));
        other = new wxTextCtrl(&panel(), wxID_ANY, "", wxPoint(20, 100));
        other->SetFocus();
        edit->onChanged = [this](const Rgb& color) { log.push_back(formatted(color)); };
        edit->onFocusGained = [this] { log.push_back("focus"); };
        edit->onFocusLost = [this] { log.push_back("focus lost"); };
        showAll();
    }
    static std::string formatted(const Rgb& color) {
        const RgbBytes bytes = toRgbBytes(color);
        return wxString::Format("%d %d %d", bytes.red, bytes.green, bytes.blue).ToStdString();
    }
    wxTextCtrl& text() { return edit->getTextControl(); }

    HexColorEdit* edit{};
    wxTextCtrl* other{};
    std::vector<std::string> log;
};

TEST_F(HexColorEditTest, ReadsEachKeystrokeAndWritesOnlyWhatIsNotTyped) {
    edit->setColor({1, 0.5F, 0});
    EXPECT_EQ(text().GetValue(), "FF8000");
    EXPECT_TRUE(log.empty());

    text().SetFocus();
    EXPECT_TRUE(pumpUntil([this] { return text().HasFocus(); }));
    text().SelectAll();
    input().Text("ff8");
    EXPECT_TRUE(pumpUntil([this] { return text().GetValue() == "ff8"; }));
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(log.front(), "focus");
    EXPECT_EQ(log.back(), "0 15 248");
    EXPECT_EQ(edit->getColor(), (Rgb{0, 15 / 255.0F, 248 / 255.0F}));
    edit->setColor({0, 0, 1});
    EXPECT_EQ(text().GetValue(), "ff8") << "what is typed is not disturbed";

    log.clear();
    other->SetFocus();
    EXPECT_TRUE(pumpUntil([this] { return log == std::vector<std::string>{"focus lost"}; }));
    EXPECT_EQ(text().GetValue(), "0000FF");
    text().SetValue("#12");
    EXPECT_THAT(log, ElementsAre("focus lost", "0 0 0"));
    EXPECT_EQ(text().GetValue(), "000000") << "nobody is typing";
}

} // namespace
} // namespace Ostrel::Wx
