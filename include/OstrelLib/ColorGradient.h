#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Export.h>
#include <OstrelLib/Types.h>

#include <cstddef>

namespace Ostrel {

/// A colour at a place of a gradient; [0, 1] is the customary range of places, any float is allowed.
struct ColorGradientPoint {
    Hsv color;
    float position = 0.0F;

    friend constexpr bool operator==(const ColorGradientPoint& a, const ColorGradientPoint& b) noexcept = default;
};

/// A run of colours through control points. The points are kept sorted by position, in the order of their insertion
/// where positions are equal and NaN last; only `setPoint` leaves them as they are, so that an index stays good while
/// its point is dragged, until `sortPoints`. Colours are right in any order.
///
/// An index that is none raises the stop exception ("ColorGradient") and changes nothing.
class OSTREL_API ColorGradient {
public:
    /// No points.
    ColorGradient() = default;

    /// Sorts the points.
    explicit ColorGradient(Array<ColorGradientPoint> points);

    [[nodiscard]] const Array<ColorGradientPoint>& getPoints() const noexcept;

    /// Replaces all points and sorts them.
    void setPoints(Array<ColorGradientPoint> points);

    /// Replaces one point where it stands in the list, whatever its new position.
    void setPoint(std::size_t index, const ColorGradientPoint& point);

    /// Adds a point, sorts all of them and finds the new one again.
    /// @return the index of the first point that equals it
    /// @throws Detail::StopException ("utility/ColorGradient", line 115) when nothing equals it, that is when it holds
    ///         a NaN; the gradient is then unchanged
    std::size_t insert(const ColorGradientPoint& point);

    /// Removes one point; the later ones move down one place.
    void erase(std::size_t index);

    void sortPoints();

    /// The colour at a position: the mean of the two neighbours' linear RGB, weighted by nearness, back in HSV. On a
    /// point it is exactly that point's colour, beyond the outermost ones exactly theirs. Of points at one position the
    /// first in the list ends what comes before and the last begins what follows, itself included. Points at NaN or
    /// infinite positions do not count; NaN asks for the lowest position. Without points it is black.
    [[nodiscard]] Hsv getColorAt(float position) const noexcept;

    friend bool operator==(const ColorGradient& a, const ColorGradient& b) noexcept = default;

private:
    Array<ColorGradientPoint> _points;
};

} // namespace Ostrel
