#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>

#include "models/PixelConversion.h"

/// Where a position lies on a strip, a hue and a blackness on a field, and which ones lie at a pixel. All lengths are
/// client pixels; an area of no size at all is allowed.
namespace Ostrel::Wx {

/// A direction of the map between a strip and the number beside it.
enum class PositionValueMap : int {
    POSITION_TO_VALUE = 0,
    VALUE_TO_POSITION = 1,
};

/// Maps positions to fractions of a number's range, and back. Empty: they are the same.
using PositionValueFunction = Function<float(float, PositionValueMap)>;

/// The range of the number beside a strip. An empty one has its minimum alone.
struct SliderRange {
    int min = 0;
    int max = 255;
};

/// The number at a position. One that is no number counts as 0.
[[nodiscard]] float computeSliderNumber(float position, SliderRange range, const PositionValueFunction& map);

/// The position of a number.
[[nodiscard]] float computeSliderPosition(float number, SliderRange range, const PositionValueFunction& map);

/// The position at the mouse, in [0, 1]. The mouse leads the marker's first edge and not its middle: this is meant.
/// @param mouse its coordinate along the strip
[[nodiscard]] float findSliderPosition(int mouse, int length, int markerThickness) noexcept;

/// Where the marker begins. It stays on the strip, whatever the position.
[[nodiscard]] int computeSliderMarker(float position, int length, int markerThickness) noexcept;

/// The position whose colour a pixel of the strip shows: 0 at the first and 1 at the last.
[[nodiscard]] float getStripPosition(int pixel, int length) noexcept;

/// A point of the field of hue, across, and blackness, down.
struct FieldPosition {
    float hue = 0.0F; ///< degrees
    float blackness = 0.0F;

    friend constexpr bool operator==(const FieldPosition& a, const FieldPosition& b) noexcept = default;
};

/// What lies at the mouse: hue in [0, 360], blackness in [0, 1].
[[nodiscard]] FieldPosition findFieldPosition(Pixel mouse, Pixel size) noexcept;

/// The middle of the marker. It stays on the field or at its end, whatever the position.
[[nodiscard]] Pixel computeFieldMarker(FieldPosition position, Pixel size) noexcept;

/// The pixels of the field, a row at a time. The hue is found once for each column and the value once for each row.
class ColorField {
public:
    /// @param order without alpha
    ColorField(Pixel size, Detail::ByteOrder order);

    /// Writes row `y`, with the whiteness 0: the bytes are those of `hsvToRgb` for each pixel.
    void writeRow(int y, unsigned char* bytes) const;

private:
    int _height;
    Array<float> _darkening; ///< for each channel of each column, how much of its value it loses
};

} // namespace Ostrel::Wx
