#include <OstrelLibWx/widgets/ColorPicker.h>

#include <OstrelLib/Exceptions.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/Button.h>
#include <OstrelLibWx/widgets/CheckBox.h>
#include <OstrelLibWx/widgets/Spinner.h>
#include <OstrelLibWx/widgets/StaticText.h>
#include <OstrelLibWx/widgets/TextControl.h>

#include "core/Printing.h"
#include "models/ColorState.h"
#include "support/WidgetTest.h"
#include "widgets/ColorDisplay.h"
#include "widgets/ColorSliderWithSpinner.h"
#include "widgets/EyeDropperButton.h"
#include "widgets/HexColorEdit.h"
#include "widgets/HwbSlice.h"
#include "widgets/ModalDriver.h"

#include <gmock/gmock.h>
#include <wx/choice.h>
#include <wx/radiobut.h>
#include <wx/weakref.h>

#include <cmath>
#include <limits>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using enum ColorPicker::ColorFormat;
using enum ColorPicker::DialogType;

constexpr Rgb START{0.25F, 0.5F, 0.75F, 0.5F};
constexpr ColorStrip ROWS[] = {ColorStrip::RED, ColorStrip::GREEN,      ColorStrip::BLUE,  ColorStrip::ALPHA,
                               ColorStrip::HUE, ColorStrip::SATURATION, ColorStrip::VALUE, ColorStrip::TEMPERATURE};

std::string describe(const Rgb& color) {
    const auto round = [](float channel) { return std::to_string(std::lround(100 * static_cast<double>(channel))); };
    return round(color.red) + " " + round(color.green) + " " + round(color.blue) + " " + round(color.alpha);
}

class ColorPickerTest : public WidgetTest {
protected:
    void TearDown() override {
        if (dialog) {
            dialog->Destroy();
        }
        ColorPicker::setGlobalStateAccessor({});
        getAccessor().setSpace(ColorPickerSpace::SRGB);
        getAccessor().setRange(ColorPickerRange::UP_TO_255);
        WidgetTest::TearDown();
    }
    void build(ColorPicker::ColorFormat format = WITH_ALPHA, ColorPicker::DialogType type = CONFIRM,
               const Rgb& color = START) {
        dialog = new ColorPicker(&frame(), "Title", wxPoint(140, 130), color, type, format);
        const auto heard = [this](const std::string& name) {
            log.push_back(name);
            if (name.starts_with(destroyAt)) {
                dialog->Destroy();
            }
        };
        dialog->onColorChanged = [=](const Rgb& c) { heard("changed " + describe(c)); };
        dialog->onColorAccepted = [=](const Rgb& c) { heard("accepted " + describe(c)); };
        dialog->onCancel = [=] { heard("cancel"); };
        dialog->onClose = [=] { heard("close"); };
        dialog->onReset = [=] { heard("reset"); };
        dialog->onAfterReset = [=] { heard("after reset"); };
    }
    void open(ColorPicker::ColorFormat format = WITH_ALPHA, ColorPicker::DialogType type = CONFIRM,
              const Rgb& color = START) {
        build(format, type, color);
        dialog->Show();
        ASSERT_TRUE(pumpUntil([this] { return dialog->IsActive(); }));
        settle();
    }
    template <class T>
    std::vector<T*> children() {
        std::vector<T*> found;
        for (wxWindow* const child : dialog->GetChildren()) {
            if (auto* const wanted = dynamic_cast<T*>(child)) {
                found.push_back(wanted);
            }
        }
        return found;
    }
    template <class T>
    T& child(std::size_t index = 0) {
        return *children<T>().at(index);
    }
    Button& button(const wxString& label) {
        for (Button* const candidate : children<Button>()) {
            if (candidate->GetLabel() == label) {
                return *candidate;
            }
        }
        throw std::logic_error("no button " + label.ToStdString());
    }
    wxTextCtrl& text(Spinner& spinner) {
        return *static_cast<wxTextCtrl*>(
            spinner.GetChildren().GetFirst()->GetData()->GetChildren().GetFirst()->GetData());
    }
    void type(wxTextCtrl& field, const char* typed) {
        field.SetFocus();
        EXPECT_TRUE(pumpUntil([&] { return field.HasFocus(); }));
        field.SelectAll();
        input().Text(typed);
        EXPECT_TRUE(pumpUntil([&] { return field.GetValue() == typed; })) << field.GetValue();
    }
    bool clickAt(wxWindow& window, wxPoint point) {
        log.clear();
        movePointer(window, point);
        settle();
        input().MouseDown();
        const bool heard = pumpUntil([this] { return !log.empty(); });
        releaseButton();
        return heard;
    }
    void clickButton(const wxString& label) {
        Button& clicked = button(label);
        movePointer(clicked, middle(clicked));
        settle();
        input().MouseClick();
        EXPECT_TRUE(pumpUntil([this] { return !log.empty(); })) << label;
    }
    /// All views show the colour of this state.
    void expectShown(const ColorState& state, const std::string& what) {
        SCOPED_TRACE(what);
        EXPECT_EQ(describe(dialog->getColor()), describe(state.getColor()));
        const auto rows = children<ColorSliderWithSpinner>();
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const ColorStrip strip = ROWS[i < 3 || rows.size() == std::size(ROWS) ? i : i + 1];
            if (strip != ColorStrip::TEMPERATURE) {
                EXPECT_NEAR(rows[i]->getPosition(), state.getPosition(strip), 1e-5F) << i;
                EXPECT_EQ(rows[i]->getSpinner().getValue(),
                          static_cast<float>(std::nearbyint(std::clamp(255.0 * state.getPosition(strip), 0.0, 255.0))))
                    << i;
            }
        }
        EXPECT_NEAR(child<HwbSlice>().getPosition().hue, state.getHwb().hue, 1e-2F);
        EXPECT_NEAR(child<HwbSlice>().getPosition().blackness, state.getHwb().blackness, 1e-5F);
        EXPECT_NEAR(child<ColorSlider>().getPosition(), state.getHwb().whiteness, 1e-5F);
        EXPECT_EQ(describe(child<ColorDisplay>(1).getColor()), describe(state.getColor()));
        EXPECT_EQ(String(child<HexColorEdit>().getTextControl().GetValue().ToStdWstring()),
                  formatHexColor(state.getColor()));
    }

    wxWeakRef<ColorPicker> dialog;
    std::vector<std::string> log;
    std::string destroyAt = "never";
};

TEST_F(ColorPickerTest, ShowsEachEditInAllViews) {
    open();
    const auto rows = children<ColorSliderWithSpinner>();
    ASSERT_EQ(rows.size(), std::size(ROWS));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        dialog->setColor(START);
        ColorState state(true);
        state.setColor(START);
        ColorSlider& slider = rows[i]->getSlider();
        const wxPoint at(slider.GetClientSize().x / 3, 4);
        EXPECT_TRUE(clickAt(slider, at));
        state.editStrip(ROWS[i], findSliderPosition(at.x, slider.GetClientSize().x, scaleByDpi(5)),
                        rows[i]->getNumber());
        expectShown(state, "clicked on row " + std::to_string(i));
        EXPECT_EQ(log.back(), "changed " + describe(state.getColor()));

        dialog->setColor(START);
        state.setColor(START);
        const bool kelvin = ROWS[i] == ColorStrip::TEMPERATURE;
        type(text(rows[i]->getSpinner()), kelvin ? "3000" : "51");
        pressKey(WXK_RETURN);
        state.editStrip(ROWS[i], 0.2F, 3000);
        EXPECT_TRUE(pumpUntil([&] { return describe(dialog->getColor()) == describe(state.getColor()); })) << i;
        expectShown(state, "typed into row " + std::to_string(i));
    }

    ColorState state(true);
    state.setColor(dialog->getColor());
    HwbSlice& field = child<HwbSlice>();
    const wxSize size = field.GetClientSize();
    EXPECT_TRUE(clickAt(field, wxPoint(size.x / 2, size.y / 4)));
    state.editField(findFieldPosition({size.x / 2, size.y / 4}, {size.x, size.y}));
    expectShown(state, "field");
    ColorSlider& whiteness = child<ColorSlider>();
    EXPECT_TRUE(clickAt(whiteness, wxPoint(3, 20)));
    state.editStrip(ColorStrip::WHITE_SHARE, findSliderPosition(20, whiteness.GetClientSize().y, scaleByDpi(5)), 0);
    expectShown(state, "whiteness");
    log.clear();
    type(child<HexColorEdit>().getTextControl(), "8040c0");
    button("Reset").SetFocus();
    EXPECT_TRUE(pumpUntil([this] { return child<HexColorEdit>().getTextControl().GetValue() == "8040C0"; }));
    state.edit(parseHexColor("8040c0"));
    expectShown(state, "text");
    EXPECT_THAT(log, testing::Contains("changed 50 25 75 50"));
}

TEST_F(ColorPickerTest, TellsItsOwnerInOrder) {
    struct Case {
        const char* how;
        std::function<void()> end;
        std::vector<std::string> expected;
        int result;
    };
    const std::vector<std::string> cancelled{"changed 25 50 75 50", "cancel", "close"};
    const std::vector<Case> cases{
        {"OK", [this] { clickButton("OK"); }, {"changed 80 50 75 50", "accepted 80 50 75 50", "close"}, wxOK},
        {"Cancel", [this] { clickButton("Cancel"); }, cancelled, wxCANCEL},
        {"close box", [this] { dialog->Close(); }, cancelled, wxCANCEL},
        {"Escape", [this] { pressKey(WXK_ESCAPE); }, cancelled, wxCANCEL}};
    for (const Case& c : cases) {
        build();
        bool accepts = std::string("OK") == c.how;
        ModalDriver driver({[&] {
            if (ModalDriver::findActive<ColorPicker>() == nullptr) {
                return false;
            }
            // What is typed, and not set yet, counts when the button is pressed.
            type(text(child<ColorSliderWithSpinner>().getSpinner()), accepts ? "204" : "64");
            log.clear();
            c.end();
            return true;
        }});
        dialog->ShowModal();
        EXPECT_EQ(log, c.expected) << c.how;
        EXPECT_EQ(dialog->getCloseResult(), c.result) << c.how;
        dialog->Destroy();
        pump();
    }
}

TEST_F(ColorPickerTest, AddsColoursAndResets) {
    open(WITH_ALPHA, ADD_COLOR);
    clickButton("Add color");
    EXPECT_THAT(log, ElementsAre("accepted 25 50 75 50"));
    EXPECT_TRUE(dialog->IsShown());
    dialog->setColor({1, 0, 0, 0.9F});
    log.clear();
    clickButton("Reset");
    EXPECT_THAT(log, ElementsAre("reset", "changed 25 50 75 90", "changed 25 50 75 50", "after reset"));
    log.clear();
    dialog->setReferenceColor({0, 1, 0, 0.3F});
    EXPECT_THAT(log, IsEmpty());
    EXPECT_EQ(dialog->getColor(), (Rgb{0, 1, 0, 0.3F}));
    EXPECT_EQ(child<ColorDisplay>(0).getColor(), (Rgb{0, 1, 0, 0.3F}));
    dialog->Close();
    EXPECT_THAT(log, ElementsAre("changed 0 100 0 30", "cancel", "close"));
    EXPECT_FALSE(dialog->IsShown());
}

TEST_F(ColorPickerTest, ShowsTheSameColourInOtherNumbers) {
    open(WITHOUT_ALPHA, CONFIRM, {1, 0.5F, 0});
    const auto rows = children<ColorSliderWithSpinner>();
    ASSERT_EQ(rows.size(), std::size(ROWS) - 1) << "no alpha";
    wxTextCtrl& red = text(rows[0]->getSpinner());
    wxTextCtrl& green = text(rows[1]->getSpinner());
    EXPECT_EQ(red.GetValue(), "255");
    const std::pair<wxRadioButton*, const char*> ranges[] = {
        {&child<wxRadioButton>(1), "1.0"}, {&child<wxRadioButton>(2), "100.0"}, {&child<wxRadioButton>(0), "255"}};
    for (const auto& [radio, shown] : ranges) {
        click(*radio, middle(*radio));
        EXPECT_TRUE(pumpUntil([&] { return red.GetValue() == shown; })) << shown << ": " << red.GetValue();
        EXPECT_EQ(rows.back()->getSpinner().getValue(), 6500.0F) << "the temperature has a range of its own";
    }
    dialog->setRange(ColorPickerRange::UP_TO_1);
    CheckBox& srgb = child<CheckBox>();
    click(srgb, middle(srgb));
    EXPECT_TRUE(pumpUntil([this] { return dialog->getSpace() == ColorPickerSpace::LINEAR; }));
    EXPECT_EQ(green.GetValue(), "0.218");
    EXPECT_EQ(rows[4]->getSpinner().getValue(), 1.0F) << "only red, green and blue are in the space";
    EXPECT_EQ(dialog->getColor(), (Rgb{1, 0.5F, 0}));
    EXPECT_THAT(log, IsEmpty());
    type(green, "0.2176");
    pressKey(WXK_RETURN);
    EXPECT_TRUE(pumpUntil([this] { return !log.empty(); }));
    EXPECT_NEAR(dialog->getColor().green, 0.5F, 2e-3F);
    dialog->setColor({0, 0, 0, 0.3F});
    EXPECT_EQ(dialog->getColor().alpha, 1.0F);
}

TEST_F(ColorPickerTest, KeepsSpaceAndRangeInTheAccessor) {
    build();
    EXPECT_EQ(dialog->getSpace(), ColorPickerSpace::SRGB);
    EXPECT_EQ(dialog->getRange(), ColorPickerRange::UP_TO_255);
    EXPECT_TRUE(child<CheckBox>().getValue() && child<wxRadioButton>(0).GetValue());
    dialog->setSpace(ColorPickerSpace::LINEAR);
    dialog->setRange(ColorPickerRange::UP_TO_1);
    dialog->Close();
    dialog->Destroy();
    build();
    EXPECT_EQ(dialog->getSpace(), ColorPickerSpace::LINEAR);
    EXPECT_EQ(dialog->getRange(), ColorPickerRange::UP_TO_1);
    EXPECT_TRUE(!child<CheckBox>().getValue() && child<wxRadioButton>(1).GetValue());

    struct Own : ColorPicker::IGlobalStateAccessor {
        explicit Own(std::string& heard)
            : log(heard) {}
        ~Own() override { log += "destroyed"; }
        void setSpace(ColorPickerSpace space) override {
            log += "space " + std::to_string(static_cast<int>(space)) + " ";
        }
        ColorPickerSpace getSpace() override { return ColorPickerSpace::SRGB; }
        void setRange(ColorPickerRange range) override {
            log += "range " + std::to_string(static_cast<int>(range)) + " ";
        }
        ColorPickerRange getRange() override { return ColorPickerRange::PERCENT; }
        std::string& log;
    };
    std::string heard;
    ColorPicker::setGlobalStateAccessor(AutoPtr<ColorPicker::IGlobalStateAccessor>(new Own(heard)));
    dialog->Close();
    EXPECT_EQ(heard, "space 0 range 1 ");
    dialog->Destroy();
    build();
    EXPECT_EQ(dialog->getRange(), ColorPickerRange::PERCENT);
    ColorPicker::setGlobalStateAccessor({});
    EXPECT_EQ(heard, "space 0 range 1 destroyed");
    EXPECT_EQ(getAccessor().getRange(), ColorPickerRange::UP_TO_1) << "what the default one kept";
    EXPECT_THROW(dialog->setSpace(static_cast<ColorPickerSpace>(2)), Detail::StopException);
    EXPECT_THROW(dialog->setRange(static_cast<ColorPickerRange>(-1)), Detail::StopException);
    EXPECT_EQ(dialog->getRange(), ColorPickerRange::PERCENT);
}

TEST_F(ColorPickerTest, TakesColoursFromTheScreen) {
    open();
    panel().SetBackgroundColour(wxColour(255, 128, 0));
    frame().Refresh();
    settle();
    const char* const expected[] = {"changed 100 50 0 50", "changed 0 0 100 50"};
    for (std::size_t i = 0; i < 2; ++i) {
        log.clear();
        EyeDropperButton& dropper = child<EyeDropperButton>(i);
        movePointer(dropper, middle(dropper));
        settle();
        input().MouseDown();
        EXPECT_TRUE(pumpUntil([&] { return dropper.isPicking(); }));
        movePointer(panel(), wxPoint(5, 470));
        settle();
        releaseButton();
        EXPECT_THAT(log, ElementsAre(expected[i]));
    }
    wxChoice& averaging = child<wxChoice>();
    EXPECT_EQ(averaging.GetStringSelection(), "Point Sample");
    const std::pair<int, int> radii[] = {{4, 2}, {100, 15}, {-3, 0}};
    for (const auto& [asked, radius] : radii) {
        dialog->setEyeDropperAveragingRadius(asked);
        EXPECT_EQ(dialog->getEyeDropperAveragingRadius(), radius);
        EXPECT_EQ(EYE_DROPPER_AVERAGING_TABLE[static_cast<std::size_t>(averaging.GetSelection())].radius, radius);
    }
    wxCommandEvent chosen(wxEVT_CHOICE, averaging.GetId());
    chosen.SetInt(3);
    averaging.ProcessWindowEvent(chosen);
    EXPECT_EQ(child<EyeDropperButton>(0).averagingRadius, 5);
    EXPECT_EQ(child<EyeDropperButton>(1).averagingRadius, 5);
}

TEST_F(ColorPickerTest, MayGoWhileAnEyeDropperPicks) {
    for (const bool destroyed : {false, true}) {
        open();
        EyeDropperButton& dropper = child<EyeDropperButton>();
        movePointer(dropper, middle(dropper));
        settle();
        input().MouseDown();
        EXPECT_TRUE(pumpUntil([&] { return dropper.isPicking(); }));
        if (!destroyed) {
            pressKey(WXK_ESCAPE);
            EXPECT_TRUE(pumpUntil([&] { return !dropper.isPicking(); }));

            EXPECT_TRUE(dialog->IsShown()) << "the key ends the picking alone";
            wxMouseEvent again(wxEVT_LEFT_DOWN);
            dropper.ProcessWindowEvent(again);
            dialog->Close();
            EXPECT_FALSE(dropper.isPicking());
        }
        dialog->Destroy();
        EXPECT_TRUE(pumpUntil([this] { return !dialog; }));
        EXPECT_EQ(wxWindow::GetCapture(), nullptr);
        releaseButton();
    }
}

TEST_F(ColorPickerTest, MayBeDestroyedByAnyOfItsCallbacks) {
    for (const char* const when : {"changed", "cancel", "close", "accepted", "reset", "after reset"}) {
        destroyAt = when;
        open();
        clickButton(wxString(when).EndsWith("reset") ? "Reset" : wxString(when) == "accepted" ? "OK" : "Cancel");
        EXPECT_TRUE(pumpUntil([this] { return !dialog; })) << when;
        EXPECT_TRUE(log.back().starts_with(when) || std::string(when) == "reset") << log.back();
        log.clear();
    }
}

TEST_F(ColorPickerTest, ShowsColoursThatAreNone) {
    constexpr float ODD[] = {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                             -std::numeric_limits<float>::infinity(), -2.0F, 1e30F};
    open();
    for (const ColorPickerSpace space : {ColorPickerSpace::SRGB, ColorPickerSpace::LINEAR}) {
        dialog->setSpace(space);
        for (const float odd : ODD) {
            dialog->setReferenceColor({odd, odd, 0, odd});
            dialog->setColor({odd, 0.5F, 1, odd});
            EXPECT_EQ(std::isnan(dialog->getColor().red), std::isnan(odd));
            settle();
            wxTextCtrl& red = text(child<ColorSliderWithSpinner>().getSpinner());
            EXPECT_EQ(red.GetValue(), odd > 0 ? "255" : "0");
            EXPECT_TRUE(clickAt(child<HwbSlice>(), wxPoint(9, 9)));
            clickButton("Reset");
        }
    }
}

TEST_F(ColorPickerTest, IsLaidOutWithoutGapsAndClipping) {
    for (const auto format : {WITHOUT_ALPHA, WITH_ALPHA}) {
        open(format);
        const wxRect area = dialog->GetClientRect();
        for (wxWindow* const window : dialog->GetChildren()) {
            if (window->IsTopLevel()) {
                continue;
            }
            EXPECT_TRUE(area.Contains(window->GetRect())) << window->GetName();
            if (dynamic_cast<StaticText*>(window) != nullptr ||
                dynamic_cast<ColorSliderWithSpinner*>(window) != nullptr) {
                const wxSize best = window->GetBestSize();
                EXPECT_TRUE(window->GetSize().x >= best.x && window->GetSize().y >= best.y) << window->GetLabel();
            }
        }
        const wxRect field = child<HwbSlice>().GetRect();
        const wxRect whiteness = child<ColorSlider>().GetRect();
        EXPECT_GE(field.height, scaleByDpi(format == WITH_ALPHA ? 234 : 215));
        EXPECT_EQ(field.GetBottom(), whiteness.GetBottom());
        EXPECT_EQ(field.GetBottom(), child<ColorDisplay>(1).GetRect().GetBottom());
        const HwbSlice& slice = child<HwbSlice>();
        const wxImage image = paintOffScreen(field.GetSize(), [&](wxDC& dc) { slice.paint(dc); });
        EXPECT_NE(pixelAt(image, field.width - 1, field.height - 1), (PixelColour{255, 255, 255}))
            << "all of it is filled";
        std::vector<int> rights;
        for (StaticText* const label : children<StaticText>()) {
            if (label->GetLabel().EndsWith(":")) {
                rights.push_back(label->GetRect().GetRight());
            }
        }
        EXPECT_EQ(rights.size(), children<ColorSliderWithSpinner>().size() + 1);
        EXPECT_THAT(rights, testing::Each(rights.front()));
        dialog->Destroy();
        pump();
    }
}

} // namespace
} // namespace Ostrel::Wx
