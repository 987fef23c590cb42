#include <OstrelLibWx/widgets/ColorPicker.h>
#include <OstrelLibWx/widgets/GradientControl.h>

#include <OstrelLibWx/WindowUtils.h>

#include "support/WidgetTest.h"
#include "widgets/ModalDriver.h"

#include <gmock/gmock.h>
#include <wx/weakref.h>

namespace Ostrel::Wx {
namespace {

constexpr Hsv BLACK{0.0F, 0.0F, 0.0F};
constexpr Hsv WHITE{0.0F, 0.0F, 1.0F};
constexpr Hsv HUED_GREY{200.0F, 0.0F, 0.5F};

class GradientControlTest : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        control = new GradientControl(&panel(), wxSize(312, 40), 0.0F, 1.0F);
        control->Move(20, 20);
        control->setGradient(ColorGradient({{BLACK, 0.0F}, {HUED_GREY, 0.5F}, {WHITE, 1.0F}}));
        control->setOnChangeCallback([this](const ColorGradient& gradient) {
            told.push_back(gradient);
            onChange();
        });
        showAll();
    }

    int margin() { return scaleByDpi(10) / 2 + 1; }
    wxPoint handle(float position) {
        const wxSize size = control->GetClientSize();
        return {margin() + static_cast<int>(position * static_cast<float>(size.x - 2 * margin())), size.y - margin()};
    }
    wxPoint strip(float position) { return {handle(position).x, 8}; }
    std::size_t countPoints() { return control->getGradient().getPoints().size(); }
    float positionOf(std::size_t index) { return control->getGradient().getPoints()[index].position; }
    wxImage picture() {
        return paintOffScreen(control->GetClientSize(), [this](wxDC& dc) { control->paint(dc); });
    }

    void doubleClick(wxPoint point) {
        movePointer(*control, point);
        input().MouseDblClick();
    }
    static ColorPicker* picker() { return ModalDriver::findShown<ColorPicker>(); }
    static bool isPickerGone() { return picker() == nullptr; }
    /// Double-clicks, and works the picker that opens.
    void edit(wxPoint point, std::vector<ModalDriver::Step> steps) {
        ModalDriver driver(std::move(steps));
        doubleClick(point);
        EXPECT_TRUE(pumpUntil([this] { return !control || isPickerGone(); }));
    }

    wxWeakRef<GradientControl> control;
    std::vector<ColorGradient> told;
    std::function<void()> onChange = [] {};
};

using GradientMouse = GradientControlTest;
using GradientPicker = GradientControlTest;
using GradientLook = GradientControlTest;

TEST_F(GradientMouse, DragsAHandleAndTellsOfItOnceAtTheEnd) {
    movePointer(*control, handle(0.5F));
    pressButton();
    ASSERT_TRUE(pumpUntil([this] { return control->HasCapture(); }));
    movePointer(*control, handle(0.75F));
    ASSERT_TRUE(pumpUntil([this] { return positionOf(1) > 0.74F; }));
    EXPECT_TRUE(told.empty());
    movePointer(panel(), wxPoint(600, 300));
    EXPECT_TRUE(pumpUntil([this] { return positionOf(1) == 1.0F; })) << "beyond the control it stops at its end";
    releaseButton();
    EXPECT_TRUE(pumpUntil([this] { return told.size() == 1; }));
    EXPECT_FALSE(control->HasCapture());
    EXPECT_EQ(told.back(), control->getGradient());

    click(*control, strip(0.25F));
    click(*control, strip(0.25F), wxMOUSE_BTN_RIGHT);
    settle();
    EXPECT_EQ(told.size(), 1u) << "clicks beside the handles";
    click(*control, handle(0.0F), wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(pumpUntil([this] { return told.size() == 2; }));
    EXPECT_EQ(countPoints(), 2u);
}

TEST_F(GradientMouse, EndsADragThatIsTakenAway) {
    const std::pair<const char*, std::function<void()>> ways[] = {{"capture lost",
                                                                   [this] {
                                                                       wxMouseCaptureLostEvent lost(control->GetId());
                                                                       control->ProcessWindowEvent(lost);
                                                                   }},
                                                                  {"disabled", [this] {
                                                                       control->Enable(false);
                                                                       control->Enable(true);
                                                                   }}};
    float next = 0.0F;
    for (const auto& [name, takeAway] : ways) {
        SCOPED_TRACE(name);
        told.clear();
        movePointer(*control, handle(next)); // not twice at one place: that would be a double-click
        next += 0.5F;
        pressButton();
        ASSERT_TRUE(pumpUntil([this] { return control->HasCapture(); }));
        takeAway();
        EXPECT_FALSE(control->HasCapture());
        EXPECT_EQ(told.size(), 1u);
        releaseButton();
        settle();
        EXPECT_EQ(told.size(), 1u);
    }
    movePointer(*control, handle(next));
    pressButton();
    ASSERT_TRUE(pumpUntil([this] { return control->HasCapture(); }));
    control->Destroy();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(GradientMouse, MayDestroyTheControl) {
    onChange = [this] { control->Destroy(); };
    movePointer(*control, handle(0.5F));
    pressButton();
    releaseButton();
    EXPECT_TRUE(pumpUntil([this] { return !control; }));
}

TEST_F(GradientPicker, RecoloursAPointAndCancelBringsItsVeryColourBack) {
    const auto isOpen = [] { return ModalDriver::findActive<ColorPicker>() != nullptr; };
    edit(handle(0.5F), {isOpen, [this] {
                            EXPECT_EQ(picker()->GetTitle(), "Set gradient control point color");
                            EXPECT_EQ(picker()->getColor(), (Rgb{0.5F, 0.5F, 0.5F}));
                            picker()->onColorChanged({1.0F, 0.0F, 0.0F});
                            EXPECT_EQ(told.back().getPoints()[1].color, (Hsv{0.0F, 1.0F, 1.0F}));
                            picker()->Close();
                            return true;
                        }});
    ASSERT_TRUE(control);
    EXPECT_EQ(control->getGradient().getPoints()[1].color, HUED_GREY);
    EXPECT_EQ(told.back(), control->getGradient());
    EXPECT_EQ(countPoints(), 3u);

    edit(strip(0.25F), {isOpen, [] {
                            picker()->onColorAccepted({0.0F, 0.0F, 1.0F});
                            picker()->EndModal(wxID_OK);
                            return true;
                        }});
    ASSERT_EQ(countPoints(), 4u);
    EXPECT_NEAR(positionOf(1), 0.25F, 0.01F);
    EXPECT_NEAR(control->getGradient().getPoints()[1].color.hue, 240.0F, 0.01F);
    EXPECT_EQ(told.back(), control->getGradient());
}

TEST_F(GradientPicker, MayStayOpenLongerThanWhatItEdits) {
    const auto isOpen = [] { return ModalDriver::findActive<ColorPicker>() != nullptr; };
    edit(handle(0.5F), {isOpen, [this] {
                            control->setGradient({});
                            told.clear();
                            picker()->onColorChanged({1.0F, 0.0F, 0.0F});
                            EXPECT_TRUE(told.empty());
                            picker()->Close();
                            return true;
                        }});
    edit(strip(0.1F), {isOpen, [this] {
                           onChange = [this] { control->Destroy(); };
                           picker()->onColorChanged({1.0F, 0.0F, 0.0F});
                           return true;
                       }});
    EXPECT_TRUE(pumpUntil([this] { return !control && isPickerGone(); }));
}

TEST_F(GradientLook, ShowsTheColoursAndMarksTheSelectedHandle) {
    const auto grey = [this](float position) { return pixelAt(picture(), strip(position).x, strip(position).y).red; };
    EXPECT_NEAR(grey(0.25F), 64, 2);
    EXPECT_NEAR(grey(0.75F), 191, 2);
    const PixelColour selected{39, 147, 255};
    EXPECT_FALSE(hasColour(picture(), selected));
    EXPECT_EQ(pixelAt(picture(), handle(1.0F).x, handle(1.0F).y), (PixelColour{255, 255, 255}));
    click(*control, handle(1.0F));
    ASSERT_TRUE(pumpUntil([this] { return told.size() == 1; }));
    EXPECT_TRUE(hasColour(picture(), selected));
    control->setMinMaxPosition(0.0F, 2.0F);
    EXPECT_NEAR(grey(0.25F), 128, 2);
    showAll();
    const wxImage screen = capture(*control);
    EXPECT_NEAR(pixelAt(screen, strip(0.25F).x, 8).red, 128, 2);

    for (const wxSize size : {wxSize(0, 0), wxSize(1, 1), wxSize(12, 9), wxSize(13, 40)}) {
        control->SetMinSize(size);
        control->SetSize(size);
        paintOffScreen(wxSize(20, 20), [this](wxDC& dc) { control->paint(dc); });
    }
}

} // namespace
} // namespace Ostrel::Wx
