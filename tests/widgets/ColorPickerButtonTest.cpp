#include <OstrelLibWx/widgets/ColorPickerButton.h>

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/ColorPicker.h>
#include <OstrelLibWx/widgets/RgbDataObject.h>

#include "support/WidgetTest.h"
#include "widgets/ModalDriver.h"

#include <gmock/gmock.h>
#include <wx/weakref.h>

#include <limits>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Rgb ORANGE{1.0F, 0.5F, 0.0F};
constexpr Rgb BRIGHT{2.5F, -1.0F, 0.25F, 0.5F};
constexpr PixelColour SHOWN_ORANGE{255, 128, 0};
constexpr PixelColour SHOWN_BRIGHT{255, 0, 64};

class ColorPickerButtonTest : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        button = new ColorPickerButton(&panel(), "Sky", wxSize(60, 30), true);
        button->Move(40, 40);
        button->setColor(ORANGE, false);
        const auto listen = [this](const char* what) {
            return [this, what](const Rgb& told) {
                log.push_back(what);
                last = told;
                onTold();
            };
        };
        button->setCommitCallback(listen("commit"));
        button->setPreviewCallback(listen("preview"));
        showAll();
    }

    wxImage picture() {
        return paintOffScreen(button->GetClientSize(), [this](wxDC& dc) { button->paint(dc); });
    }
    PixelColour shown() { return pixelAt(picture(), middle(*button).x, middle(*button).y); }
    static ColorPicker* picker() { return ModalDriver::findActive<ColorPicker>(); }
    static bool isPickerGone() { return ModalDriver::findShown<ColorPicker>() == nullptr; }
    static bool isPickerOpen() { return picker() != nullptr; }

    void press() {
        movePointer(*button, middle(*button));
        pressButton();
        ASSERT_TRUE(pumpUntil([this] { return button->HasCapture(); }));
    }
    /// Clicks, and works the picker that opens until it is gone.
    void clickAndWork(std::vector<ModalDriver::Step> steps) {
        ModalDriver driver(std::move(steps));
        press();
        input().MouseUp();
        EXPECT_TRUE(pumpUntil([] { return isPickerGone() && !isPickerOpen(); }));
    }
    wxWeakRef<ColorPickerButton> button;
    std::vector<std::string> log;
    Rgb last;
    std::function<void()> onTold = [] {};
};

using SwatchLook = ColorPickerButtonTest;
using SwatchColor = ColorPickerButtonTest;
using SwatchPicker = ColorPickerButtonTest;

TEST_F(SwatchLook, IsAColourInABlackOutlineWithStripesWhileDisabled) {
    const wxSize size = button->GetClientSize();
    EXPECT_EQ(size, scaleByDpi(wxSize(60, 30)));
    for (const wxPoint corner : {wxPoint(0, 0), wxPoint(size.x - 1, size.y - 1)}) {
        EXPECT_EQ(pixelAt(picture(), corner.x, corner.y), (PixelColour{0, 0, 0}));
    }
    EXPECT_EQ(pixelAt(picture(), 1, 1), SHOWN_ORANGE);
    EXPECT_EQ(pixelAt(picture(), size.x - 2, size.y - 2), SHOWN_ORANGE);
    button->Enable(false);
    for (int x = 1; x < 25; ++x) {
        EXPECT_EQ(pixelAt(picture(), x, 2), (x + 2) % 10 < 5 ? (PixelColour{225, 98, 30}) : SHOWN_ORANGE) << x;
    }
    button->Enable(true);
    EXPECT_FALSE(hasColour(picture(), {225, 98, 30}));
    showAll();
    EXPECT_EQ(pixelAt(capture(*button), 3, 3), SHOWN_ORANGE);
    EXPECT_FALSE(button->AcceptsFocusFromKeyboard());
    for (const wxSize small : {wxSize(0, 0), wxSize(1, 1), wxSize(2, 3)}) {
        button->SetMinSize(small);
        button->SetSize(small);
        button->Enable(false);
        paintOffScreen(wxSize(8, 8), [this](wxDC& dc) { button->paint(dc); });
    }
}

TEST_F(SwatchColor, IsKeptAsGivenAndToldToCommitFirst) {
    button->setColor(BRIGHT, false);
    EXPECT_THAT(log, IsEmpty());
    EXPECT_EQ(button->getColor(), BRIGHT);
    EXPECT_EQ(shown(), SHOWN_BRIGHT);
    button->setColor(ORANGE, true);
    EXPECT_THAT(log, ElementsAre("commit", "preview"));
    EXPECT_EQ(last, ORANGE);
    constexpr float ENDLESS = std::numeric_limits<float>::infinity();
    button->setColor({std::numeric_limits<float>::quiet_NaN(), ENDLESS, -ENDLESS}, true);
    EXPECT_EQ(shown(), (PixelColour{0, 255, 0}));
    onTold = [this] { button->Destroy(); };
    log.clear();
    button->setColor(ORANGE, true);
    EXPECT_FALSE(button);
    EXPECT_EQ(log.size(), 1u);
}

TEST_F(SwatchColor, IsRefusedInAnyOtherFormThanSixteenBytes) {
    RgbDataObject data(BRIGHT);
    EXPECT_EQ(data.GetDataSize(), 16u);
    unsigned char bytes[17]{};
    ASSERT_TRUE(data.GetDataHere(bytes));
    EXPECT_EQ(bytes[3], 0x40) << "2.5 is 40 20 00 00 from its highest byte on";
    EXPECT_EQ(bytes[16], 0);
    RgbDataObject received;
    EXPECT_EQ(received.GetFormat(), data.GetFormat());
    EXPECT_EQ(received.GetFormat().GetId(), "Quarnel-Rgb");
    for (const std::size_t length : {0u, 1u, 15u}) {
        EXPECT_FALSE(received.SetData(length, nullptr)) << "nothing of it is read";
        EXPECT_FALSE(received.getColor());
    }
    EXPECT_TRUE(received.SetData(17, bytes));
    EXPECT_EQ(received.getColor(), BRIGHT);
}

TEST_F(SwatchPicker, PreviewsAndCommitsAndCancelTakesBack) {
    Pixel moved;
    const auto pickerPlace = [] { return getScreenRegion(getWindowNativeHandle(picker())).min; };
    clickAndWork({isPickerOpen,
                  [&] {
                      EXPECT_EQ(picker()->GetTitle(), "Color Selector: Sky");
                      EXPECT_EQ(picker()->getColor(), ORANGE);
                      picker()->onColorChanged({0.0F, 0.0F, 1.0F});
                      EXPECT_EQ(button->getColor(), ORANGE);
                      EXPECT_EQ(shown(), (PixelColour{0, 0, 255}));
                      const Bucket before = getScreenRegion(getWindowNativeHandle(picker()));
                      picker()->Move(picker()->GetPosition() + wxPoint(33, 21));
                      moved = before.min + Pixel{33, 21};
                      return true;
                  },
                  [&] { return pickerPlace() == moved; }, [] { return picker()->Close(); }});
    EXPECT_THAT(log, ElementsAre("preview", "preview"));
    EXPECT_EQ(last, ORANGE);
    EXPECT_EQ(shown(), SHOWN_ORANGE);

    log.clear();
    // It opens where the last one was.
    clickAndWork({isPickerOpen, [&] { return pickerPlace() == moved; },
                  [&] {
                      picker()->onColorAccepted({0.0F, 1.0F, 0.0F});
                      EXPECT_EQ(button->getColor(), (Rgb{0.0F, 1.0F, 0.0F}));
                      picker()->EndModal(wxID_OK);
                      return true;
                  }});
    EXPECT_THAT(log, ElementsAre("commit"));
    EXPECT_EQ(shown(), (PixelColour{0, 255, 0}));
}

TEST_F(SwatchPicker, StaysShutWhenThePressIsTakenAway) {
    const std::pair<const char*, std::function<void()>> ways[] = {{"capture lost",
                                                                   [this] {
                                                                       wxMouseCaptureLostEvent lost(button->GetId());
                                                                       button->ProcessWindowEvent(lost);
                                                                   }},
                                                                  {"disabled", [this] {
                                                                       button->Enable(false);
                                                                       button->Enable(true);
                                                                   }}};
    for (const auto& [name, takeAway] : ways) {
        SCOPED_TRACE(name);
        press();
        takeAway();
        EXPECT_FALSE(button->HasCapture());
        releaseButton();
        settle();
        EXPECT_TRUE(isPickerGone());
    }
    press();
    button->Destroy();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(SwatchPicker, EndsWithTheButton) {
    onTold = [this] { button->Destroy(); };
    clickAndWork({isPickerOpen, [] {
                      picker()->onColorChanged(BRIGHT);
                      return true;
                  }});
    EXPECT_FALSE(button);
    EXPECT_THAT(log, ElementsAre("preview"));
}

} // namespace
} // namespace Ostrel::Wx
