#include <OstrelLibWx/widgets/ColorPicker.h>

#include <OstrelLib/Exceptions.h>
#include <OstrelLibWx/widgets/Button.h>
#include <OstrelLibWx/widgets/CheckBox.h>
#include <OstrelLibWx/widgets/Spinner.h>
#include <OstrelLibWx/widgets/StaticText.h>
#include <OstrelLibWx/widgets/TextControl.h>

#include "models/ColorState.h"
#include "widgets/ColorDisplay.h"
#include "widgets/ColorSliderWithSpinner.h"
#include "widgets/ColorWidgetTest.h"
#include "widgets/EyeDropperButton.h"
#include "widgets/HexColorEdit.h"
#include "widgets/HwbSlice.h"
#include "widgets/ModalDriver.h"

#include <wx/choice.h>
#include <wx/radiobut.h>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;
using enum ColorPicker::ColorFormat;
using enum ColorPicker::DialogType;
using enum ColorStrip;

constexpr Rgb START{0.25F, 0.5F, 0.75F, 0.5F};
constexpr ColorStrip ROWS[] = {RED, GREEN, BLUE, ALPHA, HUE, SATURATION, VALUE, TEMPERATURE};

std::string describe(const Rgb& color) {
    return wxString::Format("%.0f %.0f %.0f %.0f", 100.0 * color.red, 100.0 * color.green, 100.0 * color.blue,
                            100.0 * color.alpha)
        .ToStdString();
}

class ColorPickerTest : public ColorWidgetTest {
protected:
    void TearDown() override {
        ColorPicker::setGlobalStateAccessor({});
        getAccessor().setSpace(ColorPickerSpace::SRGB);
        getAccessor().setRange(ColorPickerRange::UP_TO_255);
        WidgetTest::TearDown();
    }
    void build(ColorPicker::ColorFormat format = WITH_ALPHA, ColorPicker::DialogType type = CONFIRM) {
        dialog = new ColorPicker(&frame(), "Title", wxPoint(140, 130), START, type, format);
        tested = dialog.get();
        dialog->onColorChanged = [this](const Rgb& color) { heard("changed " + describe(color)); };
        dialog->onColorAccepted = [this](const Rgb& color) { heard("accepted " + describe(color)); };
        dialog->onCancel = [this] { heard("cancel"); };
        dialog->onClose = [this] { heard("close"); };
        dialog->onHexFocusGained = [this] { heard("typing"); };
        dialog->onHexFocusLost = [this] { heard("typed"); };
        dialog->onReset = [this] { heard("reset"); };
        dialog->onAfterReset = [this] { heard("after reset"); };
    }
    void open(ColorPicker::ColorFormat format = WITH_ALPHA, ColorPicker::DialogType type = CONFIRM) {
        build(format, type);
        dialog->Show();
        ASSERT_TRUE(pumpUntil([this] { return isUp(*dialog); }));
        settle();
    }
    void destroy() {
        dialog->Destroy();
        EXPECT_TRUE(pumpUntil([this] { return !dialog; }));
    }
    template <class T>
    T& child(int index = 0) {
        for (wxWindow* const child : dialog->GetChildren()) {
            if (auto* const wanted = dynamic_cast<T*>(child); wanted != nullptr && index-- == 0) {
                return *wanted;
            }
        }
        throw std::logic_error("no such child");
    }
    ColorSliderWithSpinner& row(int index) { return child<ColorSliderWithSpinner>(index); }
    wxTextCtrl& text(int index) {
        const wxWindow* const spinnerFrame = row(index).getSpinner().GetChildren().GetFirst()->GetData();
        return *static_cast<wxTextCtrl*>(spinnerFrame->GetChildren().GetFirst()->GetData());
    }
    wxTextCtrl& hex() { return child<HexColorEdit>().getTextControl(); }
    /// Does not wait for what comes of it.
    void startClick(int button) {
        Button& clicked = child<Button>(button);
        input().MouseMove(onScreen(clicked, middle(clicked)));
        input().MouseClick();
    }
    void clickButton(int button) {
        log.clear();
        startClick(button);
        EXPECT_TRUE(pumpUntil([this] { return !log.empty(); })) << child<Button>(button).GetLabel();
    }
    void startPicking(EyeDropperButton& dropper) {
        dragTo(dropper, middle(dropper));
        input().MouseDown();
        EXPECT_TRUE(pumpUntil([&] { return dropper.isPicking(); }));
    }
    void expectShown(const ColorState& state, const std::string& what) {
        SCOPED_TRACE(what);
        EXPECT_EQ(describe(dialog->getColor()), describe(state.getColor()));
        for (int i = 0; ROWS[i] != TEMPERATURE; ++i) {
            const float position = state.getPosition(ROWS[i]);
            EXPECT_NEAR(row(i).getPosition(), position, 1e-5F) << i;
            EXPECT_EQ(row(i).getSpinner().getValue(), std::nearbyint(255 * position)) << i;
        }
        const FieldPosition field = child<HwbSlice>().getPosition();
        EXPECT_NEAR(field.hue, state.getHwb().hue, 1e-2F);
        EXPECT_NEAR(field.blackness, state.getHwb().blackness, 1e-5F);
        EXPECT_NEAR(child<ColorSlider>().getPosition(), state.getHwb().whiteness, 1e-5F);
        EXPECT_EQ(describe(child<ColorDisplay>(1).getColor()), describe(state.getColor()));
        EXPECT_EQ(hex().GetValue(), wxString(formatHexColor(state.getColor()).toWide()));
    }

    enum { RESET, CONFIRMING, CANCELLING }; // buttons, in the order in which they are made
    wxWeakRef<ColorPicker> dialog;
};

TEST_F(ColorPickerTest, ShowsEachEditInAllViews) {
    open();
    ColorState state(true);
    const auto reset = [&] {
        state.setColor(START);
        dialog->setColor(START);
    };
    const auto clickAt = [&](wxWindow& window, wxPoint point) {
        press(window, point);
        releaseButton();
    };
    for (int i = 0; i < static_cast<int>(std::size(ROWS)); ++i) {
        reset();
        const int length = row(i).getSlider().GetClientSize().x;
        clickAt(row(i).getSlider(), wxPoint(length / 3, 4));
        state.editStrip(ROWS[i], findSliderPosition(length / 3, length, scaleByDpi(5)), row(i).getNumber());
        expectShown(state, "clicked on row " + std::to_string(i));
        EXPECT_EQ(log.back(), "changed " + describe(state.getColor()));
        reset();
        type(text(i), ROWS[i] == TEMPERATURE ? "3000" : "51");
        pressKey(WXK_RETURN);
        state.editStrip(ROWS[i], 0.2F, 3000);
        EXPECT_TRUE(pumpUntil([&] { return describe(dialog->getColor()) == describe(state.getColor()); })) << i;
        expectShown(state, "typed into row " + std::to_string(i));
    }
    const wxSize size = child<HwbSlice>().GetClientSize();
    clickAt(child<HwbSlice>(), wxPoint(size.x / 2, size.y / 4));
    state.editField(findFieldPosition({size.x / 2, size.y / 4}, {size.x, size.y}));
    expectShown(state, "field");
    clickAt(child<ColorSlider>(), wxPoint(3, 20));
    state.editStrip(WHITE_SHARE, findSliderPosition(20, child<ColorSlider>().GetClientSize().y, scaleByDpi(5)), 0);
    expectShown(state, "whiteness");
    log.clear();
    type(hex(), "ff8");
    EXPECT_EQ(log.front(), "typing");
    EXPECT_EQ(log.back(), "changed 0 6 97 50") << "each keystroke counts";
    reset();
    EXPECT_EQ(hex().GetValue(), "ff8") << "what is typed is not disturbed";
    text(0).SetFocus();
    EXPECT_TRUE(pumpUntil([this] { return log.back() == "typed"; }));
    expectShown(state, "text");
}

TEST_F(ColorPickerTest, TellsItsOwnerInOrder) {
    using Log = std::vector<std::string>;
    const Log cancelled{"changed 25 50 75 50", "cancel", "close"};
    // What is typed, and not set yet, counts when the dialog is accepted.
    const std::pair<std::function<void()>, Log> ways[] = {
        {[this] { startClick(CONFIRMING); }, {"changed 80 50 75 50", "accepted 80 50 75 50", "close"}},
        {[this] { startClick(CANCELLING); }, cancelled},
        {[this] { dialog->Close(); }, cancelled},
        {[this] { input().Char(WXK_ESCAPE); }, cancelled}};
    for (const auto& [end, expected] : ways) {
        build();
        const auto type = [this] { text(0).SelectAll(), input().Text("204"); };
        const ModalDriver driver(
            {[&] { return ModalDriver::findActive<ColorPicker>() != nullptr && (text(0).SetFocus(), true); },
             [&] { return text(0).HasFocus() && (type(), true); },
             [&] { return text(0).GetValue() == "204" && (end(), true); }});
        dialog->ShowModal();
        EXPECT_EQ(dialog->getCloseResult(), expected == cancelled ? wxCANCEL : wxOK);
        destroy();
        EXPECT_EQ(log, expected);
        log.clear();
    }
}

TEST_F(ColorPickerTest, AddsColoursAndResets) {
    open(WITH_ALPHA, ADD_COLOR);
    clickButton(CONFIRMING);
    EXPECT_THAT(log, ElementsAre("accepted 25 50 75 50"));
    dialog->setColor({1, 0, 0, 0.9F});
    clickButton(RESET);
    EXPECT_THAT(log, ElementsAre("reset", "changed 25 50 75 90", "changed 25 50 75 50", "after reset"));
    log.clear();
    dialog->setReferenceColor({0, 1, 0, 0.3F});
    EXPECT_EQ(describe(child<ColorDisplay>(0).getColor()), describe(dialog->getColor()));
    dialog->Close();
    EXPECT_THAT(log, ElementsAre("changed 0 100 0 30", "cancel", "close"));
    EXPECT_FALSE(dialog->IsShown());
}

TEST_F(ColorPickerTest, ShowsTheSameColourInOtherNumbers) {
    open(WITHOUT_ALPHA);
    dialog->setColor({1, 0.5F, 0, 0.3F});
    for (const auto& [radio, shown] : {std::pair{1, "1.0"}, {2, "100.0"}, {0, "255"}, {1, "1.0"}}) {
        click(child<wxRadioButton>(radio), middle(child<wxRadioButton>(radio)));
        EXPECT_TRUE(pumpUntil([&] { return text(0).GetValue() == shown; })) << shown << ": " << text(0).GetValue();
        EXPECT_EQ(text(6).GetValue(), "6500") << "the temperature has a range of its own";
    }
    click(child<CheckBox>(), middle(child<CheckBox>()));
    EXPECT_TRUE(pumpUntil([this] { return dialog->getSpace() == ColorPickerSpace::LINEAR; }));
    EXPECT_EQ(text(1).GetValue(), "0.218");
    EXPECT_EQ(text(3).GetValue(), "0.083") << "red, green and blue alone are in the space, and there is no alpha";
    EXPECT_EQ(dialog->getColor(), (Rgb{1, 0.5F, 0}));
    EXPECT_TRUE(log.empty());
    type(text(1), "0.729");
    pressKey(WXK_RETURN);
    EXPECT_TRUE(pumpUntil([this] { return !log.empty(); }));
    EXPECT_NEAR(dialog->getColor().green, 0.8662F, 1e-3F);
}

TEST_F(ColorPickerTest, KeepsSpaceAndRangeInTheAccessor) {
    struct Own : ColorPicker::IGlobalStateAccessor {
        ~Own() override { *told += "destroyed"; }
        void setSpace(ColorPickerSpace space) override { *told += std::to_string(static_cast<int>(space)) + " "; }
        ColorPickerSpace getSpace() override { return ColorPickerSpace::SRGB; }
        void setRange(ColorPickerRange range) override { *told += std::to_string(static_cast<int>(range)) + " "; }
        ColorPickerRange getRange() override { return ColorPickerRange::PERCENT; }
        std::string* told{};
    };
    const auto expectOptions = [this](ColorPickerSpace space, ColorPickerRange range) {
        build();
        EXPECT_EQ(dialog->getSpace(), space);
        EXPECT_EQ(child<CheckBox>().getValue(), space == ColorPickerSpace::SRGB);
        EXPECT_TRUE(child<wxRadioButton>(static_cast<int>(range)).GetValue());
        dialog->setSpace(ColorPickerSpace::LINEAR);
        dialog->setRange(ColorPickerRange::UP_TO_1);
        EXPECT_THROW(dialog->setRange(static_cast<ColorPickerRange>(-1)), Detail::StopException);
        dialog->Close();
        destroy();
    };
    expectOptions(ColorPickerSpace::SRGB, ColorPickerRange::UP_TO_255);
    expectOptions(ColorPickerSpace::LINEAR, ColorPickerRange::UP_TO_1);
    std::string told;
    auto own = std::make_unique<Own>();
    own->told = &told;
    ColorPicker::setGlobalStateAccessor(std::move(own));
    expectOptions(ColorPickerSpace::SRGB, ColorPickerRange::PERCENT);
    ColorPicker::setGlobalStateAccessor({});
    EXPECT_EQ(told, "0 1 destroyed");
    expectOptions(ColorPickerSpace::LINEAR, ColorPickerRange::UP_TO_1);
}

TEST_F(ColorPickerTest, TakesColoursFromTheScreen) {
    open();
    panel().SetBackgroundColour(wxColour(255, 128, 0));
    frame().Refresh();
    for (const auto& [index, expected] : {std::pair{0, "changed 100 50 0 50"}, {1, "changed 0 0 100 50"}}) {
        log.clear();
        startPicking(child<EyeDropperButton>(index));
        dragTo(panel(), wxPoint(5, 470));
        releaseButton();
        EXPECT_THAT(log, ElementsAre(expected));
    }
    wxChoice& averaging = child<wxChoice>();
    for (const auto& [asked, label] :
         {std::pair{4, "5 by 5 Average"}, {100, "31 by 31 Average"}, {-3, "Point Sample"}}) {
        dialog->setEyeDropperAveragingRadius(asked);
        EXPECT_EQ(averaging.GetStringSelection(), label);
    }
    wxCommandEvent chosen(wxEVT_CHOICE, averaging.GetId());
    chosen.SetInt(3);
    averaging.ProcessWindowEvent(chosen);
    EXPECT_EQ(dialog->getEyeDropperAveragingRadius(), 5);
    EXPECT_EQ(child<EyeDropperButton>(1).averagingRadius, 5);
}

TEST_F(ColorPickerTest, MayCloseWhileAnEyeDropperPicks) {
    open();
    EyeDropperButton& dropper = child<EyeDropperButton>();
    startPicking(dropper);
    pressKey(WXK_ESCAPE);
    EXPECT_TRUE(pumpUntil([&] { return !dropper.isPicking(); }));
    EXPECT_TRUE(dialog->IsShown()) << "the key ends the picking alone";
    releaseButton();
    startPicking(dropper);
    dialog->Close();
    EXPECT_FALSE(dropper.isPicking() || dropper.HasCapture());
}

TEST_F(ColorPickerTest, MayBeDestroyedByAnyOfItsCallbacks) {
    for (const auto& [when, button] : {std::pair{"changed", CANCELLING},
                                       {"cancel", CANCELLING},
                                       {"close", CANCELLING},
                                       {"accepted", CONFIRMING},
                                       {"reset", RESET},
                                       {"after", RESET}}) {
        destroyAt = when;
        open();
        clickButton(button);
        EXPECT_TRUE(pumpUntil([this] { return !dialog; })) << when;
        EXPECT_TRUE(log.back().starts_with(when)) << log.back();
    }
}

TEST_F(ColorPickerTest, ShowsColoursThatAreNone) {
    constexpr float INF = std::numeric_limits<float>::infinity();
    open();
    for (const float odd : {std::nanf(""), INF, -INF, -2.0F, 1e30F}) {
        dialog->setSpace(odd == INF ? ColorPickerSpace::LINEAR : dialog->getSpace());
        dialog->setReferenceColor({odd, odd, 0, odd});
        settle();
        EXPECT_EQ(text(0).GetValue(), odd > 0 ? "255" : "0");
        press(child<HwbSlice>(), wxPoint(9, 9));
        releaseButton();
        clickButton(RESET);
    }
}

TEST_F(ColorPickerTest, IsLaidOutWithoutGapsAndClipping) {
    open();
    for (const wxWindow* const window : dialog->GetChildren()) {
        const wxSize needed = dynamic_cast<const StaticText*>(window) != nullptr ? window->GetBestSize() : wxSize();
        EXPECT_TRUE(window->IsTopLevel() || dialog->GetClientRect().Contains(window->GetRect())) << window->GetName();
        EXPECT_TRUE(window->GetSize().x >= needed.x && window->GetSize().y >= needed.y) << window->GetLabel();
    }
    const HwbSlice& slice = child<HwbSlice>();
    const wxSize size = slice.GetSize();
    EXPECT_GE(size.y, scaleByDpi(234));
    EXPECT_EQ(slice.GetRect().GetBottom(), child<ColorDisplay>(1).GetRect().GetBottom());
    EXPECT_LE(pixelAt(pictureOf(slice), size.x - 1, size.y - 1).red, 1) << "all of it is filled";
}

} // namespace
} // namespace Ostrel::Wx
