#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/widgets/ColorPickerOptions.h>

#include "models/ColorConversion.h"
#include "models/ColorSliderLayout.h"

#include <array>

namespace Ostrel::Wx {

/// What the colour picker shows as a strip of colours with a marker.
enum class ColorStrip { RED, GREEN, BLUE, ALPHA, HUE, SATURATION, VALUE, TEMPERATURE, WHITE_SHARE };

constexpr SliderRange TEMPERATURE_RANGE_KELVIN{1700, 15000};

/// How the number of a row is shown and entered.
struct ChannelNumbers {
    SliderRange range;
    int digits;
    float increment;
};

/// How wide an eye dropper averages.
struct EyeDropperAveraging {
    int radius;
    const char* label;
};

using EyeDropperAveragingTable = std::array<EyeDropperAveraging, 5>;

constexpr EyeDropperAveragingTable EYE_DROPPER_AVERAGING_TABLE{{
    {0, "Point Sample"},
    {1, "3 by 3 Average"},
    {2, "5 by 5 Average"},
    {5, "11 by 11 Average"},
    {15, "31 by 31 Average"},
}};

/// The row of the table with the largest radius that is not above this one, or else the first.
[[nodiscard]] std::size_t findEyeDropperAveraging(int radius);

/// The map of the linear space: a number is the position to the power of 2.2, and a position the number to the power of
/// 1/2.2. Below 0 it goes on as a mirror image.
/// @throws Detail::StopException for what is no direction
[[nodiscard]] float mapLinearSpace(float fraction, PositionValueMap direction);

/// The numbers of a range. @throws Detail::StopException for what is none
[[nodiscard]] ChannelNumbers getChannelNumbers(ColorPickerRange range);

/// The map of a space. @throws Detail::StopException for what is none
[[nodiscard]] PositionValueFunction getSpaceMap(ColorPickerSpace space);

/// The colour of the colour picker, and everything that a user does to it.
///
/// The colour stands in three forms, which change together. Hue and saturation are found anew from each new colour: no
/// view keeps a hue on a grey, or a saturation on black.
class ColorState {
public:
    /// Black, with the numbers of sRGB up to 255. Without alpha, every colour that is given gets the alpha 1.
    explicit ColorState(bool withAlpha)
        : _withAlpha(withAlpha) {
        setColor({});
    }

    [[nodiscard]] const Rgb& getColor() const { return _color; }
    [[nodiscard]] const Hsv& getHsv() const { return _hsv; }
    [[nodiscard]] const Hwb& getHwb() const { return _hwb; }
    [[nodiscard]] const Rgb& getReference() const { return _reference; }
    [[nodiscard]] bool hasAlpha() const { return _withAlpha; }

    void setColor(const Rgb& color);

    /// Makes it the current colour as well.
    void setReference(const Rgb& color);

    /// @throws Detail::StopException for what is none
    void setSpace(ColorPickerSpace space);
    [[nodiscard]] ColorPickerSpace getSpace() const { return _space; }

    /// @throws Detail::StopException for what is none
    void setRange(ColorPickerRange range);
    [[nodiscard]] ColorPickerRange getRange() const { return _range; }

    // Edits. Each but `editAlpha` leaves the alpha as it is.

    /// Another colour from a text or from the screen.
    void edit(const Rgb& color);

    /// The tint that neutralizes a sample.
    void editNeutralizing(const Rgb& sample) { edit(computeNeutralizingTint(sample)); }

    /// A strip's marker was moved. `number` is the one beside it; it counts for the temperature alone, which is not
    /// found back exactly from its position.
    void editStrip(ColorStrip strip, float position, float number);

    void editField(FieldPosition position);
    void editAlpha(float alpha) { _color.alpha = alpha; }

    // What is shown.

    /// Where the marker of a strip belongs; not limited to the strip. The temperature has none: 0.
    [[nodiscard]] float getPosition(ColorStrip strip) const;

    [[nodiscard]] FieldPosition getFieldPosition() const { return {_hwb.hue, _hwb.blackness}; }

    /// The colour of a strip at a position.
    [[nodiscard]] Rgb getStripColor(ColorStrip strip, float position) const;

    /// Whether a strip has the same colours as in another state.
    [[nodiscard]] bool hasSameStrip(ColorStrip strip, const ColorState& other) const;

private:
    /// The two channels that a strip's colours depend on besides the position; zeros where there are none.
    [[nodiscard]] std::array<float, 2> getStripGround(ColorStrip strip) const;

    [[nodiscard]] Rgb limitAlpha(const Rgb& color) const;

    bool _withAlpha;
    Rgb _color{}; ///< its alpha is that of the two forms below as well
    Hsv _hsv{};
    Hwb _hwb{};
    Rgb _reference{};
    ColorPickerSpace _space = ColorPickerSpace::SRGB;
    ColorPickerRange _range = ColorPickerRange::UP_TO_255;
};

} // namespace Ostrel::Wx
