#include <OstrelLibWx/widgets/ColorPickerButton.h>

#include <OstrelLibWx/widgets/ColorPicker.h>
#include <OstrelLibWx/widgets/RgbDataObject.h>

#include "support/WidgetTest.h"
#include "widgets/ModalDriver.h"

#include <gmock/gmock.h>
#include <wx/weakref.h>

#include <algorithm>
#include <limits>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;

constexpr Rgb ORANGE{1.0F, 0.5F, 0.0F};
constexpr Rgb BRIGHT{2.5F, -1.0F, 0.25F, 0.5F};
constexpr PixelColour SHOWN_ORANGE{255, 128, 0};

/// Dragging is checked with running programs: see tools/check-drag.
class ColorPickerButtonTest : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        button = new ColorPickerButton(&panel(), "Sky", wxSize(60, 30), true);
        button->setColor(ORANGE, false);
        const auto listen = [this](const char* what) {
            return [this, what](const Rgb&) {
                log.push_back(what);
                onTold();
            };
        };
        button->setCommitCallback(listen("commit"));
        button->setPreviewCallback(listen("preview"));
        showAll();
    }

    PixelColour shown(int x = 9, int y = 9) { return pixelAt(pictureOf(*button), x, y); }
    static ColorPicker* picker() { return ModalDriver::findActive<ColorPicker>(); }
    static bool isPickerGone() { return ModalDriver::findShown<ColorPicker>() == nullptr; }
    void press() { pressOn(*button, middle(*button)); }
    /// Clicks, and works the picker that opens until it is gone.
    void clickAndWork(std::vector<ModalDriver::Step> steps) {
        steps.insert(steps.begin(), [] { return picker() != nullptr; });
        ModalDriver driver(std::move(steps));
        press();
        input().MouseUp();
        EXPECT_TRUE(pumpUntil(isPickerGone));
    }

    wxWeakRef<ColorPickerButton> button;
    std::vector<std::string> log;
    std::function<void()> onTold = [] {};
};

using SwatchColor = ColorPickerButtonTest;
using SwatchPicker = ColorPickerButtonTest;

TEST_F(SwatchColor, IsShownInABlackOutlineWithStripesWhileDisabled) {
    const wxSize size = button->GetClientSize();
    EXPECT_EQ(shown(size.x - 1, size.y - 1), (PixelColour{0, 0, 0}));
    EXPECT_EQ(shown(size.x - 2, size.y - 2), SHOWN_ORANGE);
    button->Enable(false);
    EXPECT_EQ(shown(2, 2), (PixelColour{225, 98, 30}));
    button->Enable(true);
    EXPECT_EQ(shown(3, 1), SHOWN_ORANGE);
}

TEST_F(SwatchColor, IsKeptAsGivenAndToldToCommitFirst) {
    button->setColor(BRIGHT, true);
    EXPECT_EQ(button->getColor(), BRIGHT);
    EXPECT_EQ(shown(), (PixelColour{255, 0, 64}));
    EXPECT_THAT(log, ElementsAre("commit", "preview"));
    constexpr float ENDLESS = std::numeric_limits<float>::infinity();
    button->setColor({std::numeric_limits<float>::quiet_NaN(), ENDLESS, -ENDLESS}, false);
    EXPECT_EQ(shown(), (PixelColour{0, 255, 0}));
    onTold = [this] { button->Destroy(); };
    button->setColor(ORANGE, true);
    EXPECT_EQ(log.size(), 3u) << "without a button nothing follows";
}

TEST_F(SwatchColor, IsHandedOnInSixteenBytesAndTakenFromNoFewer) {
    RgbDataObject data(BRIGHT);
    unsigned char bytes[17]{};
    ASSERT_TRUE(data.GetDataSize() == 16 && data.GetDataHere(bytes));
    constexpr unsigned char EXPECTED[17]{0, 0, 0x20, 0x40, 0, 0, 0x80, 0xBF, 0, 0, 0x80, 0x3E, 0, 0, 0, 0x3F};
    EXPECT_TRUE(std::ranges::equal(bytes, EXPECTED)) << "the lowest byte of each comes first";
    RgbDataObject received;
    EXPECT_EQ(received.GetFormat().GetId(), "Quarnel-Rgb");
    EXPECT_FALSE(received.SetData(15, nullptr)) << "nothing of it is read";
    EXPECT_FALSE(received.getColor());
    EXPECT_TRUE(received.SetData(17, bytes));
    EXPECT_EQ(received.getColor(), BRIGHT);
}

TEST_F(SwatchPicker, PreviewsAndCommitsAndCancelTakesBack) {
    Pixel moved;
    const auto getPlace = [] { return getScreenRegion(getWindowNativeHandle(picker())).min; };
    clickAndWork({[&] {
                      EXPECT_EQ(picker()->GetTitle(), "Color Selector: Sky");
                      picker()->onColorChanged({0.0F, 0.0F, 1.0F});
                      EXPECT_EQ(button->getColor(), ORANGE);
                      EXPECT_EQ(shown(), (PixelColour{0, 0, 255}));
                      moved = getPlace() - Pixel{33, 21}; // away from the ends of the screen
                      return true;
                  },
                  [&] { // the window manager may still be about to place it
                      const Pixel way = moved - getPlace();
                      picker()->Move(picker()->GetPosition() + wxPoint(way.x, way.y));
                      return way == Pixel{0, 0};
                  },
                  [] { return picker()->Close(); }});
    EXPECT_EQ(shown(), SHOWN_ORANGE);
    // The next one opens where that one was.
    clickAndWork({[&] { return getPlace() == moved; },
                  [] {
                      picker()->onColorAccepted({0.0F, 1.0F, 0.0F});
                      picker()->EndModal(wxID_OK);
                      return true;
                  }});
    EXPECT_THAT(log, ElementsAre("preview", "preview", "commit"));
    EXPECT_EQ(button->getColor(), (Rgb{0.0F, 1.0F, 0.0F}));
    EXPECT_EQ(shown(), (PixelColour{0, 255, 0}));
}

TEST_F(SwatchPicker, LeavesAColourThatTheHostHasSetMeanwhileAndComesBackToTheScreen) {
    clickAndWork({[this] {
        button->setColor(BRIGHT, false);
        picker()->Move(-3000, -3000);
        return picker()->Close();
    }});
    EXPECT_EQ(shown(), (PixelColour{255, 0, 64}));
    clickAndWork({[] { return picker()->GetPosition().x >= 0 && picker()->Close(); }});
}

TEST_F(SwatchPicker, StaysShutWhenThePressIsTakenAwayAndEndsWithTheButton) {
    press();
    loseCapture(*button);
    releaseButton();
    press();
    button->Enable(false);
    releaseButton();
    settle();
    EXPECT_TRUE(isPickerGone());
    button->Enable(true);
    onTold = [this] { button->Destroy(); };
    clickAndWork({[] { return picker()->onColorChanged(BRIGHT), true; }});
    EXPECT_FALSE(button);
    EXPECT_EQ(log.size(), 1u);
}

} // namespace
} // namespace Ostrel::Wx
