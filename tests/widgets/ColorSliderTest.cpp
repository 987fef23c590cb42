#include "widgets/ColorSlider.h"

#include "painting/ColorPainting.h"
#include "widgets/ColorWidgetTest.h"
#include "widgets/HwbSlice.h"

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;

class ColorSliderTest : public ColorWidgetTest {
protected:
    /// From reds beyond 1 to a blue below 0, 120 × 20 design pixels.
    ColorSlider* make(bool vertical) {
        auto* const slider = new ColorSlider(
            [this](float position) {
                ++asked;
                return position == 1.0F ? Rgb{-1, 0, 1} : Rgb{7, position, 0};
            },
            &panel(), vertical ? wxSize(20, 120) : wxSize(120, 20), vertical);
        slider->onMousePressed = [this](wxMouseEvent&) { heard("pressed"); };
        slider->onPositionChanged = [this](float position) { heard(std::to_string(position).substr(0, 4)); };
        slider->onMouseReleased = [this] { heard("released"); };
        tested = slider;
        showAll();
        return slider;
    }
    bool wasAsked(int times) {
        const bool painted = pumpUntil([this, times] { return asked >= times; });
        settle();
        return painted && asked == times;
    }

    int asked = 0; ///< for a colour
    const int length = scaleByDpi(120);
};

TEST_F(ColorSliderTest, FollowsTheMouseFromEndToEnd) {
    ColorSlider* const slider = make(true);
    press(*slider, wxPoint(5, length - 2));
    for (const int y : {0, (length - scaleByDpi(5)) / 2 + 1, length + 50, -20}) {
        dragTo(*slider, wxPoint(5, y));
    }
    releaseButton();
    EXPECT_THAT(log, ElementsAre("pressed", "1.00", "0.00", testing::StartsWith("0.5"), "1.00", "0.00", "released"));
    press(*slider, wxPoint(5, 0));
    loseCapture(*slider);
    EXPECT_THAT(log, ElementsAre("pressed", "0.00", "released"));
    EXPECT_FALSE(slider->HasCapture());
    releaseButton();
}

TEST_F(ColorSliderTest, MayBeDestroyedByAnyOfItsCallbacks) {
    for (const char* const when : {"pressed", "0.00", "released"}) {
        destroyAt = when;
        press(*make(false), wxPoint(0, 5));
        releaseButton();
        EXPECT_FALSE(tested) << when;
        EXPECT_EQ(wxWindow::GetCapture(), nullptr) << when;
    }
}

TEST_F(ColorSliderTest, AsksForItsColoursOnlyWhenTheyChange) {
    ColorSlider* const slider = make(false);
    EXPECT_TRUE(wasAsked(length)) << asked;
    slider->setPosition(std::numeric_limits<float>::quiet_NaN());
    slider->Refresh();
    EXPECT_TRUE(wasAsked(length)) << asked;
    slider->refreshStrip();
    slider->refreshStrip();
    EXPECT_TRUE(wasAsked(2 * length)) << asked;
    EXPECT_TRUE(log.empty());

    wxBitmap strip;
    writeStrip(strip, Array<Rgb>(20, Rgb{1, 0, 0}), 10, false);
    const wxObjectRefData* const memory = strip.GetRefData();
    writeStrip(strip, Array<Rgb>(20, Rgb{0, 0, 1}), 10, false);
    EXPECT_EQ(strip.GetRefData(), memory) << "written into the same bitmap";
    EXPECT_EQ(pixelAt(strip.ConvertToImage(), 19, 9), (PixelColour{0, 0, 255}));
}

TEST_F(ColorSliderTest, ShowsItsColoursAndAMarkerAcrossThem) {
    for (const bool vertical : {false, true}) {
        const ColorSlider* const slider = make(vertical);
        const wxImage image = pictureOf(*slider);
        const int across = scaleByDpi(20) - 1;
        const auto at = [&](int along) { return pixelAt(image, vertical ? across : along, vertical ? along : across); };
        EXPECT_EQ(at(scaleByDpi(5) - 1), (PixelColour{0, 0, 0})) << "the marker's outline";
        EXPECT_EQ(at(scaleByDpi(5)).red, 255);
        EXPECT_EQ(at(length - 1), (PixelColour{0, 0, 255})) << "limited to what can be shown";
        EXPECT_EQ(pixelAt(image, 2, 2), (PixelColour{255, 255, 255}));
        tested->Destroy();
    }
}

TEST_F(ColorSliderTest, FieldShowsHueAndBlacknessAndIsDragged) {
    auto* const slice = new HwbSlice(&panel(), wxSize(80, 40));
    slice->onChanged = [this](float hue, float blackness) {
        heard(std::to_string(std::lround(hue)) + " " + std::to_string(blackness).substr(0, 4));
    };
    showAll();
    const wxSize size = slice->GetClientSize();
    press(*slice, wxPoint(size.x / 2, size.y / 5));
    dragTo(*slice, wxPoint(-30, size.y + 30));
    releaseButton();
    EXPECT_THAT(log, ElementsAre("180 0.20", "0 1.00"));
    const auto at = [&](int x, int y) { return pixelAt(pictureOf(*slice), x, y); };
    slice->setPosition({180, 0.5F});
    EXPECT_EQ(at(0, 0), (PixelColour{255, 0, 0}));
    EXPECT_LE(at(0, size.y - 1).red, 255 / scaleByDpi(40) + 1);
    EXPECT_EQ(at(size.x / 2 - scaleByDpi(4), size.y / 2), (PixelColour{255, 0, 0})) << "the marker";
    slice->SetSize(2 * size);
    EXPECT_EQ(at(size.x / 2, 0), (PixelColour{0, 255, 255})) << "the field stays as it was";
}

} // namespace
} // namespace Ostrel::Wx
