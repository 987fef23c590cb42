#include "widgets/ColorSlider.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/Spinner.h>

#include "core/Printing.h"
#include "support/WidgetTest.h"
#include "widgets/ColorSliderWithSpinner.h"
#include "widgets/HwbSlice.h"

#include <gmock/gmock.h>
#include <wx/weakref.h>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;

constexpr PixelColour BLACK{0, 0, 0};
constexpr PixelColour WHITE{255, 255, 255};

class ColorSliderTest : public WidgetTest {
protected:
    /// From red at 0 over colours beyond 1 to blue at 1, 120 design pixels long.
    ColorSlider* make(bool vertical) {
        auto* const slider = new ColorSlider(
            [this](float position, float) {
                ++asked;
                return position == 1.0F ? Rgb{-1, 0, 1} : Rgb{7, position, 0};
            },
            &panel(), vertical ? wxSize(20, 120) : wxSize(120, 20), vertical);
        slider->SetPosition(wxPoint(30, 30));
        slider->onMousePressed = [this](wxMouseEvent&) { heard("pressed"); };
        slider->onPositionChanged = [this](float position) { heard(std::to_string(position).substr(0, 4)); };
        slider->onMouseReleased = [this] { heard("released"); };
        tested = slider;
        showAll();
        return slider;
    }
    void heard(const std::string& what) {
        if (log.empty() || log.back() != what) { // a motion may be told twice
            log.push_back(what);
        }
        if (what == destroyAt) {
            tested->Destroy();
        }
    }
    void dragTo(const wxWindow& window, wxPoint point) {
        movePointer(window, point);
        settle(); // GTK keeps the newest motion back until something else happens
    }

    void press(const wxWindow& window, wxPoint point) {
        dragTo(window, point);
        input().MouseDown();
        EXPECT_TRUE(pumpUntil([&] { return !tested || window.HasCapture(); })) << "the press did not arrive";
    }
    bool wasAsked(int times) {
        const bool painted = pumpUntil([this, times] { return asked >= times; });
        settle();
        return painted && asked == times;
    }

    int asked = 0; ///< for a colour
    std::vector<std::string> log;
    std::string destroyAt;
    wxWeakRef<wxWindow> tested;
};

TEST_F(ColorSliderTest, FollowsTheMouseFromEndToEnd) {
    for (const bool vertical : {false, true}) {
        ColorSlider* const slider = make(vertical);
        const int length = scaleByDpi(120);
        const auto at = [vertical](int along) { return vertical ? wxPoint(5, along) : wxPoint(along, 5); };
        press(*slider, at(length - 2));
        dragTo(*slider, at(0));
        dragTo(*slider, at((length - scaleByDpi(5)) / 2 + 1));
        dragTo(*slider, at(length + 50));
        dragTo(*slider, at(-20));
        releaseButton();
        EXPECT_FALSE(slider->HasCapture());
        EXPECT_THAT(log,
                    ElementsAre("pressed", "1.00", "0.00", testing::StartsWith("0.5"), "1.00", "0.00", "released"));
        EXPECT_EQ(slider->getPosition(), 0.0F);
        slider->Destroy();
        log.clear();
    }
}

TEST_F(ColorSliderTest, EndsADragThatLosesTheMouse) {
    ColorSlider* const slider = make(false);
    press(*slider, wxPoint(0, 5));
    wxMouseCaptureLostEvent lost;
    slider->ProcessWindowEvent(lost);
    EXPECT_FALSE(slider->HasCapture());
    EXPECT_THAT(log, ElementsAre("pressed", "0.00", "released"));
}

TEST_F(ColorSliderTest, MayBeDestroyedByAnyOfItsCallbacks) {
    for (const char* const when : {"pressed", "0.00", "released"}) {
        destroyAt = when;
        ColorSlider* const slider = make(false);
        press(*slider, wxPoint(0, 5));
        releaseButton();
        EXPECT_FALSE(tested) << when;
        EXPECT_EQ(wxWindow::GetCapture(), nullptr) << when;
    }
}

TEST_F(ColorSliderTest, AsksForItsColoursOnlyWhenTheyChange) {
    ColorSlider* const slider = make(false);
    const int length = scaleByDpi(120);
    EXPECT_TRUE(wasAsked(length)) << asked;
    for (const float position : {0.5F, 1.0F, std::numeric_limits<float>::quiet_NaN(), 300.0F}) {
        slider->setPosition(position);
        slider->Refresh();
        settle();
    }
    EXPECT_TRUE(wasAsked(length)) << asked;
    slider->refreshStrip();
    slider->refreshStrip();
    EXPECT_TRUE(wasAsked(2 * length)) << asked;
    EXPECT_TRUE(log.empty());
    slider->SetSize(wxSize(0, 0));
    slider->SetSize(wxSize(1, 1));
    settle();
}

TEST_F(ColorSliderTest, ShowsItsColoursAndAMarkerAcrossThem) {
    for (const bool vertical : {false, true}) {
        const ColorSlider* const slider = make(vertical);
        const wxSize size = slider->GetClientSize();
        tested->SetPosition(wxPoint(30, 30));
        const wxImage image = paintOffScreen(size, [slider](wxDC& dc) { slider->paint(dc); });
        const int last = scaleByDpi(120) - 1;
        const int across = scaleByDpi(20) - 1;
        const int thickness = scaleByDpi(5);
        const auto at = [&](int along, int over) {
            return pixelAt(image, vertical ? over : along, vertical ? along : over);
        };
        for (const int over : {0, across}) {
            EXPECT_EQ(at(0, over), BLACK);
            EXPECT_EQ(at(thickness - 1, over), BLACK);
            EXPECT_EQ(at(2, over), BLACK) << "the marker's outline";
            EXPECT_EQ(at(last, over), (PixelColour{0, 0, 255})) << "limited to what can be shown";
            EXPECT_EQ(at(thickness, over).red, 255);
        }
        EXPECT_EQ(at(2, across / 2), WHITE);
        tested->Destroy();
    }
}

TEST_F(ColorSliderTest, KeepsStripAndNumberInStep) {
    auto* const row = new ColorSliderWithSpinner(
        [](float position, float number) {
            return Rgb{position, number == 8350.0F ? 1.0F : 0.0F, 0};
        },
        &panel());
    std::vector<std::pair<float, float>> told;
    row->onValueChanged = [&](float position, float number) { told.emplace_back(position, number); };
    row->setPosition(0.5F);
    EXPECT_EQ(row->getSpinner().getValue(), 128.0F) << "rounded to what is shown";
    row->setChannelRange(1700, 15000, 0, 1);
    EXPECT_EQ(row->getSpinner().getValue(), 8350.0F);
    row->setChannelRange(0, 1, 3, 0.001F);
    row->setPositionValueMap([](float x, PositionValueMap direction) {
        return direction == PositionValueMap::POSITION_TO_VALUE ? x * x : std::sqrt(x);
    });
    row->setPosition(0.5F);
    EXPECT_EQ(row->getSpinner().getValue(), 0.25F);
    EXPECT_TRUE(told.empty());
    row->getSpinner().setValue(0.64F, true);
    EXPECT_FLOAT_EQ(row->getPosition(), 0.8F);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_FLOAT_EQ(told[0].second, 0.64F);
    showAll();
    ColorSlider& slider = row->getSlider();
    click(slider, wxPoint(slider.GetClientSize().x - 1, 3));
    EXPECT_EQ(told.back(), (std::pair<float, float>{1, 1}));
    EXPECT_EQ(row->getSpinner().getValue(), 1.0F);
}

TEST_F(ColorSliderTest, FieldShowsHueAndBlacknessAndIsDragged) {
    auto* const slice = new HwbSlice(&panel(), wxSize(60, 40));
    tested = slice;
    slice->onMousePressed = [this](wxMouseEvent&) { heard("pressed"); };
    slice->onChanged = [this](float hue, float blackness) {
        heard(std::to_string(std::lround(hue)) + " " + std::to_string(blackness).substr(0, 4));
    };
    slice->onMouseReleased = [this] { heard("released"); };
    showAll();
    const wxSize size = slice->GetClientSize();
    press(*slice, wxPoint(size.x / 2, size.y / 4));
    dragTo(*slice, wxPoint(-30, size.y + 30));
    dragTo(*slice, wxPoint(size.x + 30, -30));
    releaseButton();
    EXPECT_THAT(log, ElementsAre("pressed", "180 0.25", "0 1.00", "360 0.00", "released"));

    const auto paint = [&] { return paintOffScreen(slice->GetClientSize(), [&](wxDC& dc) { slice->paint(dc); }); };
    slice->setPosition({120, 0.5F});
    const wxImage image = paint();
    EXPECT_EQ(pixelAt(image, 0, 0), (PixelColour{255, 0, 0}));
    EXPECT_LE(pixelAt(image, 0, size.y - 1).red, 255 / scaleByDpi(40) + 1);
    EXPECT_EQ(pixelAt(image, size.x * 2 / 3, 0), (PixelColour{0, 0, 255}));
    const int left = size.x / 3 - scaleByDpi(4);
    EXPECT_EQ(pixelAt(image, left, size.y / 2), (PixelColour{255, 0, 255})) << "the marker, in the opposite hue";
    slice->SetSize(2 * size);
    const wxImage larger = paint();
    EXPECT_EQ(pixelAt(larger, size.x * 2 / 3, 0), (PixelColour{0, 0, 255})) << "the field stays";
    EXPECT_EQ(pixelAt(larger, size.x + 5, 5), WHITE);
    slice->adoptSize();
    EXPECT_EQ(pixelAt(paint(), size.x * 4 / 3, 0), (PixelColour{0, 0, 255}));

    destroyAt = "pressed";
    press(*slice, wxPoint(3, 3));
    EXPECT_FALSE(tested);
}

} // namespace
} // namespace Ostrel::Wx
