#include <OstrelLibWx/widgets/ColorPicker.h>
#include <OstrelLibWx/widgets/GradientControl.h>

#include <limits>

#include "support/WidgetTest.h"
#include "widgets/ModalDriver.h"

namespace Ostrel::Wx {
namespace {

constexpr Hsv HUED_GREY{200.0F, 0.0F, 0.5F};
constexpr Rgb RED{1.0F, 0.0F, 0.0F};

class GradientControlTest : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        control = new GradientControl(&panel(), wxSize(312, 40), 0.0F, 1.0F);
        control->setGradient(
            ColorGradient({{{0.0F, 0.0F, 0.0F}, 0.0F}, {HUED_GREY, 0.5F}, {{0.0F, 0.0F, 1.0F}, 1.0F}}));
        control->setOnChangeCallback([this](const ColorGradient& gradient) {
            told.push_back(gradient);
            onChange();
        });
        showAll();
    }

    wxPoint handle(float position) {
        const wxSize size = control->GetClientSize();
        const int margin = scaleByDpi(10) / 2 + 1;
        return {margin + static_cast<int>(position * static_cast<float>(size.x - 2 * margin)), size.y - margin};
    }
    wxPoint strip(float position) { return {handle(position).x, 8}; }
    const ColorGradientPoint& point(std::size_t index) { return control->getGradient().getPoints().at(index); }
    wxImage picture() { return pictureOf(*control); }

    void press(float position) { pressOn(*control, handle(position)); }
    static ColorPicker* picker() { return ModalDriver::findActive<ColorPicker>(); }
    /// Double-clicks, and works the picker that opens.
    void edit(wxPoint place, std::function<void()> work) {
        ModalDriver driver({[] { return picker() != nullptr; },
                            [&work] {
                                work();
                                return true;
                            }});
        movePointer(*control, place);
        input().MouseDblClick();
        EXPECT_TRUE(pumpUntil([] { return ModalDriver::findShown<ColorPicker>() == nullptr; }));
    }

    wxWeakRef<GradientControl> control;
    std::vector<ColorGradient> told;
    std::function<void()> onChange = [] {};
};

using GradientMouse = GradientControlTest;
using GradientPicker = GradientControlTest;

TEST_F(GradientMouse, DragsAHandleAndTellsOfItOnceAtTheEnd) {
    press(0.0F);
    movePointer(*control, wxPoint(control->GetSize().x + 20, 20));
    EXPECT_TRUE(pumpUntil([this] { return point(0).position == 1.0F; })) << "beyond the control it stops at its end";
    EXPECT_TRUE(told.empty());
    releaseButton();
    EXPECT_TRUE(pumpUntil([this] { return told.size() == 1; }));
    EXPECT_EQ(point(0).position, 0.5F) << "sorted again";
    click(*control, strip(0.25F));
    click(*control, strip(0.25F), wxMOUSE_BTN_RIGHT);
    click(*control, handle(0.5F), wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(pumpUntil([this] { return told.size() == 2; })) << "clicks beside the handles do nothing";
    EXPECT_EQ(told.back().getPoints().size(), 2u);
}

TEST_F(GradientMouse, EndsADragThatIsTakenAwayAndMayDestroyTheControl) {
    press(0.0F);
    loseCapture(*control);
    EXPECT_TRUE(!control->HasCapture() && told.size() == 1);
    releaseButton();
    press(0.5F);
    control->Enable(false);
    EXPECT_TRUE(!control->HasCapture() && told.size() == 2);
    releaseButton();
    control->Enable(true);
    onChange = [this] { control->Destroy(); };
    press(1.0F);
    releaseButton();
    EXPECT_TRUE(pumpUntil([this] { return !control; }));
    EXPECT_EQ(told.size(), 3u);
}

TEST_F(GradientPicker, RecoloursAPointAndCancelBringsItsVeryColourBack) {
    getAccessor().setRange(ColorPickerRange::PERCENT); // later than the picker was made
    edit(handle(0.5F), [this] {
        EXPECT_EQ(picker()->getRange(), ColorPickerRange::PERCENT);
        picker()->onColorChanged(RED);
        EXPECT_EQ(told.back().getPoints()[1].color, rgbToHsv(RED));
        picker()->Close();
    });
    EXPECT_EQ(getAccessor().getRange(), ColorPickerRange::PERCENT);
    getAccessor().setRange(ColorPickerRange::UP_TO_255);
    EXPECT_EQ(point(1).color, HUED_GREY);
    EXPECT_EQ(told.back(), control->getGradient());
    edit(strip(0.25F), [] {
        picker()->onColorAccepted(RED);
        picker()->EndModal(wxID_OK);
    });
    EXPECT_NEAR(point(1).position, 0.25F, 0.01F);
    EXPECT_EQ(point(1).color, rgbToHsv(RED));
    EXPECT_EQ(told.back(), control->getGradient());
}

TEST_F(GradientPicker, MayStayOpenLongerThanWhatItEdits) {
    edit(handle(0.5F), [this] {
        control->setGradient({});
        told.clear();
        picker()->onColorChanged(RED);
        picker()->Close();
    });
    EXPECT_TRUE(told.empty());
    edit(strip(0.1F), [this] {
        onChange = [this] { control->Destroy(); };
        picker()->onColorChanged(RED);
    });
    EXPECT_FALSE(control);
}

TEST_F(GradientControlTest, ShowsTheColoursAndMarksTheSelectedHandle) {
    constexpr PixelColour SELECTED{39, 147, 255};
    EXPECT_NEAR(pixelAt(picture(), strip(0.75F).x, 8).red, 191, 2);
    EXPECT_FALSE(hasColour(picture(), SELECTED));
    press(1.0F);
    releaseButton();
    EXPECT_TRUE(hasColour(picture(), SELECTED));
    control->setMinMaxPosition(0.0F, 2.0F);
    showAll();
    EXPECT_NEAR(pixelAt(capture(*control), strip(0.25F).x, 8).red, 128, 2);
    control->SetMinSize(wxSize(1, 1));
    control->SetSize(wxSize(1, 1));
    picture();
}

TEST_F(GradientControlTest, TakesColoursAndPlacesThatAreNone) {
    constexpr float NONE = std::numeric_limits<float>::quiet_NaN();
    constexpr float ENDLESS = std::numeric_limits<float>::infinity();
    control->setGradient(
        ColorGradient({{{NONE, ENDLESS, -ENDLESS}, 0.25F}, {{ENDLESS, 1, NONE}, 0.75F}, {{0, 1, 1}, NONE}}));
    for (const auto& [min, max] :
         {std::pair{0.0F, 1.0F}, {-ENDLESS, ENDLESS}, {1.0F, 1.0F}, {NONE, NONE}, {0.0F, 1.0F}}) {
        control->setMinMaxPosition(min, max);
        EXPECT_TRUE(picture().IsOk());
    }
    press(0.25F);
    movePointer(*control, handle(0.5F));
    releaseButton();
    EXPECT_EQ(control->getGradient().getPoints().size(), 3U);
    control->setGradient(ColorGradient({{{NONE, ENDLESS, -ENDLESS}, 0.5F}}));
    edit(handle(0.5F), [] { picker()->Close(); });
    EXPECT_EQ(point(0).position, 0.5F);
}

} // namespace
} // namespace Ostrel::Wx
