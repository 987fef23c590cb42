#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Curve.h>
#include <OstrelLib/Types.h>

#include <array>

namespace Ostrel::Gallery {

/// What the values of a picture are.
enum class PictureValues {
    STORED, ///< bytes over 255, as the screen takes them
    LIGHT,  ///< amounts of light, from 0 up without a limit
};

/// The stored value, 0 to 1, of an amount of light: the transfer curve of sRGB, IEC 61966-2-1. NaN counts as 0.
[[nodiscard]] float encodeSrgb(float light);

/// What a picture value looks like once the curves have been applied: first the colour's own curve, then Master over
/// the whole, which is the order of most programs that have such curves; light is encoded for the screen after that. A
/// curve that is the identity is passed over, so that values above 1 reach the other one.
///
/// Each colour has a table for all of this, which is read linearly between the edges of its cells. From 0 to 4 there
/// are at least 4096 cells to a unit of the value; what lies beyond, if the curve has points there, shares 16384 cells
/// over the whole of it. Curves are flat outside of their points, so the table's ends are exact. Elsewhere the error is
/// an eighth of the second derivative times the square of the cell: below 1/8 of a byte for a spline that goes from 0
/// to 1 between points 41 cells apart, which is 0.01 from 0 to 4, and less with the square of their distance. Light
/// adds to it where the curve rises out of black, at which the encoding bends: a fifth of a byte for each unit of the
/// curve's slope, in that one cell. A step is as wide as one cell.
class ToneTables {
public:
    ToneTables(const ColorCurve& curves, PictureValues values);

    /// The shown colours, opaque, of as many values; both may be the same memory. Not clamped: curves may leave [0, 1].
    /// NaN counts as a value before the first point.
    void apply(ArrayView<const Rgb> values, ArrayView<Rgb> shown) const noexcept;

private:
    /// What becomes of a range of values.
    struct Cells {
        float from = 0.0F; ///< the value at the first cell's edge
        float perUnit = 1.0F;
        float count = 1.0F;
        Array<float> edges; ///< shown, at the cells' edges; the last one twice
    };

    /// What becomes of one colour.
    struct Table {
        float denseFrom = 0.0F; ///< values from here to `denseTo` are read from `dense`, all others from `whole`
        float denseTo = -1.0F;
        Cells dense;
        Cells whole;
    };

    static Table makeTable(const Curve& own, const Curve& master, PictureValues values);
    static Cells makeCells(const Curve& own, const Curve& master, PictureValues values, float from, float to,
                           std::size_t count);
    static void applyTable(const Table& table, float Rgb::*colour, ArrayView<const Rgb> values,
                           ArrayView<Rgb> shown) noexcept;

    std::array<Table, 3> _tables;
};

} // namespace Ostrel::Gallery
