#include "models/ColorState.h"
#include "models/ColorConversion.h"

#include <OstrelLib/Exceptions.h>

#include "core/Printing.h"

#include <gtest/gtest.h>

namespace Ostrel::Wx {
namespace {

using enum ColorStrip;

constexpr ColorStrip ALL_STRIPS[] = {RED, GREEN, BLUE, ALPHA, HUE, SATURATION, VALUE, TEMPERATURE, WHITE_SHARE};

// With the hue 220, the saturation 0.75, the value 1, the whiteness 0.25, the blackness 0.
constexpr Rgb START{0.25F, 0.5F, 1, 0.5F};

template <class Edit>
void expectEdit(const Rgb& expected, const Edit& edit) {
    ColorState state(true);
    state.setColor(START);
    edit(state);
    const Rgb& color = state.getColor();
    EXPECT_NEAR(color.red, expected.red, 1e-6F);
    EXPECT_NEAR(color.green, expected.green, 1e-6F);
    EXPECT_NEAR(color.blue, expected.blue, 1e-6F);
    EXPECT_EQ(color.alpha, START.alpha);
    EXPECT_EQ(state.getHsv(), rgbToHsv(color));
    EXPECT_EQ(state.getHwb(), hsvToHwb(state.getHsv()));
}

TEST(ColorState, ChangesOneThingWithEachEdit) {
    struct {
        ColorStrip strip;
        float position;
        Rgb expected;
    } const cases[] = {{RED, 0.75F, {0.75F, 0.5F, 1}},           {BLUE, 0.25F, {0.25F, 0.5F, 0.25F}},
                       {HUE, 1.0F / 3, {0.25F, 1, 0.25F}},       {HUE, 1, {1, 0.25F, 0.25F}},
                       {SATURATION, 1, {0, 1.0F / 3, 1}},        {VALUE, 0.5F, {0.125F, 0.25F, 0.5F}},
                       {WHITE_SHARE, 0.5F, {0.5F, 2.0F / 3, 1}}, {TEMPERATURE, 0.1F, {1, 1, 1}}};
    for (const auto& [strip, position, expected] : cases) {
        SCOPED_TRACE(static_cast<int>(strip));
        expectEdit(expected, [&](ColorState& state) { state.editStrip(strip, position, 6500); });
    }
    for (const auto& [blackness, expected] : {std::pair{0.5F, Rgb{0.5F, 0.25F, 0.25F}}, {1.0F, {0.2F, 0.2F, 0.2F}}}) {
        expectEdit(expected, [&](ColorState& state) { state.editField({0, blackness}); });
    }
    expectEdit({0.5F, 1, 0.25F}, [](ColorState& state) { state.editNeutralizing(Rgb(0.5F, 0.25F, 1)); });
    expectEdit({-2, 7, 0.5F}, [](ColorState& state) { state.edit(Rgb(-2, 7, 0.5F, 0.1F)); });
}

TEST(ColorState, KeepsNoHueOnAGreyAndNoSaturationOnBlack) {
    ColorState state(false);
    state.setColor({0, 1, 0});
    state.editStrip(SATURATION, 0, 0);
    state.editStrip(HUE, 0.5F, 0);
    EXPECT_EQ(state.getHsv(), (Hsv{0, 0, 1}));
    state.setColor({0, 1, 0});
    state.editStrip(VALUE, 0, 0);
    EXPECT_EQ(state.getHsv(), Hsv{});
}

TEST(ColorState, TakesAlphaAloneAndColoursItsStripsAsTheyAre) {
    ColorState state(true);
    state.setColor(START);
    state.editStrip(ALPHA, 0.9F, 0);
    EXPECT_EQ(state.getColor(), (Rgb{START.red, START.green, START.blue, 0.9F}));
    state.editStrip(GREEN, -0.5F, 0);
    EXPECT_EQ(state.getColor(), (Rgb{START.red, -0.5F, START.blue, 0.9F}));

    const auto bytes = [&state](ColorStrip strip, float position) {
        return toRgbBytes(state.getStripColor(strip, position));
    };
    EXPECT_EQ(bytes(ALPHA, 0.499F), (RgbBytes{127, 127, 127})) << "cut off";
    EXPECT_EQ(bytes(HUE, 0.25F), (RgbBytes{128, 255, 0}));
    EXPECT_EQ(bytes(GREEN, 0.2F), (RgbBytes{64, 51, 255}));
    EXPECT_EQ(state.getStripColor(TEMPERATURE, 0.5F), temperatureToRgb((1700 + 15000) / 2.0F));
}

/// A strip that is said to be the same has the same colours; one that is said to be another has not.
TEST(ColorState, KnowsWhichStripsChange) {
    ColorState before(true);
    before.setColor({0.25F, 0.5F, 0.75F, 0.5F});
    for (const ColorStrip edited : ALL_STRIPS) {
        ColorState after = before;
        after.editStrip(edited, 0.9F, 3000);
        for (const ColorStrip strip : ALL_STRIPS) {
            bool same = true;
            for (const float position : {0.0F, 0.4F, 1.0F}) {
                same = same && toRgbBytes(before.getStripColor(strip, position)) ==
                                   toRgbBytes(after.getStripColor(strip, position));
            }
            EXPECT_EQ(before.hasSameStrip(strip, after), same)
                << static_cast<int>(edited) << " on " << static_cast<int>(strip);
        }
    }
}

TEST(ColorOptions, MapThereAndBackAndStopAtWhatIsNone) {
    using enum PositionValueMap;
    EXPECT_NEAR(mapLinearSpace(-0.5F, POSITION_TO_VALUE), -0.21764F, 1e-5F);
    EXPECT_NEAR(mapLinearSpace(0.21764F, VALUE_TO_POSITION), 0.5F, 1e-5F);
    ColorState state(false);
    const auto expectStop = [](int line, const auto& misuse) {
        try {
            misuse();
            ADD_FAILURE() << line;
        } catch (const Detail::StopException& stop) {
            EXPECT_TRUE(stop.getPath() == "widgets/ColorPicker" && stop.getLine() == line) << stop.getLine();
        }
    };
    expectStop(829, [&] { state.setRange(static_cast<ColorPickerRange>(3)); });
    expectStop(862, [] { (void)mapLinearSpace(0.5F, static_cast<PositionValueMap>(2)); });
    expectStop(872, [&] { state.setSpace(static_cast<ColorPickerSpace>(-1)); });
}

} // namespace
} // namespace Ostrel::Wx
