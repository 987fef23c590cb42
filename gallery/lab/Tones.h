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
/// Each colour has one table for all of this. Curves are flat outside of their points, so the table's ends are exact.
/// Between them it is read linearly, from at least 4096 cells to a unit of the value up to a width of 4: the error is
/// an eighth of the second derivative times the square of the cell, below 1/8 of a byte for a spline that goes from 0
/// to 1 between points 0.01 apart, and far below for others. A step is as wide as one cell.
class ToneTables {
public:
    ToneTables(const ColorCurve& curves, PictureValues values);

    /// The shown colours, opaque, of as many values; both may be the same memory. Not clamped: curves may leave [0, 1].
    /// NaN counts as a value before the first point.
    void apply(ArrayView<const Rgb> values, ArrayView<Rgb> shown) const noexcept;

private:
    /// What becomes of one colour.
    struct Table {
        float from = 0.0F; ///< the value at the first cell's edge
        float cellsPerUnit = 1.0F;
        float cellCount = 1.0F;
        Array<float> edges; ///< shown, at the cells' edges; the last one twice
    };

    static Table makeTable(const Curve& own, const Curve& master, PictureValues values);
    static void applyTable(const Table& table, float Rgb::*colour, ArrayView<const Rgb> values,
                           ArrayView<Rgb> shown) noexcept;

    std::array<Table, 3> _tables;
};

} // namespace Ostrel::Gallery
