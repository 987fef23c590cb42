#include <OstrelLibWx/widgets/ColorPicker.h>

#include <OstrelLib/Exceptions.h>
#include <OstrelLibWx/widgets/Button.h>
#include <OstrelLibWx/widgets/CheckBox.h>
#include <OstrelLibWx/widgets/Spinner.h>
#include <OstrelLibWx/widgets/StaticText.h>
#include <OstrelLibWx/widgets/TextControl.h>
#include <OstrelLibWx/widgets/Tooltip.h>

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

#include <set>

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
    void build(wxWindow* parent, ColorPicker::ColorFormat format = WITH_ALPHA, ColorPicker::DialogType type = CONFIRM) {
        dialog = new ColorPicker(parent, "Title", wxPoint(140, 130), START, type, format);
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
        build(&frame(), format, type);
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
    ColorSlider& slider(ColorStrip strip) { return row(static_cast<int>(strip)).getSlider(); }
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

    void expectFieldFilled() {
        const HwbSlice& slice = child<HwbSlice>();
        const wxSize size = slice.GetSize();
        EXPECT_EQ(slice.GetRect().GetBottom(), child<ColorDisplay>(1).GetRect().GetBottom());
        const wxImage image = paintOffScreen(size, [&](wxDC& dc) { slice.paint(dc); });
        EXPECT_LE(pixelAt(image, size.x - 1, size.y - 1).red, 1);
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
    moveFocus(&child<CheckBox>(), MoveFocusDirection::FORWARD);
    EXPECT_TRUE(pumpUntil([this] { return hex().HasFocus(); }));
}

TEST_F(ColorPickerTest, TellsItsOwnerInOrder) {
    using Log = std::vector<std::string>;
    const Log cancelled{"changed 25 50 75 50", "cancel", "close"};
    // What is typed, and not set yet, counts when the dialog is accepted.
    const Log accepted{"changed 80 50 75 50", "accepted 80 50 75 50", "close"};
    const std::pair<std::function<void()>, Log> ways[] = {
        {[this] { startClick(CONFIRMING); }, accepted},
        {[this] { input().Char(WXK_RETURN, wxMOD_CONTROL); }, accepted},
        {[this] { child<CheckBox>().SetFocus(), input().Char(WXK_RETURN); }, accepted},
        {[this] { child<Button>(RESET).doClick({}), child<Button>(CONFIRMING).doClick({}); },
         {"changed 80 50 75 50", "reset", "changed 25 50 75 50", "after reset", "accepted 25 50 75 50", "close"}},
        {[this] { startClick(CANCELLING); }, cancelled},
        {[this] { dialog->Close(); }, cancelled},
        {[this] { input().Char(WXK_ESCAPE); }, cancelled}};
    for (const auto& [end, expected] : ways) {
        build(&frame());
        const auto type = [this] { text(0).SelectAll(), input().Text("204"); };
        const ModalDriver driver(
            {[&] { return ModalDriver::findActive<ColorPicker>() != nullptr && (text(0).SetFocus(), true); },
             [&] { return text(0).HasFocus() && (type(), true); },
             [&] { return text(0).GetValue() == "204" && (end(), true); }});
        dialog->ShowModal();
        EXPECT_EQ(dialog->getCloseResult(), expected == cancelled ? wxCANCEL : wxOK);
        dialog->ShowWithoutActivating();
        EXPECT_EQ(dialog->getCloseResult(), wxCANCEL);
        destroy();
        EXPECT_EQ(log, expected);
        log.clear();
    }
}

TEST_F(ColorPickerTest, AddsColoursAndResets) {
    open(WITH_ALPHA, ADD_COLOR);
    EXPECT_EQ(child<Button>(CONFIRMING).GetLabel(), "Add color");
    clickButton(CONFIRMING);
    EXPECT_THAT(log, ElementsAre("accepted 25 50 75 50"));
    dialog->setColor({1, 0, 0, 0.9F});
    clickButton(RESET);
    EXPECT_THAT(log, ElementsAre("reset", "changed 25 50 75 90", "changed 25 50 75 50", "after reset"));
    log.clear();
    dialog->setReferenceColor({0, 1, 0, 0.3F});
    EXPECT_EQ(describe(child<ColorDisplay>(0).getColor()), describe(dialog->getColor()));
    dialog->onCancel = [this] {
        heard("cancel");
        dialog->Close();
    };
    dialog->Close();
    EXPECT_THAT(log, ElementsAre("changed 0 100 0 30", "cancel", "close"));
    EXPECT_FALSE(dialog->IsShown());
}

TEST_F(ColorPickerTest, ShowsTheSameColourInOtherNumbers) {
    open(WITHOUT_ALPHA);
    for (int radio = 0; radio < 3; ++radio) {
        auto& button = child<wxRadioButton>(radio);
        button.InvalidateBestSize(); // it was measured before it was shown
        EXPECT_GE(button.GetSize().x, button.GetBestSize().x);
        EXPECT_GE(button.GetSize().y, button.GetBestSize().y);
    }
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
        Own(std::string& log, ColorPickerSpace& given)
            : told(log)
            , kept(given) {}
        ~Own() override { told += "destroyed"; }
        void setSpace(ColorPickerSpace space) override { told += std::to_string(static_cast<int>(space)) + " "; }
        ColorPickerSpace getSpace() override { return kept; }
        void setRange(ColorPickerRange range) override { told += std::to_string(static_cast<int>(range)) + " "; }
        ColorPickerRange getRange() override { return ColorPickerRange::PERCENT; }
        std::string& told;
        const ColorPickerSpace& kept;
    };
    const auto expectOptions = [this](ColorPickerSpace space, ColorPickerRange range) {
        build(&frame());
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
    ColorPickerSpace space = ColorPickerSpace::SRGB;
    ColorPicker::setGlobalStateAccessor(std::make_unique<Own>(told, space));
    expectOptions(ColorPickerSpace::SRGB, ColorPickerRange::PERCENT);
    space = static_cast<ColorPickerSpace>(2);
    EXPECT_THROW(build(&frame()), Detail::StopException);
    ColorPicker::setGlobalStateAccessor({});
    EXPECT_EQ(told, "0 1 destroyed");
    expectOptions(ColorPickerSpace::LINEAR, ColorPickerRange::UP_TO_1);
}

TEST_F(ColorPickerTest, TakesColoursFromTheScreen) {
    open();
    panel().SetBackgroundColour(wxColour(255, 128, 0));
    frame().Refresh();
    for (const int index : {0, 1}) {
        startPicking(child<EyeDropperButton>(index));
        dragTo(panel(), wxPoint(5, 470));
        releaseButton();
    }
    EXPECT_THAT(log, ElementsAre("changed 100 50 0 50", "changed 0 0 100 50"));
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
        type(text(0), "204");
        clickButton(button);
        EXPECT_TRUE(pumpUntil([this] { return !dialog; })) << when;
        EXPECT_TRUE(log.back().starts_with(when)) << log.back();
    }
}

TEST_F(ColorPickerTest, EndsItsModalLoopBeforeItIsDestroyed) {
    frame().Hide(); // the toolkit hides no last window that is destroyed
    for (const bool byItsParent : {false, true}) {
        auto* const host = byItsParent ? new wxFrame(nullptr, wxID_ANY, "Host") : nullptr;
        build(host);
        const auto pick = [this] {
            wxMouseEvent down(wxEVT_LEFT_DOWN);
            down.SetEventObject(&child<EyeDropperButton>());
            child<EyeDropperButton>().ProcessWindowEvent(down);
            return child<EyeDropperButton>().isPicking();
        };
        const auto destroyOne = [&] { return byItsParent ? host->Destroy() : dialog->Destroy(); };
        const ModalDriver driver({[] { return ModalDriver::findActive<ColorPicker>() != nullptr; }, pick, destroyOne});
        EXPECT_EQ(dialog->ShowModal(), wxID_CANCEL);
        EXPECT_TRUE(pumpUntil([this] { return !dialog; }));
        EXPECT_EQ(wxWindow::GetCapture(), nullptr);
        EXPECT_TRUE(log.empty());
    }
    frame().Show();
}

TEST_F(ColorPickerTest, PaintsOnlyWhatADragChanges) {
    open();
    std::set<wxWindow*> painted;
    for (wxWindow* const window : std::initializer_list<wxWindow*>{
             &child<HwbSlice>(), &slider(HUE), &slider(TEMPERATURE), &slider(RED), &slider(GREEN)}) {
        window->Bind(wxEVT_PAINT, [&painted, window](wxPaintEvent& event) {
            painted.insert(window);
            event.Skip();
        });
    }
    dialog->setColor({0.2F, 1, 1}); // red changes the saturation alone
    EXPECT_TRUE(pumpUntil([&] { return painted.contains(&child<HwbSlice>()) && painted.contains(&slider(HUE)); }));
    settle();
    painted.clear();
    press(slider(RED), wxPoint(80, 5));
    dragTo(slider(RED), wxPoint(120, 5));
    EXPECT_TRUE(pumpUntil([&] { return painted.contains(&slider(GREEN)); }));
    releaseButton();
    settle();
    EXPECT_EQ(painted.size(), 2u) << "the marker's own strip, and those whose colours are others";
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

/// Its kind, its label, and the beginning and the length of its tooltip.
std::string describe(const wxWindow& window) {
    // Windows labels a panel with its name.
    const wxString label = window.GetLabel() == window.GetName() ? wxString() : window.GetLabel();
    std::string text = (window.GetName() + " " + label).ToStdString();
    for (const wxWindow* const child : window.GetChildren()) {
        if (const auto* const tooltip = dynamic_cast<const Tooltip*>(child)) {
            std::string lines;
            for (const String& line : tooltip->getLines()) {
                lines += line.toUtf8() + ' ';
            }
            text += ": " + lines.substr(0, 10) + "... " + std::to_string(lines.size() - 1);
        }
    }
    return text + "\n";
}

TEST_F(ColorPickerTest, IsMadeOfItsPartsInOrder) {
    const std::string range = ": Sets the r... 188\n";
    for (const bool alpha : {false, true}) {
        open(alpha ? WITH_ALPHA : WITHOUT_ALPHA);
        std::string parts;
        for (const wxWindow* const window : dialog->GetChildren()) {
            parts += describe(*window);
            EXPECT_TRUE(dialog->GetClientRect().Contains(window->GetRect())) << parts;
            EXPECT_TRUE(dynamic_cast<const StaticText*>(window) == nullptr ||
                        wxRect(window->GetSize()).Contains(wxRect(window->GetBestSize())))
                << parts;
        }
        EXPECT_EQ(parts, std::string("HwbSlice \nColorSlider \npanel \npanel \npanel \n") + (alpha ? "panel \n" : "") +
                             "panel \npanel \npanel \npanel \nEyeDropperButton : Pick Color... 203\n"
                             "EyeDropperButton : Pick Inver... 297\nchoice \nradioButton 0-255" +
                             range + "radioButton 0-1" + range + "radioButton 0-100%" + range +
                             "control sRGB: Selects wh... 481\n"
                             "HexColorEdit \nColorDisplay \nColorDisplay \nstaticText Hue\nstaticText Whiteness\n"
                             "staticText B\nl\na\nc\nk\nn\ne\ns\ns\nstaticText Red:\nstaticText Green:\n"
                             "staticText Blue:\n" +
                             (alpha ? "staticText Alpha:\n" : "") +
                             "staticText Hue:\nstaticText Sat:\nstaticText Value:\nstaticText Temp. [K]:\n"
                             "staticText Hex color:\nButton Reset\nButton OK\nButton Cancel\n");
        const int side = alpha ? 234 : 215;
        EXPECT_EQ(child<HwbSlice>().GetMinSize(), scaleByDpi(wxSize(side, side)));
        EXPECT_EQ(child<ColorSlider>().GetMinSize(), scaleByDpi(wxSize(23, 194)));
        for (const auto& [button, width] : {std::pair{RESET, 40}, {CONFIRMING, 120}, {CANCELLING, 120}}) {
            EXPECT_EQ(child<Button>(button).GetMinSize(), scaleByDpi(wxSize(width, 24)));
        }
        expectFieldFilled();
        destroy();
    }
}

} // namespace
} // namespace Ostrel::Wx
